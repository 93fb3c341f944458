// SPDX-License-Identifier: MIT
// A handle of the flat C interface is the address of a CMyJsonValue.
#ifndef QUARNFC_C_JSON_HANDLE_H_
#define QUARNFC_C_JSON_HANDLE_H_

#include <quarnfc/c/json.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

namespace quarnfc::c {

inline CMyJsonValue* ValueOf(QncJson* handle) { return reinterpret_cast<CMyJsonValue*>(handle); }

inline const CMyJsonValue* ValueOf(const QncJson* handle) {
  return reinterpret_cast<const CMyJsonValue*>(handle);
}

inline QncJson* HandleOf(CMyJsonValue* value) { return reinterpret_cast<QncJson*>(value); }

// The object of a value; null when it is none.
inline CMyJsonObj* ObjectOf(const QncJson* handle) {
  return handle == nullptr || !ValueOf(handle)->IsObj() ? nullptr : ValueOf(handle)->ValueObj();
}

}  // namespace quarnfc::c

#endif  // QUARNFC_C_JSON_HANDLE_H_
