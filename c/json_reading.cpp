// SPDX-License-Identifier: MIT
// Looking into a JSON value.
#include <quarnfc/ext/json_access.h>

#include "c/guarded.h"
#include "c/json_handle.h"
#include "c/text.h"

namespace {

using quarnfc::c::AnsiText;
using quarnfc::c::Given;
using quarnfc::c::GuardedNew;
using quarnfc::c::HandleOf;
using quarnfc::c::NewUtf8;
using quarnfc::c::ObjectOf;
using quarnfc::c::ValueOf;

}  // namespace

int qncJsonType(const QncJson* value) {
  return value == nullptr ? static_cast<int>(QNC_JSON_NULL) : ValueOf(value)->Type();
}

int qncJsonCount(const QncJson* value) {
  if (const CMyJsonObj* object = ObjectOf(value)) return object->ValueCount();
  return value == nullptr || !ValueOf(value)->IsArr() ? 0 : ValueOf(value)->ValueArrLength();
}

QncJson* qncJsonAt(const QncJson* value, int index) {
  if (value == nullptr) return nullptr;
  const CMyJsonObj* object = ObjectOf(value);
  return GuardedNew(nullptr, [=]() -> QncJson* {
    if (object == nullptr) {
      return ValueOf(value)->IsArr() ? HandleOf(ValueOf(value)->ValueArrItem(index)) : nullptr;
    }
    CQNString key;
    CMyJsonValue* member = nullptr;
    object->Item(index, key, member);
    return HandleOf(member);
  });
}

char* qncJsonKey(const QncJson* value, int index, CQNObject** error) {
  return GuardedNew(error, [=]() -> char* {
    const CMyJsonObj* object = ObjectOf(value);
    if (object == nullptr) return nullptr;
    CQNString key;
    CMyJsonValue* member = nullptr;
    object->Item(index, key, member);
    return member == nullptr ? nullptr : NewUtf8(key);
  });
}

QncJson* qncJsonFind(const QncJson* object, const char* path) {
  return GuardedNew(nullptr, [=]() -> QncJson* {
    const CMyJsonObj* members = ObjectOf(object);
    CMyJsonValue* value = nullptr;
    if (members == nullptr || !members->Value(AnsiText(path).get(), value)) return nullptr;
    return HandleOf(value);
  });
}

QncJson* qncJsonFindValue(const QncJson* value, const char* place) {
  return GuardedNew(nullptr, [=] {
    // The handle is not changed, and what is found is the host's to change, as with qncJsonFind.
    auto& root = const_cast<CMyJsonValue&>(*ValueOf(Given(value)));
    return HandleOf(quarnfc::ext::FindValue(root, AnsiText(place).get()));
  });
}

char* qncJsonText(const QncJson* value, CQNObject** error) {
  return GuardedNew(error, [=] {
    return qncJsonType(value) == QNC_JSON_TEXT ? NewUtf8(ValueOf(value)->ValueStr()) : nullptr;
  });
}

int qncJsonNumber(const QncJson* value, double* number) {
  if (number == nullptr || qncJsonType(value) != QNC_JSON_NUMBER) return 0;
  *number = ValueOf(value)->ValueNumber();
  return 1;
}

int qncJsonBool(const QncJson* value, int* flag) {
  if (flag == nullptr || qncJsonType(value) != QNC_JSON_BOOL) return 0;
  *flag = ValueOf(value)->ValueBool() ? 1 : 0;
  return 1;
}
