// SPDX-License-Identifier: MIT
// Percent escapes of URLs (RFC 3986, 2.1): "%" and two hexadecimal digits stand for one byte.
//
// Bytes are taken as they are; nothing is converted. URLs hold UTF-8 by agreement, so a host
// converts text of its code page first. Header-only; every function may be called from any thread.
// Throws nothing but std::bad_alloc.
//
// Example:
//   QNPercentEncoding::Decode("a%20b%2Fc");                    // == "a b/c"
//   QNPercentEncoding::Decode("100%, %4");                     // == "100%, %4"
//   QNPercentEncoding::Encode("a b/c");                        // == "a%20b%2Fc"
//   QNPercentEncoding::EncodeURL("http://h/a b?c%20");    // == "http://h/a%20b?c%20"
//   QNPercentEncoding::EncodeURL("\xE4\xB8\xAD");         // == "%E4%B8%AD"
#ifndef QUARNFC_PERCENT_ENCODING_H_
#define QUARNFC_PERCENT_ENCODING_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace QNPercentEncoding {

// The value of a hexadecimal digit of either case; -1 for anything else.
inline int HexValue(char ch) {
  if (ch >= '0' && ch <= '9') return ch - '0';
  const char lower = static_cast<char>(ch | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// Appends the escape of one byte, with capital digits.
inline void AppendEscape(std::string& text, char byte) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  text += '%';
  text += kDigits[value >> 4];
  text += kDigits[value & 15];
}

// text with its escapes turned into bytes; a "%" that starts no escape stays. "+" is no blank here.
inline std::string Decode(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escape = text[i] == '%' && i + 2 < text.size() && HexValue(text[i + 1]) >= 0 &&
                        HexValue(text[i + 2]) >= 0;
    decoded +=
        escape ? static_cast<char>(HexValue(text[i + 1]) * 16 + HexValue(text[i + 2])) : text[i];
    if (escape) i += 2;
  }
  return decoded;
}

// text as one part of a URL, such as a value of the query: every byte is escaped but letters,
// digits and "-._~".
inline std::string Encode(std::string_view text) {
  std::string encoded;
  for (const char ch : text) {
    const char lower = static_cast<char>(ch | 0x20);
    const bool unreserved = (lower >= 'a' && lower <= 'z') || (ch >= '0' && ch <= '9') ||
                            ch == '-' || ch == '.' || ch == '_' || ch == '~';
    if (unreserved) {
      encoded += ch;
    } else {
      AppendEscape(encoded, ch);
    }
  }
  return encoded;
}

// A whole URL made fit for sending: blanks, control characters and bytes above 126 are escaped;
// what has a meaning in URLs stays, escapes included.
inline std::string EncodeURL(std::string_view url) {
  std::string encoded;
  for (const char ch : url) {
    if (ch > ' ' && ch < 0x7F) {
      encoded += ch;
    } else {
      AppendEscape(encoded, ch);
    }
  }
  return encoded;
}

}  // namespace QNPercentEncoding

#endif  // QUARNFC_PERCENT_ENCODING_H_
