// SPDX-License-Identifier: MIT
// Filling fresh (eEmpty) values. The public constructors of CMyJsonValue and the values that the
// library makes itself go the same way.
#ifndef QUARNFC_JSON_VALUE_CONTENT_H_
#define QUARNFC_JSON_VALUE_CONTENT_H_

#include <memory>

#include "json/packed_numbers.h"
#include "json/records.h"

namespace quarnfc::json {

// A string with a copy of text; eEmpty when text is null.
void SetContent(CMyJsonValueImp& record, const char* text);

inline void SetContent(CMyJsonValueImp& record, double number) {
  record.type = CMyJsonValue::eNumber;
  record.number = number;
}

inline void SetContent(CMyJsonValueImp& record, int number) {
  SetContent(record, static_cast<double>(number));
}

inline void SetContent(CMyJsonValueImp& record, bool flag) {
  record.type = CMyJsonValue::eBool;
  record.boolean = flag;
}

// An array of these values themselves.
void SetContent(CMyJsonValueImp& record, CMyJsonValue* const* values, int count);

// An object value with obj itself; eEmpty when obj is null.
inline void SetContent(CMyJsonValueImp& record, CMyJsonObj* obj) {
  if (obj == nullptr) return;
  record.type = CMyJsonValue::eObj;
  record.object = obj;
}

inline void SetContent(CMyJsonValueImp& /*record*/) {}

// An array of numbers.
template <class Number>
void SetContent(CMyJsonValueImp& record, const Number* numbers, int count);

// A new value on the heap, in one block with its record.
template <class... Content>
std::unique_ptr<CMyJsonValue> NewValue(Content... content) {
  std::unique_ptr<CMyJsonValue> value(JsonAccess::NewValue());
  SetContent(JsonAccess::Record(*value), content...);
  return value;
}

template <class Number>
void SetContent(CMyJsonValueImp& record, const Number* numbers, int count) {
  SetNumbers(record, numbers, numbers != nullptr && count > 0 ? numbers + count : numbers);
}

// A new object value that holds a new empty object.
inline std::unique_ptr<CMyJsonValue> NewObjectValue() {
  std::unique_ptr<CMyJsonValue> value = NewValue();
  SetContent(JsonAccess::Record(*value), JsonAccess::NewObject());
  return value;
}

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_VALUE_CONTENT_H_
