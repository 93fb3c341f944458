// SPDX-License-Identifier: MIT
// Finding members: the search for a key and the parts of a path.
#ifndef QUARNFC_JSON_OBJECT_PATH_H_
#define QUARNFC_JSON_OBJECT_PATH_H_

#include <string_view>

#include "json/records.h"

namespace quarnfc::json {

// The index of the first member with this key; with exact false and no such member, of the first
// that differs in case alone; else -1.
int FindKey(const CMyJsonObjImp& record, std::string_view key, bool exact);

// Walks the parts of a path, separated by backslashes that are characters of their own.
class PathParts {
 public:
  explicit PathParts(const char* path) { Cut(path); }

  std::string_view Key() const { return key_; }
  bool IsLast() const { return rest_ == nullptr; }

  // Goes on to the next part; there must be one.
  void Next() { Cut(rest_); }

 private:
  void Cut(const char* part);

  std::string_view key_;
  const char* rest_ = nullptr;  // behind the separator; null after the last part
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_OBJECT_PATH_H_
