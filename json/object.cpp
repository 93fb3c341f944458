// SPDX-License-Identifier: MIT
// Construction, destruction, copies and enumeration of CMyJsonObj.

#include <quarnfc/json_object.h>

#include <memory>

#include "json/doomed_tree.h"
#include "json/records.h"
#include "json/tree_copy.h"

CMyJsonObj::CMyJsonObj() : imp_(quarnfc::json::ObjectBlock::NewAlone()) {}

CMyJsonObj::CMyJsonObj(const CMyJsonObj& other) = default;
CMyJsonObj& CMyJsonObj::operator=(const CMyJsonObj& other) = default;

CMyJsonObj::~CMyJsonObj() {
  quarnfc::json::DoomedTree doomed;
  doomed.Add(imp_);
}

void* CMyJsonObj::operator new(std::size_t size) {
  return quarnfc::json::ObjectBlock::AllocShell(size);
}

void CMyJsonObj::operator delete(void* object, std::size_t /*size*/) noexcept {
  quarnfc::json::ObjectBlock::FreeShell(object);
}

CMyJsonObj* CMyJsonObj::Clone() const {
  std::unique_ptr<CMyJsonObj> clone(quarnfc::json::JsonAccess::NewObject());
  clone->imp_->error = imp_->error;
  quarnfc::json::CopyMembers(*imp_, *clone->imp_);
  return clone.release();
}

void CMyJsonObj::CopyFrom(const CMyJsonObj* source) {
  if (source == nullptr) return;
  // The copy is complete before anything is destroyed, so source may be part of this object.
  CMyJsonObj fresh;
  quarnfc::json::CopyMembers(*source->imp_, *fresh.imp_);
  quarnfc::json::SwapMembers(*imp_, *fresh.imp_);
}

int CMyJsonObj::ValueCount() const { return static_cast<int>(imp_->values.size()); }

void CMyJsonObj::Item(int index, CQNString& key, CMyJsonValue*& value) const {
  if (index < 0 || index >= ValueCount()) return;
  const auto position = static_cast<std::size_t>(index);
  key = quarnfc::json::AsString(imp_->keys[position]);
  value = imp_->values[position];
}

CQNString CMyJsonObj::GetErrMsg() const { return quarnfc::json::AsString(imp_->error); }
