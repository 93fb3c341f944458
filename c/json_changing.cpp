// SPDX-License-Identifier: MIT
// Changing JSON objects and arrays.
#include <memory>

#include "c/guarded.h"
#include "c/json_handle.h"
#include "c/text.h"

namespace {

using quarnfc::c::AnsiText;
using quarnfc::c::Failure;
using quarnfc::c::Given;
using quarnfc::c::Guarded;
using quarnfc::c::ObjectOf;
using quarnfc::c::ValueOf;

int Checked(bool is_done, const char* message) {
  if (!is_done) throw Failure(QNC_ERROR_INVALID_DATA, message);
  return 1;
}

// Sets the member at path; set is given the object and the path in the code page.
template <class Set>
int SetMember(QncJson* object, const char* path, CQNObject** error, const Set& set) {
  return Guarded(error, 0, [&] {
    CMyJsonObj* members = ObjectOf(Given(object));
    const quarnfc::OwnedText ansi_path = AnsiText(path);
    return Checked(members != nullptr && set(*members, ansi_path.get()),
                   "Quarn: the JSON value, or one on the path, is no object");
  });
}

// Appends to an array; append is given the array.
template <class Append>
int AppendElement(QncJson* array, CQNObject** error, const Append& append) {
  return Guarded(error, 0, [&] {
    return Checked(append(*ValueOf(Given(array))),
                   "Quarn: the JSON value is no array, or its elements have another type");
  });
}

// AnsiText, with null for null.
quarnfc::OwnedText OptionalText(const char* text) {
  return text == nullptr ? quarnfc::OwnedText() : AnsiText(text);
}

bool SetCopy(CMyJsonObj& members, const char* path, const QncJson* value) {
  std::unique_ptr<CMyJsonValue> copy(ValueOf(Given(value))->Clone());
  if (!members.SetItem(path, copy.get(), true, false)) return false;
  static_cast<void>(copy.release());  // the object's from now on
  return true;
}

}  // namespace

int qncJsonSetText(QncJson* object, const char* path, const char* text, CQNObject** error) {
  return SetMember(object, path, error, [=](CMyJsonObj& members, const char* ansi_path) {
    return members.SetItem(ansi_path, OptionalText(text).get(), true, false);
  });
}

int qncJsonSetNumber(QncJson* object, const char* path, double number, CQNObject** error) {
  return SetMember(object, path, error, [=](CMyJsonObj& members, const char* ansi_path) {
    return members.SetItem(ansi_path, number, true, false);
  });
}

int qncJsonSetBool(QncJson* object, const char* path, int flag, CQNObject** error) {
  return SetMember(object, path, error, [=](CMyJsonObj& members, const char* ansi_path) {
    return members.SetItem(ansi_path, flag != 0, true, false);
  });
}

int qncJsonSetNull(QncJson* object, const char* path, CQNObject** error) {
  return SetMember(object, path, error, [=](CMyJsonObj& members, const char* ansi_path) {
    return members.SetItem2Empty(ansi_path, true, false);
  });
}

int qncJsonSetValue(QncJson* object, const char* path, const QncJson* value, CQNObject** error) {
  return SetMember(object, path, error, [=](CMyJsonObj& members, const char* ansi_path) {
    return SetCopy(members, ansi_path, value);
  });
}

int qncJsonRemove(QncJson* object, const char* key, CQNObject** error) {
  return SetMember(object, key, error, [](CMyJsonObj& members, const char* ansi_key) {
    members.DelItem(ansi_key);
    return true;
  });
}

int qncJsonAppendText(QncJson* array, const char* text, CQNObject** error) {
  return AppendElement(array, error, [=](CMyJsonValue& elements) {
    return elements.AddToArr(OptionalText(text).get(), -1);
  });
}

int qncJsonAppendNumber(QncJson* array, double number, CQNObject** error) {
  return AppendElement(array, error,
                       [=](CMyJsonValue& elements) { return elements.AddToArr(number, -1); });
}

int qncJsonAppendBool(QncJson* array, int flag, CQNObject** error) {
  return AppendElement(array, error,
                       [=](CMyJsonValue& elements) { return elements.AddToArr(flag != 0, -1); });
}

int qncJsonAppendValue(QncJson* array, const QncJson* value, CQNObject** error) {
  return AppendElement(array, error, [=](CMyJsonValue& elements) {
    return elements.AddToArr(ValueOf(Given(value)), -1);
  });
}
