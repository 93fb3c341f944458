// SPDX-License-Identifier: MIT
#include "json/tree_copy.h"

#include <utility>
#include <vector>

namespace quarnfc::json {
namespace {

// Works through the containers that are still to be copied, kept on the heap.
class TreeCopier {
 public:
  void Copy(const CMyJsonValueImp& source, CMyJsonValueImp& target) {
    switch (source.type) {
      case CMyJsonValue::eStr:
        target.string = source.string;
        break;
      case CMyJsonValue::eNumber:
        target.number = source.number;
        break;
      case CMyJsonValue::eBool:
        target.boolean = source.boolean;
        break;
      default:
        CopyContainer(source, target);
    }
    target.type = source.type;
  }

  void CopyMembers(const CMyJsonObjImp& source, CMyJsonObjImp& target) {
    target.keys = source.keys;
    CopyList(source.values, target.values);
  }

  void Finish() {
    while (!pending_.empty()) {
      const Pair next = pending_.back();
      pending_.pop_back();
      CopyList(next.source->array, next.target->array);
      if (next.source->object != nullptr) CopyObject(*next.source->object, *next.target);
    }
  }

 private:
  struct Pair {
    const CMyJsonValueImp* source;
    CMyJsonValueImp* target;
  };

  void CopyContainer(const CMyJsonValueImp& source, CMyJsonValueImp& target) {
    if (source.packed) target.array = {source.array.begin(), source.array.end()};
    target.packed = source.packed;
    if (IsContainer(source)) pending_.push_back({&source, &target});
  }

  void CopyObject(const CMyJsonObj& source, CMyJsonValueImp& target) {
    target.object = JsonAccess::NewObject();
    CMyJsonObjImp& record = JsonAccess::Record(*target.object);
    record.error = JsonAccess::Record(source).error;
    CopyMembers(JsonAccess::Record(source), record);
  }

  void CopyList(const ValueList& source, ValueList& target) {
    target = ValueList(source.size());
    CMyJsonValue** place = target.begin();
    for (const CMyJsonValue* value : source) {
      if (value != nullptr) {
        *place = JsonAccess::NewValue();
        Copy(JsonAccess::Record(*value), JsonAccess::Record(**place));
      }
      ++place;
    }
  }

  std::vector<Pair> pending_;
};

}  // namespace

void CopyContent(const CMyJsonValueImp& source, CMyJsonValueImp& target) {
  TreeCopier copier;
  copier.Copy(source, target);
  copier.Finish();
}

void CopyMembers(const CMyJsonObjImp& source, CMyJsonObjImp& target) {
  TreeCopier copier;
  copier.CopyMembers(source, target);
  copier.Finish();
}

void TakeContent(CMyJsonValueImp& target, CMyJsonValueImp& fresh) noexcept {
  std::swap(target.type, fresh.type);
  SwapContainers(target, fresh);
  switch (target.type) {
    case CMyJsonValue::eStr:
      std::swap(target.string, fresh.string);
      break;
    case CMyJsonValue::eNumber:
      target.number = fresh.number;
      break;
    case CMyJsonValue::eBool:
      target.boolean = fresh.boolean;
      break;
    default:
      break;
  }
}

}  // namespace quarnfc::json
