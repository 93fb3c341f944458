// SPDX-License-Identifier: MIT
// type_info as the compiler lays it out for the Microsoft C++ ABI, and the exceptions of casts.
// Names are undecorated once and kept in a list that the module releases when it is unloaded.
#ifndef QUARNFC_RUNTIME_VCRUNTIME_TYPEINFO_H_
#define QUARNFC_RUNTIME_VCRUNTIME_TYPEINFO_H_

#pragma clang system_header

#include <vcruntime_exception.h>

#include <stddef.h>

extern "C" {

struct __std_type_info_data {
  const char* _UndecoratedName;
  const char _DecoratedName[1];
  __std_type_info_data() = delete;
  __std_type_info_data(const __std_type_info_data&) = delete;
  __std_type_info_data& operator=(const __std_type_info_data&) = delete;
};

// The head of the list of names (a lock-free list of the system).
union __type_info_node {
  alignas(16) unsigned long long _Words[2];
};
extern __type_info_node __type_info_root_node;

__declspec(dllimport) int __cdecl __std_type_info_compare(const __std_type_info_data* left,
                                                          const __std_type_info_data* right);
__declspec(dllimport) size_t __cdecl __std_type_info_hash(const __std_type_info_data* data);
__declspec(dllimport) const
    char* __cdecl __std_type_info_name(__std_type_info_data* data, __type_info_node* root);

}  // extern "C"

class type_info {
 public:
  type_info(const type_info&) = delete;
  type_info& operator=(const type_info&) = delete;
  virtual ~type_info() noexcept {}

  size_t hash_code() const noexcept { return __std_type_info_hash(&_Data); }
  bool operator==(const type_info& other) const noexcept {
    return __std_type_info_compare(&_Data, &other._Data) == 0;
  }
  bool operator!=(const type_info& other) const noexcept { return !(*this == other); }
  bool before(const type_info& other) const noexcept {
    return __std_type_info_compare(&_Data, &other._Data) < 0;
  }
  const char* name() const noexcept { return __std_type_info_name(&_Data, &__type_info_root_node); }
  const char* raw_name() const noexcept { return _Data._DecoratedName; }

 private:
  mutable __std_type_info_data _Data;
};

namespace std {

using ::type_info;

class bad_cast : public exception {
 public:
  bad_cast() noexcept : exception("bad cast", 1) {}

  static bad_cast __construct_from_string_literal(const char* message) noexcept {
    return bad_cast(message, 1);
  }

 private:
  bad_cast(const char* message, int) noexcept : exception(message, 1) {}
};

class bad_typeid : public exception {
 public:
  bad_typeid() noexcept : exception("bad typeid", 1) {}

 protected:
  bad_typeid(const char* message, int) noexcept : exception(message, 1) {}
};

class __non_rtti_object : public bad_typeid {
 public:
  explicit __non_rtti_object(const char* message) noexcept : bad_typeid(message, 1) {}
};

}  // namespace std

#endif  // QUARNFC_RUNTIME_VCRUNTIME_TYPEINFO_H_
