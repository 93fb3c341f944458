// SPDX-License-Identifier: MIT
#include "json/tree_search.h"

#include <vector>

namespace quarnfc::json {
namespace {

// Works through the containers that are still to be looked into, kept on the heap.
class TreeSearch {
 public:
  explicit TreeSearch(const CMyJsonValue& wanted) : wanted_(wanted) {}

  bool Below(const CMyJsonValue& root) {
    Enter(root);
    while (!pending_.empty()) {
      const CMyJsonValueImp& record = *pending_.back();
      pending_.pop_back();
      if (IsIn(record)) return true;
    }
    return false;
  }

 private:
  void Enter(const CMyJsonValue& value) {
    const CMyJsonValueImp& record = JsonAccess::Record(value);
    if (IsContainer(record)) pending_.push_back(&record);
  }

  bool IsIn(const CMyJsonValueImp& record) {
    if (record.object == nullptr) return IsAmong(record.array);
    const CMyJsonObjImp& object = JsonAccess::Record(*record.object);
    return HoldsRecord(wanted_, object) || IsAmong(object.values);
  }

  bool IsAmong(const ValueList& values) {
    for (const CMyJsonValue* value : values) {
      if (value == &wanted_) return true;
      if (value != nullptr) Enter(*value);
    }
    return false;
  }

  const CMyJsonValue& wanted_;
  std::vector<const CMyJsonValueImp*> pending_;
};

}  // namespace

bool HoldsRecord(const CMyJsonValue& value, const CMyJsonObjImp& record) {
  const CMyJsonObj* const object = value.ValueObj();
  return object != nullptr && &JsonAccess::Record(*object) == &record;
}

bool StandsBelow(const CMyJsonValue& root, const CMyJsonValue& value) {
  return TreeSearch(value).Below(root);
}

}  // namespace quarnfc::json
