// SPDX-License-Identifier: MIT
// Looking up members of a CMyJsonObj by key and by path.

#include "json/object_path.h"

#include <quarnfc/json_object.h>

#include <limits>
#include <string>

#include "core/text/character.h"
#include "core/text/multibyte.h"

namespace quarnfc::json {
namespace {

int FindKeyWithoutCase(const KeyList& keys, std::string_view key) {
  const std::string terminated(key);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (MbsICmp(Bytes(keys[i].Characters()), Bytes(terminated.c_str())) == 0) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

// The first backslash that is a character of its own, or the end of the text.
const char* FindSeparator(const char* at) {
  for (; *at != '\\' && *at != '\0'; ++at) {
    if (static_cast<unsigned char>(*at) >= 0x80) at += CharWidth(at) - 1;
  }
  return at;
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

int FindKey(const CMyJsonObjImp& record, std::string_view key, bool exact) {
  const int equal = record.index.Find(record.keys, key);
  return equal >= 0 || exact ? equal : FindKeyWithoutCase(record.keys, key);
}

void PathParts::Cut(const char* part) {
  const char* end = FindSeparator(part);
  key_ = {part, static_cast<std::size_t>(end - part)};
  rest_ = *end != '\0' ? end + 1 : nullptr;
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
