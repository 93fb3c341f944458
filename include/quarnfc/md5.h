// SPDX-License-Identifier: MIT
// QNMD5: MD5 with, deliberately, a packing of message bytes of this library's own.
//
// The algorithm is RFC 1321 but for how bytes are packed into 32-bit words: each byte is widened
// as a signed value, so a byte of 0x80 or more makes the bytes after it in the same aligned group
// of four (message, end marker or padding) read as 0xFF. The result equals standard MD5 when every
// such byte stands last in its group of four, and so for all 7-bit text. Do not expect other MD5
// programs to agree on other data.
//
// Deliberately, the message length enters the digest as a number of bits of 32 bits only.
//
// Threads and errors: every function may be called from any thread; nothing throws or allocates.
// A null data counts as no bytes; a null result is ignored.
//
// Example:
//   char text[33];
//   QNMD5::qnGetMD5StrLowerA("abc", 3, text);
//   text;       // == "900150983cd24fb0d6963f7d28e17f72"
//   unsigned int words[4];
//   QNMD5::qnGetMD5Data("abc", 3, words);
//   words[0];   // == 0x98500190u
#ifndef QUARNFC_MD5_H_
#define QUARNFC_MD5_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>

namespace QNMD5 {

// Stores the four state words A, B, C, D of the digest of size bytes in words, which has room for
// four; their little-endian bytes are the 16 digest bytes.
QN_API void qnGetMD5Data(const void* data, unsigned int size, unsigned int* words);

// Stores the digest as 32 hexadecimal digits, those above 9 in lower case, and a terminating zero:
// text has room for at least 33 characters.
QN_API void qnGetMD5StrLowerA(const void* data, unsigned int size, char* text);

// The same with digits in upper case.
QN_API void qnGetMD5StrUpperA(const void* data, unsigned int size, char* text);

// As UTF-16 text with digits in lower case: room for at least 33 units.
QN_API void qnGetMD5StrLowerW(const void* data, unsigned int size, wchar_t* text);

// As UTF-16 text with digits in upper case: room for at least 33 units.
QN_API void qnGetMD5StrUpperW(const void* data, unsigned int size, wchar_t* text);

}  // namespace QNMD5

#endif  // QUARNFC_MD5_H_
