// SPDX-License-Identifier: MIT
// Editing the array of a CMyJsonValue.

#include <quarnfc/json_value.h>

#include <algorithm>
#include <iterator>
#include <memory>

#include "json/packed_numbers.h"
#include "json/records.h"
#include "json/value_content.h"

namespace {

using quarnfc::json::ElementsOf;
using quarnfc::json::NewValue;
using quarnfc::json::ValueList;
using EValueType = CMyJsonValue::EValueType;

EValueType TypeOf(const CMyJsonValue* value) {
  return value != nullptr ? value->Type() : CMyJsonValue::eEmpty;
}

// Whether an element of this type may join the array.
bool Accepts(const CMyJsonValueImp& record, EValueType type) {
  if (record.type != CMyJsonValue::eArr) return false;
  if (record.packed) return type == CMyJsonValue::eNumber;
  return record.array.empty() || TypeOf(record.array.front()) == type;
}

ValueList::iterator Position(ValueList& array, int pos) {
  const bool inside = pos >= 0 && static_cast<std::size_t>(pos) < array.size();
  return inside ? array.begin() + pos : array.end();
}

CMyJsonValue* Insert(ValueList& array, std::unique_ptr<CMyJsonValue> value, int pos) {
  array.insert(Position(array, pos), value.get());
  return value.release();
}

// Inserts a new value made from content, if the array takes elements of this type.
template <class Content>
bool AddNew(CMyJsonValueImp& record, EValueType type, Content content, int pos) {
  if (!Accepts(record, type)) return false;
  Insert(ElementsOf(record), NewValue(content), pos);
  return true;
}

// The elements of source that may be spliced into target: from the last one back to the first of
// another type than the target's first element (or, in an empty target, than the last one's).
ValueList SpliceableTail(const ValueList& target, const ValueList& source) {
  if (source.empty()) return {};
  const EValueType type = TypeOf(target.empty() ? source.back() : target.front());
  const auto mismatch = std::find_if(std::make_reverse_iterator(source.end()),
                                     std::make_reverse_iterator(source.begin()),
                                     [type](CMyJsonValue* value) { return TypeOf(value) != type; });
  return ValueList(mismatch.base(), source.end());
}

// Deep copies that are destroyed unless they find a place.
class ClonedList {
 public:
  explicit ClonedList(const ValueList& source) {
    clones_.reserve(source.size());
    for (const CMyJsonValue* value : source) {
      clones_.push_back(value != nullptr ? value->Clone() : nullptr);
    }
  }
  ClonedList(const ClonedList&) = delete;
  ClonedList& operator=(const ClonedList&) = delete;
  ~ClonedList() {
    for (CMyJsonValue* clone : clones_) delete clone;
  }

  void InsertInto(ValueList& array, int pos) {
    array.insert(Position(array, pos), clones_.begin(), clones_.end());
    clones_.clear();
  }

 private:
  ValueList clones_;
};

}  // namespace

bool CMyJsonValue::AddToArr(const CMyJsonValue* value, int pos) {
  if (!IsArr() || value == nullptr) return false;
  if (!value->IsArr()) {
    if (!Accepts(*imp_, value->Type())) return false;
    Insert(ElementsOf(*imp_), std::unique_ptr<CMyJsonValue>(value->Clone()), pos);
    return true;
  }
  ValueList& array = ElementsOf(*imp_);
  const ValueList tail = SpliceableTail(array, ElementsOf(*value->imp_));
  const bool whole = tail.size() == value->imp_->array.size();
  ClonedList(tail).InsertInto(array, pos);
  return whole;
}

bool CMyJsonValue::AddToArr(const CMyJsonObj* obj, int pos) {
  if (!Accepts(*imp_, eObj)) return false;
  std::unique_ptr<CMyJsonObj> clone(obj != nullptr ? obj->Clone() : nullptr);
  MoveToArr(clone.get(), pos);
  static_cast<void>(clone.release());
  return true;
}

bool CMyJsonValue::AddToArr(const char* text, int pos) { return AddNew(*imp_, eStr, text, pos); }

bool CMyJsonValue::AddToArr(double number, int pos) { return AddNew(*imp_, eNumber, number, pos); }

bool CMyJsonValue::AddToArr(int number, int pos) { return AddNew(*imp_, eNumber, number, pos); }

bool CMyJsonValue::AddToArr(bool flag, int pos) { return AddNew(*imp_, eBool, flag, pos); }

bool CMyJsonValue::MoveToArr(CMyJsonValue* value, int pos) {
  if (!IsArr() || value == nullptr || value->imp_ == imp_) return false;
  ValueList& array = ElementsOf(*imp_);
  if (!value->IsArr()) {
    if (!Accepts(*imp_, value->Type())) return false;
    array.insert(Position(array, pos), value);
    return true;
  }
  const ValueList tail = SpliceableTail(array, ElementsOf(*value->imp_));
  if (std::find(tail.begin(), tail.end(), this) != tail.end()) return false;
  array.insert(Position(array, pos), tail.begin(), tail.end());
  if (tail.size() != value->imp_->array.size()) return false;
  value->imp_->array.clear();
  delete value;
  return true;
}

bool CMyJsonValue::MoveToArr(CMyJsonObj* obj, int pos) {
  if (!Accepts(*imp_, eObj)) return false;
  // The new value takes obj in only when nothing can fail any more.
  CMyJsonValue* holder = Insert(ElementsOf(*imp_), NewValue(), pos);
  if (obj != nullptr) {
    holder->imp_->type = eObj;
    holder->imp_->object = obj;
  }
  return true;
}

void CMyJsonValue::RemoveFromArr(int index, bool destroy) {
  if (!IsArr() || index < 0 || index >= ValueArrLength()) return;
  ValueList& array = ElementsOf(*imp_);
  const auto position = array.begin() + index;
  CMyJsonValue* removed = *position;
  array.erase(position);
  if (destroy) delete removed;
}
