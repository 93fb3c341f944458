// SPDX-License-Identifier: MIT
// The least that a module written in C++ can be: one function that makes a string.
#include <quarnfc/export.h>

#include <string>

QN_PLAIN_API int MakeString(const char* text);

int MakeString(const char* text) { return static_cast<int>(std::string(text).size()); }
