// SPDX-License-Identifier: MIT
// The layout of JSON text written down plainly: one text for each value, put together by the layout
// of what holds it.
#ifndef QUARNFC_FUZZ_JSON_WRITER_REFERENCE_H_
#define QUARNFC_FUZZ_JSON_WRITER_REFERENCE_H_

#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include <cmath>
#include <cstdio>
#include <string>

namespace fuzz {

class JsonWriterReference {
 public:
  explicit JsonWriterReference(bool indent) : line_end_(indent ? "\r\n" : ""), indent_(indent) {}

  // A value by itself is written as the only member of an object, less what stands around it.
  std::string ValueText(const CMyJsonValue& value) const {
    if (value.IsEmpty()) return "";
    if (value.IsObj()) return Object(*value.ValueObj(), 0);
    const std::string text = Value(value, 1);
    return text.substr(0, text.find_last_not_of("\r\n\t }") + 1);
  }

  std::string Object(const CMyJsonObj& object, int depth) const {
    std::string text = "{" + line_end_;
    for (int i = 0; i < object.ValueCount(); ++i) {
      CQNString key;
      CMyJsonValue* value = nullptr;
      object.Item(i, key, value);
      text += Tabs(depth + 1) + "\"" + static_cast<const char*>(key) + "\":";
      text += value->IsEmpty() ? "null" : Value(*value, depth + 1);
      text += (i + 1 < object.ValueCount() ? "," : "") + line_end_;
    }
    return text + Tabs(depth) + "}";
  }

 private:
  std::string Tabs(int count) const {
    return std::string(indent_ ? static_cast<std::size_t>(count) : 0, '\t');
  }

  std::string Value(const CMyJsonValue& value, int depth) const {
    switch (value.Type()) {
      case CMyJsonValue::eStr:
        return "\"" + Escaped(value.ValueStr()) + "\"";
      case CMyJsonValue::eNumber:
        return Number(value.ValueNumber());
      case CMyJsonValue::eBool:
        return value.ValueBool() ? "true" : "false";
      case CMyJsonValue::eArr:
        return Array(value, depth);
      case CMyJsonValue::eObj:
        return Object(*value.ValueObj(), depth);
      default:
        return "";
    }
  }

  std::string Array(const CMyJsonValue& array, int depth) const {
    std::string text = "[";
    bool nested = false;
    for (int i = 0; i < array.ValueArrLength(); ++i) {
      const CMyJsonValue& element = *array.ValueArrItem(i);
      nested = element.IsObj() || element.IsArr();
      if (element.IsArr() || (element.IsObj() && i == 0)) text += line_end_;
      if (nested) text += Tabs(element.IsObj() ? depth + 1 : depth);
      text += Value(element, depth + 1);
      if (i + 1 < array.ValueArrLength()) text += ",";
      if (nested) text += line_end_;
    }
    return text + (nested ? Tabs(depth) : "") + "]";
  }

  static std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char byte : text) {
      const std::size_t index = std::string("\\\"\t\r\n").find(byte);
      escaped +=
          index == std::string::npos ? std::string(1, byte) : std::string("\\") + "\\\"trn"[index];
    }
    return escaped;
  }

  static std::string Number(double number) {
    if (std::isinf(number)) return number < 0 ? "-inf" : "inf";
    char text[400];
    std::snprintf(text, sizeof(text), "%.15f", number);
    std::string digits = text;
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.') digits.pop_back();
    return digits;
  }

  std::string line_end_;
  bool indent_;
};

}  // namespace fuzz

#endif  // QUARNFC_FUZZ_JSON_WRITER_REFERENCE_H_
