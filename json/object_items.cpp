// SPDX-License-Identifier: MIT
// Adding members to a CMyJsonObj, setting them by path, and removing them.

#include <quarnfc/json_object.h>

#include <memory>
#include <string_view>

#include "json/object_path.h"
#include "json/records.h"
#include "json/tree_search.h"
#include "json/value_content.h"

namespace {

using quarnfc::json::JsonAccess;
using quarnfc::json::NewObjectValue;
using quarnfc::json::SharedText;

// Appends a member; value is taken over only when that succeeds.
void Append(CMyJsonObjImp& record, std::string_view key, CMyJsonValue* value) {
  record.keys.push_back(SharedText(key));
  try {
    record.values.push_back(value);
  } catch (...) {
    record.keys.pop_back();
    throw;
  }
  record.index.Added(record.keys);
}

// Appends what a caller hands over, unless the tree would become a circle.
bool AppendGiven(CMyJsonObjImp& record, const char* key, CMyJsonValue* value) {
  if (key == nullptr || value == nullptr || quarnfc::json::HoldsRecord(*value, record)) {
    return false;
  }
  Append(record, key, value);
  return true;
}

enum class Origin {
  kBuilt,  // just made here: it stands in no tree
  kGiven,  // the caller's, who may have found it in this one
};

// Replaces a value. One that stands below it would be destroyed with it, and is refused; looking
// for it takes no longer than destroying what is there.
bool Replace(CMyJsonValue*& held, CMyJsonValue* value, Origin origin) {
  if (held == value) return true;
  if (origin == Origin::kGiven && quarnfc::json::StandsBelow(*held, *value)) return false;
  delete held;
  held = value;
  return true;
}

// The object one step down the path from current, for the member with this key. A missing member
// is added as an empty object, unless onlyExisting. Null when there is no way down.
CMyJsonObj* StepInto(CMyJsonObj& current, std::string_view key, bool exact, bool onlyExisting) {
  CMyJsonObjImp& record = JsonAccess::Record(current);
  const int found = quarnfc::json::FindKey(record, key, exact);
  if (found >= 0) return record.values[static_cast<std::size_t>(found)]->ValueObj();
  if (onlyExisting) return nullptr;
  std::unique_ptr<CMyJsonValue> value = NewObjectValue();
  Append(record, key, value.get());
  return value.release()->ValueObj();
}

struct Finding {
  bool exact;
  bool only_existing;
};

bool SetLast(CMyJsonObjImp& record, std::string_view key, CMyJsonValue* value, Finding finding,
             Origin origin) {
  const int found = quarnfc::json::FindKey(record, key, finding.exact);
  if (found >= 0) {
    return Replace(record.values[static_cast<std::size_t>(found)], value, origin);
  }
  if (finding.only_existing) return false;
  Append(record, key, value);
  return true;
}

// An object that the path goes through must not come to stand below itself.
bool SetAtPath(CMyJsonObj& object, const char* path, CMyJsonValue* value, Finding finding,
               Origin origin) {
  if (path == nullptr || value == nullptr) return false;
  CMyJsonObj* current = &object;
  quarnfc::json::PathParts part(path);
  for (;; part.Next()) {
    CMyJsonObjImp& record = JsonAccess::Record(*current);
    if (quarnfc::json::HoldsRecord(*value, record)) return false;
    if (part.IsLast()) return SetLast(record, part.Key(), value, finding, origin);
    current = StepInto(*current, part.Key(), finding.exact, finding.only_existing);
    if (current == nullptr) return false;
  }
}

// A value built by a typed call. Unless it finds its place it is freed again, without what the
// caller passed in: elements and objects stay the caller's.
class BuiltValue {
 public:
  template <class... Content>
  explicit BuiltValue(Content... content) : value_(quarnfc::json::NewValue(content...)) {}

  BuiltValue(const BuiltValue&) = delete;
  BuiltValue& operator=(const BuiltValue&) = delete;

  ~BuiltValue() {
    if (value_ != nullptr && borrowed_) {
      CMyJsonValueImp& record = JsonAccess::Record(*value_);
      record.array.clear();  // never packed: these are values themselves
      record.object = nullptr;
    }
  }

  // Says that the elements or the object came from the caller.
  BuiltValue& Borrowed() {
    borrowed_ = true;
    return *this;
  }

  bool SetIn(CMyJsonObj& object, const char* path, bool exact, bool onlyExisting) {
    const Origin origin = borrowed_ ? Origin::kGiven : Origin::kBuilt;
    if (!SetAtPath(object, path, value_.get(), {exact, onlyExisting}, origin)) return false;
    static_cast<void>(value_.release());
    return true;
  }

  void AddTo(CMyJsonObj& object, const char* key) {
    if (AppendGiven(JsonAccess::Record(object), key, value_.get())) {
      static_cast<void>(value_.release());
    }
  }

 private:
  std::unique_ptr<CMyJsonValue> value_;
  bool borrowed_ = false;
};

}  // namespace

void CMyJsonObj::AddItem(const char* key, CMyJsonValue* value) { AppendGiven(*imp_, key, value); }

void CMyJsonObj::AddItem(const char* key) { BuiltValue().AddTo(*this, key); }

void CMyJsonObj::AddItem(const char* key, const char* text) { BuiltValue(text).AddTo(*this, key); }

void CMyJsonObj::AddItem(const char* key, double number) { BuiltValue(number).AddTo(*this, key); }

void CMyJsonObj::AddItem(const char* key, int number) { BuiltValue(number).AddTo(*this, key); }

void CMyJsonObj::AddItem(const char* key, bool flag) { BuiltValue(flag).AddTo(*this, key); }

void CMyJsonObj::AddItem(const char* key, CMyJsonValue* const* values, int count) {
  BuiltValue(values, count).Borrowed().AddTo(*this, key);
}

void CMyJsonObj::AddItem(const char* key, const double* numbers, int count) {
  BuiltValue(numbers, count).AddTo(*this, key);
}

void CMyJsonObj::AddItem(const char* key, const int* numbers, int count) {
  BuiltValue(numbers, count).AddTo(*this, key);
}

void CMyJsonObj::AddItem(const char* key, CMyJsonObj* obj) {
  BuiltValue(obj).Borrowed().AddTo(*this, key);
}

bool CMyJsonObj::SetItem(const char* path, CMyJsonValue* value, bool exact, bool onlyExisting) {
  return SetAtPath(*this, path, value, {exact, onlyExisting}, Origin::kGiven);
}

bool CMyJsonObj::SetItem(const char* path, const char* text, bool exact, bool onlyExisting) {
  return BuiltValue(text).SetIn(*this, path, exact, onlyExisting);
}

bool CMyJsonObj::SetItem(const char* path, double number, bool exact, bool onlyExisting) {
  return BuiltValue(number).SetIn(*this, path, exact, onlyExisting);
}

bool CMyJsonObj::SetItem(const char* path, int number, bool exact, bool onlyExisting) {
  return BuiltValue(number).SetIn(*this, path, exact, onlyExisting);
}

bool CMyJsonObj::SetItem(const char* path, bool flag, bool exact, bool onlyExisting) {
  return BuiltValue(flag).SetIn(*this, path, exact, onlyExisting);
}

bool CMyJsonObj::SetItem(const char* path, CMyJsonValue* const* values, int count, bool exact,
                         bool onlyExisting) {
  return BuiltValue(values, count).Borrowed().SetIn(*this, path, exact, onlyExisting);
}

bool CMyJsonObj::SetItem(const char* path, const double* numbers, int count, bool exact,
                         bool onlyExisting) {
  return BuiltValue(numbers, count).SetIn(*this, path, exact, onlyExisting);
}

bool CMyJsonObj::SetItem(const char* path, const int* numbers, int count, bool exact,
                         bool onlyExisting) {
  return BuiltValue(numbers, count).SetIn(*this, path, exact, onlyExisting);
}

bool CMyJsonObj::SetItem(const char* path, CMyJsonObj* obj, bool exact, bool onlyExisting) {
  return BuiltValue(obj).Borrowed().SetIn(*this, path, exact, onlyExisting);
}

bool CMyJsonObj::SetItem2Empty(const char* path, bool exact, bool onlyExisting) {
  return BuiltValue().SetIn(*this, path, exact, onlyExisting);
}

void CMyJsonObj::DelItemEx(const char* key, bool exact) {
  const int found = key != nullptr ? quarnfc::json::FindKey(*imp_, key, exact) : -1;
  if (found < 0) return;
  const auto position = static_cast<std::size_t>(found);
  imp_->keys.erase(position);
  delete imp_->values[position];
  imp_->index.Erasing(position);
  imp_->values.erase(imp_->values.begin() + found);
}

void CMyJsonObj::DelItem(const char* key) { DelItemEx(key, true); }
