// Umbrella header: everything a host of QuarnFC needs.
#ifndef QUARNFC_QUARNFC_H_
#define QUARNFC_QUARNFC_H_

#include <quarnfc/base32.h>
#include <quarnfc/base64.h>
#include <quarnfc/collection.h>
#include <quarnfc/crash_dump.h>
#include <quarnfc/crc64.h>
#include <quarnfc/csv.h>
#include <quarnfc/error.h>
#include <quarnfc/error_json.h>
#include <quarnfc/export.h>
#include <quarnfc/fixed_alloc.h>
#include <quarnfc/geographic.h>
#include <quarnfc/hmac_sha256.h>
#include <quarnfc/internet.h>
#include <quarnfc/internet_exception.h>
#include <quarnfc/internet_file.h>
#include <quarnfc/json_files.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/md5.h>
#include <quarnfc/object.h>
#include <quarnfc/object_collection.h>
#include <quarnfc/plain.h>
#include <quarnfc/platform_types.h>
#include <quarnfc/projected.h>
#include <quarnfc/qn_string.h>
#include <quarnfc/string_collection.h>
#include <quarnfc/string_utils.h>
#include <quarnfc/time_utils.h>
#include <quarnfc/url.h>
#include <quarnfc/version.h>
#include <quarnfc/web_mercator.h>

#endif  // QUARNFC_QUARNFC_H_
