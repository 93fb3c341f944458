// SPDX-License-Identifier: MIT
// Where bytes of documents become text and text becomes bytes, by the library. Inside qn text is
// UTF-8; documents are UTF-8 with or without mark, UTF-16 with or without, or in the code page.
//
// Nothing is lost silently: what is no text in its encoding is refused, and so is a character that
// an encoding lacks, unless the user has said --lossy.
#ifndef QN_TEXT_ENCODING_H_
#define QN_TEXT_ENCODING_H_

#include <quarnfc/ext/encoded_text.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace qn {

using quarnfc::ext::Charset;
using quarnfc::ext::DetectEncoding;
using quarnfc::ext::IsAscii;
using Encoding = quarnfc::ext::TextEncoding;

// "UTF-8 with mark", "code page" ... for people.
std::string NameOf(const Encoding& encoding);

// From "utf-8", "utf-8-mark", "utf-16le", "utf-16be" (both with mark) or "code-page". Throws
// UsageError.
Encoding EncodingFromName(std::string_view name);

// Turns bytes into text piece by piece. The encoding is found with the first byte that tells it.
class TextDecoder {
 public:
  // name is that of the document, for messages. A given encoding is taken as it is; a mark is then
  // skipped all the same.
  explicit TextDecoder(std::string name, std::optional<Encoding> encoding = std::nullopt,
                       bool lossy = false)
      : name_(std::move(name)), decoder_(encoding, lossy) {}

  // The text of the next bytes; what is cut at their end waits for the next. Throws Failure when
  // the bytes are no text; with lossy they become U+FFFD.
  std::string Decode(std::string_view bytes, bool last);

  // UTF-8 as long as nothing else is known.
  Encoding Found() const { return decoder_.Found(); }

  // Whether all text so far is ASCII, so that UTF-8 and the code page cannot be told apart.
  bool OnlyAscii() const { return decoder_.OnlyAscii(); }

 private:
  std::string name_;
  quarnfc::ext::TextDecoder decoder_;
};

// A whole document.
struct Document {
  std::string text;
  Encoding encoding;
};
Document DecodeDocument(std::string_view bytes, const std::string& name,
                        std::optional<Encoding> encoding = std::nullopt, bool lossy = false);

// The mark of an encoding that has one, else "".
std::string_view MarkOf(const Encoding& encoding);

// Text as bytes, without mark. Throws Failure for the first character that the encoding lacks;
// with lossy it becomes "?".
std::string EncodeText(std::string_view text, const Encoding& encoding, bool lossy);

// Mark and text.
std::string EncodeDocument(std::string_view text, const Encoding& encoding, bool lossy);

}  // namespace qn

#endif  // QN_TEXT_ENCODING_H_
