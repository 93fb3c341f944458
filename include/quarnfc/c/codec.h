/* SPDX-License-Identifier: MIT */
/* Codecs and digests of the flat C interface (quarnfc.h in this folder says how everything works).
 * Null data counts as no bytes. Inputs have at most 4,294,967,295 bytes.
 *
 * Example:
 *   char* text = qncBase64Encode("foobar", 6, NULL);
 *   text;                                     // == "Zm9vYmFy"
 *   size_t size = 0;
 *   unsigned char* bytes = qncBase64Decode(text, &size, NULL);
 *   size;                                     // == 6u
 *   qnFreeMem(bytes);
 *   qnFreeMem(text);
 */
#ifndef QUARNFC_C_CODEC_H_
#define QUARNFC_C_CODEC_H_

#include <quarnfc/c/base.h>

/* Bytes as text: Base64 of RFC 4648 with padding; Base32 with the library's own alphabet
 * (abcdefghijklmnopqrstuvwxyz654321), without. */
QN_PLAIN_API char* qncBase64Encode(const void* data, size_t size, CQNObject** error);
QN_PLAIN_API char* qncBase32Encode(const void* data, size_t size, CQNObject** error);

/* The bytes of a text in a new buffer, their number in *size; null, with *size 0, when the text has
 * a character outside the alphabet. Decoding ends at the first "=". No bytes give a buffer too. */
QN_PLAIN_API unsigned char* qncBase64Decode(const char* text, size_t* size, CQNObject** error);
QN_PLAIN_API unsigned char* qncBase32Decode(const char* text, size_t* size, CQNObject** error);

/* Digests as text: 32 lower-case, and 16 upper-case hexadecimal digits. MD5 packs bytes in this
 * library's own way and equals that of other programs for 7-bit text (md5.h); the CRC is that of
 * ECMA-182, reflected, not inverted at the end. */
QN_PLAIN_API char* qncMd5(const void* data, size_t size, CQNObject** error);
QN_PLAIN_API char* qncCrc64(const void* data, size_t size, CQNObject** error);

/* Stores the 32 bytes of the HMAC with SHA-256 in digest. 1, or 0 on failure. Keys have at most
 * 2,147,483,647 bytes. */
QN_PLAIN_API int qncHmacSha256(const void* key, size_t key_size, const void* data, size_t size,
                               unsigned char* digest, CQNObject** error);

#endif /* QUARNFC_C_CODEC_H_ */
