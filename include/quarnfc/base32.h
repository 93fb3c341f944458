// SPDX-License-Identifier: MIT
// QNBase32: bytes to Base32 text and back, in the bit order of RFC 4648 but, deliberately, with an
// alphabet of this library's own and without padding.
//
// The alphabet is "abcdefghijklmnopqrstuvwxyz654321": a to z for 0 to 25, then the digits 6 down
// to 1 for 26 to 31. It is part of the data format; text made here decodes only here. Upper-case
// letters and the digits 0, 7, 8 and 9 are not in it.
//
// Ownership: every text returned and every buffer stored through an out-parameter belongs to the
// caller, who releases it with qnFreeMem.
// Errors: nothing throws. An encoder that cannot get its memory returns null; a decoder then
// returns 0 and stores null.
// Threads: every function may be called from any thread.
//
// Implemented in codec/base32.cpp on the rules of codec/bit_text.h.
//
// Example:
//   const unsigned char bytes[] = {0x66, 0x6F};
//   char* text = QNBase32::qnEncodeBase32A(bytes, 2);
//   text;          // == "mzxq"
//   unsigned char* decoded = nullptr;
//   QNBase32::qnDecodeBase32A(text, 0, &decoded);       // == 2
//   decoded[1];    // == 0x6F
//   qnFreeMem(decoded);
//   qnFreeMem(text);
#ifndef QUARNFC_BASE32_H_
#define QUARNFC_BASE32_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>

namespace QNBase32 {

// A new zero-terminated text for size bytes of data, without padding and line breaks. No bytes (or
// null) give the empty text, which is released like any other. Any size is encoded whole, also
// where the text is longer than 4 GiB.
QN_API char* qnEncodeBase32A(const unsigned char* data, unsigned int size);

// The same as UTF-16 text.
QN_API wchar_t* qnEncodeBase32W(const unsigned char* data, unsigned int size);

// Decodes length characters of text, or all up to its terminator when length is 0, and returns
// the number of bytes; *data receives a new buffer with the bytes and at least one byte more.
//
// Decoding ends at the first "=", wherever it stands, and what follows is not looked at. An
// incomplete last group is accepted: 2, 4, 5 and 7 characters give 1, 2, 3 and 4 bytes, and
// left-over bits stand in the byte after the counted ones. No bytes (an empty or null text, or one
// that starts with "=") give 0 and a buffer of zeros, which must still be released.
//
// A character outside the alphabet, blanks, line breaks and upper-case letters included, gives 0
// and null in *data. So do more than 2,147,483,647 bytes, which the result cannot count. A null
// data gives 0.
QN_API int qnDecodeBase32A(const char* text, unsigned int length, unsigned char** data);

// The same for UTF-16 text; length counts units. A unit of 0x100 or more is foreign.
QN_API int qnDecodeBase32W(const wchar_t* text, unsigned int length, unsigned char** data);

}  // namespace QNBase32

#endif  // QUARNFC_BASE32_H_
