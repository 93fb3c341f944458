// SPDX-License-Identifier: MIT
// RFC 8259 read plainly and slowly: a function for each rule, which calls itself for what is
// nested. A tree is a text that names every value: strings resolved, numbers as they are spelled.
#ifndef QUARNFC_FUZZ_STRICT_JSON_REFERENCE_H_
#define QUARNFC_FUZZ_STRICT_JSON_REFERENCE_H_

#include <quarnfc/ext/json_text.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "fuzz/utf_reference.h"

namespace fuzz {

inline std::string DumpStrict(const quarnfc::ext::JsonTextNode& node) {
  if (node.IsString()) return "\"" + std::to_string(node.String().size()) + ":" + node.String();
  if (!node.IsObject() && !node.IsArray()) return std::string(node.Source()) + ";";
  std::string items;
  for (const auto& item : node.Items()) {
    if (item.key) items += DumpStrict(*item.key);
    items += DumpStrict(item.value);
  }
  return node.IsObject() ? "{" + items + "}" : "[" + items + "]";
}

class StrictJsonReference {
 public:
  explicit StrictJsonReference(std::string_view text) : text_(text) {}

  bool Read() { return ReadPadded(0, tree_) && at_ == text_.size(); }

  const std::string& Tree() const { return tree_; }

 private:
  static constexpr int kDeepest = 1000;

  bool Take(std::string_view word) {
    if (text_.substr(at_, word.size()) != word) return false;
    at_ += word.size();
    return true;
  }

  void SkipBlanks() { at_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size()); }

  bool ReadPadded(int depth, std::string& tree) {
    SkipBlanks();
    if (!ReadValue(depth, tree)) return false;
    SkipBlanks();
    return true;
  }

  bool ReadValue(int depth, std::string& tree) {
    for (const char* literal : {"null", "true", "false"}) {
      if (Take(literal)) return tree += std::string(literal) + ";", true;
    }
    if (Take("{")) return depth < kDeepest && ReadItems(depth + 1, '{', "}", tree);
    if (Take("[")) return depth < kDeepest && ReadItems(depth + 1, '[', "]", tree);
    return Take("\"") ? ReadText(tree) : ReadNumber(tree);
  }

  bool ReadItems(int depth, char open, std::string_view close, std::string& tree) {
    tree += open;
    SkipBlanks();
    if (!Take(close)) {
      do {
        if (open == '{' && !ReadKey(tree)) return false;
        if (!ReadPadded(depth, tree)) return false;
      } while (Take(","));
      if (!Take(close)) return false;
    }
    tree += close;
    return true;
  }

  bool ReadKey(std::string& tree) {
    SkipBlanks();
    if (!Take("\"") || !ReadText(tree)) return false;
    SkipBlanks();
    return Take(":");
  }

  bool ReadText(std::string& tree) {
    std::string text;
    while (!Take("\"")) {
      if (!ReadCharacter(text)) return false;
    }
    tree += "\"" + std::to_string(text.size()) + ":" + text;
    return true;
  }

  bool ReadCharacter(std::string& text) {
    if (Take("\\")) return ReadEscape(text);
    const std::string character = FirstUtf8(std::string(text_.substr(at_, 4)));
    if (character.empty() || static_cast<unsigned char>(character[0]) < 0x20) return false;
    at_ += character.size();
    text += character;
    return true;
  }

  bool ReadEscape(std::string& text) {
    constexpr std::string_view kNames = "\"\\/bfnrt";
    constexpr std::string_view kMeanings = "\"\\/\b\f\n\r\t";
    if (Take("u")) return ReadCodePoint(text);
    const std::size_t name = at_ < text_.size() ? kNames.find(text_[at_]) : std::string_view::npos;
    if (name == std::string_view::npos) return false;
    ++at_;
    text += kMeanings[name];
    return true;
  }

  bool ReadCodePoint(std::string& text) {
    std::u16string units(1, u'\0');
    if (!ReadHex(units[0])) return false;
    if (units[0] >= 0xD800 && units[0] < 0xE000) {
      units += u'\0';
      if (!Take("\\u") || !ReadHex(units[1])) return false;
      if (units[0] >= 0xDC00 || units[1] < 0xDC00 || units[1] >= 0xE000) return false;
    }
    text += Utf8From(units);
    return true;
  }

  bool ReadHex(char16_t& unit) {
    const std::string digits(text_.substr(at_, 4));
    if (digits.size() < 4) return false;
    if (digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) return false;
    unit = static_cast<char16_t>(std::stoi(digits, nullptr, 16));
    at_ += 4;
    return true;
  }

  // -? (0 | [1-9][0-9]*) (\.[0-9]+)? ([eE][+-]?[0-9]+)?
  bool ReadNumber(std::string& tree) {
    const std::size_t begin = at_;
    Take("-");
    if (!Take("0") && !ReadDigits()) return false;
    if (Take(".") && !ReadDigits()) return false;
    if (Take("e") || Take("E")) {
      if (!Take("+")) Take("-");
      if (!ReadDigits()) return false;
    }
    tree += std::string(text_.substr(begin, at_ - begin)) + ";";
    return true;
  }

  bool ReadDigits() {
    const std::size_t begin = at_;
    at_ = std::min(text_.find_first_not_of("0123456789", at_), text_.size());
    return at_ > begin;
  }

  std::string_view text_;
  std::string tree_;
  std::size_t at_ = 0;
};

}  // namespace fuzz

#endif  // QUARNFC_FUZZ_STRICT_JSON_REFERENCE_H_
