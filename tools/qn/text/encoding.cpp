// SPDX-License-Identifier: MIT
#include "qn/text/encoding.h"

#include <quarnfc/ext/utf8_text.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/os.h"

namespace qn {
namespace {

using quarnfc::ext::AppendUtf8;
using quarnfc::ext::FindInvalidUtf8;
using quarnfc::ext::Utf8CharLength;

struct NamedEncoding {
  std::string_view name;   // on the command line
  std::string_view title;  // for people
  std::string_view mark;
  Encoding encoding;
};

constexpr NamedEncoding kEncodings[] = {
    {"utf-8", "UTF-8", "", {Charset::kUtf8, false}},
    {"utf-8-mark", "UTF-8 with mark", "\xEF\xBB\xBF", {Charset::kUtf8, true}},
    {"utf-16le", "UTF-16 (little-endian)", "\xFF\xFE", {Charset::kUtf16Le, true}},
    {"utf-16be", "UTF-16 (big-endian)", "\xFE\xFF", {Charset::kUtf16Be, true}},
    {"code-page", "code page", "", {Charset::kCodePage, false}},
    {"", "UTF-16 (little-endian) without mark", "", {Charset::kUtf16Le, false}},
    {"", "UTF-16 (big-endian) without mark", "", {Charset::kUtf16Be, false}},
};

const NamedEncoding& Entry(const Encoding& encoding) {
  return *std::find_if(std::begin(kEncodings), std::end(kEncodings),
                       [&](const NamedEncoding& each) { return each.encoding == encoding; });
}

bool IsUtf16(const Encoding& encoding) {
  return encoding.charset == Charset::kUtf16Le || encoding.charset == Charset::kUtf16Be;
}

unsigned UnitAt(std::string_view bytes, std::size_t offset, Charset charset) {
  const auto first = static_cast<unsigned char>(bytes[offset]);
  const auto second = static_cast<unsigned char>(bytes[offset + 1]);
  return charset == Charset::kUtf16Le ? first | (unsigned{second} << 8)
                                      : second | (unsigned{first} << 8);
}

bool IsHigh(unsigned unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLow(unsigned unit) { return unit >= 0xDC00 && unit < 0xE000; }

// The character at the start of UTF-16 bytes and its length in bytes; 0 for half a pair.
std::pair<char32_t, std::size_t> Utf16Char(std::string_view bytes, Charset charset) {
  const unsigned unit = bytes.size() < 2 ? 0xDC00 : UnitAt(bytes, 0, charset);
  if (!IsHigh(unit) && !IsLow(unit)) return {unit, 2};
  const unsigned low = bytes.size() < 4 ? 0 : UnitAt(bytes, 2, charset);
  if (IsLow(unit) || !IsLow(low)) return {0, 0};
  return {0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00), 4};
}

std::optional<std::string> FromUtf16(std::string_view bytes, Charset charset) {
  std::string text;
  while (!bytes.empty()) {
    const auto [ch, length] = Utf16Char(bytes, charset);
    if (length == 0) return std::nullopt;
    AppendUtf8(text, ch);
    bytes.remove_prefix(length);
  }
  return text;
}

std::optional<std::string> ToText(std::string_view bytes, Charset charset) {
  switch (charset) {
    case Charset::kUtf8:
      if (!quarnfc::ext::IsUtf8(bytes)) return std::nullopt;
      return std::string(bytes);
    case Charset::kCodePage:
      return os::FromCodePage(bytes);
    default:
      return FromUtf16(bytes, charset);
  }
}

// The length of the character at the start of bytes, right or wrong.
std::size_t CharLength(std::string_view bytes, Charset charset) {
  std::size_t length = 1;
  if (charset == Charset::kUtf8) length = Utf8CharLength(bytes, 0);
  if (charset == Charset::kCodePage && os::IsLeadByte(bytes[0])) length = 2;
  if (charset == Charset::kUtf16Le || charset == Charset::kUtf16Be) {
    length = std::max<std::size_t>(Utf16Char(bytes, charset).second, 2);
  }
  return std::min(std::max<std::size_t>(length, 1), bytes.size());
}

// The offset of the first character that is none.
std::size_t FirstBad(std::string_view bytes, Charset charset) {
  std::size_t offset = 0;
  while (offset < bytes.size()) {
    const std::string_view rest = bytes.substr(offset);
    const std::size_t length = CharLength(rest, charset);
    if (!ToText(rest.substr(0, length), charset)) return offset;
    offset += length;
  }
  return offset;
}

std::string ToUtf16(std::string_view text, Charset charset) {
  std::string bytes;
  const auto add = [&](unsigned unit) {
    const char low = static_cast<char>(unit & 0xFF);
    const char high = static_cast<char>(unit >> 8);
    bytes += charset == Charset::kUtf16Le ? low : high;
    bytes += charset == Charset::kUtf16Le ? high : low;
  };
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = std::max<std::size_t>(Utf8CharLength(text, i), 1);
    char32_t ch = static_cast<unsigned char>(text[i]) & (length == 1 ? 0x7FU : 0x7FU >> length);
    for (std::size_t k = 1; k < length; ++k) {
      ch = (ch << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3FU);
    }
    if (ch >= 0x10000) {
      add(0xD800 + ((ch - 0x10000) >> 10));
      add(0xDC00 + ((ch - 0x10000) & 0x3FF));
    } else {
      add(ch);
    }
    i += length;
  }
  return bytes;
}

std::string CodePointName(std::string_view ch) {
  const std::string units = ToUtf16(ch, Charset::kUtf16Be);
  char text[16];
  std::snprintf(text, sizeof(text), "U+%04X",
                static_cast<unsigned>(Utf16Char(units, Charset::kUtf16Be).first));
  return text;
}

// Character by character, for text that does not go whole.
std::string ToCodePageSlowly(std::string_view text, bool lossy) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size();) {
    const std::string_view ch = text.substr(i, std::max<std::size_t>(Utf8CharLength(text, i), 1));
    const std::optional<std::string> converted = os::ToCodePage(ch);
    if (!converted && !lossy) {
      throw Failure("the code page lacks the character '" + std::string(ch) + "' (" +
                    CodePointName(ch) + "); --lossy writes '?' in its place");
    }
    bytes += converted.value_or("?");
    i += ch.size();
  }
  return bytes;
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

Encoding DetectEncoding(std::string_view bytes) {
  for (const NamedEncoding& each : kEncodings) {
    if (!each.mark.empty() && bytes.starts_with(each.mark)) return each.encoding;
  }
  if (bytes.size() >= 2 && bytes[0] == '\0' && bytes[1] != '\0') return {Charset::kUtf16Be, false};
  if (bytes.size() >= 2 && bytes[1] == '\0' && bytes[0] != '\0') return {Charset::kUtf16Le, false};
  return {quarnfc::ext::IsUtf8(bytes) ? Charset::kUtf8 : Charset::kCodePage, false};
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char ch) { return static_cast<unsigned char>(ch) < 0x80; });
}

TextDecoder::TextDecoder(std::string name, std::optional<Encoding> encoding, bool lossy)
    : name_(std::move(name)), encoding_(encoding), lossy_(lossy), settled_(encoding.has_value()) {}

std::string TextDecoder::Decode(std::string_view bytes, bool last) {
  pending_ += bytes;
  if (!started_ && (pending_.size() >= 4 || last)) Start();
  if (!started_) return {};
  if (!settled_) Settle(last);
  return Take(WholeLength(last));
}

// Takes the mark, or what tells UTF-16 without one.
void TextDecoder::Start() {
  started_ = true;
  const std::string_view start = std::string_view(pending_).substr(0, 4);
  const Encoding found = DetectEncoding(start);
  if (!encoding_ && (found.mark || IsUtf16(found))) {
    encoding_ = found;
    settled_ = true;
  }
  if (found.mark && found.charset == Found().charset) {
    encoding_->mark = true;
    const std::size_t length = MarkOf(found).size();
    pending_.erase(0, length);
    done_ += length;
  }
}

// The first bytes that are not ASCII decide between UTF-8 and the code page.
void TextDecoder::Settle(bool last) {
  const std::size_t bad = FindInvalidUtf8(pending_);
  const bool cut_off = !last && pending_.size() - bad < 4 && Utf8CharLength(pending_, bad) == 0;
  if (bad != pending_.size() && !cut_off) {
    encoding_ = Encoding{Charset::kCodePage, false};
    settled_ = true;
  } else if (!IsAscii(std::string_view(pending_).substr(0, bad))) {
    encoding_ = Encoding{Charset::kUtf8, false};
    settled_ = true;
  }
}

// How many of the pending bytes make whole characters.
std::size_t TextDecoder::WholeLength(bool last) const {
  const std::size_t size = pending_.size();
  if (last) return size;
  if (IsUtf16(Found())) {
    const std::size_t whole = size - size % 2;
    const bool half_pair = whole >= 2 && IsHigh(UnitAt(pending_, whole - 2, Found().charset));
    return half_pair ? whole - 2 : whole;
  }
  if (Found().charset == Charset::kUtf8) {
    const std::size_t bad = FindInvalidUtf8(pending_);
    return size - bad < 4 ? bad : size;
  }
  std::size_t offset = 0;
  while (offset < size) {
    const std::size_t length = os::IsLeadByte(pending_[offset]) ? 2 : 1;
    if (offset + length > size) break;
    offset += length;
  }
  return offset;
}

std::string TextDecoder::Take(std::size_t length) {
  const std::string_view bytes = std::string_view(pending_).substr(0, length);
  only_ascii_ = only_ascii_ && (IsUtf16(Found()) ? bytes.empty() : IsAscii(bytes));
  std::string text = DecodePiece(bytes);
  pending_.erase(0, length);
  done_ += length;
  return text;
}

std::string TextDecoder::DecodePiece(std::string_view bytes) const {
  const Charset charset = Found().charset;
  if (std::optional<std::string> text = ToText(bytes, charset)) return *std::move(text);
  if (lossy_) return Replace(bytes);
  const unsigned long long offset = done_ + FirstBad(bytes, charset);
  const bool guessed = charset == Charset::kCodePage;
  throw Failure(name_ + ": byte " + std::to_string(offset) + " is no text in " +
                NameOf({charset, false}) + (guessed ? ", and the file is no UTF-8" : ""));
}

std::string TextDecoder::Replace(std::string_view bytes) const {
  std::string text;
  while (!bytes.empty()) {
    const std::size_t length = CharLength(bytes, Found().charset);
    text += ToText(bytes.substr(0, length), Found().charset).value_or("\xEF\xBF\xBD");
    bytes.remove_prefix(length);
  }
  return text;
}

Document DecodeDocument(std::string_view bytes, const std::string& name,
                        std::optional<Encoding> encoding, bool lossy) {
  TextDecoder decoder(name, encoding, lossy);
  std::string text = decoder.Decode(bytes, true);
  return {std::move(text), decoder.Found()};
}

std::string_view MarkOf(const Encoding& encoding) { return Entry(encoding).mark; }

std::string EncodeText(std::string_view text, const Encoding& encoding, bool lossy) {
  if (IsUtf16(encoding)) return ToUtf16(text, encoding.charset);
  if (encoding.charset == Charset::kUtf8) return std::string(text);
  if (std::optional<std::string> bytes = os::ToCodePage(text)) return *std::move(bytes);
  return ToCodePageSlowly(text, lossy);
}

std::string EncodeDocument(std::string_view text, const Encoding& encoding, bool lossy) {
  return std::string(MarkOf(encoding)) + EncodeText(text, encoding, lossy);
}

}  // namespace qn
