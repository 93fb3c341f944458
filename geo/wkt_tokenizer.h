// SPDX-License-Identifier: MIT
// Cuts WKT into tokens: commas, square brackets, quoted texts and unquoted words.
#ifndef QUARNFC_GEO_WKT_TOKENIZER_H_
#define QUARNFC_GEO_WKT_TOKENIZER_H_

#include <cstddef>
#include <string_view>

namespace quarnfc::geo {

struct WktToken {
  std::string_view text;  // part of the tokenizer's text, without quotes
  bool quoted = false;

  // Whether this is the delimiter ch (',', '[' or ']') itself and not a quoted text that looks so.
  bool Is(char ch) const { return !quoted && text.size() == 1 && text[0] == ch; }
};

// Reads from 8-bit text in the ANSI code page, which must outlive the tokenizer and its tokens.
// Every byte is looked at a bounded number of times.
class WktTokenizer {
 public:
  explicit WktTokenizer(std::string_view text) : text_(text) {}

  // The next token. False at the end of the text, and where no token can be delimited: a quote
  // that is never closed, a word that no comma or bracket follows.
  bool Next(WktToken& token);

  // Whether nothing but blanks is left.
  bool AtEnd();

 private:
  void SkipBlanks();
  bool ReadQuoted(WktToken& token);
  bool ReadWord(WktToken& token);

  std::string_view text_;
  std::size_t position_ = 0;
};

}  // namespace quarnfc::geo

#endif  // QUARNFC_GEO_WKT_TOKENIZER_H_
