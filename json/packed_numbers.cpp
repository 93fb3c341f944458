// SPDX-License-Identifier: MIT
#include "json/packed_numbers.h"

#include "json/value_content.h"

namespace quarnfc::json {

void Unpack(const CMyJsonValueImp& record) {
  ValueList values;
  values.reserve(record.array.size());
  try {
    for (CMyJsonValue* slot : record.array) values.push_back(NewValue(NumberIn(slot)).release());
  } catch (...) {
    for (CMyJsonValue* value : values) delete value;
    throw;
  }
  record.array.swap(values);
  record.packed = false;
}

}  // namespace quarnfc::json
