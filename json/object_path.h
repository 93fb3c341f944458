// Finding members: the search for a key and the parts of a path.
#ifndef QUARNFC_JSON_OBJECT_PATH_H_
#define QUARNFC_JSON_OBJECT_PATH_H_

#include <quarnfc/qn_string.h>

#include "json/records.h"

namespace quarnfc::json {

// The index of the first member with this key; with exact false and no such member, of the first
// that differs in case alone; else -1. A null key is in no object.
int FindKey(const CMyJsonObjImp& record, const char* key, bool exact);

// Walks the parts of a path, separated by backslashes that are characters of their own.
class PathParts {
 public:
  explicit PathParts(const char* path);

  const CQNString& Key() const { return key_; }
  bool IsLast() const { return rest_ == nullptr; }

  // Goes on to the next part; there must be one.
  void Next();

 private:
  void Cut(const char* part);

  CQNString key_;
  const char* rest_ = nullptr;  // behind the separator; null after the last part
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_OBJECT_PATH_H_
