// SPDX-License-Identifier: MIT
#include "json/doomed_tree.h"

#include <utility>

namespace quarnfc::json {

DoomedTree::~DoomedTree() {
  while (head_ != nullptr) {
    CMyJsonValueImp* record = head_;
    head_ = record->next_doomed;
    AddAll(record->array);
    Add(std::exchange(record->object, nullptr));
    ValueBlock::Destroy(record);
  }
}

void DoomedTree::Add(CMyJsonValueImp* record) noexcept {
  if (record == nullptr) return;
  if (IsContainer(*record)) {
    record->next_doomed = head_;
    head_ = record;
  } else {
    ValueBlock::Destroy(record);
  }
}

void DoomedTree::Add(CMyJsonValue* value) noexcept {
  if (value == nullptr) return;
  CMyJsonValueImp* record = JsonAccess::Detach(*value);
  ValueBlock::FreeShell(value);
  Add(record);
}

void DoomedTree::Add(CMyJsonObj* object) noexcept {
  if (object == nullptr) return;
  CMyJsonObjImp* record = JsonAccess::Detach(*object);
  ObjectBlock::FreeShell(object);
  Add(record);
}

void DoomedTree::Add(CMyJsonObjImp* record) noexcept {
  if (record == nullptr) return;
  AddAll(record->values);
  ObjectBlock::Destroy(record);
}

void DoomedTree::AddAll(ValueList& values) noexcept {
  for (CMyJsonValue* value : values) Add(value);
  values.clear();
}

}  // namespace quarnfc::json
