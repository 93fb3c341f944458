// SPDX-License-Identifier: MIT
// Texts of the error codes that the internet functions leave.
#ifndef QUARNFC_PLATFORM_INTERNET_ERROR_TEXT_H_
#define QUARNFC_PLATFORM_INTERNET_ERROR_TEXT_H_

#include <string>

namespace quarnfc::platform {

// Stores the text of code in the system's language, in the process ANSI code page: the one of the
// internet functions, or else the one of the system. False, with text as it was, when neither has
// one.
bool InternetErrorText(unsigned int code, std::string& text);

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_INTERNET_ERROR_TEXT_H_
