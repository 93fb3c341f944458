// SPDX-License-Identifier: MIT
// What compilers spell differently.
#ifndef QUARNFC_PLATFORM_COMPILER_H_
#define QUARNFC_PLATFORM_COMPILER_H_

// A function whose loads the address sanitizer does not check.
#if defined(__GNUC__)
#define QN_NO_ADDRESS_CHECK __attribute__((no_sanitize("address")))
#elif defined(_MSC_VER)
#define QN_NO_ADDRESS_CHECK __declspec(no_sanitize_address)
#else
#define QN_NO_ADDRESS_CHECK
#endif

#endif  // QUARNFC_PLATFORM_COMPILER_H_
