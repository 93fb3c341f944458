// SPDX-License-Identifier: MIT
// Arrays of numbers. As long as nobody asks for one of its elements, such an array is packed: its
// slots hold the numbers themselves in the place of pointers to values. Reading, copying, writing
// and destroying it passes eight bytes for each number and makes no value.
//
// All access to the elements of an array goes through here.
#ifndef QUARNFC_JSON_PACKED_NUMBERS_H_
#define QUARNFC_JSON_PACKED_NUMBERS_H_

#include <bit>

#include "json/records.h"

namespace quarnfc::json {

// NOLINTNEXTLINE(bugprone-sizeof-expression): the pointer's size is meant
static_assert(sizeof(CMyJsonValue*) == sizeof(double), "a slot holds a pointer or a number");

inline double NumberIn(CMyJsonValue* slot) { return std::bit_cast<double>(slot); }
inline CMyJsonValue* SlotOf(double number) { return std::bit_cast<CMyJsonValue*>(number); }

// Makes the values of a packed array, in the same slots. Throws std::bad_alloc; then the array is
// as it was.
void Unpack(const CMyJsonValueImp& record);

// The elements as values.
inline ValueList& ElementsOf(CMyJsonValueImp& record) {
  if (record.packed) Unpack(record);
  return record.array;
}

inline const ValueList& ElementsOf(const CMyJsonValueImp& record) {
  if (record.packed) Unpack(record);
  return record.array;
}

// Makes a fresh (eEmpty) record an array of these numbers.
template <class Iterator>
void SetNumbers(CMyJsonValueImp& record, Iterator first, Iterator last) {
  record.type = CMyJsonValue::eArr;
  record.array.reserve(static_cast<std::size_t>(last - first));
  for (; first != last; ++first) record.array.push_back(SlotOf(static_cast<double>(*first)));
  record.packed = !record.array.empty();
}

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_PACKED_NUMBERS_H_
