// SPDX-License-Identifier: MIT
// CMyJsonObj: a JSON object, an ordered list of members, each a key and a value (CMyJsonValue).
//
// Members keep the order in which they were added. Keys may occur twice: every lookup finds the
// first member that matches. Keys and strings are in the process ANSI code page and are compared
// by its characters.
//
// Paths: SetItem, Value and ValueEx take a path, keys separated by one backslash each, and walk
// into nested objects. A backslash that is the second byte of a double-byte character separates
// nothing. There is no escape for a backslash inside a key. Empty parts are empty keys: "" is one
// empty key, "\\a" an empty key and then "a".
//
// exact: with true only a key equal to the one asked for matches. With false such a key is still
// preferred wherever it stands; only without one, the first key that differs in case alone
// matches.
//
// Ownership: an object owns its values. Pointers it hands out are borrowed until the member is
// replaced or removed or the object changes as a whole. Copying an object by constructor or
// assignment shares its content (see there); Clone and CopyFrom make deep copies.
//
// Threads: an object and everything below it are used by one thread at a time.
//
// Errors: refusals are false results and calls without effect. Everything that allocates may throw
// std::bad_alloc. Nesting may be as deep as memory allows.
//
// Misuse to avoid: handing over a value or object twice, or one that a tree already owns, this one
// included (it would be destroyed twice: hand over a Clone); adding an object to itself or below
// itself (such a tree has no end); handing over what stands on the stack. Refused are the object
// itself and every object that the path goes through, and what stands below the value that SetItem
// would destroy for it; the rest is not looked for.
//
// Implemented in json/object*.cpp; Load in json/load.cpp and text_reader.cpp, CreateJson in
// json/create_json.cpp and text_writer.cpp.
//
// Example:
//   CMyJsonObj settings;
//   settings.SetItem("server\\port", 8080, true, false);       // == true
//   settings.SetItem("server\\host", "maps", true, false);     // == true
//   settings.CreateJson(false);     // == R"({"server":{"port":8080,"host":"maps"}})"
//   int port = 0;
//   settings.ValueEx("Server\\Port", port, false);             // == true
//   port;                                                      // == 8080
//   settings.DelItem("server");
//   settings.ValueCount();                                     // == 0
#ifndef QUARNFC_JSON_OBJECT_H_
#define QUARNFC_JSON_OBJECT_H_

#include <quarnfc/export.h>
#include <quarnfc/json_value.h>
#include <quarnfc/overloads.h>
#include <quarnfc/qn_string.h>

#include <cstddef>
#include <new>

struct CMyJsonObjImp;

class QN_API CMyJsonObj {
 public:
  // --- construction and copying ----------------------------------------------------------------

  // An object without members and without an error message.
  CMyJsonObj();

  // Copying shares the private record, deliberately: both objects are then one, and only one of
  // them may be destroyed. What an assigned object held before is neither shared nor released.
  QN_SHARING_COPY CMyJsonObj(const CMyJsonObj& other);

  // Hazard: the assignment shares in the same way, so that "a = b;" with both on the stack ends in
  // a double destruction. Use CopyFrom.
  QN_SHARING_COPY CMyJsonObj& operator=(const CMyJsonObj& other);

  // Destroys the object and everything below it.
  ~CMyJsonObj();

  // Objects are created and released through the library's memory, whichever module says new or
  // delete.
  static void* operator new(std::size_t size);
  static void* operator new(std::size_t, void* place) noexcept { return place; }

  // Null instead of std::bad_alloc.
  static void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
      return operator new(size);
    } catch (...) {
      return nullptr;
    }
  }
  static void operator delete(void* object, std::size_t size) noexcept;
  static void operator delete(void*, void*) noexcept {}
  static void operator delete(void* object, const std::nothrow_t&) noexcept {
    operator delete(object, sizeof(CMyJsonObj));
  }

  // A new object with copies of the error message, the keys and everything below; release it with
  // delete.
  CMyJsonObj* Clone() const;

  // Replaces the members by deep copies of those of source, which may be this object or part of
  // it. The error message stays this object's own, deliberately unlike Clone. Null is ignored.
  void CopyFrom(const CMyJsonObj* source);

  // --- enumeration -----------------------------------------------------------------------------

  // The number of members, those with the same key counted each.
  int ValueCount() const;

  // The key and the value (borrowed) of the member at index, 0 to ValueCount() - 1, in the order in
  // which members were added. Without such a member neither output is touched. Adding and removing
  // members while walking changes what the indexes mean.
  void Item(int index, CQNString& key, CMyJsonValue*& value) const;

  // Why the last Load failed; empty after one that succeeded.
  CQNString GetErrMsg() const;

  // --- adding at the end, without looking for the key ------------------------------------------
  //
  // The key is stored as it is given, backslashes included. With a null key nothing happens, and
  // whatever was passed in stays the caller's.

  // Takes over value itself, made with new. A null value does nothing, nor does one that holds this
  // object. value must not be owned by a tree already, and nothing below it must hold this object.
  void AddItem(const char* key, CMyJsonValue* value);

  // An eEmpty value.
  void AddItem(const char* key);

  // A string with a copy of text; an eEmpty value when text is null.
  void AddItem(const char* key, const char* text);

  // A number.
  void AddItem(const char* key, double number);

  // A number.
  void AddItem(const char* key, int number);

  // true or false. (Beware of pointers other than char*: they convert to bool.)
  void AddItem(const char* key, bool flag);

  // A number of any other integer type. Beyond 53 bits it is rounded to the nearest double.
  template <class Integer, quarnfc::overloads::IfInteger<Integer> = 0>
  void AddItem(const char* key, Integer number) {
    AddItem(key, static_cast<double>(number));
  }

  // An eEmpty value.
  template <class Null, quarnfc::overloads::IfNull<Null> = 0>
  void AddItem(const char* key, Null) {
    AddItem(key);
  }

  // Any other pointer would become true.
  template <class Pointer, quarnfc::overloads::IfForeignPointer<Pointer, const char*, CMyJsonValue*,
                                                                CMyJsonObj*> = 0>
  void AddItem(const char* key, Pointer) = delete;

  // An array that takes over the count values themselves, as the constructor of CMyJsonValue does.
  // The array of pointers stays the caller's.
  void AddItem(const char* key, CMyJsonValue* const* values, int count);

  // An array of new number values, copied from numbers.
  void AddItem(const char* key, const double* numbers, int count);

  // The same from ints.
  void AddItem(const char* key, const int* numbers, int count);

  // An object value that takes over obj itself, made with new; an eEmpty value when obj is null.
  // With this object itself nothing happens. obj must not be owned by a tree already, and nothing
  // below it must hold this object.
  //
  // Example:
  //   CMyJsonObj station;
  //   CMyJsonObj* place = new CMyJsonObj;
  //   place->AddItem("lon", 112.5);
  //   station.AddItem("place", place);                // place is the station's now
  //   CMyJsonObj other;
  //   other.AddItem("place", place->Clone());         // not place itself
  //   other.CreateJson(false);    // == R"({"place":{"lon":112.5}})"
  void AddItem(const char* key, CMyJsonObj* obj);

  // --- setting by path -------------------------------------------------------------------------
  //
  // Replaces the value of the member at path and destroys the old one; the key keeps its spelling.
  // A member that does not exist is added, with the objects on the way to it, unless onlyExisting
  // is true. Returns false when the path is null, when a member on the way is no object, or when a
  // member is missing and onlyExisting is true. Then whatever was passed in stays the caller's,
  // untouched; objects added on the way remain.

  // Takes over value itself, made with new, on success. A null value is refused. The value that
  // already stands at path may be set there again: nothing happens. Any other value of this or
  // another tree is owned already and must not be passed; pass its Clone. Refused are a value below
  // the one that it would replace, which would go with it, and one that holds an object on the
  // path.
  bool SetItem(const char* path, CMyJsonValue* value, bool exact, bool onlyExisting);

  // A string with a copy of text; an eEmpty value when text is null.
  bool SetItem(const char* path, const char* text, bool exact, bool onlyExisting);

  // A number.
  bool SetItem(const char* path, double number, bool exact, bool onlyExisting);

  // A number.
  bool SetItem(const char* path, int number, bool exact, bool onlyExisting);

  // true or false.
  bool SetItem(const char* path, bool flag, bool exact, bool onlyExisting);

  // A number of any other integer type. Beyond 53 bits it is rounded to the nearest double.
  template <class Integer, quarnfc::overloads::IfInteger<Integer> = 0>
  bool SetItem(const char* path, Integer number, bool exact, bool onlyExisting) {
    return SetItem(path, static_cast<double>(number), exact, onlyExisting);
  }

  // SetItem2Empty.
  template <class Null, quarnfc::overloads::IfNull<Null> = 0>
  bool SetItem(const char* path, Null, bool exact, bool onlyExisting) {
    return SetItem2Empty(path, exact, onlyExisting);
  }

  // Any other pointer would become true.
  template <class Pointer, quarnfc::overloads::IfForeignPointer<Pointer, const char*, CMyJsonValue*,
                                                                CMyJsonObj*> = 0>
  bool SetItem(const char* path, Pointer, bool exact, bool onlyExisting) = delete;

  // An array that takes over the count values themselves on success; on refusal they stay the
  // caller's, each of them.
  bool SetItem(const char* path, CMyJsonValue* const* values, int count, bool exact,
               bool onlyExisting);

  // An array of new number values, copied from numbers.
  bool SetItem(const char* path, const double* numbers, int count, bool exact, bool onlyExisting);

  // The same from ints.
  bool SetItem(const char* path, const int* numbers, int count, bool exact, bool onlyExisting);

  // An object value that takes over obj itself, made with new, on success; an eEmpty value when obj
  // is null. An object on the path, at its end or below that is refused; else the same holds for
  // obj as for AddItem.
  bool SetItem(const char* path, CMyJsonObj* obj, bool exact, bool onlyExisting);

  // An eEmpty value.
  bool SetItem2Empty(const char* path, bool exact, bool onlyExisting);

  // --- removing: the key is no path ------------------------------------------------------------

  // Removes the first member that key finds and destroys its value, so that borrowed pointers to it
  // end; without one nothing happens. key may be text of the member itself.
  void DelItemEx(const char* key, bool exact);

  // DelItemEx with exact true.
  void DelItem(const char* key);

  // --- looking up by path ----------------------------------------------------------------------
  //
  // Each returns false, and leaves its output untouched, when the member does not exist or has
  // another type than the output asks for. A null path finds nothing.

  // The value, whatever its type, borrowed.
  bool ValueEx(const char* path, CMyJsonValue*& value, bool exact) const;

  // ValueEx with exact true.
  bool Value(const char* path, CMyJsonValue*& value) const;

  // The flag of a boolean.
  bool ValueEx(const char* path, bool& flag, bool exact) const;

  // The number cut to an integer, toward zero; beyond the range of int its nearest end, and 0 for
  // a NaN.
  bool ValueEx(const char* path, int& number, bool exact) const;

  // The number as it is kept.
  bool ValueEx(const char* path, double& number, bool exact) const;

  // The number cut to any other integer type, by the rule for int.
  template <class Integer, quarnfc::overloads::IfInteger<Integer> = 0>
  bool ValueEx(const char* path, Integer& number, bool exact) const {
    double found = 0;
    if (!ValueEx(path, found, exact)) return false;
    number = quarnfc::overloads::CutToInteger<Integer>(found);
    return true;
  }

  // A copy of the string, in the ANSI code page.
  bool ValueEx(const char* path, CQNString& text, bool exact) const;

  // The string's characters, borrowed.
  bool ValueEx(const char* path, const char*& text, bool exact) const;

  // The object, borrowed.
  bool ValueEx(const char* path, CMyJsonObj*& obj, bool exact) const;

  // --- text ------------------------------------------------------------------------------------

  // Replaces the members by those of the object in a zero-terminated JSON text; what follows that
  // object is ignored. Returns false when the text (or null) cannot be read: the object is then
  // empty and GetErrMsg says why. The grammar is that of CMyJsonValue::Load.
  bool Load(const char* text);

  // The object as JSON text, indented with TABs and CR LF or compact. Numbers have at most 15
  // decimal places, keys are written as stored, without escapes, and null array elements leave
  // only their comma: these do not read back as they were. Throws std::bad_alloc when the text
  // would exceed 2 GiB.
  CQNString CreateJson(bool indent) const;

  // The same text as UTF-8 in a new buffer, released with qnFreeMem.
  char* CreateUTF8Json(bool indent) const;

 private:
  friend struct quarnfc::json::JsonAccess;

  CMyJsonObjImp* imp_;
};

#endif  // QUARNFC_JSON_OBJECT_H_
