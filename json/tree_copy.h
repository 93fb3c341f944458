// Copies trees of JSON values of any depth in constant stack.
#ifndef QUARNFC_JSON_TREE_COPY_H_
#define QUARNFC_JSON_TREE_COPY_H_

#include "json/records.h"

namespace quarnfc::json {

// Fills the fresh (eEmpty) record target with a deep copy of the content of source. What is already
// copied belongs to target should memory run out.
void CopyContent(const CMyJsonValueImp& source, CMyJsonValueImp& target);

// Fills the fresh (empty) record target with copies of the members of source, not of its message.
void CopyMembers(const CMyJsonObjImp& source, CMyJsonObjImp& target);

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_TREE_COPY_H_
