// SPDX-License-Identifier: MIT
// libcurl, and the OpenSSL it stands on, are loaded when the first request needs them: a host that
// wants strings alone does not wait for thirty libraries when it starts.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_LATE_CURL_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_LATE_CURL_H_

namespace quarnfc::internet {

// Loads libcurl unless it is loaded; until that succeeds, none of its functions may be called.
// False when it is not installed or too old; a later call looks again. For any thread.
bool LoadCurl();

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_LATE_CURL_H_
