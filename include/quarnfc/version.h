/* SPDX-License-Identifier: MIT */
/* The version of the library: of the headers a host was compiled with (the macros) and of the
 * module it runs with (the function). A C header.
 *
 * Versions of one major number are compatible: a host compiled with 1.0 runs with every 1.x, and
 * with a later one may ask qnGetVersion whether an addition is there. docs/compatibility.md says
 * what stays.
 *
 * Example:
 *   const bool as_new_as_the_headers = qnGetVersion() >= QUARNFC_VERSION_NUMBER;
 *   as_new_as_the_headers;      // == true
 */
#ifndef QUARNFC_VERSION_H_
#define QUARNFC_VERSION_H_

#include <quarnfc/export.h>

#define QUARNFC_VERSION_MAJOR 1
#define QUARNFC_VERSION_MINOR 0
#define QUARNFC_VERSION_PATCH 0

/* "1.0.0" */
#define QUARNFC_VERSION_TEXT "1.0.0"

/* One number that grows with every version: major * 1,000,000 + minor * 1,000 + patch. */
#define QUARNFC_VERSION_NUMBER \
  (QUARNFC_VERSION_MAJOR * 1000000 + QUARNFC_VERSION_MINOR * 1000 + QUARNFC_VERSION_PATCH)

/* QUARNFC_VERSION_NUMBER of the loaded library. It may differ from that of the headers. Any thread
 * may call. */
QN_PLAIN_API unsigned int qnGetVersion(void);

#endif /* QUARNFC_VERSION_H_ */
