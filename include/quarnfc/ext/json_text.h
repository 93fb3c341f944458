// SPDX-License-Identifier: MIT
// Strict JSON: RFC 8259 to the letter, read without changing a byte.
//
// JsonText keeps the source text and where every value stands in it. So numbers keep their
// spelling, nothing is converted or rounded, and an edit (json_text_edit.h) replaces the bytes of
// one value and leaves all others as they are. It stands beside CMyJsonValue, whose reader is
// lenient, works in the ANSI code page and knows no \u escapes.
//
// - Text is UTF-8 without mark. Ill-formed UTF-8, control characters in strings, surrogates
//   escaped without their partner, leading zeros, trailing commas and anything else that the
//   grammar lacks are refused with code, byte offset, line, column and message.
// - An object may hold a key twice, as the grammar allows; DuplicateKeys reports them.
// - Reading takes no stack: depth is limited by JsonTextLimits alone. A value takes 20 bytes beside
//   the text.
//
// Grammar (RFC 8259, section 2 to 7):
//   document = blanks value blanks
//   value    = object | array | string | number | "true" | "false" | "null"
//   object   = "{" blanks [ member *( "," member ) ] "}"     member = string ":" value
//   array    = "[" blanks [ value *( "," value ) ] "]"
//   blanks   = *( space | tab | CR | LF )
//
// Header only; needs nothing but the standard library. Errors are values; std::bad_alloc comes when
// memory is exhausted. One thread at a time changes an object; any number may read it.
//
// Example:
//   quarnfc::ext::JsonText settings;
//   settings.Parse("{\"server\":{\"port\":8080}}");          // == true
//   settings.Root().Find("/server/port")->Source();          // == "8080"
//   quarnfc::ext::JsonTextError error;
//   settings.Parse("[1,\n 2", &error);                       // == false
//   error.line;                                              // == 2u
#ifndef QUARNFC_EXT_JSON_TEXT_H_
#define QUARNFC_EXT_JSON_TEXT_H_

#include <quarnfc/ext/json_text_reader.h>
#include <quarnfc/ext/utf8_text.h>

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace quarnfc::ext {

class JsonText;
class JsonItems;

// A value of a JsonText: a place in its text. Borrowed: good until the JsonText is changed, moved
// or destroyed.
class JsonTextNode {
 public:
  JsonTextNode(const JsonText& text, std::size_t index) : text_(&text), index_(index) {}

  JsonKind Kind() const { return Span().kind; }
  bool IsObject() const { return Kind() == JsonKind::kObject; }
  bool IsArray() const { return Kind() == JsonKind::kArray; }
  bool IsString() const { return Kind() == JsonKind::kString; }
  bool IsNumber() const { return Kind() == JsonKind::kNumber; }

  // Where the value starts and ends, in bytes of the text, quotes and brackets included.
  std::size_t Begin() const { return Span().begin; }
  std::size_t End() const { return Span().end; }

  // The value as it is written.
  std::string_view Source() const;

  // The number of members or elements; 0 for every other value.
  std::size_t Count() const { return Span().count; }

  // A string's text in UTF-8, escapes resolved; "" for every other value.
  std::string String() const;

  // The nearest double of a number. False for other values and for numbers beyond its range.
  bool Number(double& number) const;

  // The members or elements, in the order of the text.
  JsonItems Items() const;

  // The value of a key, which is compared with escapes resolved; the last one where the key occurs
  // again, as most readers have it. Nothing when the value is no object or has no such member.
  std::optional<JsonTextNode> Member(std::string_view key) const;

  // The element at an index from 0; nothing when there is none.
  std::optional<JsonTextNode> Element(std::size_t index) const;

  // The value that a pointer (RFC 6901) leads to from here: "" is this value, "/a/0" the first
  // element of its member a; "~1" stands for "/" and "~0" for "~". Nothing when there is none.
  std::optional<JsonTextNode> Find(std::string_view pointer) const;

  bool operator==(const JsonTextNode& other) const {
    return text_ == other.text_ && index_ == other.index_;
  }

 private:
  friend class JsonItems;

  const JsonSpan& Span() const;
  std::optional<JsonTextNode> Step(const std::string& token) const;

  const JsonText* text_;
  std::size_t index_;
};

// A document.
class JsonText {
 public:
  // Starts as the document "null".
  JsonText() { spans_.push_back({JsonKind::kNull, 0, 4, 1, 0}); }

  // Takes a text and reads it. On false the object keeps what it had, and *error, when error is not
  // null, tells why; on true *error is left alone.
  bool Parse(std::string text, JsonTextError* error = nullptr, const JsonTextLimits& limits = {}) {
    std::vector<JsonSpan> spans;
    JsonTextReader reader(text, limits, spans);
    if (!reader.Read()) {
      if (error != nullptr) *error = reader.Error();
      return false;
    }
    text_ = std::move(text);
    spans_ = std::move(spans);
    return true;
  }

  const std::string& Text() const { return text_; }
  JsonTextNode Root() const { return {*this, 0}; }

  // The keys that their object holds already, as nodes of the later ones, in the order of the text.
  std::vector<JsonTextNode> DuplicateKeys() const;

 private:
  friend class JsonTextNode;
  friend class JsonItems;

  std::string text_ = "null";
  std::vector<JsonSpan> spans_;
};

// The members of an object or the elements of an array, for range-for.
class JsonItems {
 public:
  struct Item {
    std::optional<JsonTextNode> key;  // of a member
    JsonTextNode value;
  };

  class Iterator {
   public:
    Iterator(const JsonText& text, std::size_t index, bool keyed)
        : text_(&text), index_(index), keyed_(keyed) {}

    Item operator*() const {
      if (!keyed_) return {std::nullopt, {*text_, index_}};
      return {JsonTextNode(*text_, index_), {*text_, index_ + 1}};
    }
    Iterator& operator++() {
      index_ = text_->spans_[keyed_ ? index_ + 1 : index_].next;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return index_ != other.index_; }

   private:
    const JsonText* text_;
    std::size_t index_;
    bool keyed_;
  };

  explicit JsonItems(const JsonTextNode& node) : node_(node) {}

  Iterator begin() const { return At(node_.index_ + 1); }
  Iterator end() const { return At(node_.Span().next); }

 private:
  // A value without items ends where it begins: behind itself.
  Iterator At(std::size_t index) const { return {*node_.text_, index, node_.IsObject()}; }

  JsonTextNode node_;
};

// --- details of the above -----------------------------------------------------------------------

inline const JsonSpan& JsonTextNode::Span() const { return text_->spans_[index_]; }

inline std::string_view JsonTextNode::Source() const {
  return std::string_view(text_->text_).substr(Begin(), End() - Begin());
}

inline std::string JsonTextNode::String() const {
  if (!IsString()) return {};
  return UnescapeJson(Source().substr(1, Source().size() - 2));
}

inline bool JsonTextNode::Number(double& number) const {
  if (!IsNumber()) return false;
  const std::string_view source = Source();
  return std::from_chars(source.data(), source.data() + source.size(), number).ec == std::errc();
}

inline JsonItems JsonTextNode::Items() const { return JsonItems(*this); }

inline std::optional<JsonTextNode> JsonTextNode::Member(std::string_view key) const {
  std::optional<JsonTextNode> found;
  if (!IsObject()) return found;
  for (const auto& item : Items()) {
    if (item.key->String() == key) found.emplace(item.value);
  }
  return found;
}

inline std::optional<JsonTextNode> JsonTextNode::Element(std::size_t index) const {
  if (!IsArray() || index >= Count()) return std::nullopt;
  auto item = Items().begin();
  for (; index > 0; --index) ++item;
  return (*item).value;
}

// An array index as pointers spell it: digits without leading zero. False for anything else.
inline bool ReadJsonIndex(std::string_view text, std::size_t& index) {
  if (text.size() > 1 && text[0] == '0') return false;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, index);
  return !text.empty() && result.ec == std::errc() && result.ptr == end;
}

// The reference tokens of a pointer, "~1" and "~0" resolved. False when the pointer is none: when
// it neither is empty nor starts with "/", or holds a "~" that stands for nothing.
inline bool SplitJsonPointer(std::string_view pointer, std::vector<std::string>& tokens) {
  tokens.clear();
  if (!pointer.empty() && pointer[0] != '/') return false;
  for (std::size_t i = 0; i < pointer.size(); ++i) {
    if (pointer[i] == '/') {
      tokens.emplace_back();
    } else if (pointer[i] != '~') {
      tokens.back() += pointer[i];
    } else if (++i < pointer.size() && (pointer[i] == '0' || pointer[i] == '1')) {
      tokens.back() += pointer[i] == '0' ? '~' : '/';
    } else {
      return false;
    }
  }
  return true;
}

inline std::optional<JsonTextNode> JsonTextNode::Step(const std::string& token) const {
  if (IsObject()) return Member(token);
  std::size_t index = 0;
  return ReadJsonIndex(token, index) ? Element(index) : std::nullopt;
}

inline std::optional<JsonTextNode> JsonTextNode::Find(std::string_view pointer) const {
  std::vector<std::string> tokens;
  if (!SplitJsonPointer(pointer, tokens)) return std::nullopt;
  std::optional<JsonTextNode> node = *this;
  for (const std::string& token : tokens) {
    node = node->Step(token);
    if (!node) break;
  }
  return node;
}

inline std::vector<JsonTextNode> JsonText::DuplicateKeys() const {
  std::vector<JsonTextNode> duplicates;
  for (std::size_t i = 0; i < spans_.size(); ++i) {
    if (spans_[i].kind != JsonKind::kObject || spans_[i].count < 2) continue;
    std::unordered_set<std::string> keys;
    for (const auto& item : JsonTextNode(*this, i).Items()) {
      if (!keys.insert(item.key->String()).second) duplicates.push_back(*item.key);
    }
  }
  return duplicates;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_JSON_TEXT_H_
