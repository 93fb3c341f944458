// SPDX-License-Identifier: MIT
#include "json/doomed_tree.h"

#include <utility>

namespace quarnfc::json {
namespace {

// Destroys a value as the library makes them with nothing below it, in one step. False for others.
inline bool DestroyLeaf(CMyJsonValue* value) noexcept {
  if (value == nullptr) return true;
  CMyJsonValueImp* record = &JsonAccess::Record(*value);
  if (record != ValueBlock::Around(value) || IsContainer(*record)) return false;
  ValueBlock::DestroyBoth(record);
  return true;
}

}  // namespace

DoomedTree::~DoomedTree() {
  while (head_ != nullptr) {
    CMyJsonValueImp* record = head_;
    head_ = record->next_doomed;
    AddBelow(*record);
    ValueBlock::Destroy(record);
  }
}

void DoomedTree::AddBelow(CMyJsonValueImp& record) noexcept {
  if (!record.packed) AddAll(record.array.begin(), record.array.end());
  Add(std::exchange(record.object, nullptr));
}

void DoomedTree::Add(CMyJsonValueImp* record) noexcept {
  if (record == nullptr) return;
  if (!IsContainer(*record)) return ValueBlock::Destroy(record);
  record->next_doomed = head_;
  head_ = record;
}

void DoomedTree::Add(CMyJsonValue* value) noexcept {
  if (DestroyLeaf(value)) return;
  CMyJsonValueImp* record = JsonAccess::Detach(*value);
  ValueBlock::FreeShell(value);
  Add(record);
}

void DoomedTree::Add(CMyJsonObj* object) noexcept {
  if (object == nullptr) return;
  CMyJsonObjImp* record = JsonAccess::Detach(*object);
  if (record == ObjectBlock::Around(object)) {
    AddAll(record->values.begin(), record->values.end());
    return ObjectBlock::DestroyBoth(record);
  }
  ObjectBlock::FreeShell(object);
  Add(record);
}

void DoomedTree::Add(CMyJsonObjImp* record) noexcept {
  if (record == nullptr) return;
  AddAll(record->values.begin(), record->values.end());
  ObjectBlock::Destroy(record);
}

void DoomedTree::AddAll(CMyJsonValue* const* first, CMyJsonValue* const* last) noexcept {
  for (; first != last; ++first) {
    if (!DestroyLeaf(*first)) Add(*first);
  }
}

}  // namespace quarnfc::json
