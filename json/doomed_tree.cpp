#include "json/doomed_tree.h"

namespace quarnfc::json {

DoomedTree::~DoomedTree() {
  while (head_ != nullptr) {
    CMyJsonValueImp* record = head_;
    head_ = record->next_doomed;
    AddAll(record->array);
    Add(record->object);
    delete record;
  }
}

void DoomedTree::Add(CMyJsonValueImp* record) noexcept {
  if (record == nullptr) return;
  if (IsContainer(*record)) {
    record->next_doomed = head_;
    head_ = record;
  } else {
    delete record;
  }
}

void DoomedTree::Add(CMyJsonValue* value) noexcept {
  if (value == nullptr) return;
  Add(JsonAccess::Detach(*value));
  delete value;
}

void DoomedTree::Add(CMyJsonObj* object) noexcept {
  if (object == nullptr) return;
  Add(JsonAccess::Detach(*object));
  delete object;
}

void DoomedTree::Add(CMyJsonObjImp* record) noexcept {
  if (record == nullptr) return;
  AddAll(record->values);
  delete record;
}

void DoomedTree::AddAll(ValueList& values) noexcept {
  for (CMyJsonValue* value : values) Add(value);
  values.clear();
}

}  // namespace quarnfc::json
