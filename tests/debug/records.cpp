// SPDX-License-Identifier: MIT
// Describes the library's private records to the debugger where the library itself was built
// without debug information.
#include "json/records.h"
#include "core/collections/collection_items.h"
#include "core/objects/object_record.h"

namespace quarnfc::tests {

CMyJsonValueImp* value_record = nullptr;
CMyJsonObjImp* object_record = nullptr;
CQNCollectionItems* collection_record = nullptr;
CQNObjectImp* error_record = nullptr;

}  // namespace quarnfc::tests
