// SPDX-License-Identifier: MIT
// QNCRC64: the CRC-64 of the reflected ECMA-182 polynomial, started with all bits set and,
// deliberately, not inverted at the end: the value is the bitwise complement of CRC-64/XZ.
//
// Threads: both functions may be called from any thread.
//
// Example:
//   const unsigned char data[] = {'1', '2', '3', '4', '5', '6', '7', '8', '9'};
//   char* text = QNCRC64::qnGetCRC64StrA(data, 9);
//   text;    // == "66A2364420E6C605"
//   qnFreeMem(text);
#ifndef QUARNFC_CRC64_H_
#define QUARNFC_CRC64_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>

namespace QNCRC64 {

// A new zero-terminated text of 16 upper-case hexadecimal digits, the high half first; released
// with qnFreeMem. data is read whole and stays the caller's. No bytes (or null) give
// "FFFFFFFFFFFFFFFF". Null when memory is exhausted.
QN_API char* qnGetCRC64StrA(const unsigned char* data, unsigned int size);

// The same as UTF-16 text, released with qnFreeMem.
QN_API wchar_t* qnGetCRC64StrW(const unsigned char* data, unsigned int size);

}  // namespace QNCRC64

#endif  // QUARNFC_CRC64_H_
