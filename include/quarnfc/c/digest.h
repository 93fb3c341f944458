/* SPDX-License-Identifier: MIT */
/* Digests of messages that arrive piece by piece, in the flat C interface (quarnfc.h in this folder
 * says how everything works).
 *
 * Example:
 *   QncDigest* digest = qncDigestNew(QNC_DIGEST_MD5, NULL, 0, NULL);
 *   qncDigestUpdate(digest, "ab", 2);
 *   qncDigestUpdate(digest, "c", 1);
 *   char* text = qncDigestFinish(digest, NULL);
 *   text;                                     // == "900150983cd24fb0d6963f7d28e17f72"
 *   qnFreeMem(text);
 *   qncDigestFree(digest);
 */
#ifndef QUARNFC_C_DIGEST_H_
#define QUARNFC_C_DIGEST_H_

#include <quarnfc/c/base.h>

typedef struct QncDigest QncDigest;

enum {
  QNC_DIGEST_MD5 = 1,         /* RFC 1321, what md5sum prints */
  QNC_DIGEST_SHA256 = 2,      /* FIPS 180-4 */
  QNC_DIGEST_HMAC_SHA256 = 3, /* RFC 2104 with SHA-256 and a key */
  QNC_DIGEST_PACKED_MD5 = 4,  /* the text of qncMd5 */
  QNC_DIGEST_CRC64 = 5        /* the text of qncCrc64 */
};

/* A digest of one of these kinds. key_size bytes of key are used by QNC_DIGEST_HMAC_SHA256 and
 * ignored by the others; they stay the caller's. Null for another kind. */
QN_PLAIN_API QncDigest* qncDigestNew(int kind, const void* key, size_t key_size, CQNObject** error);

QN_PLAIN_API void qncDigestFree(QncDigest* digest);

/* Appends bytes, any number at a time. Null data counts as none; a null digest is ignored. */
QN_PLAIN_API void qncDigestUpdate(QncDigest* digest, const void* data, size_t size);

/* The digest as hexadecimal digits, lower-case (those of the CRC upper-case, as qncCrc64 has them).
 * The next message, with the same key, starts. */
QN_PLAIN_API char* qncDigestFinish(QncDigest* digest, CQNObject** error);

#endif /* QUARNFC_C_DIGEST_H_ */
