// SPDX-License-Identifier: MIT
// Strict JSON into the document model: bytes with a length, in UTF-8 or in the ANSI code page, and
// an error that says what and where.
//
// The grammar is that of json_text.h, RFC 8259 to the letter, "\u" escapes included. What the model
// cannot hold is an error and never cut: characters that the ANSI code page lacks, zero characters,
// numbers beyond the range of double, keys that occur twice in one object. Numbers become the
// nearest double. (CMyJsonValue::Load reads zero-terminated ANSI text by the lenient grammar.)
//
// Header-only, C++17. Neither reading nor building takes stack in proportion to the nesting.
// std::bad_alloc when memory is exhausted. Any thread may call; one at a time uses a document.
//
// Example:
//   quarnfc::ext::JsonTextError error;
//   const auto settings = quarnfc::ext::LoadJsonUtf8("{\"port\":8080}", &error);
//   int port = 0;
//   settings->ValueObj()->ValueEx("port", port, true);               // == true
//   port;                                                            // == 8080
//   quarnfc::ext::LoadJsonUtf8("{\"port\":}", &error) == nullptr;    // == true
//   error.column;                                                    // == 9u
#ifndef QUARNFC_EXT_JSON_LOAD_H_
#define QUARNFC_EXT_JSON_LOAD_H_

#include <quarnfc/ext/json_text.h>
#include <quarnfc/ext/text_conversion.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace quarnfc::ext {

namespace detail {

// Builds values from the bottom up: a container is made when all it holds is there.
class JsonModelBuilder {
 public:
  explicit JsonModelBuilder(const JsonText& json) : json_(json) {}

  // The tree, or null; Error then says why, with the offset in the text.
  std::unique_ptr<CMyJsonValue> Build() {
    if (!Enter(json_.Root(), "")) return nullptr;
    while (!open_.empty()) {
      Open& top = open_.back();
      if (top.next != top.end) {
        const JsonItems::Item item = *top.next;
        ++top.next;
        std::string key;
        if (item.key && !TakeKey(*item.key, top, key)) return nullptr;
        if (!Enter(item.value, std::move(key))) return nullptr;
      } else {
        Close();
      }
    }
    return std::move(root_);
  }

  const JsonTextError& Error() const { return error_; }

 private:
  using Value = std::unique_ptr<CMyJsonValue>;

  // An object or array whose items are being read.
  struct Open {
    JsonItems::Iterator next;
    JsonItems::Iterator end;
    std::string key;  // under which it goes into what holds it
    std::unique_ptr<CMyJsonObj> object;
    std::vector<Value> elements;
    std::unordered_set<std::string> keys;
  };

  bool Fail(JsonFault fault, std::size_t offset) {
    error_.fault = fault;
    error_.offset = offset;
    return false;
  }

  // A string in the code page.
  bool TakeText(const JsonTextNode& node, std::string& text) {
    const std::string utf8 = node.String();
    if (utf8.find('\0') != std::string::npos) return Fail(JsonFault::kZero, node.Begin());
    auto ansi = StrictAnsiFromUtf8(utf8);
    if (!ansi) return Fail(JsonFault::kCodePage, node.Begin());
    text = *std::move(ansi);
    return true;
  }

  bool TakeKey(const JsonTextNode& node, Open& holder, std::string& key) {
    if (!TakeText(node, key)) return false;
    return holder.keys.insert(key).second || Fail(JsonFault::kDuplicateKey, node.Begin());
  }

  bool Enter(const JsonTextNode& node, std::string key) {
    if (node.IsObject() || node.IsArray()) {
      const JsonItems items = node.Items();
      open_.push_back({items.begin(), items.end(), std::move(key), nullptr, {}, {}});
      if (node.IsObject()) open_.back().object = std::make_unique<CMyJsonObj>();
      return true;
    }
    Value value = Scalar(node);
    if (value == nullptr) return false;
    Put(std::move(value), key);
    return true;
  }

  Value Scalar(const JsonTextNode& node) {
    switch (node.Kind()) {
      case JsonKind::kNumber: {
        double number = 0;
        if (node.Number(number)) return std::make_unique<CMyJsonValue>(number);
        Fail(JsonFault::kNumberRange, node.Begin());
        return nullptr;
      }
      case JsonKind::kString: {
        std::string text;
        return TakeText(node, text) ? std::make_unique<CMyJsonValue>(text.c_str()) : nullptr;
      }
      case JsonKind::kNull:
        return std::make_unique<CMyJsonValue>();
      default:
        return std::make_unique<CMyJsonValue>(node.Kind() == JsonKind::kTrue);
    }
  }

  void Close() {
    Open done = std::move(open_.back());
    open_.pop_back();
    Value value;
    if (done.object != nullptr) {
      value = std::make_unique<CMyJsonValue>(done.object.get());
      (void)done.object.release();
    } else {
      std::vector<CMyJsonValue*> elements;
      elements.reserve(done.elements.size());
      for (const Value& element : done.elements) elements.push_back(element.get());
      value =
          std::make_unique<CMyJsonValue>(elements.data(), static_cast<int>(done.elements.size()));
      for (Value& element : done.elements) (void)element.release();
    }
    Put(std::move(value), done.key);
  }

  // Into what holds it.
  void Put(Value value, const std::string& key) {
    if (open_.empty()) {
      root_ = std::move(value);
    } else if (open_.back().object != nullptr) {
      open_.back().object->AddItem(key.c_str(), value.get());
      (void)value.release();
    } else {
      open_.back().elements.push_back(std::move(value));
    }
  }

  const JsonText& json_;
  std::vector<Open> open_;
  Value root_;
  JsonTextError error_;
};

// A place in the text as line and column.
inline void CompleteJsonError(std::string_view utf8, JsonTextError& error) {
  const TextPlace place = PlaceInText(utf8, error.offset);
  error.line = place.line;
  error.column = place.column;
}

}  // namespace detail

// The document that UTF-8 text holds, with a byte order mark or without. Null when the text is
// refused: *error, when error is not null, then says why and where. Offsets count bytes from the
// start, the mark included, columns characters behind it. Otherwise *error is left alone.
inline std::unique_ptr<CMyJsonValue> LoadJsonUtf8(std::string_view bytes,
                                                  JsonTextError* error = nullptr,
                                                  const JsonTextLimits& limits = {}) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  const std::size_t mark = bytes.substr(0, kMark.size()) == kMark ? kMark.size() : 0;
  JsonText json;
  JsonTextError found;
  if (json.Parse(std::string(bytes.substr(mark)), &found, limits)) {
    detail::JsonModelBuilder builder(json);
    if (auto root = builder.Build()) return root;
    found = builder.Error();
    detail::CompleteJsonError(json.Text(), found);
  }
  found.offset += mark;
  if (error != nullptr) *error = found;
  return nullptr;
}

// The same for text in the process ANSI code page.
inline std::unique_ptr<CMyJsonValue> LoadJsonAnsi(std::string_view bytes,
                                                  JsonTextError* error = nullptr,
                                                  const JsonTextLimits& limits = {}) {
  JsonTextError found;
  TextLoss loss;
  const auto utf8 = StrictUtf8FromAnsi(bytes, &loss);
  if (utf8) {
    if (auto root = LoadJsonUtf8(*utf8, &found, limits)) return root;
    found.offset = AnsiFromUtf8(std::string_view(*utf8).substr(0, found.offset)).size();
  } else {
    const std::string before = Utf8FromAnsi(bytes.substr(0, loss.offset));
    found = {JsonFault::kAnsi, before.size(), 0, 0};
    detail::CompleteJsonError(before, found);
    found.offset = loss.offset;
  }
  if (error != nullptr) *error = found;
  return nullptr;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_JSON_LOAD_H_
