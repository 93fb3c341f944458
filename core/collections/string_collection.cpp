// SPDX-License-Identifier: MIT
#include <quarnfc/string_collection.h>

#include <algorithm>
#include <cstdint>

#include "core/memory/memory.h"
#include "core/text/multibyte.h"

namespace {

char* ToText(unsigned __int64 item) {
  return reinterpret_cast<char*>(static_cast<std::uintptr_t>(item));
}

unsigned __int64 ToItem(const char* text) { return reinterpret_cast<std::uintptr_t>(text); }

}  // namespace

CQNStringCollection::CQNStringCollection() = default;

CQNStringCollection::CQNStringCollection(const CQNStringCollection&) = default;
CQNStringCollection& CQNStringCollection::operator=(const CQNStringCollection&) = default;

CQNObjClass CQNStringCollection::m_class("CQNStringCollection", &CQNCollection::m_class);

CQNObjClass* CQNStringCollection::GetThisClass() { return &m_class; }

CQNStringCollection::~CQNStringCollection() {
  for (int i = 0; i < CQNCollection::Count(); ++i) quarnfc::FreeBuffer(GetStr(i));
}

int CQNStringCollection::Add(char* text) { return Add(ToItem(text)); }

int CQNStringCollection::CloneAdd(const char* text) {
  const unsigned __int64 copy = OnCloneItem(ToItem(text));
  try {
    return Add(copy);
  } catch (...) {
    OnRemoveItem(copy);
    throw;
  }
}

char* CQNStringCollection::GetStr(int index) const { return ToText(Item(index)); }

int CQNStringCollection::Find(const char* text, bool caseSensitive, int start) const {
  if (text == nullptr) return -1;
  const auto compare = caseSensitive ? quarnfc::MbsCmp : quarnfc::MbsICmp;
  const auto* sought = reinterpret_cast<const unsigned char*>(text);
  for (int i = std::max(start, 0); i < Count(); ++i) {
    const auto* candidate = reinterpret_cast<const unsigned char*>(GetStr(i));
    if (candidate != nullptr && compare(candidate, sought) == 0) return i;
  }
  return -1;
}

void CQNStringCollection::OnRemoveItem(unsigned __int64 item) { quarnfc::FreeBuffer(ToText(item)); }

unsigned __int64 CQNStringCollection::OnCloneItem(unsigned __int64 item) {
  return item == 0 ? 0 : ToItem(quarnfc::CopyText(ToText(item)));
}
