// Looking up members of a CMyJsonObj by key and by path.

#include "json/object_path.h"

#include <quarnfc/json_object.h>

#include <limits>

#include "core/text/multibyte.h"

namespace quarnfc::json {
namespace {

template <class Matches>
int FindFirst(const std::vector<CQNString>& keys, Matches matches) {
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (matches(keys[i])) return static_cast<int>(i);
  }
  return -1;
}

int Truncate(double number) {
  using Limits = std::numeric_limits<int>;
  if (number != number) return 0;
  if (number >= Limits::max()) return Limits::max();
  if (number <= Limits::min()) return Limits::min();
  return static_cast<int>(number);
}

// The value at path when it has this type, else null.
const CMyJsonValue* FindTyped(const CMyJsonObj& object, const char* path,
                              CMyJsonValue::EValueType type, bool exact) {
  CMyJsonValue* value = nullptr;
  return object.ValueEx(path, value, exact) && value->IsType(type) ? value : nullptr;
}

}  // namespace

int FindKey(const CMyJsonObjImp& record, const char* key, bool exact) {
  if (key == nullptr) return -1;
  const int equal =
      FindFirst(record.keys, [key](const CQNString& other) { return other.Compare(key) == 0; });
  if (equal >= 0 || exact) return equal;
  return FindFirst(record.keys,
                   [key](const CQNString& other) { return other.CompareNoCase(key) == 0; });
}

PathParts::PathParts(const char* path) { Cut(path); }

void PathParts::Next() { Cut(rest_); }

void PathParts::Cut(const char* part) {
  const unsigned char* separator =
      quarnfc::MbsChr(reinterpret_cast<const unsigned char*>(part), '\\');
  if (separator == nullptr) {
    key_ = part;
    rest_ = nullptr;
  } else {
    const char* end = reinterpret_cast<const char*>(separator);
    key_ = CQNString(part, static_cast<int>(end - part));
    rest_ = end + 1;
  }
}

}  // namespace quarnfc::json

bool CMyJsonObj::ValueEx(const char* path, CMyJsonValue*& value, bool exact) const {
  if (path == nullptr) return false;
  const CMyJsonObj* current = this;
  quarnfc::json::PathParts part(path);
  while (current != nullptr) {
    const int found = quarnfc::json::FindKey(*current->imp_, part.Key(), exact);
    if (found < 0) return false;
    CMyJsonValue* member = current->imp_->values[static_cast<std::size_t>(found)];
    if (part.IsLast()) {
      value = member;
      return true;
    }
    current = member->ValueObj();
    part.Next();
  }
  return false;
}

bool CMyJsonObj::Value(const char* path, CMyJsonValue*& value) const {
  return ValueEx(path, value, true);
}

bool CMyJsonObj::ValueEx(const char* path, bool& flag, bool exact) const {
  const CMyJsonValue* value = quarnfc::json::FindTyped(*this, path, CMyJsonValue::eBool, exact);
  if (value != nullptr) flag = value->ValueBool();
  return value != nullptr;
}

bool CMyJsonObj::ValueEx(const char* path, int& number, bool exact) const {
  const CMyJsonValue* value = quarnfc::json::FindTyped(*this, path, CMyJsonValue::eNumber, exact);
  if (value != nullptr) number = quarnfc::json::Truncate(value->ValueNumber());
  return value != nullptr;
}

bool CMyJsonObj::ValueEx(const char* path, double& number, bool exact) const {
  const CMyJsonValue* value = quarnfc::json::FindTyped(*this, path, CMyJsonValue::eNumber, exact);
  if (value != nullptr) number = value->ValueNumber();
  return value != nullptr;
}

bool CMyJsonObj::ValueEx(const char* path, CQNString& text, bool exact) const {
  const CMyJsonValue* value = quarnfc::json::FindTyped(*this, path, CMyJsonValue::eStr, exact);
  if (value != nullptr) text = value->ValueStr();
  return value != nullptr;
}

bool CMyJsonObj::ValueEx(const char* path, const char*& text, bool exact) const {
  const CMyJsonValue* value = quarnfc::json::FindTyped(*this, path, CMyJsonValue::eStr, exact);
  if (value != nullptr) text = value->ValueStr();
  return value != nullptr;
}

bool CMyJsonObj::ValueEx(const char* path, CMyJsonObj*& obj, bool exact) const {
  const CMyJsonValue* value = quarnfc::json::FindTyped(*this, path, CMyJsonValue::eObj, exact);
  if (value != nullptr) obj = value->ValueObj();
  return value != nullptr;
}
