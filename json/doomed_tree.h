// SPDX-License-Identifier: MIT
// Destroys trees of JSON values of any depth in constant stack and without allocating.
#ifndef QUARNFC_JSON_DOOMED_TREE_H_
#define QUARNFC_JSON_DOOMED_TREE_H_

#include "json/records.h"

namespace quarnfc::json {

// What is added is destroyed, with everything below it, when the DoomedTree ends. The records that
// still wait are linked through a field that means nothing any more.
class DoomedTree {
 public:
  DoomedTree() = default;
  DoomedTree(const DoomedTree&) = delete;
  DoomedTree& operator=(const DoomedTree&) = delete;
  ~DoomedTree();

  // Values, objects and records are taken over; null is ignored.
  void Add(CMyJsonValueImp* record) noexcept;
  void Add(CMyJsonValue* value) noexcept;
  void Add(CMyJsonObj* object) noexcept;
  void Add(CMyJsonObjImp* record) noexcept;

  // Takes over what is below the value of this record, but for packed numbers.
  void AddBelow(CMyJsonValueImp& record) noexcept;

  // Takes over all from first up to last.
  void AddAll(CMyJsonValue* const* first, CMyJsonValue* const* last) noexcept;

 private:
  CMyJsonValueImp* head_ = nullptr;
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_DOOMED_TREE_H_
