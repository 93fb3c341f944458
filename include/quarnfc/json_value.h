// CMyJsonValue: one JSON value, which is nothing (null), a string, a number, a boolean, an array
// of values or an object (CMyJsonObj).
//
// Strings are in the process ANSI code page. Numbers are always kept as double.
//
// Ownership: a value owns what it holds, elements of arrays and the object included. Pointers that
// the accessors return are borrowed: they end when the value changes or is destroyed. Values and
// objects handed over by pointer must have been made with new. Copying a value by constructor or
// assignment shares its content (see there); Clone and CopyFrom make deep copies.
//
// Threads: a value and everything below it are used by one thread at a time.
//
// Errors: refusals are false results. Everything that allocates may throw std::bad_alloc. Nesting
// may be as deep as memory allows: no member uses stack in proportion to it.
#ifndef QUARNFC_JSON_VALUE_H_
#define QUARNFC_JSON_VALUE_H_

#include <quarnfc/export.h>
#include <quarnfc/qn_string.h>

#include <cstddef>

class CMyJsonObj;
struct CMyJsonValueImp;

namespace quarnfc::json {
struct JsonAccess;
}

class QN_API CMyJsonValue {
 public:
  enum EValueType : int {
    eEmpty = 0,   // no value; written as "null" inside objects
    eStr = 1,     // ValueStr
    eNumber = 2,  // ValueNumber
    eArr = 3,     // ValueArrLength, ValueArrItem
    eBool = 4,    // ValueBool
    eObj = 5,     // ValueObj
  };

  // --- construction: explicit, so that no value is made, shared or destroyed unseen ------------

  // An eEmpty value.
  CMyJsonValue();

  // A string with a copy of text; an eEmpty value when text is null.
  explicit CMyJsonValue(const char* text);

  explicit CMyJsonValue(double number);
  explicit CMyJsonValue(int number);
  explicit CMyJsonValue(bool flag);

  // An array that takes over the count values themselves. The array of pointers stays the
  // caller's. Types are not checked.
  CMyJsonValue(CMyJsonValue* const* values, int count);

  // Arrays of numbers. A count below 1 gives an empty array and reads nothing.
  CMyJsonValue(const float* numbers, int count);
  CMyJsonValue(const double* numbers, int count);
  CMyJsonValue(const int* numbers, int count);
  CMyJsonValue(const unsigned int* numbers, int count);
  CMyJsonValue(const unsigned short* numbers, int count);
  CMyJsonValue(const short* numbers, int count);
  CMyJsonValue(const unsigned char* numbers, int count);

  // An object value that takes over obj itself; an eEmpty value when obj is null.
  explicit CMyJsonValue(CMyJsonObj* obj);

  // Copying shares the private record, deliberately: both values are then one, and only one of
  // them may be destroyed. What an assigned value held before is neither shared nor released.
  CMyJsonValue(const CMyJsonValue& other);
  CMyJsonValue& operator=(const CMyJsonValue& other);

  // Destroys the value and everything below it.
  ~CMyJsonValue();

  // Values are created and released through the library's memory, whichever module says new or
  // delete.
  static void* operator new(std::size_t size);
  static void* operator new(std::size_t, void* place) noexcept { return place; }
  static void operator delete(void* value, std::size_t size) noexcept;
  static void operator delete(void*, void*) noexcept {}

  // --- type ------------------------------------------------------------------------------------

  EValueType Type() const;
  bool IsType(EValueType type) const;
  bool IsEmpty() const;
  bool IsStr() const;
  bool IsNumber() const;
  bool IsArr() const;
  bool IsBool() const;
  bool IsObj() const;

  // --- content: the type is not checked; each returns its field as it stands -------------------

  bool ValueBool() const;
  double ValueNumber() const;

  // Never null: "" when no string was ever set. A value that changed type keeps its old text.
  const char* ValueStr() const;

  // Null unless this is an object.
  CMyJsonObj* ValueObj() const;

  // The number of elements; 0 for a value that is no array.
  int ValueArrLength() const;

  // The element at index; null when there is none.
  CMyJsonValue* ValueArrItem(int index) const;

  // Sets count to the number of elements. Nothing is stored through items, deliberately: walk the
  // elements with ValueArrItem.
  void ValueArr(CMyJsonValue** items, int& count) const;

  // --- deep copies -----------------------------------------------------------------------------

  // A new value with a copy of everything below this one; release it with delete.
  CMyJsonValue* Clone() const;

  // Replaces the content by a deep copy of source, which may be this value or part of it. Only the
  // field of the new type changes: an old string or number stays in its field, ignored. Null is
  // ignored.
  void CopyFrom(const CMyJsonValue* source);

  // --- editing arrays --------------------------------------------------------------------------
  //
  // All of these return false and change nothing unless this is an array. A pos below 0 or above
  // the length means at the end; elements at and after pos move up. What is inserted must have
  // the type of the first element, unless the array is empty.

  // Inserts a deep copy of value. An array value is spliced in element by element, flattened by
  // exactly one level: its last element first, each at pos, so that they keep their order. At the
  // first element of another type the call stops and returns false; what went in stays in.
  bool AddToArr(const CMyJsonValue* value, int pos);

  // Inserts a new object value with a clone of obj.
  bool AddToArr(const CMyJsonObj* obj, int pos);

  // Inserts a new string value, or an eEmpty one when text is null.
  bool AddToArr(const char* text, int pos);

  bool AddToArr(double number, int pos);
  bool AddToArr(int number, int pos);
  bool AddToArr(bool flag, int pos);

  // Inserts value itself, which passes to this array on success. An array value gives up its
  // elements as AddToArr takes copies of them, and is itself destroyed. When such a call stops
  // part-way, the elements moved so far are in both arrays, deliberately: detach them from one of
  // the two with RemoveFromArr(index, false) before either is destroyed.
  bool MoveToArr(CMyJsonValue* value, int pos);

  // Inserts a new object value that takes over obj itself on success.
  bool MoveToArr(CMyJsonObj* obj, int pos);

  // Removes the element at index, if there is one. With destroy false the element is only
  // detached, and whoever holds its pointer owns it.
  void RemoveFromArr(int index, bool destroy);

  // --- text ------------------------------------------------------------------------------------

  // Replaces the content by the value read from a zero-terminated JSON text; what follows that
  // value is ignored. Returns false when the text cannot be read: the value is then eEmpty and
  // error holds the reason. error is never cleared: on success, and on the failures that have no
  // reason of their own (an array that does not end), it keeps what it held; and while it holds
  // text, an object that does not end leaves it too.
  //
  // The grammar is lenient, deliberately: commas between items are optional, a missing member
  // value is null, any token is read as the number it starts with (0 when with none, "null" in an
  // array included), and \u escapes are not decoded. A number must be followed by white space,
  // ",", "]" or "}", even at the end of the text.
  bool Load(const char* text, CQNString& error);

  // The value as JSON text, indented with TABs and CR LF or compact. An eEmpty value gives the
  // empty text. An indented array keeps the indentation of an object member, deliberately.
  // Throws std::bad_alloc when the text would exceed 2 GiB.
  CQNString CreateJson(bool indent) const;

  // The same text as UTF-8 in a new buffer, released with qnFreeMem.
  char* CreateUTF8Json(bool indent) const;

 private:
  friend struct quarnfc::json::JsonAccess;

  CMyJsonValueImp* imp_;
};

#endif  // QUARNFC_JSON_VALUE_H_
