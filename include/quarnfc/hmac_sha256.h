// SPDX-License-Identifier: MIT
// QNHMACSHA: HMAC (RFC 2104) with SHA-256 (FIPS 180-4).
//
// Threads: the function may be called from any thread; it allocates nothing and does not throw.
//
// Example:
//   char digest[32];
//   int length = sizeof(digest);
//   QNHMACSHA::qnHMAC_SHA256("Jefe", 4, "what do ya want for nothing?", 28, digest, &length);
//   length;                                      // == 32
//   static_cast<unsigned char>(digest[0]);       // == 0x5B
//   static_cast<unsigned char>(digest[31]);      // == 0x43
#ifndef QUARNFC_HMAC_SHA256_H_
#define QUARNFC_HMAC_SHA256_H_

#include <quarnfc/export.h>

namespace QNHMACSHA {

// Stores the first *length bytes of the raw 32-byte digest in digest, which the caller has made at
// least that long; set *length before every call. *length is lowered to 32
// when it is larger; 0 or below stores nothing and stays as it is. The result is bytes, not text.
//
// A key above 64 bytes is replaced by its SHA-256 digest; a negative keySize or a null key counts
// as no key. dataSize is taken as unsigned, deliberately: a size of 2 to 4 GiB may be passed
// through the int. A null data counts as no bytes; a null digest or length stores nothing.
QN_API void qnHMAC_SHA256(const char* key, int keySize, const void* data, int dataSize,
                          char* digest, int* length);

}  // namespace QNHMACSHA

#endif  // QUARNFC_HMAC_SHA256_H_
