// SPDX-License-Identifier: MIT
#ifndef QUARNFC_CORE_OBJECTS_OBJECT_RECORD_H_
#define QUARNFC_CORE_OBJECTS_OBJECT_RECORD_H_

#include <cstddef>

#include "core/memory/memory.h"

// The private record of an object.
struct CQNObjectImp {
  virtual ~CQNObjectImp() {
    quarnfc::FreeBuffer(message);
    quarnfc::FreeBuffer(wide_message);
  }

  static void* operator new(std::size_t size) { return quarnfc::AllocNode(size); }
  static void operator delete(void* record) noexcept {
    quarnfc::FreeNode(record, sizeof(CQNObjectImp));
  }

  int references = 1;
  int code = 0;  // an EErrorStatus; hosts must not rely on it before setting
  char* message = nullptr;
  wchar_t* wide_message = nullptr;
};

#endif  // QUARNFC_CORE_OBJECTS_OBJECT_RECORD_H_
