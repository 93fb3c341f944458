// SPDX-License-Identifier: MIT
#include <quarnfc/collection.h>

#include <algorithm>
#include <limits>
#include <new>

#include "core/collections/collection_items.h"

namespace {

using Array = std::vector<unsigned __int64>;

constexpr std::size_t kMaximumCount = std::numeric_limits<int>::max();

// Makes room for count items: half the capacity more, or count if that is more. The rule is applied
// here because standard libraries differ in theirs.
void EnsureRoom(Array& array, std::size_t count) {
  if (count <= array.capacity()) return;
  if (count > kMaximumCount) throw std::bad_alloc();
  const std::size_t grown = array.capacity() + array.capacity() / 2;
  array.reserve(std::max(count, std::min(grown, kMaximumCount)));
}

void PushBack(Array& array, unsigned __int64 item) {
  EnsureRoom(array, array.size() + 1);
  array.push_back(item);
}

bool HasIndex(const Array& array, int index) {
  return index >= 0 && static_cast<std::size_t>(index) < array.size();
}

// The item at an index that is inside.
template <class Items>
auto& At(Items& array, int index) {
  return array[static_cast<std::size_t>(index)];
}

// A count or position of a host, which takes a negative one for none.
std::size_t NotNegative(int count) { return static_cast<std::size_t>(std::max(count, 0)); }

}  // namespace

CQNCollection::CQNCollection() : items_(new CQNCollectionItems) {}

CQNCollection::CQNCollection(const CQNCollection&) = default;
CQNCollection& CQNCollection::operator=(const CQNCollection&) = default;

CQNObjClass CQNCollection::m_class("CQNCollection", &CQNObject::m_class);

CQNObjClass* CQNCollection::GetThisClass() { return &m_class; }

CQNCollection::~CQNCollection() { delete items_; }

void CQNCollection::CopyFrom(const CQNCollection& other) {
  RemoveAll();
  Append(other);
}

int CQNCollection::Add(unsigned __int64 item) {
  PushBack(items_->array, item);
  return static_cast<int>(items_->array.size()) - 1;
}

void CQNCollection::Append(const CQNCollection& other) {
  const int count = other.Count();
  for (int i = 0; i < count; ++i) {
    // This collection's own item, deliberately: see the header.
    const unsigned __int64 item = HasIndex(items_->array, i) ? At(items_->array, i) : 0;
    Add(other.OnCloneItem(item));
  }
}

void CQNCollection::InsertAt(int index, unsigned __int64 item) {
  Array& array = items_->array;
  PushBack(array, item);
  if (HasIndex(array, index)) std::rotate(array.begin() + index, array.end() - 1, array.end());
}

int CQNCollection::Count() const { return static_cast<int>(items_->array.size()); }

void CQNCollection::RemoveAt(int index) {
  Array& array = items_->array;
  if (!HasIndex(array, index)) return;
  OnRemoveItem(At(array, index));
  // The hook is a host's and may have removed items itself.
  if (HasIndex(array, index)) array.erase(array.begin() + index);
}

void CQNCollection::RemoveAll() {
  CallOnRemoveItem(0);
  items_->array.clear();
}

unsigned __int64 CQNCollection::OnCloneItem(unsigned __int64 item) const { return item; }

void CQNCollection::OnRemoveItem(unsigned __int64 /*item*/) {}

int CQNCollection::GrowLength() const { return 1; }

void CQNCollection::SetGrowLength(int /*length*/) {}

int CQNCollection::LogicalLength() const { return Count(); }

void CQNCollection::SetLogicalLength(int count) {
  CallOnRemoveItem(count);
  const std::size_t length = NotNegative(count);
  EnsureRoom(items_->array, length);
  items_->array.resize(length);
}

int CQNCollection::PhysicalLength() const { return static_cast<int>(items_->array.capacity()); }

void CQNCollection::SetPhysicalLength(int capacity) {
  // The items stay although they have been released, deliberately: see the header.
  CallOnRemoveItem(capacity);
  items_->array.reserve(NotNegative(capacity));
}

int CQNCollection::Find(unsigned __int64 item, int start) const {
  const Array& array = items_->array;
  for (std::size_t i = NotNegative(start); i < array.size(); ++i) {
    if (array[i] == item) return static_cast<int>(i);
  }
  return -1;
}

bool CQNCollection::Contains(unsigned __int64 item, int start) const {
  return Find(item, start) >= 0;
}

const unsigned __int64& CQNCollection::Item(int index) const {
  static constexpr unsigned __int64 kOutside = 0;
  return HasIndex(items_->array, index) ? At(items_->array, index) : kOutside;
}

unsigned __int64& CQNCollection::Item(int index) {
  if (HasIndex(items_->array, index)) return At(items_->array, index);
  items_->outside = 0;
  return items_->outside;
}

unsigned __int64& CQNCollection::operator[](int index) { return Item(index); }

const unsigned __int64& CQNCollection::operator[](int index) const { return Item(index); }

unsigned __int64* CQNCollection::DataPtr() { return items_->array.data(); }

const unsigned __int64* CQNCollection::constDataPtr() const { return items_->array.data(); }

void CQNCollection::CallOnRemoveItem(int first) {
  // By index: the hook is a host's and may add or remove items.
  for (int i = std::max(first, 0); HasIndex(items_->array, i); ++i)
    OnRemoveItem(At(items_->array, i));
}
