// CQNObjectCollection: a CQNCollection that holds references to CQNObject instances.
//
// Each item is a CQNObject pointer that stands for one reference, or null. Read the hazards of
// Append, CopyFrom and SetPhysicalLength in collection.h first.
// Threads: a collection and its objects are used by one thread at a time.
#ifndef QUARNFC_OBJECT_COLLECTION_H_
#define QUARNFC_OBJECT_COLLECTION_H_

#include <quarnfc/collection.h>
#include <quarnfc/export.h>

class QN_API CQNObjectCollection : public CQNCollection {
 public:
  CQNObjectCollection();

  // Shares the items with other, as CQNCollection does: only one of the two may be destroyed.
  CQNObjectCollection(const CQNObjectCollection& other);
  CQNObjectCollection& operator=(const CQNObjectCollection& other);

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

  static CQNObjClass m_class;

 private:
  // Items that are not of the type above are added through CQNCollection only.
  using CQNCollection::Add;
};

#endif  // QUARNFC_OBJECT_COLLECTION_H_
