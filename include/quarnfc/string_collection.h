// SPDX-License-Identifier: MIT
// CQNStringCollection: a CQNCollection that owns zero-terminated 8-bit strings.
//
// Texts are in the process ANSI code page. Each item is a buffer of this library, one that
// qnFreeMem would release (CQNString::AllocANSIString gives such a buffer), or null. Read the
// hazards of Append, CopyFrom and SetPhysicalLength in collection.h first.
// Errors: as in collection.h; when Add throws, the text stays the caller's.
// Threads: a collection is used by one thread at a time.
//
// Misuse to avoid: adding a literal, a pointer into a CQNString, or one buffer twice (all are
// deleted); releasing what GetStr returned.
//
// Implemented in core/collections/string_collection.cpp.
//
// Example:
//   CQNStringCollection names;
//   names.CloneAdd("Changsha");                               // == 0
//   names.Add(CQNString("Xiangtan").AllocANSIString());       // == 1
//   names.Find("CHANGSHA", false, 0);                         // == 0
//   names.GetStr(1);                                          // == "Xiangtan"
#ifndef QUARNFC_STRING_COLLECTION_H_
#define QUARNFC_STRING_COLLECTION_H_

#include <quarnfc/collection.h>
#include <quarnfc/export.h>

class QN_API CQNStringCollection : public CQNCollection {
 public:
  // An empty collection.
  CQNStringCollection();

  // Shares the items with other, as CQNCollection does: only one of the two may be destroyed.
  CQNStringCollection(const CQNStringCollection& other);

  // The same; the strings this collection held before are lost.
  CQNStringCollection& operator=(const CQNStringCollection& other);

  // CQNStringCollection::m_class.
  CQNObjClass* GetThisClass() override;

  // Deletes every string.
  ~CQNStringCollection() override;

  // Appends the pointer itself, which the collection then owns, and returns its index.
  int Add(char* text);

  // Appends a copy of text, made by the OnCloneItem of this class, and returns its index; null
  // appends a null item.
  int CloneAdd(const char* text);

  // The string at index, which stays the collection's; null for an index outside the items.
  char* GetStr(int index) const;

  // The index of the first string equal to text at start or later (a negative start counts as 0),
  // or -1. Characters are compared by the code page; without caseSensitive, regardless of case.
  // Null items equal nothing, and so does a null text.
  int Find(const char* text, bool caseSensitive, int start) const;
  using CQNCollection::Find;

  // Deletes the string; null is ignored.
  void OnRemoveItem(unsigned __int64 item) override;

  // A copy of the string; null stays null. Not const, and so deliberately a new virtual member
  // that does not replace the hook of CQNCollection: only CloneAdd calls it.
  virtual unsigned __int64 OnCloneItem(unsigned __int64 item);
  using CQNCollection::OnCloneItem;

  // The class record "CQNStringCollection", whose base is CQNCollection::m_class.
  static CQNObjClass m_class;

 private:
  // Items that are not of the type above are added through CQNCollection only.
  using CQNCollection::Add;
};

#endif  // QUARNFC_STRING_COLLECTION_H_
