// SPDX-License-Identifier: MIT
// The document model as strict JSON: RFC 8259 in UTF-8 that every reader takes.
//
// Numbers are written in the shortest form that reads back as the same double, null elements as
// null, keys and texts with every quote, backslash and control character escaped, and no character
// is lost. (CMyJsonValue::CreateJson has the library's own layout: fixed decimals, raw control
// characters, nothing for an empty value.) What JSON cannot say is refused: NaN, infinities, and
// text that is none in the ANSI code page.
//
// Header-only, C++17. Writing takes no stack in proportion to the nesting. std::bad_alloc when
// memory is exhausted. One thread at a time uses a document.
//
// Example:
//   CMyJsonObj station;
//   station.AddItem("height", 0.1);
//   CMyJsonValue value(station.Clone());
//   quarnfc::ext::WriteJson(value).value();    // == "{\"height\":0.1}"
#ifndef QUARNFC_EXT_JSON_WRITE_H_
#define QUARNFC_EXT_JSON_WRITE_H_

#include <quarnfc/error.h>
#include <quarnfc/ext/json_text_edit.h>
#include <quarnfc/ext/text_conversion.h>
#include <quarnfc/file_utils.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/qn_string.h>

#include <charconv>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnfc::ext {

// How a document is laid out.
struct JsonWriteStyle {
  // Blanks per level, with every item on a line of its own; 0 writes all on one line.
  std::size_t indent = 0;
  std::string_view line_end = "\n";  // with an indent
};

namespace detail {

class JsonModelWriter {
 public:
  explicit JsonModelWriter(const JsonWriteStyle& style) : style_(style) {}

  // False when the value cannot be written.
  bool Write(const CMyJsonValue& root) {
    if (!Begin(&root)) return false;
    while (!open_.empty()) {
      Open& top = open_.back();
      if (top.index < top.count ? !NextItem(top) : !End()) return false;
    }
    return true;
  }

  std::string& Text() { return text_; }

 private:
  // An object or array that is being written.
  struct Open {
    const CMyJsonObj* object;  // null for an array
    const CMyJsonValue* array;
    int index;
    int count;
  };

  bool NextItem(Open& top) {
    if (top.index > 0) text_ += ',';
    NewLine(open_.size());
    CMyJsonValue* value = nullptr;
    if (top.object != nullptr) {
      CQNString key;
      top.object->Item(top.index, key, value);
      if (!WriteText({static_cast<const char*>(key), static_cast<std::size_t>(key.GetLength())})) {
        return false;
      }
      text_ += style_.indent > 0 ? ": " : ":";
    } else {
      value = top.array->ValueArrItem(top.index);
    }
    ++top.index;
    return Begin(value);
  }

  bool End() {
    const Open done = open_.back();
    open_.pop_back();
    if (done.count > 0) NewLine(open_.size());
    text_ += done.object != nullptr ? '}' : ']';
    return true;
  }

  bool Begin(const CMyJsonValue* value) {
    if (value == nullptr || value->IsEmpty()) return Add("null");
    if (value->IsBool()) return Add(value->ValueBool() ? "true" : "false");
    if (value->IsNumber()) return WriteNumber(value->ValueNumber());
    if (value->IsStr()) return WriteText(value->ValueStr());
    if (value->IsArr()) {
      open_.push_back({nullptr, value, 0, value->ValueArrLength()});
      return Add("[");
    }
    const CMyJsonObj* const object = value->ValueObj();
    if (object == nullptr) return Add("null");
    open_.push_back({object, nullptr, 0, object->ValueCount()});
    return Add("{");
  }

  bool Add(std::string_view text) {
    text_ += text;
    return true;
  }

  bool WriteNumber(double number) {
    if (!std::isfinite(number)) return false;
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof(digits), number);
    text_.append(digits, end.ptr);
    return true;
  }

  bool WriteText(std::string_view ansi) {
    const auto utf8 = StrictUtf8FromAnsi(ansi);
    if (!utf8) return false;
    text_ += QuoteJson(*utf8);
    return true;
  }

  void NewLine(std::size_t level) {
    if (style_.indent == 0) return;
    text_ += style_.line_end;
    text_.append(level * style_.indent, ' ');
  }

  JsonWriteStyle style_;
  std::string text_;
  std::vector<Open> open_;
};

}  // namespace detail

// The value as JSON in UTF-8, without byte order mark. Nothing when it holds what JSON cannot say.
inline std::optional<std::string> WriteJson(const CMyJsonValue& value,
                                            const JsonWriteStyle& style = {}) {
  detail::JsonModelWriter writer(style);
  if (!writer.Write(value)) return std::nullopt;
  return std::move(writer.Text());
}

// Writes the value, indented by two blanks, to a file that is whole or stays as it was, as
// QNFileUtils::WriteFileAtomicA does; path and error are as there. A value that cannot be written
// is code 5. The file has no byte order mark, as RFC 8259 asks: QNJsonUtils::ReadJsonFile takes
// such a file for ANSI text, LoadJsonUtf8 reads it.
inline bool SaveJson(const char* path, const CMyJsonValue& value,
                     unsigned __int64* error = nullptr) {
  const auto text = WriteJson(value, {2, "\n"});
  if (!text) {
    if (error != nullptr) {
      *error = QNErrorUtils::CreateError(CQNObject::eErrInvalidData,
                                         "Quarn: a value cannot be written as JSON");
    }
    return false;
  }
  return QNFileUtils::WriteFileAtomicA(path, text->data(), text->size(), error);
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_JSON_WRITE_H_
