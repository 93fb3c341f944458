// SPDX-License-Identifier: MIT
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
// Errors: refusals are false results. Everything that allocates may throw std::bad_alloc; the value
// is then as it was, but for elements that were spliced in before. Nesting may be as deep as memory
// allows: no member uses stack in proportion to it.
//
// Misuse to avoid: handing over a value or object twice, or one that a tree already owns (it would
// be destroyed twice; hand over a Clone instead); handing a value to itself or to something below
// it (such a tree has no end); deleting what an accessor returned.
//
// Implemented in json/value*.cpp; Load in json/load.cpp and text_reader.cpp, CreateJson in
// json/create_json.cpp and text_writer.cpp.
//
// Example:
//   CQNString error;
//   CMyJsonValue value;
//   value.Load("[1, 2.5, 40]", error);         // == true
//   value.ValueArrLength();                    // == 3
//   value.ValueArrItem(1)->ValueNumber();      // == 2.5
//   value.AddToArr(7, 0);                      // == true
//   value.AddToArr("text", 0);                 // == false
//   value.CreateJson(false);                   // == "[7,1,2.5,40]"
#ifndef QUARNFC_JSON_VALUE_H_
#define QUARNFC_JSON_VALUE_H_

#include <quarnfc/export.h>
#include <quarnfc/overloads.h>
#include <quarnfc/qn_string.h>

#include <cstddef>
#include <new>

class CMyJsonObj;
struct CMyJsonValueImp;

namespace quarnfc::json {
struct JsonAccess;
}

class QN_API CMyJsonValue {
 public:
  // What a value is; in brackets the members that read it.
  enum EValueType : int {
    eEmpty = 0,   // no value; written as "null" inside objects
    eStr = 1,     // a string (ValueStr)
    eNumber = 2,  // a number (ValueNumber)
    eArr = 3,     // an array (ValueArrLength, ValueArrItem)
    eBool = 4,    // true or false (ValueBool)
    eObj = 5,     // an object (ValueObj)
  };

  // --- construction: explicit, so that no value is made, shared or destroyed unseen ------------

  // An eEmpty value.
  CMyJsonValue();

  // A string with a copy of text; an eEmpty value when text is null.
  explicit CMyJsonValue(const char* text);

  // A number. Infinities and NaN can be held, but their text does not read back.
  explicit CMyJsonValue(double number);

  // A number; every int is exact.
  explicit CMyJsonValue(int number);

  // true or false.
  explicit CMyJsonValue(bool flag);

  // A number of any other integer type. Beyond 53 bits it is rounded to the nearest double.
  template <class Integer, quarnfc::overloads::IfInteger<Integer> = 0>
  explicit CMyJsonValue(Integer number) : CMyJsonValue(static_cast<double>(number)) {}

  // An eEmpty value.
  template <class Null, quarnfc::overloads::IfNull<Null> = 0>
  explicit CMyJsonValue(Null) : CMyJsonValue() {}

  // Any other pointer would become true.
  template <class Pointer,
            quarnfc::overloads::IfForeignPointer<Pointer, const char*, CMyJsonObj*> = 0>
  explicit CMyJsonValue(Pointer) = delete;

  // An array that takes over the count values themselves, made with new each and not owned by
  // another tree. The array of pointers stays the caller's. Types are not checked. A null element
  // counts as eEmpty; a count below 1 gives an empty array and reads nothing.
  CMyJsonValue(CMyJsonValue* const* values, int count);

  // Arrays with a new number value for each of count numbers, which are copied. A count below 1 or
  // null numbers give an empty array and read nothing.
  CMyJsonValue(const float* numbers, int count);
  CMyJsonValue(const double* numbers, int count);
  CMyJsonValue(const int* numbers, int count);
  CMyJsonValue(const unsigned int* numbers, int count);
  CMyJsonValue(const unsigned short* numbers, int count);
  CMyJsonValue(const short* numbers, int count);
  CMyJsonValue(const unsigned char* numbers, int count);

  // An object value that takes over obj itself, made with new and not owned by another tree; an
  // eEmpty value when obj is null. An object on the stack is copied with Clone first.
  explicit CMyJsonValue(CMyJsonObj* obj);

  // Copying shares the private record, deliberately: both values are then one, and only one of
  // them may be destroyed. What an assigned value held before is neither shared nor released.
  QN_SHARING_COPY CMyJsonValue(const CMyJsonValue& other);

  // Hazard: the assignment shares in the same way, so that "a = b;" with both on the stack ends in
  // a double destruction. Use CopyFrom.
  QN_SHARING_COPY CMyJsonValue& operator=(const CMyJsonValue& other);

  // Destroys the value and everything below it.
  ~CMyJsonValue();

  // Values are created and released through the library's memory, whichever module says new or
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
  static void operator delete(void* value, std::size_t size) noexcept;
  static void operator delete(void*, void*) noexcept {}
  static void operator delete(void* value, const std::nothrow_t&) noexcept {
    operator delete(value, sizeof(CMyJsonValue));
  }

  // --- type ------------------------------------------------------------------------------------

  // The type of the value as it stands.
  EValueType Type() const;

  // Whether Type() is type.
  bool IsType(EValueType type) const;

  bool IsEmpty() const;   // IsType(eEmpty): null, or nothing yet
  bool IsStr() const;     // IsType(eStr)
  bool IsNumber() const;  // IsType(eNumber)
  bool IsArr() const;     // IsType(eArr)
  bool IsBool() const;    // IsType(eBool)
  bool IsObj() const;     // IsType(eObj)

  // --- content: the type is not checked; each returns its field as it stands -------------------

  // The flag; false when none was ever set.
  bool ValueBool() const;

  // The number; 0 when none was ever set. A value that changed type may keep its old number.
  double ValueNumber() const;

  // The string, borrowed. Never null: "" when no string was ever set. A value that changed type
  // keeps its old text.
  const char* ValueStr() const;

  // The object, borrowed: to be read and edited, not to be deleted or handed to another tree. Null
  // unless this is an object.
  CMyJsonObj* ValueObj() const;

  // The number of elements; 0 for a value that is no array.
  int ValueArrLength() const;

  // The element at index, 0 to ValueArrLength() - 1, borrowed; null when there is none. An array
  // that was read or made from numbers alone keeps just these, and makes its values when one of
  // them is first asked for here, which takes memory: it may throw std::bad_alloc.
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

  // Inserts a deep copy of value, which may be this array or part of the same tree; null is
  // refused. An array value is spliced in element by element, flattened by exactly one level: its
  // last element first, each at pos, so that they keep their order. At the first element of another
  // type the call stops and returns false; what went in stays in.
  bool AddToArr(const CMyJsonValue* value, int pos);

  // Inserts a new object value with a clone of obj, or an eEmpty one when obj is null.
  bool AddToArr(const CMyJsonObj* obj, int pos);

  // Inserts a new string value, or an eEmpty one when text is null.
  bool AddToArr(const char* text, int pos);

  // Inserts a new number value.
  bool AddToArr(double number, int pos);

  // The same with an int.
  bool AddToArr(int number, int pos);

  // Inserts a new boolean value.
  bool AddToArr(bool flag, int pos);

  // A number of any other integer type. Beyond 53 bits it is rounded to the nearest double.
  template <class Integer, quarnfc::overloads::IfInteger<Integer> = 0>
  bool AddToArr(Integer number, int pos) {
    return AddToArr(static_cast<double>(number), pos);
  }

  // An eEmpty value.
  template <class Null, quarnfc::overloads::IfNull<Null> = 0>
  bool AddToArr(Null, int pos) {
    return AddToArr(static_cast<const char*>(nullptr), pos);
  }

  // Any other pointer would become true.
  template <class Pointer, quarnfc::overloads::IfForeignPointer<
                               Pointer, const char*, const CMyJsonValue*, const CMyJsonObj*> = 0>
  bool AddToArr(Pointer, int pos) = delete;

  // Inserts value itself, which passes to this array on success and stays the caller's on refusal.
  // It must not be owned by a tree already: detach it there first (RemoveFromArr(index, false)).
  // This array itself is refused, and so is one that it is an element of; what stands further above
  // must not be passed. An array value gives up its elements as AddToArr takes copies of them, and
  // is itself destroyed. When such a call stops part-way, the elements moved so far are in both
  // arrays, deliberately: detach them from one of the two with RemoveFromArr(index, false) before
  // either is destroyed.
  bool MoveToArr(CMyJsonValue* value, int pos);

  // Inserts a new object value that takes over obj itself on success; on refusal it stays the
  // caller's. An object above this array must not be passed. A null obj inserts an eEmpty value.
  bool MoveToArr(CMyJsonObj* obj, int pos);

  // Removes the element at index, if there is one; later elements move down. With destroy false the
  // element is only detached, and whoever holds its pointer owns it: take ValueArrItem(index)
  // first.
  //
  // Example:
  //   const int numbers[] = {1, 2, 3};
  //   CMyJsonValue array(numbers, 3);
  //   CMyJsonValue* second = array.ValueArrItem(1);
  //   array.RemoveFromArr(1, false);
  //   array.CreateJson(false);    // == "[1,3]"
  //   array.MoveToArr(second, 0); // == true
  //   array.CreateJson(false);    // == "[2,1,3]"
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
