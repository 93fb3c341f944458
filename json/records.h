// SPDX-License-Identifier: MIT
// The private records behind CMyJsonValue and CMyJsonObj, and the door to them for the sources of
// this folder.
#ifndef QUARNFC_JSON_RECORDS_H_
#define QUARNFC_JSON_RECORDS_H_

#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/qn_string.h>

#include <cstddef>
#include <utility>

#include "json/compact_list.h"
#include "json/key_index.h"
#include "json/key_list.h"
#include "json/record_block.h"
#include "json/shared_text.h"

namespace quarnfc::json {

using ValueList = CompactList<CMyJsonValue*>;

}  // namespace quarnfc::json

struct CMyJsonValueImp {
  CMyJsonValue::EValueType type = CMyJsonValue::eEmpty;
  bool boolean = false;
  mutable bool packed = false;  // the slots of the array hold numbers: see packed_numbers.h
  quarnfc::json::RecordPlace place;
  quarnfc::json::SharedText string;
  union {
    double number = 0;
    CMyJsonValueImp* next_doomed;  // links the records of a tree that is being destroyed
  };
  mutable quarnfc::json::ValueList array;  // owned; empty unless the type is eArr
  CMyJsonObj* object = nullptr;            // owned; null unless the type is eObj
};

struct CMyJsonObjImp {
  quarnfc::json::SharedText error;
  quarnfc::json::KeyList keys;
  quarnfc::json::ValueList values;  // owned; entry i belongs to key i
  quarnfc::json::KeyIndex index;    // of the keys; follows every change of them
  quarnfc::json::RecordPlace place;
};

static_assert(sizeof(CMyJsonValue) == sizeof(void*), "a value is one pointer wide");
static_assert(sizeof(CMyJsonObj) == sizeof(void*), "an object is one pointer wide");

namespace quarnfc::json {

using ValueBlock = RecordBlock<CMyJsonValue, CMyJsonValueImp>;
using ObjectBlock = RecordBlock<CMyJsonObj, CMyJsonObjImp>;

struct JsonAccess {
  static CMyJsonValueImp& Record(CMyJsonValue& value) { return *value.imp_; }
  static const CMyJsonValueImp& Record(const CMyJsonValue& value) { return *value.imp_; }
  static CMyJsonObjImp& Record(CMyJsonObj& object) { return *object.imp_; }
  static const CMyJsonObjImp& Record(const CMyJsonObj& object) { return *object.imp_; }

  // A new eEmpty value and a new empty object, each in one block with its record; released with
  // delete.
  static CMyJsonValue* NewValue() { return Shell<CMyJsonValue>(ValueBlock::NewTogether()); }
  static CMyJsonObj* NewObject() { return Shell<CMyJsonObj>(ObjectBlock::NewTogether()); }

  // Takes the record out of a value or object on the heap that is about to be freed.
  template <class HeapShell>
  static auto* Detach(HeapShell& shell) {
    return std::exchange(shell.imp_, nullptr);
  }

 private:
  // The shell behind a record: a pointer to that record and nothing else. (The public constructors
  // would make another record.)
  template <class NewShell, class Record>
  static NewShell* Shell(Record* record) {
    auto* shell = reinterpret_cast<NewShell*>(record + 1);
    shell->imp_ = record;
    return shell;
  }
};

// Whether there are values below this one.
inline bool IsContainer(const CMyJsonValueImp& record) {
  return (!record.packed && !record.array.empty()) || record.object != nullptr;
}

// Exchanges what is below two values.
inline void SwapContainers(CMyJsonValueImp& left, CMyJsonValueImp& right) noexcept {
  left.array.swap(right.array);
  std::swap(left.packed, right.packed);
  std::swap(left.object, right.object);
}

// The text as a string of its own.
inline CQNString AsString(const SharedText& text) {
  return CQNString(text.Characters(), static_cast<int>(text.Length()));
}

inline void SwapMembers(CMyJsonObjImp& left, CMyJsonObjImp& right) noexcept {
  left.keys.swap(right.keys);
  left.values.swap(right.values);
  left.index.Drop();
  right.index.Drop();
}

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_RECORDS_H_
