// Construction, destruction, copies and enumeration of CMyJsonObj.

#include <quarnfc/json_object.h>

#include <memory>

#include "json/doomed_tree.h"
#include "json/records.h"
#include "json/tree_copy.h"

CMyJsonObj::CMyJsonObj() : imp_(new CMyJsonObjImp) {}

CMyJsonObj::CMyJsonObj(const CMyJsonObj& other) = default;
CMyJsonObj& CMyJsonObj::operator=(const CMyJsonObj& other) = default;

CMyJsonObj::~CMyJsonObj() {
  quarnfc::json::DoomedTree doomed;
  doomed.Add(imp_);
}

void* CMyJsonObj::operator new(std::size_t size) { return quarnfc::AllocNode(size); }

void CMyJsonObj::operator delete(void* object, std::size_t size) noexcept {
  quarnfc::FreeNode(object, size);
}

CMyJsonObj* CMyJsonObj::Clone() const {
  auto clone = std::make_unique<CMyJsonObj>();
  clone->imp_->error.Set(imp_->error);
  quarnfc::json::CopyMembers(*imp_, *clone->imp_);
  return clone.release();
}

void CMyJsonObj::CopyFrom(const CMyJsonObj* source) {
  if (source == nullptr) return;
  // The copy is complete before anything is destroyed, so source may be part of this object.
  CMyJsonObj fresh;
  quarnfc::json::CopyMembers(*source->imp_, *fresh.imp_);
  imp_->keys.swap(fresh.imp_->keys);
  imp_->values.swap(fresh.imp_->values);
}

int CMyJsonObj::ValueCount() const { return static_cast<int>(imp_->values.size()); }

void CMyJsonObj::Item(int index, CQNString& key, CMyJsonValue*& value) const {
  if (index < 0 || index >= ValueCount()) return;
  const auto position = static_cast<std::size_t>(index);
  key = imp_->keys[position];
  value = imp_->values[position];
}

CQNString CMyJsonObj::GetErrMsg() const { return imp_->error.Get(); }
