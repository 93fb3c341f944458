// SPDX-License-Identifier: MIT
// Documents whose encoding is not known: what it is, their text in UTF-8, and the bytes again.
//
// An encoding shows by its mark; without one zero bytes in every other place of the start mean
// UTF-16; what is well-formed UTF-8 is UTF-8; anything else is in the ANSI code page (936 on the
// desktops this library is made for). A UTF-16 text without mark that starts with a Chinese
// character is not recognised.
//
// Header-only, C++17. Nothing is lost silently: bytes that are no text in their encoding are an
// error with its offset, or U+FFFD when the caller says so. Errors are values; std::bad_alloc comes
// when memory is exhausted. One thread at a time uses a TextDecoder; the functions may be called
// from any thread.
//
// Example:
//   std::string text;
//   quarnfc::ext::TextDecoder decoder;
//   decoder.Decode("\xFF\xFE\x2D\x4E", true, text);                    // == true
//   text;                                                              // == "\xE4\xB8\xAD"
//   quarnfc::ext::EncodeText(text + "a", decoder.Found()).value().size();    // == 4u
#ifndef QUARNFC_EXT_ENCODED_TEXT_H_
#define QUARNFC_EXT_ENCODED_TEXT_H_

#include <quarnfc/ext/text_conversion.h>
#include <quarnfc/ext/utf8_text.h>
#include <quarnfc/text_encoding.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quarnfc::ext {

enum class Charset { kUtf8, kUtf16Le, kUtf16Be, kAnsi };

// How a text is stored.
struct TextEncoding {
  Charset charset = Charset::kUtf8;
  bool mark = false;  // with a byte order mark in front

  bool operator==(const TextEncoding& other) const {
    return charset == other.charset && mark == other.mark;
  }
  bool operator!=(const TextEncoding& other) const { return !(*this == other); }
  bool IsUtf16() const { return charset == Charset::kUtf16Le || charset == Charset::kUtf16Be; }
};

// The byte order mark of a charset; "" for the code page.
inline std::string_view ByteOrderMark(Charset charset) {
  constexpr std::string_view kMarks[] = {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF", ""};
  return kMarks[static_cast<std::size_t>(charset)];
}

// The encoding of a text, as stated at the top of this file. UTF-8 when every byte is ASCII.
inline TextEncoding DetectEncoding(std::string_view bytes) {
  for (const Charset charset : {Charset::kUtf8, Charset::kUtf16Le, Charset::kUtf16Be}) {
    const std::string_view mark = ByteOrderMark(charset);
    if (bytes.substr(0, mark.size()) == mark) return {charset, true};
  }
  if (bytes.size() >= 2 && bytes[0] == '\0' && bytes[1] != '\0') return {Charset::kUtf16Be, false};
  if (bytes.size() >= 2 && bytes[1] == '\0' && bytes[0] != '\0') return {Charset::kUtf16Le, false};
  return {IsUtf8(bytes) ? Charset::kUtf8 : Charset::kAnsi, false};
}

// Whether every byte is ASCII, so that a text is the same in UTF-8 and in the code page.
inline bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char ch) { return static_cast<unsigned char>(ch) < 0x80; });
}

namespace detail {

// The units that bytes of UTF-16 hold; an odd byte at the end is left out.
inline std::u16string UnitsOf(std::string_view bytes, Charset charset) {
  std::u16string units(bytes.size() / 2, u'\0');
  const std::size_t low = charset == Charset::kUtf16Le ? 0 : 1;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(bytes[2 * i + k]); };
    units[i] = static_cast<char16_t>(byte(low) | (byte(1 - low) << 8));
  }
  return units;
}

inline std::string BytesOf(std::u16string_view units, Charset charset) {
  std::string bytes(units.size() * 2, '\0');
  const std::size_t low = charset == Charset::kUtf16Le ? 0 : 1;
  for (std::size_t i = 0; i < units.size(); ++i) {
    bytes[2 * i + low] = static_cast<char>(units[i] & 0xFF);
    bytes[2 * i + 1 - low] = static_cast<char>(units[i] >> 8);
  }
  return bytes;
}

// The offset of the first byte that begins no character; the size when every byte belongs to one.
inline std::size_t FindInvalid(std::string_view bytes, Charset charset) {
  if (charset == Charset::kUtf8) return FindInvalidUtf8(bytes);
  if (charset == Charset::kAnsi) return QNTextUtils::FindInvalidAnsi(bytes.data(), bytes.size());
  return 2 * FindInvalidUtf16(UnitsOf(bytes, charset));
}

// Bytes that are text in their charset.
inline std::string ValidToUtf8(std::string_view bytes, Charset charset) {
  if (charset == Charset::kUtf8) return std::string(bytes);
  if (charset == Charset::kAnsi) return Utf8FromAnsi(bytes);
  return Utf8FromUtf16(UnitsOf(bytes, charset));
}

// How many bytes that begin no character one replacement stands for: in UTF-16 a unit, in the code
// page a pair that looks like a double-byte character.
inline std::size_t InvalidLength(std::string_view bytes, Charset charset) {
  const bool pair = charset == Charset::kUtf16Le || charset == Charset::kUtf16Be ||
                    (charset == Charset::kAnsi && bytes.size() > 1 &&
                     static_cast<unsigned char>(bytes[1]) >= 0x80);
  return std::min<std::size_t>(pair ? 2 : 1, bytes.size());
}

}  // namespace detail

// Turns bytes into UTF-8 piece by piece. The encoding is found with the first byte that tells it.
class TextDecoder {
 public:
  // A given encoding is taken as it is; a mark of it is then skipped all the same. With lossy what
  // is no text becomes U+FFFD.
  explicit TextDecoder(std::optional<TextEncoding> encoding = std::nullopt, bool lossy = false)
      : encoding_(encoding), lossy_(lossy), settled_(encoding.has_value()) {}

  // Appends the text of the next bytes to text; a character that is cut at their end waits for the
  // next. last says that none follow. False when the bytes are no text: ErrorOffset then says
  // where, the text in front of it has been appended, and the decoder is of no further use.
  bool Decode(std::string_view bytes, bool last, std::string& text) {
    pending_.append(bytes);
    if (!started_ && (pending_.size() >= 4 || last)) Start();
    if (!started_) return true;
    if (!settled_) Settle(last);
    return Take(last, text);
  }

  // As far as the bytes so far tell; UTF-8 as long as nothing else is known.
  TextEncoding Found() const { return encoding_.value_or(TextEncoding()); }

  // Whether all text so far is ASCII, so that UTF-8 and the code page cannot be told apart.
  bool OnlyAscii() const { return only_ascii_; }

  // After a failure: the offset in the document, in bytes and with its mark, of the first byte that
  // begins no character.
  unsigned long long ErrorOffset() const { return done_; }

 private:
  // No character takes more bytes; with as many at hand a wrong one is wrong and not cut off.
  static constexpr std::size_t kLongest = 4;

  // Takes the mark, or what tells UTF-16 without one.
  void Start() {
    started_ = true;
    const TextEncoding found = DetectEncoding(std::string_view(pending_).substr(0, kLongest));
    if (!encoding_ && (found.mark || found.IsUtf16())) {
      encoding_ = found;
      settled_ = true;
    }
    if (found.mark && found.charset == Found().charset) {
      encoding_->mark = true;
      Drop(ByteOrderMark(found.charset).size());
    }
  }

  // The first bytes that are not ASCII decide between UTF-8 and the code page.
  void Settle(bool last) {
    const std::size_t bad = FindInvalidUtf8(pending_);
    const bool cut_off = !last && pending_.size() - bad < kLongest;
    if (bad != pending_.size() && !cut_off) {
      encoding_ = TextEncoding{Charset::kAnsi, false};
      settled_ = true;
    } else if (!IsAscii(std::string_view(pending_).substr(0, bad))) {
      encoding_ = TextEncoding{Charset::kUtf8, false};
      settled_ = true;
    }
  }

  bool Take(bool last, std::string& text) {
    const Charset charset = Found().charset;
    std::string_view rest = pending_;
    const bool whole = TakeFrom(rest, charset, last, text);
    Drop(pending_.size() - rest.size());
    return whole;
  }

  // Removes what it takes from rest. Windows bound the work that a wrong character causes.
  bool TakeFrom(std::string_view& rest, Charset charset, bool last, std::string& text) {
    constexpr std::size_t kWindow = 4096;
    while (!rest.empty()) {
      const std::string_view window = rest.substr(0, kWindow);
      const std::string_view valid = window.substr(0, detail::FindInvalid(window, charset));
      only_ascii_ = only_ascii_ && (Found().IsUtf16() ? valid.empty() : IsAscii(valid));
      text += detail::ValidToUtf8(valid, charset);
      rest.remove_prefix(valid.size());
      // A character may be cut off at the window's end.
      if (!valid.empty() && window.size() - valid.size() < kLongest) continue;
      if (!last && rest.size() < kLongest) return true;
      if (!lossy_) return false;
      text += "\xEF\xBF\xBD";
      only_ascii_ = false;
      rest.remove_prefix(detail::InvalidLength(rest, charset));
    }
    return true;
  }

  void Drop(std::size_t count) {
    pending_.erase(0, count);
    done_ += count;
  }

  std::optional<TextEncoding> encoding_;
  bool lossy_;
  bool started_ = false;
  bool settled_ = false;
  bool only_ascii_ = true;
  std::string pending_;
  unsigned long long done_ = 0;  // bytes
};

// UTF-8 text as bytes of an encoding, without mark. Nothing when a character would be lost; *loss,
// when loss is not null, then tells the first one.
inline std::optional<std::string> EncodeText(std::string_view utf8, const TextEncoding& encoding,
                                             TextLoss* loss = nullptr) {
  if (encoding.charset == Charset::kAnsi) return StrictAnsiFromUtf8(utf8, loss);
  if (encoding.charset == Charset::kUtf8) {
    const std::size_t bad = FindInvalidUtf8(utf8);
    return detail::Kept(std::string(utf8), bad == utf8.size(), {bad, 1, 0xFFFD}, loss);
  }
  const auto utf16 = StrictUtf16FromUtf8(utf8, loss);
  if (!utf16) return std::nullopt;
  return detail::BytesOf(*utf16, encoding.charset);
}

// The same where every text gives bytes: a character that the code page lacks becomes "?" and not a
// best fit; a byte that begins no UTF-8 character becomes U+FFFD, in the code page "?".
inline std::string EncodeTextLossy(std::string_view utf8, const TextEncoding& encoding) {
  constexpr std::size_t kWindow = 4096;  // bounds the work that a lost character causes
  const std::string replacement =
      encoding.charset == Charset::kAnsi ? "?" : *EncodeText("\xEF\xBF\xBD", encoding);
  std::string bytes;
  while (!utf8.empty()) {
    TextLoss loss{std::min(utf8.size(), kWindow), 0, 0};
    EncodeText(utf8.substr(0, kWindow), encoding, &loss);
    bytes += *EncodeText(utf8.substr(0, loss.offset), encoding);
    utf8.remove_prefix(loss.offset);
    // Nothing is lost, or a character is cut off at the window's end.
    if (loss.length == 0 || (loss.offset > 0 && loss.offset + 4 > kWindow)) continue;
    bytes += replacement;
    utf8.remove_prefix(loss.length);
  }
  return bytes;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_ENCODED_TEXT_H_
