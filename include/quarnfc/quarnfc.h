// SPDX-License-Identifier: MIT
// Umbrella header: everything a host of QuarnFC needs. Each header below stands alone, too, and
// says at its head what it is for, who owns what, which texts are in which encoding, how failures
// are reported and what threads may do.
//
// What holds for all of them: 8-bit text is in the process ANSI code page (936 off Windows) unless
// a name says UTF8, wide text is UTF-16; what the library allocates for a caller is released
// through the library (qnFreeMem, qnCloseHandle, FreeStrArr, Release, or delete for objects); the
// library starts no threads (but for the dump of a stack that overflowed) and keeps no settings.
//
// Example:
//   CMyJsonObj document;
//   document.AddItem("name", "Changsha");
//   char* text = document.CreateUTF8Json(false);
//   text;    // == R"({"name":"Changsha"})"
//   qnFreeMem(text);
#ifndef QUARNFC_QUARNFC_H_
#define QUARNFC_QUARNFC_H_

#include <quarnfc/base32.h>
#include <quarnfc/base64.h>
#include <quarnfc/collection.h>
#include <quarnfc/crash_dump.h>
#include <quarnfc/crc64.h>
#include <quarnfc/csv.h>
#include <quarnfc/digest_streams.h>
#include <quarnfc/error.h>
#include <quarnfc/error_json.h>
#include <quarnfc/export.h>
#include <quarnfc/file_utils.h>
#include <quarnfc/fixed_alloc.h>
#include <quarnfc/geographic.h>
#include <quarnfc/hmac_sha256.h>
#include <quarnfc/internet.h>
#include <quarnfc/internet_api.h>
#include <quarnfc/internet_exception.h>
#include <quarnfc/internet_file.h>
#include <quarnfc/json_files.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/md5.h>
#include <quarnfc/object.h>
#include <quarnfc/object_collection.h>
#include <quarnfc/overloads.h>
#include <quarnfc/percent_encoding.h>
#include <quarnfc/plain.h>
#include <quarnfc/platform_types.h>
#include <quarnfc/projected.h>
#include <quarnfc/qn_string.h>
#include <quarnfc/string_arrays.h>
#include <quarnfc/string_collection.h>
#include <quarnfc/string_utils.h>
#include <quarnfc/text_encoding.h>
#include <quarnfc/time_utils.h>
#include <quarnfc/url.h>
#include <quarnfc/version.h>
#include <quarnfc/web_mercator.h>

#endif  // QUARNFC_QUARNFC_H_
