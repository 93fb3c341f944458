// SPDX-License-Identifier: MIT
// Finding values in a document by path or JSON pointer, with array indexes; values with a fallback;
// and a document that owns itself.
//
// A place is written in one of two ways, told apart by the first character:
//   /servers/2/port        a JSON pointer (RFC 6901): "~1" is "/", "~0" is "~"; "" is the whole
//   servers[2]\port        keys with "\" between them as everywhere in the library, and elements of
//                          arrays in brackets
// Keys are in the ANSI code page and compared exactly. An index has no sign and no leading zeros.
// A place that is not there is null, never made.
//
// Header-only, C++17. One thread at a time uses a document.
//
// Example:
//   quarnfc::ext::JsonDocument settings;
//   settings.Load("{\"servers\":[{\"port\":80},{\"port\":8080}]}");    // == true
//   settings.ValueOr("servers[1]\\port", 0);                           // == 8080
//   settings.ValueOr("/servers/0/port", 0);                            // == 80
//   settings.ValueOr("/servers/7/port", 443);                          // == 443
#ifndef QUARNFC_EXT_JSON_ACCESS_H_
#define QUARNFC_EXT_JSON_ACCESS_H_

#include <quarnfc/ext/ranges.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/qn_string.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace quarnfc::ext {

namespace detail {

// The number an index spells, or -1.
inline int ArrayIndex(std::string_view text) {
  if (text.empty() || (text.size() > 1 && text[0] == '0')) return -1;
  long long index = 0;
  for (const char ch : text) {
    if (ch < '0' || ch > '9') return -1;
    index = index * 10 + (ch - '0');
    if (index > std::numeric_limits<int>::max()) return -1;
  }
  return static_cast<int>(index);
}

inline CMyJsonValue* Element(const CMyJsonValue& value, std::string_view index_text) {
  const int index = ArrayIndex(index_text);
  return index >= 0 && index < value.ValueArrLength() ? value.ValueArrItem(index) : nullptr;
}

// The member of an object value; a key may hold "\", which ValueEx would take for a separator.
inline CMyJsonValue* Member(const CMyJsonValue& value, const std::string& key) {
  const CMyJsonObj* object = value.ValueObj();
  if (object == nullptr || key.find('\0') != std::string::npos) return nullptr;
  CMyJsonValue* found = nullptr;
  if (key.find('\\') == std::string::npos) {
    return object->ValueEx(key.c_str(), found, true) ? found : nullptr;
  }
  for (const JsonMember& member : Members(*object)) {
    if (key == static_cast<const char*>(member.key)) return member.value;
  }
  return nullptr;
}

// One part of a pointer without its escapes; false for a "~" that begins none.
inline bool Unescape(std::string_view part, std::string& key) {
  key.clear();
  for (std::size_t i = 0; i < part.size(); ++i) {
    if (part[i] != '~') {
      key.push_back(part[i]);
      continue;
    }
    if (++i == part.size() || (part[i] != '0' && part[i] != '1')) return false;
    key.push_back(part[i] == '0' ? '~' : '/');
  }
  return true;
}

inline CMyJsonValue* FindByPointer(CMyJsonValue* value, std::string_view pointer) {
  std::string key;
  while (value != nullptr && !pointer.empty()) {
    const std::size_t end = std::min(pointer.find('/', 1), pointer.size());
    if (!Unescape(pointer.substr(1, end - 1), key)) return nullptr;
    value = value->IsArr() ? Element(*value, key) : Member(*value, key);
    pointer.remove_prefix(end);
  }
  return value;
}

// A lead byte's second byte may be "\" or "[": the ANSI code page is walked by characters, as
// CQNString does.
inline std::size_t FindAnsi(std::string_view text, const char* characters) {
  const CQNString copy(text.data(), static_cast<int>(text.size()));
  const int found = copy.FindOneOf(characters);
  return found < 0 ? text.size() : static_cast<std::size_t>(found);
}

// Takes "[index]" off the path; false when there is none or it is not closed.
inline bool TakeIndex(std::string_view& path, std::string_view& index) {
  const std::size_t end = path.find(']');
  if (path.empty() || path[0] != '[' || end == std::string_view::npos) return false;
  index = path.substr(1, end - 1);
  path.remove_prefix(end + 1);
  return true;
}

inline CMyJsonValue* FindByPath(CMyJsonValue* value, std::string_view path) {
  bool is_first = true;
  while (value != nullptr && !path.empty()) {
    std::string_view index;
    if (path[0] == '[') {
      if (!TakeIndex(path, index)) return nullptr;
      value = Element(*value, index);
    } else {
      if (!is_first) {
        if (path[0] != '\\') return nullptr;
        path.remove_prefix(1);
      }
      const std::size_t end = FindAnsi(path, "\\[");
      value = Member(*value, std::string(path.substr(0, end)));
      path.remove_prefix(end);
    }
    is_first = false;
  }
  return value;
}

}  // namespace detail

// The value at a place below root, or null. It stays root's.
inline CMyJsonValue* FindValue(CMyJsonValue& root, std::string_view place) {
  const bool is_pointer = place.empty() || place[0] == '/';
  return is_pointer ? detail::FindByPointer(&root, place) : detail::FindByPath(&root, place);
}

inline const CMyJsonValue* FindValue(const CMyJsonValue& root, std::string_view place) {
  return FindValue(const_cast<CMyJsonValue&>(root), place);
}

// What stands at a place, or the fallback when there is nothing or something of another type. A
// number is an int when it is whole and fits, so that no value is cut without a word.
inline double ValueOr(const CMyJsonValue& root, std::string_view place, double fallback) {
  const CMyJsonValue* value = FindValue(root, place);
  return value != nullptr && value->IsNumber() ? value->ValueNumber() : fallback;
}

inline int ValueOr(const CMyJsonValue& root, std::string_view place, int fallback) {
  const CMyJsonValue* value = FindValue(root, place);
  if (value == nullptr || !value->IsNumber()) return fallback;
  const double number = value->ValueNumber();
  const bool fits = number >= std::numeric_limits<int>::min() &&
                    number <= std::numeric_limits<int>::max() &&
                    number == static_cast<double>(static_cast<int>(number));
  return fits ? static_cast<int>(number) : fallback;
}

inline bool ValueOr(const CMyJsonValue& root, std::string_view place, bool fallback) {
  const CMyJsonValue* value = FindValue(root, place);
  return value != nullptr && value->IsBool() ? value->ValueBool() : fallback;
}

inline std::string ValueOr(const CMyJsonValue& root, std::string_view place,
                           const std::string& fallback) {
  const CMyJsonValue* value = FindValue(root, place);
  return value != nullptr && value->IsStr() ? std::string(value->ValueStr()) : fallback;
}

inline std::string ValueOr(const CMyJsonValue& root, std::string_view place, const char* fallback) {
  return ValueOr(root, place, std::string(fallback == nullptr ? "" : fallback));
}

// A document that owns its values: copies are deep, moves are cheap. (CMyJsonValue itself shares
// its record when it is copied.)
class JsonDocument {
 public:
  // An empty value (null).
  JsonDocument() : root_(new CMyJsonValue) {}
  // Takes over a value that is destroyed with delete; null becomes an empty value.
  explicit JsonDocument(CMyJsonValue* root) : root_(root != nullptr ? root : new CMyJsonValue) {}
  JsonDocument(const JsonDocument& other) : root_(other.root_->Clone()) {}
  // A document that was moved from may be assigned to and destroyed, nothing else.
  JsonDocument(JsonDocument&& other) noexcept = default;
  JsonDocument& operator=(const JsonDocument& other) {
    if (this != &other) root_.reset(other.root_->Clone());
    return *this;
  }
  JsonDocument& operator=(JsonDocument&& other) noexcept = default;

  CMyJsonValue& Root() { return *root_; }
  const CMyJsonValue& Root() const { return *root_; }

  // Reads a text in the ANSI code page by the library's lenient grammar. On failure the document
  // keeps what it held, and error, when it is not null, receives the reason.
  bool Load(const char* text, CQNString* error = nullptr) {
    std::unique_ptr<CMyJsonValue> fresh(new CMyJsonValue);
    CQNString reason;
    if (!fresh->Load(text, reason)) {
      if (error != nullptr) *error = reason;
      return false;
    }
    root_ = std::move(fresh);
    return true;
  }

  CMyJsonValue* Find(std::string_view place) { return FindValue(*root_, place); }
  const CMyJsonValue* Find(std::string_view place) const { return FindValue(*root_, place); }

  // See the free functions.
  template <class Fallback>
  auto ValueOr(std::string_view place, const Fallback& fallback) const {
    return ext::ValueOr(*root_, place, fallback);
  }

 private:
  std::unique_ptr<CMyJsonValue> root_;
};

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_JSON_ACCESS_H_
