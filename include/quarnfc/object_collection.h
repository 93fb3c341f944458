// SPDX-License-Identifier: MIT
// CQNObjectCollection: a CQNCollection that holds references to CQNObject instances.
//
// Each item is a CQNObject pointer that stands for one reference, or null. Read the hazards of
// Append, CopyFrom and SetPhysicalLength in collection.h first.
// Errors: as in collection.h; when Add throws, the reference stays the caller's.
// Threads: a collection and its objects are used by one thread at a time.
//
// Misuse to avoid: adding an object that was not made with new, or one reference twice; adding a
// collection to itself (nothing ever releases it).
//
// Implemented in core/collections/object_collection.cpp.
//
// Example:
//   CQNObjectCollection objects;
//   CQNObject* object = new CQNObject;    // one reference, the caller's
//   object->AddRef();                     // a second one, for the collection
//   objects.Add(object);                  // == 0
//   objects.RemoveAll();                  // releases the second
//   object->Release();                    // destroys the object
#ifndef QUARNFC_OBJECT_COLLECTION_H_
#define QUARNFC_OBJECT_COLLECTION_H_

#include <quarnfc/collection.h>
#include <quarnfc/export.h>

class QN_API CQNObjectCollection : public CQNCollection {
 public:
  // An empty collection.
  CQNObjectCollection();

  // Shares the items with other, as CQNCollection does: only one of the two may be destroyed.
  CQNObjectCollection(const CQNObjectCollection& other);

  // The same; the references this collection held before are lost.
  CQNObjectCollection& operator=(const CQNObjectCollection& other);

  // CQNObjectCollection::m_class.
  CQNObjClass* GetThisClass() override;

  // Releases every object.
  ~CQNObjectCollection() override;

  // Appends the pointer and returns its index. The collection takes over the caller's reference:
  // no AddRef.
  int Add(CQNObject* object);

  // The object at index without a new reference; null for an index outside the items.
  CQNObject* GetObj(int index) const;

  // Releases the object; null is ignored.
  void OnRemoveItem(unsigned __int64 item) override;

  // Adds a reference to the object and returns it; null stays null. Not const, and so
  // deliberately a new virtual member that does not replace the hook of CQNCollection: Append and
  // CopyFrom do not call it.
  virtual unsigned __int64 OnCloneItem(unsigned __int64 item);
  using CQNCollection::OnCloneItem;

  // The class record "CQNObjectCollection", whose base is CQNCollection::m_class.
  static CQNObjClass m_class;

 private:
  // Items that are not of the type above are added through CQNCollection only.
  using CQNCollection::Add;
};

#endif  // QUARNFC_OBJECT_COLLECTION_H_
