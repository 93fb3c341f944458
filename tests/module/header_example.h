// SPDX-License-Identifier: MIT
// What the examples of the public headers are compiled with.
#ifndef QUARNFC_TESTS_MODULE_HEADER_EXAMPLE_H_
#define QUARNFC_TESTS_MODULE_HEADER_EXAMPLE_H_

#include <gtest/gtest.h>
#include <quarnfc/quarnfc.h>

#include <chrono>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#if defined(_WIN32)
#include <windows.h>

#include <oleauto.h>
#include <wininet.h>
#endif

namespace header_example {

// Whether an expression has the value that the example states. Texts are compared, not pointers.
template <class Actual, class Expected>
bool Same(const Actual& actual, const Expected& expected) {
  return actual == expected;
}

inline bool Same(const char* actual, const char* expected) {
  return std::strcmp(actual, expected) == 0;
}

inline bool Same(char* actual, const char* expected) { return std::strcmp(actual, expected) == 0; }

}  // namespace header_example

#endif  // QUARNFC_TESTS_MODULE_HEADER_EXAMPLE_H_
