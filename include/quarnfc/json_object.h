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
#ifndef QUARNFC_JSON_OBJECT_H_
#define QUARNFC_JSON_OBJECT_H_

#include <quarnfc/export.h>
#include <quarnfc/json_value.h>
#include <quarnfc/qn_string.h>

#include <cstddef>

struct CMyJsonObjImp;

class QN_API CMyJsonObj {
 public:
  // --- construction and copying ----------------------------------------------------------------

  CMyJsonObj();

  // Copying shares the private record, deliberately: both objects are then one, and only one of
  // them may be destroyed. What an assigned object held before is neither shared nor released.
  CMyJsonObj(const CMyJsonObj& other);
  CMyJsonObj& operator=(const CMyJsonObj& other);

  // Destroys the object and everything below it.
  ~CMyJsonObj();

  // Objects are created and released through the library's memory, whichever module says new or
  // delete.
  static void* operator new(std::size_t size);
  static void* operator new(std::size_t, void* place) noexcept { return place; }
  static void operator delete(void* object, std::size_t size) noexcept;
  static void operator delete(void*, void*) noexcept {}

  // A new object with copies of the error message, the keys and everything below; release it with
  // delete.
  CMyJsonObj* Clone() const;

  // Replaces the members by deep copies of those of source, which may be this object or part of
  // it. The error message stays this object's own, deliberately unlike Clone. Null is ignored.
  void CopyFrom(const CMyJsonObj* source);

  // --- enumeration -----------------------------------------------------------------------------

  int ValueCount() const;

  // The key and the value (borrowed) of the member at index, in order. Without such a member
  // neither output is touched.
  void Item(int index, CQNString& key, CMyJsonValue*& value) const;

  // Why the last Load failed; empty after one that succeeded.
  CQNString GetErrMsg() const;

  // --- adding at the end, without looking for the key ------------------------------------------
  //
  // The key is stored as it is given, backslashes included. With a null key nothing happens, and
  // whatever was passed in stays the caller's.

  // Takes over value itself. A null value does nothing.
  void AddItem(const char* key, CMyJsonValue* value);

  // An eEmpty value.
  void AddItem(const char* key);

  // A string with a copy of text; an eEmpty value when text is null.
  void AddItem(const char* key, const char* text);

  void AddItem(const char* key, double number);
  void AddItem(const char* key, int number);
  void AddItem(const char* key, bool flag);

  // An array that takes over the count values themselves.
  void AddItem(const char* key, CMyJsonValue* const* values, int count);

  void AddItem(const char* key, const double* numbers, int count);
  void AddItem(const char* key, const int* numbers, int count);

  // An object value that takes over obj itself; an eEmpty value when obj is null.
  void AddItem(const char* key, CMyJsonObj* obj);

  // --- setting by path -------------------------------------------------------------------------
  //
  // Replaces the value of the member at path and destroys the old one; the key keeps its spelling.
  // A member that does not exist is added, with the objects on the way to it, unless onlyExisting
  // is true. Returns false when the path is null, when a member on the way is no object, or when a
  // member is missing and onlyExisting is true. Then whatever was passed in stays the caller's,
  // untouched; objects added on the way remain.

  // Takes over value itself on success. A null value is refused.
  bool SetItem(const char* path, CMyJsonValue* value, bool exact, bool onlyExisting);

  // A string with a copy of text; an eEmpty value when text is null.
  bool SetItem(const char* path, const char* text, bool exact, bool onlyExisting);

  bool SetItem(const char* path, double number, bool exact, bool onlyExisting);
  bool SetItem(const char* path, int number, bool exact, bool onlyExisting);
  bool SetItem(const char* path, bool flag, bool exact, bool onlyExisting);

  // An array that takes over the count values themselves on success.
  bool SetItem(const char* path, CMyJsonValue* const* values, int count, bool exact,
               bool onlyExisting);

  bool SetItem(const char* path, const double* numbers, int count, bool exact, bool onlyExisting);
  bool SetItem(const char* path, const int* numbers, int count, bool exact, bool onlyExisting);

  // An object value that takes over obj itself on success; an eEmpty value when obj is null.
  bool SetItem(const char* path, CMyJsonObj* obj, bool exact, bool onlyExisting);

  // An eEmpty value.
  bool SetItem2Empty(const char* path, bool exact, bool onlyExisting);

  // --- removing: the key is no path ------------------------------------------------------------

  // Removes the member that key finds and destroys its value; without one nothing happens.
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

  bool ValueEx(const char* path, bool& flag, bool exact) const;

  // The number cut to an integer, toward zero; beyond the range of int its nearest end, and 0 for
  // a NaN.
  bool ValueEx(const char* path, int& number, bool exact) const;

  bool ValueEx(const char* path, double& number, bool exact) const;

  // A copy of the string.
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
