// SPDX-License-Identifier: MIT
// The private record of CQNCollection.
#ifndef QUARNFC_CORE_COLLECTIONS_COLLECTION_ITEMS_H_
#define QUARNFC_CORE_COLLECTIONS_COLLECTION_ITEMS_H_

#include <quarnfc/platform_types.h>

#include <vector>

struct CQNCollectionItems {
  // The items: begin, end, capacity.
  std::vector<unsigned __int64> array;

  // What Item gives for an index outside the items. It is here, not static, so that collections
  // used on different threads have nothing in common.
  unsigned __int64 outside = 0;
};

#endif  // QUARNFC_CORE_COLLECTIONS_COLLECTION_ITEMS_H_
