// SPDX-License-Identifier: MIT
// Errors of libcurl as the internet functions name them.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_CURL_ERRORS_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_CURL_ERRORS_H_

#include <curl/curl.h>
#include <quarnfc/platform_types.h>

namespace quarnfc::internet {

// The error that an exchange ended with; 0 for success.
DWORD ErrorOf(CURL* easy, CURLcode code);

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_CURL_ERRORS_H_
