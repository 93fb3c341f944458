// SPDX-License-Identifier: MIT
// CQNObject, the root of the class tree: a reference count, an error status and an error message;
// and CQNObjClass, the run-time class record.
//
// Messages are kept twice, as 8-bit text in the process ANSI code page and as UTF-16.
// Ownership: whoever makes an object with new holds its one reference and gives it up with Release
// (or delete). Messages belong to the object.
// Errors: std::bad_alloc when memory is exhausted; a message that cannot be kept leaves the old
// one. Threads: nothing here is synchronised, the reference count neither. An object and its
// messages are used by one thread at a time.
//
// Implemented in core/objects/object.cpp.
//
// Example:
//   CQNObject* object = new CQNObject;
//   object->SetError(CQNObject::eErrNotFound, "no such station");
//   object->GetErrorCode();                // == CQNObject::eErrNotFound
//   object->GetErrorMsg();                 // == "no such station"
//   object->GetThisClass()->m_name;        // == "CQNObject"
//   object->AddRef();                      // a second holder
//   object->Release();                     // gives up its reference
//   object->Release();                     // the last one: destroys the object
#ifndef QUARNFC_OBJECT_H_
#define QUARNFC_OBJECT_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>

#include <cstddef>
#include <new>

// The name of a class and the record of its base class, so that a host can walk an object's class
// chain by name.
class QN_API CQNObjClass {
 public:
  // Keeps a copy of name (null counts as "") and the base pointer (null for a root).
  CQNObjClass(const char* name, CQNObjClass* base);

  // Releases the name.
  ~CQNObjClass();

  // A record is the identity of a class: there is one of each.
  CQNObjClass(const CQNObjClass&) = delete;

  // Copies both pointers: the two records share one name, and only one may be destroyed.
  CQNObjClass& operator=(const CQNObjClass&) = default;

  char* m_name;         // zero-terminated, owned by this record
  CQNObjClass* m_base;  // not owned; null for a root
};

struct CQNObjectImp;

// The root of the class tree. Hosts derive from it, or use it as it is to carry an error.
class QN_API CQNObject {
 public:
  // The codes this library produces; any other value a host stores is carried unchanged.
  enum EErrorStatus : int {
    eErrNone = 0,         // no error
    eErrNotFound = 2,     // a file or its folder does not exist
    eErrInvalidData = 5,  // the content is unusable
    eErrFileIO = 14,      // any other failure to open a file
  };

  // The record of the object's class: static, not to be released. Hosts that derive return their
  // own, with the record of their base class as its base.
  virtual CQNObjClass* GetThisClass();

  // Destroys the object whatever its reference count. An object on the stack ends so, and must not
  // be released.
  virtual ~CQNObject();

  // An object with reference count 1, no message (null) and an error code that is deliberately not
  // set: set it before reading it.
  CQNObject();

  // Copying shares the private record without touching the reference count: only one of the two
  // objects may be destroyed.
  CQNObject(const CQNObject& other);

  // The same; the record this object held before is neither shared nor released.
  CQNObject& operator=(const CQNObject& other);

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
  static void operator delete(void* object) noexcept;
  static void operator delete(void*, void*) noexcept {}
  static void operator delete(void* object, const std::nothrow_t&) noexcept {
    operator delete(object);
  }

  // Adds one reference.
  void AddRef();

  // Takes one reference away; below 1 the object is destroyed. It must have been made with new. The
  // pointer is not used after the caller's own reference is gone.
  void Release();

  // The setters are const: they change the private record alone.
  //
  // Keeps the code; any value is carried unchanged.
  void SetErrorCode(EErrorStatus code) const;

  // The code last set. Before that it is not to be relied on.
  EErrorStatus GetErrorCode() const;

  // Keeps a copy of text (ANSI code page) in both forms; null gives two empty messages. text may be
  // this object's own message.
  void SetErrorMsg(const char* text) const;

  // SetErrorCode, then SetErrorMsg.
  void SetError(EErrorStatus code, const char* text) const;

  // The message in the ANSI code page, owned by the object and valid until the next SetErrorMsg;
  // null before the first.
  const char* GetErrorMsg() const;

  // GetErrorMsg().
  const char* GetErrorMsgA() const;

  // The same message as UTF-16, with the same rules.
  const wchar_t* GetErrorMsgW() const;

  // The class record "CQNObject"; a root, without a base.
  static CQNObjClass m_class;

 private:
  CQNObjectImp* imp_;
};

#endif  // QUARNFC_OBJECT_H_
