// SPDX-License-Identifier: MIT
#include "qn/json/document.h"

#include <utility>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/input_file.h"
#include "qn/output.h"
#include "qn/text/excerpt.h"

namespace qn {

using quarnfc::ext::JsonTextError;
using quarnfc::ext::JsonTextLimits;

namespace {

// Reading takes no stack, so that any depth may be read.
constexpr JsonTextLimits kAnyDepth = {0xFFFFFFFF};

}  // namespace

JsonDocument::JsonDocument(const std::string& path, std::optional<Encoding> encoding)
    : name_(path == "-" ? "standard input" : DisplayText(path)), bytes_(ReadInput(path)) {
  Document document = DecodeDocument(bytes_, name_, encoding);
  encoding_ = document.encoding;
  original_ = document.text;
  Change(document.text);
}

void JsonDocument::Change(const std::string& text) {
  JsonTextError error;
  if (json_.Parse(text, &error, kAnyDepth)) return;
  throw Failure(DescribeJsonError(name_, text, error));
}

Encoding JsonDocument::EncodingFor(const SaveOptions& options) const {
  if (options.encoding) return *options.encoding;
  const bool told = encoding_ != Encoding() || !IsAscii(original_);
  if (told || IsAscii(json_.Text())) return encoding_;
  // The library's readers take text without mark for text in the code page.
  PrintNote(name_ + " was plain ASCII and is written in the code page now; --encoding chooses");
  return {Charset::kAnsi, false};
}

void JsonDocument::Save(const SaveOptions& options) const {
  const Encoding encoding = EncodingFor(options);
  // Some characters have two codes. Then the text would not come back as the same bytes.
  if (encoding == encoding_ && !options.lossy &&
      EncodeDocument(original_, encoding_, false) != bytes_) {
    throw Failure(name_ +
                  ": bytes that need no change would change with the encoding; --lossy"
                  " writes all the same");
  }
  Output output(options.output);
  output.Write(EncodeDocument(json_.Text(), encoding, options.lossy));
  output.Commit();
}

std::string DescribeJsonError(const std::string& name, std::string_view text,
                              const JsonTextError& error) {
  return name + ":" + std::to_string(error.line) + ":" + std::to_string(error.column) + ": " +
         error.Message() + "\n" + Excerpt(text, error.offset);
}

std::string CountOf(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string DescribeJsonRoot(const quarnfc::ext::JsonTextNode& root) {
  if (root.IsObject()) return "an object with " + CountOf(root.Count(), "member");
  if (root.IsArray()) return "an array with " + CountOf(root.Count(), "element");
  return "a single value";
}

}  // namespace qn
