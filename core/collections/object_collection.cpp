// SPDX-License-Identifier: MIT
#include <quarnfc/object_collection.h>

#include <cstdint>

namespace {

CQNObject* ToObject(unsigned __int64 item) {
  return reinterpret_cast<CQNObject*>(static_cast<std::uintptr_t>(item));
}

unsigned __int64 ToItem(const CQNObject* object) {
  return reinterpret_cast<std::uintptr_t>(object);
}

void ReleaseObject(CQNObject* object) {
  if (object != nullptr) object->Release();
}

}  // namespace

CQNObjectCollection::CQNObjectCollection() = default;

CQNObjectCollection::CQNObjectCollection(const CQNObjectCollection&) = default;
CQNObjectCollection& CQNObjectCollection::operator=(const CQNObjectCollection&) = default;

CQNObjClass CQNObjectCollection::m_class("CQNObjectCollection", &CQNCollection::m_class);

CQNObjClass* CQNObjectCollection::GetThisClass() { return &m_class; }

CQNObjectCollection::~CQNObjectCollection() {
  for (int i = 0; i < CQNCollection::Count(); ++i) ReleaseObject(GetObj(i));
}

int CQNObjectCollection::Add(CQNObject* object) { return Add(ToItem(object)); }

CQNObject* CQNObjectCollection::GetObj(int index) const { return ToObject(Item(index)); }

void CQNObjectCollection::OnRemoveItem(unsigned __int64 item) { ReleaseObject(ToObject(item)); }

unsigned __int64 CQNObjectCollection::OnCloneItem(unsigned __int64 item) {
  if (item != 0) ToObject(item)->AddRef();
  return item;
}
