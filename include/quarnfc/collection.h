// SPDX-License-Identifier: MIT
// CQNCollection: a growable array of 64-bit items, values or pointers, from which hosts derive
// collections of their own.
//
// Two hooks let a derived class own its items: OnCloneItem for an item that is about to be
// duplicated, OnRemoveItem for an item that is about to be removed. The base class leaves items
// alone.
//
// Indexes are not checked against the count, and need not be: an index outside the items never
// reaches memory outside the array. Such an index is a mistake of the caller all the same; each
// member says what it then does.
//
// Errors: std::bad_alloc when memory is exhausted or the count would exceed 2,147,483,647; the
// items are then as they were.
// Threads: a collection is used by one thread at a time.
//
// Implemented in core/collections/collection.cpp.
//
// Example:
//   CQNCollection numbers;
//   numbers.Add(5);                 // == 0
//   numbers.Add(7);                 // == 1
//   numbers.InsertAt(0, 3);
//   numbers.Count();                // == 3
//   numbers.Find(7, 0);             // == 2
//   numbers.RemoveAt(1);
//   numbers[1] == 7u;               // == true
#ifndef QUARNFC_COLLECTION_H_
#define QUARNFC_COLLECTION_H_

#include <quarnfc/export.h>
#include <quarnfc/object.h>
#include <quarnfc/platform_types.h>

struct CQNCollectionItems;

// The order of the virtual members is part of the binary interface. Where two share a name, the
// Microsoft C++ ABI lays them out in reverse: Item and operator[] are declared accordingly.
class QN_API CQNCollection : public CQNObject {
 public:
  // An empty collection that allocates no room for items yet.
  CQNCollection();

  // Copying shares both the items and the private record of CQNObject: the two objects are one
  // collection, and only one of them may be destroyed. Use Add for a copy of the items.
  CQNCollection(const CQNCollection& other);

  // The same; what this collection held before is neither shared nor released.
  CQNCollection& operator=(const CQNCollection& other);

  // CQNCollection::m_class, or that of the derived class.
  CQNObjClass* GetThisClass() override;

  // Frees the array without calling OnRemoveItem: a derived class that owns its items releases
  // them in its own destructor.
  ~CQNCollection() override;

  // RemoveAll, then Append(other): see there what that means. A collection copied from itself
  // ends up empty.
  virtual void CopyFrom(const CQNCollection& other);

  // Appends item as it is, without a hook, and returns its index.
  virtual int Add(unsigned __int64 item);

  // Appends as many items as other holds, but takes them from this collection, beginning with its
  // first item. Deliberate, kept for the hosts that count on it; to copy the items of other, add
  // them one by one. Where this collection has no item left to take, the item is 0. Each item
  // passes through the OnCloneItem of other that is declared here, const, and then through Add.
  //
  // Hazard: that hook returns the item unchanged in CQNStringCollection and CQNObjectCollection.
  // Append on one that holds pointers therefore holds them twice, without a second text or a
  // second reference, and releases them twice. Replace or zero the duplicates before they are
  // removed.
  virtual void Append(const CQNCollection& other);

  // Inserts item at index, without a hook; later items move up. An index outside 0 to Count()
  // appends.
  virtual void InsertAt(int index, unsigned __int64 item);

  // The number of items.
  virtual int Count() const;

  // Calls OnRemoveItem for the item and removes it; later items move down. An index outside the
  // items does nothing.
  virtual void RemoveAt(int index);

  // Calls OnRemoveItem for every item, first to last, and removes them. The capacity stays.
  virtual void RemoveAll();

  // Hook: what to store for a duplicate of item. Returns item. A derived class overrides it, const
  // included, to give a copy or to add a reference.
  virtual unsigned __int64 OnCloneItem(unsigned __int64 item) const;

  // Hook: item is about to be removed, and still stands in its place. Does nothing. A derived class
  // overrides it to release what the item owns; it must not destroy the collection.
  virtual void OnRemoveItem(unsigned __int64 item);

  // 1, always: the array grows by half its capacity, or to the needed size if that is more.
  virtual int GrowLength() const;

  // Does nothing, deliberately: the rule of growth is fixed.
  virtual void SetGrowLength(int length);

  // Count().
  virtual int LogicalLength() const;

  // Makes count the number of items (a negative count counts as 0). OnRemoveItem is called for
  // the items that go, in ascending order; items that come are 0.
  virtual void SetLogicalLength(int count);

  // The number of items the array holds without growing.
  virtual int PhysicalLength() const;

  // Raises the capacity to exactly capacity; it never shrinks.
  //
  // Hazard: a capacity below the count calls OnRemoveItem for the items at capacity and above
  // although they stay in the array and the count stays. Deliberate. In a collection that owns its
  // items they are then released but still listed: overwrite them before anything else.
  virtual void SetPhysicalLength(int capacity);

  // The index of the first item equal to item at start or later (a negative start counts as 0), or
  // -1.
  virtual int Find(unsigned __int64 item, int start) const;

  // Whether Find has a result.
  virtual bool Contains(unsigned __int64 item, int start) const;

  // The item at index, 0 to Count() - 1, valid until the collection is changed. An index outside
  // the items gives a reference to a 0 that belongs to no item.
  virtual const unsigned __int64& Item(int index) const;

  // The same for writing. Neither hook is called for what is overwritten; what is written to an
  // index outside the items is lost.
  virtual unsigned __int64& Item(int index);

  // Item(index), for reading and writing.
  virtual unsigned __int64& operator[](int index);

  // Item(index), for reading.
  virtual const unsigned __int64& operator[](int index) const;

  // The first item, followed by the others, valid until the collection is changed; null while
  // PhysicalLength() is 0. Only Count() items may be read or written.
  virtual unsigned __int64* DataPtr();

  // The same, for reading.
  virtual const unsigned __int64* constDataPtr() const;

  // The class record "CQNCollection", whose base is CQNObject::m_class.
  static CQNObjClass m_class;

 private:
  void CallOnRemoveItem(int first);

  CQNCollectionItems* items_;
};

#endif  // QUARNFC_COLLECTION_H_
