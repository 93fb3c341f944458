// The private records behind CMyJsonValue and CMyJsonObj, and the door to them for the sources of
// this folder.
#ifndef QUARNFC_JSON_RECORDS_H_
#define QUARNFC_JSON_RECORDS_H_

#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/qn_string.h>

#include <cstddef>
#include <utility>
#include <vector>

#include "core/memory/memory.h"

namespace quarnfc::json {

// Base of everything here that is allocated on its own.
struct NodeMemory {
  static void* operator new(std::size_t size) { return AllocNode(size); }
  static void operator delete(void* node, std::size_t size) noexcept { FreeNode(node, size); }
};

struct StringNode : NodeMemory {
  CQNString text;
};

// A string kept apart from its record and made only when text first arrives: most values of a
// document are no strings, and a missing one reads like an empty one.
class LazyString {
 public:
  LazyString() = default;
  LazyString(const LazyString&) = delete;
  LazyString& operator=(const LazyString&) = delete;
  ~LazyString() { delete node_; }

  const char* Characters() const {
    return node_ != nullptr ? static_cast<const char*>(node_->text) : "";
  }

  int Length() const { return node_ != nullptr ? node_->text.GetLength() : 0; }

  CQNString Get() const { return node_ != nullptr ? node_->text : CQNString(); }

  // The string, to be written to.
  CQNString& Make() {
    if (node_ == nullptr) node_ = new StringNode;
    return node_->text;
  }

  void Set(const CQNString& text) {
    if (node_ != nullptr || text.IsEmpty() == 0) Make() = text;
  }

  void Set(const LazyString& other) { Set(other.Get()); }

  void Swap(LazyString& other) noexcept { std::swap(node_, other.node_); }

 private:
  StringNode* node_ = nullptr;
};

using ValueList = std::vector<CMyJsonValue*>;

}  // namespace quarnfc::json

struct CMyJsonValueImp : quarnfc::json::NodeMemory {
  CMyJsonValue::EValueType type = CMyJsonValue::eEmpty;
  quarnfc::json::LazyString string;
  union {
    double number = 0;
    CMyJsonValueImp* next_doomed;  // links the records of a tree that is being destroyed
  };
  quarnfc::json::ValueList array;  // owned; empty unless the type is eArr
  bool boolean = false;
  CMyJsonObj* object = nullptr;  // owned; null unless the type is eObj
};

struct CMyJsonObjImp : quarnfc::json::NodeMemory {
  quarnfc::json::LazyString error;
  std::vector<CQNString> keys;
  quarnfc::json::ValueList values;  // owned; entry i belongs to key i
};

static_assert(sizeof(CMyJsonValue) == sizeof(void*), "a value is one pointer wide");
static_assert(sizeof(CMyJsonObj) == sizeof(void*), "an object is one pointer wide");

namespace quarnfc::json {

struct JsonAccess {
  static CMyJsonValueImp& Record(CMyJsonValue& value) { return *value.imp_; }
  static const CMyJsonValueImp& Record(const CMyJsonValue& value) { return *value.imp_; }
  static CMyJsonObjImp& Record(CMyJsonObj& object) { return *object.imp_; }
  static const CMyJsonObjImp& Record(const CMyJsonObj& object) { return *object.imp_; }

  // Takes the record out of a value or object that is about to be freed.
  static CMyJsonValueImp* Detach(CMyJsonValue& value) { return std::exchange(value.imp_, nullptr); }
  static CMyJsonObjImp* Detach(CMyJsonObj& object) { return std::exchange(object.imp_, nullptr); }
};

inline bool IsContainer(const CMyJsonValueImp& record) {
  return !record.array.empty() || record.object != nullptr;
}

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_RECORDS_H_
