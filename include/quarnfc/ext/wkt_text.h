// SPDX-License-Identifier: MIT
// Well-Known Text as a tree, in the notation of WKT 1 (OGC 01-009) and WKT 2 (ISO 19162):
//
//   node   = keyword ( "[" | "(" ) value *( "," value ) ( "]" | ")" )
//   value  = node | DQUOTE text DQUOTE | number | word      a quote in a text is written twice
//
// Names are compared "folded": without case, blanks, "_" and "-", which writers set differently.
// Header-only, C++17. Text is handed through as bytes. Errors are values; std::bad_alloc comes when
// memory is exhausted. Any thread may call.
//
// Example:
//   quarnfc::ext::WktNode root;
//   std::string error;
//   quarnfc::ext::ParseWkt("UNIT[\"metre\",1]", root, error);    // == true
//   root.NumberAt(1).value();                                    // == 1.0
#ifndef QUARNFC_EXT_WKT_TEXT_H_
#define QUARNFC_EXT_WKT_TEXT_H_

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quarnfc::ext {

// In lower case (a to z alone), without blanks, "_" and "-".
inline std::string FoldWktName(std::string_view name) {
  std::string folded;
  for (const char ch : name) {
    if (ch == ' ' || ch == '_' || ch == '-') continue;
    folded += ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch;
  }
  return folded;
}

// A node, or a value that is none.
struct WktNode {
  std::string keyword;          // as written; "" for a value that is no node
  std::string text;             // of a text (without quotes), number or word
  std::vector<WktNode> values;  // of a node

  bool Is(std::initializer_list<std::string_view> folded_keywords) const {
    return !keyword.empty() && std::find(folded_keywords.begin(), folded_keywords.end(),
                                         FoldWktName(keyword)) != folded_keywords.end();
  }

  // The first value that is a node with one of the keywords, which are given folded; null when
  // there is none. Borrowed.
  const WktNode* Find(std::initializer_list<std::string_view> folded_keywords) const {
    const auto found = std::find_if(values.begin(), values.end(),
                                    [&](const WktNode& each) { return each.Is(folded_keywords); });
    return found == values.end() ? nullptr : &*found;
  }

  // The text at an index; "" where there is none.
  std::string TextAt(std::size_t index) const {
    return index < values.size() ? values[index].text : std::string();
  }

  // The number at an index, quoted or not; nothing when something else stands there. Independent of
  // the locale.
  std::optional<double> NumberAt(std::size_t index) const {
    const std::string source = TextAt(index);
    const char* begin = source.c_str();
    const char* const end = begin + source.size();
    if (begin != end && *begin == '+') ++begin;
    double number = 0;
    const auto result = std::from_chars(begin, end, number);
    if (begin == end || result.ec != std::errc() || result.ptr != end) return std::nullopt;
    return number;
  }
};

namespace detail {

class WktParser {
 public:
  WktParser(std::string_view text, std::string& error) : text_(text), error_(error) {}

  bool Read(WktNode& root) {
    if (!ReadValue(root, 0)) return false;
    SkipBlanks();
    if (root.keyword.empty()) return Fail("it is no keyword with a bracketed list");
    return text_.empty() || Fail("text follows the closing bracket");
  }

 private:
  bool Fail(const char* why) {
    error_ = why;
    return false;
  }

  void SkipBlanks() {
    text_.remove_prefix(std::min(text_.find_first_not_of(" \t\r\n"), text_.size()));
  }

  // The character taken, or 0.
  char TakeOneOf(std::string_view set) {
    SkipBlanks();
    if (text_.empty() || set.find(text_[0]) == std::string_view::npos) return '\0';
    const char taken = text_[0];
    text_.remove_prefix(1);
    return taken;
  }

  bool ReadValue(WktNode& node, int depth) {
    constexpr int kDeepest = 32;
    if (depth > kDeepest) return Fail("it is nested too deeply");
    SkipBlanks();
    if (!text_.empty() && text_[0] == '"') return ReadQuoted(node.text);
    const std::size_t length = std::min(text_.find_first_of("[](), \t\r\n\""), text_.size());
    if (length == 0) return Fail("a value is missing");
    node.text = text_.substr(0, length);
    text_.remove_prefix(length);
    const char bracket = TakeOneOf("[(");
    return bracket == '\0' || ReadList(node, bracket, depth);
  }

  bool ReadList(WktNode& node, char bracket, int depth) {
    node.keyword.swap(node.text);
    do {
      node.values.emplace_back();
      if (!ReadValue(node.values.back(), depth + 1)) return false;
    } while (TakeOneOf(",") != '\0');
    return TakeOneOf(bracket == '[' ? "]" : ")") != '\0' || Fail("brackets do not match");
  }

  bool ReadQuoted(std::string& quoted) {
    text_.remove_prefix(1);
    for (;;) {
      const std::size_t end = text_.find('"');
      if (end == std::string_view::npos) return Fail("a quoted text is not closed");
      quoted += text_.substr(0, end);
      text_.remove_prefix(end + 1);
      if (text_.empty() || text_[0] != '"') return true;
      quoted += '"';
      text_.remove_prefix(1);
    }
  }

  std::string_view text_;
  std::string& error_;
};

}  // namespace detail

// Reads a text, nested up to 32 deep, into root, which should be empty. False when it is no WKT:
// error then says why, in English.
inline bool ParseWkt(std::string_view text, WktNode& root, std::string& error) {
  return detail::WktParser(text, error).Read(root);
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_WKT_TEXT_H_
