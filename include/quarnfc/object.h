// CQNObject, the root of the class tree: a reference count, an error status and an error message;
// and CQNObjClass, the run-time class record.
//
// Messages are kept twice, as 8-bit text in the process ANSI code page and as UTF-16.
// Threads: nothing here is synchronised. An object and its messages are used by one thread at a
// time.
#ifndef QUARNFC_OBJECT_H_
#define QUARNFC_OBJECT_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>

#include <cstddef>

// The name of a class and the record of its base class, so that a host can walk an object's class
// chain by name.
class QN_API CQNObjClass {
 public:
  // Keeps a copy of name (null counts as "") and the base pointer (null for a root).
  CQNObjClass(const char* name, CQNObjClass* base);
  ~CQNObjClass();

  CQNObjClass(const CQNObjClass&) = delete;

  // Copies both pointers: the two records share one name, and only one may be destroyed.
  CQNObjClass& operator=(const CQNObjClass&) = default;

  char* m_name;         // zero-terminated, owned by this record
  CQNObjClass* m_base;  // not owned; null for a root
};

struct CQNObjectImp;

class QN_API CQNObject {
 public:
  // The codes this library produces; any other value a host stores is carried unchanged.
  enum EErrorStatus : int {
    eErrNone = 0,         // no error
    eErrNotFound = 2,     // a file or its folder does not exist
    eErrInvalidData = 5,  // the content is unusable
    eErrFileIO = 14,      // any other failure to open a file
  };

  // The record of the object's class. Hosts that derive return their own.
  virtual CQNObjClass* GetThisClass();

  // Destroys the object whatever its reference count.
  virtual ~CQNObject();

  // An object with reference count 1, no message (null) and an error code that is deliberately not
  // set: set it before reading it.
  CQNObject();

  // Copying shares the private record without touching the reference count: only one of the two
  // objects may be destroyed.
  CQNObject(const CQNObject& other);
  CQNObject& operator=(const CQNObject& other);

  // Objects are created and released through the library's memory, whichever module says new or
  // delete.
  static void* operator new(std::size_t size);
  static void* operator new(std::size_t, void* place) noexcept { return place; }
  static void operator delete(void* object) noexcept;
  static void operator delete(void*, void*) noexcept {}

  // Adds one reference.
  void AddRef();

  // Takes one reference away; below 1 the object is destroyed. It must have been made with new.
  void Release();

  // The setters are const: they change the private record alone.
  void SetErrorCode(EErrorStatus code) const;
  EErrorStatus GetErrorCode() const;

  // Keeps a copy of text (ANSI code page) in both forms; null gives two empty messages.
  void SetErrorMsg(const char* text) const;

  // SetErrorCode, then SetErrorMsg.
  void SetError(EErrorStatus code, const char* text) const;

  // The message, owned by the object and valid until the next SetErrorMsg; null before the first.
  const char* GetErrorMsg() const;
  const char* GetErrorMsgA() const;
  const wchar_t* GetErrorMsgW() const;

  // The record of this class; a root.
  static CQNObjClass m_class;

 private:
  CQNObjectImp* imp_;
};

#endif  // QUARNFC_OBJECT_H_
