// SPDX-License-Identifier: MIT
// The one place where bytes of documents become text and text becomes bytes. Inside qn text is
// UTF-8; documents are UTF-8 with or without mark, UTF-16 with or without, or in the code page.
//
// Nothing is lost silently: what is no text in its encoding is refused, and so is a character that
// an encoding lacks, unless the user has said --lossy.
#ifndef QN_TEXT_ENCODING_H_
#define QN_TEXT_ENCODING_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace qn {

enum class Charset { kUtf8, kUtf16Le, kUtf16Be, kCodePage };

struct Encoding {
  Charset charset = Charset::kUtf8;
  bool mark = false;

  bool operator==(const Encoding&) const = default;
};

// "UTF-8 with mark", "code page" ... for people.
std::string NameOf(const Encoding& encoding);

// From "utf-8", "utf-8-mark", "utf-16le", "utf-16be" (both with mark) or "code-page". Throws
// UsageError.
Encoding EncodingFromName(std::string_view name);

// The encoding of text by its mark or, without one, by what it holds: zero bytes in every other
// place of its start mean UTF-16; what is well-formed UTF-8 is UTF-8; anything else is in the code
// page.
Encoding DetectEncoding(std::string_view bytes);

// Whether the text is the same in UTF-8 and in the code page.
bool IsAscii(std::string_view text);

// Turns bytes into text piece by piece. The encoding is found with the first byte that tells it.
class TextDecoder {
 public:
  // name is that of the document, for messages. A given encoding is taken as it is; a mark is then
  // skipped all the same.
  explicit TextDecoder(std::string name, std::optional<Encoding> encoding = std::nullopt,
                       bool lossy = false);

  // The text of the next bytes; what is cut at their end waits for the next. Throws Failure when
  // the bytes are no text; with lossy they become U+FFFD.
  std::string Decode(std::string_view bytes, bool last);

  // UTF-8 as long as nothing else is known.
  Encoding Found() const { return encoding_.value_or(Encoding()); }

  // Whether all text so far is ASCII, so that UTF-8 and the code page cannot be told apart.
  bool OnlyAscii() const { return only_ascii_; }

 private:
  void Start();
  void Settle(bool last);
  std::size_t WholeLength(bool last) const;
  std::string Take(std::size_t length);
  std::string DecodePiece(std::string_view bytes) const;
  std::string Replace(std::string_view bytes) const;

  std::string name_;
  std::optional<Encoding> encoding_;
  bool lossy_;
  bool started_ = false;
  bool settled_ = false;
  bool only_ascii_ = true;
  std::string pending_;
  unsigned long long done_ = 0;  // bytes
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
