// SPDX-License-Identifier: MIT
// The value of an Authorization header for the scheme Basic.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_BASIC_CREDENTIALS_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_BASIC_CREDENTIALS_H_

#include <string>

namespace quarnfc::internet {

std::string BasicCredentials(const std::string& user, const std::string& password);

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_BASIC_CREDENTIALS_H_
