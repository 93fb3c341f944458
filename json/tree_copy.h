// SPDX-License-Identifier: MIT
// Fills records: copies trees of JSON values of any depth in constant stack, and moves content from
// one record to another.
#ifndef QUARNFC_JSON_TREE_COPY_H_
#define QUARNFC_JSON_TREE_COPY_H_

#include "json/records.h"

namespace quarnfc::json {

// Fills the fresh (eEmpty) record target with a deep copy of the content of source. What is already
// copied belongs to target should memory run out.
void CopyContent(const CMyJsonValueImp& source, CMyJsonValueImp& target);

// Fills the fresh (empty) record target with copies of the members of source, not of its message.
void CopyMembers(const CMyJsonObjImp& source, CMyJsonObjImp& target);

// Gives target the content of fresh and fresh the old one. Only the field of the new type changes:
// an old string or number stays in its field, ignored.
void TakeContent(CMyJsonValueImp& target, CMyJsonValueImp& fresh) noexcept;

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_TREE_COPY_H_
