// SPDX-License-Identifier: MIT
#include "qn/text/encoding.h"

#include <algorithm>
#include <cstdio>

#include "qn/console.h"
#include "qn/errors.h"

namespace qn {
namespace {

struct NamedEncoding {
  std::string_view name;   // on the command line
  std::string_view title;  // for people
  Encoding encoding;
};

constexpr NamedEncoding kEncodings[] = {
    {"utf-8", "UTF-8", {Charset::kUtf8, false}},
    {"utf-8-mark", "UTF-8 with mark", {Charset::kUtf8, true}},
    {"utf-16le", "UTF-16 (little-endian)", {Charset::kUtf16Le, true}},
    {"utf-16be", "UTF-16 (big-endian)", {Charset::kUtf16Be, true}},
    {"code-page", "code page", {Charset::kAnsi, false}},
    {"", "UTF-16 (little-endian) without mark", {Charset::kUtf16Le, false}},
    {"", "UTF-16 (big-endian) without mark", {Charset::kUtf16Be, false}},
};

const NamedEncoding& Entry(const Encoding& encoding) {
  return *std::find_if(std::begin(kEncodings), std::end(kEncodings),
                       [&](const NamedEncoding& each) { return each.encoding == encoding; });
}

[[noreturn]] void RefuseLoss(std::string_view text, const quarnfc::ext::TextLoss& loss) {
  char name[16];
  std::snprintf(name, sizeof(name), "U+%04X", static_cast<unsigned>(loss.character));
  throw Failure("the code page lacks the character '" +
                std::string(text.substr(loss.offset, loss.length)) + "' (" + name +
                "); --lossy writes '?' in its place");
}

}  // namespace

std::string NameOf(const Encoding& encoding) { return std::string(Entry(encoding).title); }

Encoding EncodingFromName(std::string_view name) {
  for (const NamedEncoding& each : kEncodings) {
    if (!each.name.empty() && each.name == name) return each.encoding;
  }
  throw UsageError("'" + DisplayText(name) +
                   "' is no encoding; there are utf-8, utf-8-mark, utf-16le, utf-16be, code-page");
}

std::string TextDecoder::Decode(std::string_view bytes, bool last) {
  std::string text;
  if (decoder_.Decode(bytes, last, text)) return text;
  const Encoding found = {Found().charset, false};
  throw Failure(name_ + ": byte " + std::to_string(decoder_.ErrorOffset()) + " is no text in " +
                NameOf(found) +
                (found.charset == Charset::kAnsi ? ", and the file is no UTF-8" : ""));
}

Document DecodeDocument(std::string_view bytes, const std::string& name,
                        std::optional<Encoding> encoding, bool lossy) {
  TextDecoder decoder(name, encoding, lossy);
  std::string text = decoder.Decode(bytes, true);
  return {std::move(text), decoder.Found()};
}

std::string_view MarkOf(const Encoding& encoding) {
  return encoding.mark ? quarnfc::ext::ByteOrderMark(encoding.charset) : "";
}

std::string EncodeText(std::string_view text, const Encoding& encoding, bool lossy) {
  // Text that is no UTF-8, such as an argument, goes through as it is where nothing is converted.
  if (encoding.charset == Charset::kUtf8) return std::string(text);
  if (lossy) return quarnfc::ext::EncodeTextLossy(text, encoding);
  quarnfc::ext::TextLoss loss;
  std::optional<std::string> bytes = quarnfc::ext::EncodeText(text, encoding, &loss);
  if (!bytes) RefuseLoss(text, loss);
  return *std::move(bytes);
}

std::string EncodeDocument(std::string_view text, const Encoding& encoding, bool lossy) {
  return std::string(MarkOf(encoding)) + EncodeText(text, encoding, lossy);
}

}  // namespace qn
