// SPDX-License-Identifier: MIT
// Tokens of Well-Known Text:
//
//   delimiter = "," | "[" | "]"
//   quoted    = '"' { any byte but '"' } '"'
//   word      = a run up to the next delimiter, blanks at both ends cut off
//
// A word that no delimiter follows is no token. Quotes are found byte by byte, delimiters by
// characters of the code page, whose second bytes can look like brackets. Tokens are views of the
// text: nothing is copied and nothing is allocated.
#include "geo/wkt_tokenizer.h"

#include "platform/code_page.h"

namespace quarnfc::geo {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsBlank(char ch) { return kBlanks.find(ch) != std::string_view::npos; }

bool IsDelimiter(char ch) { return ch == ',' || ch == '[' || ch == ']'; }

// How far the scan of a word moves on: the width of the character at position. The second byte of a
// double-byte character can be a bracket (0x5B, 0x5D) but lies above all other characters that
// matter here: a first byte in front of a comma, a quote or a blank is a broken character of one
// byte.
std::size_t WordStep(std::string_view text, std::size_t position) {
  constexpr unsigned char kLowestSecondByte = 0x40;
  const bool pair = position + 1 < text.size() &&
                    static_cast<unsigned char>(text[position + 1]) >= kLowestSecondByte &&
                    platform::IsLeadByte(static_cast<unsigned char>(text[position]));
  return pair ? 2 : 1;
}

// No second byte of a character is a blank, so the end can be trimmed byte by byte.
std::string_view TrimRight(std::string_view text) {
  const std::size_t last = text.find_last_not_of(kBlanks);
  return text.substr(0, last + 1);
}

}  // namespace

bool WktTokenizer::Next(WktToken& token) {
  token = WktToken{};
  SkipBlanks();
  if (position_ >= text_.size()) return false;
  const char first = text_[position_];
  if (IsDelimiter(first)) {
    token.text = text_.substr(position_++, 1);
    return true;
  }
  return first == '"' ? ReadQuoted(token) : ReadWord(token);
}

bool WktTokenizer::AtEnd() {
  SkipBlanks();
  return position_ >= text_.size();
}

void WktTokenizer::SkipBlanks() {
  while (position_ < text_.size() && IsBlank(text_[position_])) ++position_;
}

// A quoted text ends at the next quote: there is no way to write a quote inside it. A quote is
// never the second byte of a character.
bool WktTokenizer::ReadQuoted(WktToken& token) {
  const std::size_t begin = position_ + 1;
  const std::size_t end = text_.find('"', begin);
  if (end == std::string_view::npos) return false;
  token.text = text_.substr(begin, end - begin);
  token.quoted = true;
  position_ = end + 1;
  return true;
}

// A word runs to the next delimiter, which stays for the next call.
bool WktTokenizer::ReadWord(WktToken& token) {
  std::size_t end = position_;
  while (end < text_.size() && !IsDelimiter(text_[end])) end += WordStep(text_, end);
  if (end >= text_.size()) return false;
  token.text = TrimRight(text_.substr(position_, end - position_));
  position_ = end;
  return true;
}

}  // namespace quarnfc::geo
