// SPDX-License-Identifier: MIT
// Whether what a host hands over stands in the tree already: taking it in once more would leave a
// circle or a dangling pointer.
#ifndef QUARNFC_JSON_TREE_SEARCH_H_
#define QUARNFC_JSON_TREE_SEARCH_H_

#include "json/records.h"

namespace quarnfc::json {

// Whether value is an object value that holds the object of this record.
bool HoldsRecord(const CMyJsonValue& value, const CMyJsonObjImp& record);

// Whether value, or the object that it holds, stands below root. Looks at everything there; throws
// std::bad_alloc.
bool StandsBelow(const CMyJsonValue& root, const CMyJsonValue& value);

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_TREE_SEARCH_H_
