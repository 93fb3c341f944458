// SPDX-License-Identifier: MIT
// Text from one encoding to another in one call: ANSI (the process code page), UTF-8 and UTF-16.
//
//   Utf16FromAnsi   Utf16FromUtf8   AnsiFromUtf16   AnsiFromUtf8   Utf8FromAnsi   Utf8FromUtf16
//
// always give a text: what has no counterpart becomes a replacement, as the converters of
// string_utils.h have it ("?" or a best fit in the code page, U+FFFD in Unicode).
//
//   StrictUtf16FromAnsi ...
//
// give nothing when a character would be lost, and say which. A best fit counts as lost.
//
// Lengths count: zero bytes are characters, and no terminator is read. UTF-16 is std::u16string,
// whose units are those of wchar_t on every target of this library; Utf16View and WideChars lead
// there and back. Header-only, C++17. std::bad_alloc when memory is exhausted or a text has more
// than 2,147,483,647 bytes or units. Any thread may call.
//
// Example:
//   using namespace quarnfc::ext;
//   StrictAnsiFromUtf8("\xE4\xB8\xAD").value();         // == "\xD6\xD0"
//   TextLoss loss;
//   StrictAnsiFromUtf8("a\xE0\xB8\x81", &loss).has_value();    // == false
//   loss.offset;                                        // == 1u
//   loss.character;                                     // == U'\u0E01'
#ifndef QUARNFC_EXT_TEXT_CONVERSION_H_
#define QUARNFC_EXT_TEXT_CONVERSION_H_

#include <quarnfc/ext/utf8_text.h>
#include <quarnfc/text_encoding.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quarnfc::ext {

// The first character that a conversion would lose.
struct TextLoss {
  std::size_t offset = 0;       // in the source: bytes, or units of UTF-16
  std::size_t length = 0;       // of what is lost, in the same measure
  char32_t character = 0xFFFD;  // U+FFFD when the source holds no character there
};

// --- wide text ----------------------------------------------------------------------------------

// Wide text of the platform as UTF-16; null is empty. Borrowed.
inline std::u16string_view Utf16View(const wchar_t* text, std::size_t length) {
  return {reinterpret_cast<const char16_t*>(text), length};
}
inline std::u16string_view Utf16View(const wchar_t* text) {
  std::size_t length = 0;
  while (text != nullptr && text[length] != 0) ++length;
  return Utf16View(text, length);
}

// UTF-16 as zero-terminated wide text of the platform. Borrowed from text.
inline const wchar_t* WideChars(const std::u16string& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

// --- always a text ------------------------------------------------------------------------------

namespace detail {

inline std::u16string DecodeText(QNTextUtils::EEncoding from, std::string_view bytes) {
  std::u16string units(QNTextUtils::Decode(from, bytes.data(), bytes.size(), nullptr, 0), u'\0');
  QNTextUtils::Decode(from, bytes.data(), bytes.size(), reinterpret_cast<wchar_t*>(units.data()),
                      units.size());
  return units;
}

inline std::string EncodeText(QNTextUtils::EEncoding to, std::u16string_view units) {
  const auto* const wide = reinterpret_cast<const wchar_t*>(units.data());
  std::string bytes(QNTextUtils::Encode(to, wide, units.size(), nullptr, 0), '\0');
  QNTextUtils::Encode(to, wide, units.size(), bytes.data(), bytes.size());
  return bytes;
}

}  // namespace detail

inline std::u16string Utf16FromAnsi(std::string_view ansi) {
  return detail::DecodeText(QNTextUtils::eAnsi, ansi);
}

inline std::u16string Utf16FromUtf8(std::string_view utf8) {
  return detail::DecodeText(QNTextUtils::eUtf8, utf8);
}

inline std::string AnsiFromUtf16(std::u16string_view utf16) {
  return detail::EncodeText(QNTextUtils::eAnsi, utf16);
}

inline std::string Utf8FromUtf16(std::u16string_view utf16) {
  return detail::EncodeText(QNTextUtils::eUtf8, utf16);
}

inline std::string AnsiFromUtf8(std::string_view utf8) {
  return AnsiFromUtf16(Utf16FromUtf8(utf8));
}

inline std::string Utf8FromAnsi(std::string_view ansi) {
  return Utf8FromUtf16(Utf16FromAnsi(ansi));
}

// --- nothing lost -------------------------------------------------------------------------------

// The length in units, 1 or 2, of the character at an index of UTF-16; 0 for half a pair and at the
// end.
inline std::size_t Utf16CharLength(std::u16string_view text, std::size_t index) {
  const auto kind = [&](std::size_t i) { return i < text.size() ? text[i] & 0xFC00 : 0; };
  if (index >= text.size() || kind(index) == 0xDC00) return 0;
  if (kind(index) != 0xD800) return 1;
  return kind(index + 1) == 0xDC00 ? 2 : 0;
}

// The index of the first half of a surrogate pair; text.size() when there is none.
inline std::size_t FindInvalidUtf16(std::u16string_view text) {
  std::size_t index = 0;
  while (index < text.size()) {
    const std::size_t length = Utf16CharLength(text, index);
    if (length == 0) return index;
    index += length;
  }
  return index;
}

namespace detail {

// The character at an index of UTF-16, or half a pair, as a loss.
inline TextLoss LossInUtf16(std::u16string_view text, std::size_t index) {
  switch (Utf16CharLength(text, index)) {
    case 2:
      return {index, 2,
              0x10000 + ((char32_t{text[index]} - 0xD800) << 10) + (text[index + 1] - 0xDC00U)};
    case 1:
      return {index, 1, text[index]};
    default:
      return {index, 1, 0xFFFD};
  }
}

inline std::size_t FindLostInAnsi(std::u16string_view text) {
  const auto* const wide = reinterpret_cast<const wchar_t*>(text.data());
  return QNTextUtils::FindLostInAnsi(wide, text.size());
}

// The offset in well-formed UTF-8 of the character that a unit of its UTF-16 form belongs to.
inline std::size_t OffsetInUtf8(std::string_view text, std::size_t unit) {
  std::size_t offset = 0;
  while (unit > 0) {
    const std::size_t length = Utf8CharLength(text, offset);
    offset += length;
    unit -= std::min<std::size_t>(unit, length == 4 ? 2 : 1);
  }
  return offset;
}

// The whole text, or nothing and where it is lost.
template <class Text>
std::optional<Text> Kept(Text text, bool kept, const TextLoss& found, TextLoss* loss) {
  if (kept) return text;
  if (loss != nullptr) *loss = found;
  return std::nullopt;
}

}  // namespace detail

// Each returns nothing when a character would be lost; *loss, when loss is not null, then tells the
// first one, and is left alone otherwise.

inline std::optional<std::u16string> StrictUtf16FromUtf8(std::string_view utf8,
                                                         TextLoss* loss = nullptr) {
  const std::size_t bad = FindInvalidUtf8(utf8);
  const bool kept = bad == utf8.size();
  return detail::Kept(kept ? Utf16FromUtf8(utf8) : std::u16string(), kept, {bad, 1, 0xFFFD}, loss);
}

inline std::optional<std::u16string> StrictUtf16FromAnsi(std::string_view ansi,
                                                         TextLoss* loss = nullptr) {
  const std::size_t bad = QNTextUtils::FindInvalidAnsi(ansi.data(), ansi.size());
  const bool kept = bad == ansi.size();
  return detail::Kept(kept ? Utf16FromAnsi(ansi) : std::u16string(), kept, {bad, 1, 0xFFFD}, loss);
}

inline std::optional<std::string> StrictUtf8FromUtf16(std::u16string_view utf16,
                                                      TextLoss* loss = nullptr) {
  const std::size_t bad = FindInvalidUtf16(utf16);
  const bool kept = bad == utf16.size();
  return detail::Kept(kept ? Utf8FromUtf16(utf16) : std::string(), kept, {bad, 1, 0xFFFD}, loss);
}

inline std::optional<std::string> StrictAnsiFromUtf16(std::u16string_view utf16,
                                                      TextLoss* loss = nullptr) {
  const std::size_t lost = detail::FindLostInAnsi(utf16);
  const bool kept = lost == utf16.size();
  return detail::Kept(kept ? AnsiFromUtf16(utf16) : std::string(), kept,
                      detail::LossInUtf16(utf16, lost), loss);
}

inline std::optional<std::string> StrictUtf8FromAnsi(std::string_view ansi,
                                                     TextLoss* loss = nullptr) {
  const auto utf16 = StrictUtf16FromAnsi(ansi, loss);
  if (!utf16) return std::nullopt;
  return Utf8FromUtf16(*utf16);
}

inline std::optional<std::string> StrictAnsiFromUtf8(std::string_view utf8,
                                                     TextLoss* loss = nullptr) {
  const std::size_t bad = FindInvalidUtf8(utf8);
  const std::u16string utf16 = Utf16FromUtf8(utf8.substr(0, bad));
  const std::size_t lost = detail::FindLostInAnsi(utf16);
  if (lost == utf16.size() && bad == utf8.size()) return AnsiFromUtf16(utf16);
  TextLoss found = {bad, 1, 0xFFFD};
  if (lost < utf16.size()) {
    const std::size_t offset = detail::OffsetInUtf8(utf8, lost);
    found = {offset, Utf8CharLength(utf8, offset), Utf8CharAt(utf8, offset)};
  }
  return detail::Kept(std::string(), false, found, loss);
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_TEXT_CONVERSION_H_
