// SPDX-License-Identifier: MIT
// The lenient JSON grammar read plainly and slowly: a function for each rule, which calls itself
// for what is nested. A tree is a text that names every value, with the bits of its number.
#ifndef QUARNFC_FUZZ_JSON_REFERENCE_H_
#define QUARNFC_FUZZ_JSON_REFERENCE_H_

#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "json/messages.h"

namespace fuzz {

// --- trees as texts -----------------------------------------------------------------------------

inline std::string DumpText(std::string_view text) {
  return std::to_string(text.size()) + ":" + std::string(text);
}

inline std::string DumpNumber(double number) {
  return "#" + std::to_string(std::bit_cast<std::uint64_t>(number));
}

inline std::string Dump(const CMyJsonValue& value);

inline std::string Dump(const CMyJsonObj& object) {
  std::string members;
  for (int i = 0; i < object.ValueCount(); ++i) {
    CQNString key;
    CMyJsonValue* value = nullptr;
    object.Item(i, key, value);
    members += DumpText({key, static_cast<std::size_t>(key.GetLength())}) + Dump(*value);
  }
  return "{" + members + "}";
}

inline std::string Dump(const CMyJsonValue& value) {
  switch (value.Type()) {
    case CMyJsonValue::eStr:
      return "\"" + DumpText(value.ValueStr());
    case CMyJsonValue::eNumber:
      return DumpNumber(value.ValueNumber());
    case CMyJsonValue::eBool:
      return value.ValueBool() ? "t" : "f";
    case CMyJsonValue::eObj:
      return Dump(*value.ValueObj());
    case CMyJsonValue::eArr: {
      std::string elements;
      for (int i = 0; i < value.ValueArrLength(); ++i) elements += Dump(*value.ValueArrItem(i));
      return "[" + elements + "]";
    }
    default:
      return "n";
  }
}

// --- the reader ---------------------------------------------------------------------------------

class JsonReference {
 public:
  // Messages are added to what the text of messages holds already.
  JsonReference(std::string_view text, std::string message)
      : text_(text), message_(std::move(message)) {}

  bool ReadObjectText() {
    SkipBlanks();
    if (Peek() != '{') return Fail(quarnfc::json::kNoOpeningBrace);
    return ReadObject(tree_);
  }

  bool ReadValueText() {
    SkipBlanks();
    switch (Peek()) {
      case '{':
        return ReadObject(tree_);
      case '[':
        return ReadArray(tree_);
      case '"':
        return ReadText(tree_) || Fail(quarnfc::json::kInvalidTopString);
      default:
        return ReadBool(tree_) || ReadNumber(tree_) || Fail(quarnfc::json::kInvalidText);
    }
  }

  const std::string& Tree() const { return tree_; }
  const std::string& Message() const { return message_; }

 private:
  char Peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }

  void SkipBlanks() {
    while (Peek() == ' ' || Peek() == '\t' || Peek() == '\r' || Peek() == '\n') ++at_;
  }

  bool Take(std::string_view word) {
    if (text_.substr(at_, word.size()) != word) return false;
    at_ += word.size();
    return true;
  }

  bool Fail(std::string_view message) {
    message_ = message;
    return false;
  }

  bool Fail(std::string_view message, std::size_t at) {
    return Fail(std::string(message) + std::string(text_.substr(at, 50)));
  }

  // Behind the opening bracket stands what the closing failure quotes, with the byte before it.
  bool ReadObject(std::string& tree) {
    ++at_;
    SkipBlanks();
    const std::size_t first = at_;
    std::string members;
    while (Peek() == '"') {
      if (!ReadMember(members)) return FailObject(first);
    }
    if (!Take("}")) return FailObject(first);
    tree += "{" + members + "}";
    return true;
  }

  bool FailObject(std::size_t first) {
    return message_.empty() && Fail(quarnfc::json::kNoClosingBrace, first - 1);
  }

  bool ReadMember(std::string& tree) {
    const std::size_t quote = at_;
    std::string key;
    if (!ReadText(key)) return Fail(quarnfc::json::kInvalidKey, quote + 1);
    tree += key.substr(1);
    SkipBlanks();
    if (!Take(":")) return Fail(quarnfc::json::kNoColon, at_);
    SkipBlanks();
    if (Peek() == ',' || Peek() == '}' || Take("null")) {
      tree += "n";
    } else if (!ReadItem(tree)) {
      return false;
    }
    EndItem();
    return true;
  }

  // A closing brace where an element is due would be an empty number for ever: it fails.
  bool ReadArray(std::string& tree) {
    ++at_;
    SkipBlanks();
    std::string elements;
    while (!Take("]")) {
      if (Peek() == '\0' || Peek() == '}' || !ReadItem(elements)) return false;
      EndItem();
    }
    tree += "[" + elements + "]";
    return true;
  }

  bool ReadItem(std::string& tree) {
    const std::size_t start = at_;
    switch (Peek()) {
      case '{':
        return ReadObject(tree);
      case '[':
        return ReadArray(tree);
      case '"':
        return ReadText(tree) || Fail(quarnfc::json::kInvalidString, start);
      default:
        return ReadBool(tree) || ReadNumber(tree) || Fail(quarnfc::json::kInvalidNumber, start);
    }
  }

  void EndItem() {
    SkipBlanks();
    Take(",");
    SkipBlanks();
  }

  bool ReadText(std::string& tree) {
    std::string text;
    for (++at_; Peek() != '"'; ++at_) {
      const bool escaped = Take("\\");
      if (Peek() == '\0') return false;
      const std::size_t name = std::string_view("trn").find(Peek());
      text += escaped && name != std::string_view::npos ? "\t\r\n"[name] : Peek();
    }
    ++at_;
    tree += "\"" + DumpText(text);
    return true;
  }

  bool ReadBool(std::string& tree) {
    const bool is_true = Take("true");
    if (!is_true && !Take("false")) return false;
    tree += is_true ? "t" : "f";
    return true;
  }

  bool ReadNumber(std::string& tree) {
    const std::size_t end = text_.find_first_of(", \t\r\n]}", at_);
    if (end == std::string_view::npos) return false;
    const std::string token(text_.substr(at_, end - at_));
    tree += DumpNumber(std::strtod(token.substr(0, NumberLength(token)).c_str(), nullptr));
    at_ = end;
    return true;
  }

  // How much of a token is sign, digits, point and exponent: "inf" and "0x1" are no numbers here.
  static std::size_t NumberLength(const std::string& token) {
    const auto digits_end = [&](std::size_t from) {
      return std::min(token.find_first_not_of("0123456789", from), token.size());
    };
    const std::size_t sign = token.find_first_of("+-") == 0 ? 1 : 0;
    std::size_t end = digits_end(sign);
    if (end < token.size() && token[end] == '.') end = digits_end(end + 1);
    if (token.find_first_of("0123456789") >= end) return 0;
    if (end == token.size() || (token[end] != 'e' && token[end] != 'E')) return end;
    const bool exponent_sign = token.find_first_of("+-", end) == end + 1;
    const std::size_t exponent = end + (exponent_sign ? 2 : 1);
    return digits_end(exponent) > exponent ? digits_end(exponent) : end;
  }

  std::string_view text_;
  std::string message_;
  std::string tree_;
  std::size_t at_ = 0;
};

}  // namespace fuzz

#endif  // QUARNFC_FUZZ_JSON_REFERENCE_H_
