// Umbrella header: everything a host of QuarnFC needs.
#ifndef QUARNFC_QUARNFC_H_
#define QUARNFC_QUARNFC_H_

#include <quarnfc/collection.h>
#include <quarnfc/crash_dump.h>
#include <quarnfc/error.h>
#include <quarnfc/export.h>
#include <quarnfc/fixed_alloc.h>
#include <quarnfc/object.h>
#include <quarnfc/object_collection.h>
#include <quarnfc/plain.h>
#include <quarnfc/platform_types.h>
#include <quarnfc/qn_string.h>
#include <quarnfc/string_collection.h>
#include <quarnfc/string_utils.h>

#endif  // QUARNFC_QUARNFC_H_
