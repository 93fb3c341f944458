/* SPDX-License-Identifier: MIT */
/* Text in other encodings than UTF-8, in the flat C interface (quarnfc.h in this folder says how
 * everything works). Lengths count and zero bytes are characters, so that a whole file is one text.
 * Nothing is lost silently: what is no text in its encoding, or what an encoding lacks, is an error
 * with its place; sizes are stored on success only. Any thread may call.
 *
 * Example:
 *   unsigned char* units = qncTextToEncoding("BJ", 2, QNC_ENCODING_UTF16_LE, NULL, NULL, NULL);
 *   units[2];                                 // == 'J'
 *   char* text = qncTextFromEncoding(units, 4, QNC_ENCODING_UTF16_LE, NULL, NULL, NULL);
 *   text;                                     // == "BJ"
 *   qnFreeMem(text);
 *   qnFreeMem(units);
 */
#ifndef QUARNFC_C_ENCODED_TEXT_H_
#define QUARNFC_C_ENCODED_TEXT_H_

#include <quarnfc/c/base.h>

enum {
  QNC_ENCODING_ANY = 0, /* of a text that is read: the one that qncFindEncoding finds */
  QNC_ENCODING_UTF8 = 1,
  QNC_ENCODING_UTF16_LE = 2, /* the low byte of a unit first */
  QNC_ENCODING_UTF16_BE = 3,
  QNC_ENCODING_ANSI = 4 /* the code page of the process, 936 off Windows */
};

/* The encoding of size bytes: that of their byte order mark; without one UTF-16 when one of the
 * first two bytes is zero, UTF-8 when they are well-formed UTF-8, else the code page. */
QN_PLAIN_API int qncFindEncoding(const void* data, size_t size);

/* Bytes in an encoding as a new UTF-8 text of *text_size bytes, when text_size is not null; a byte
 * order mark of that encoding is left out. Null when they are no text: *offset, when offset is not
 * null, is then that of the first byte that begins no character. */
QN_PLAIN_API char* qncTextFromEncoding(const void* data, size_t size, int encoding,
                                       size_t* text_size, size_t* offset, CQNObject** error);

/* UTF-8 text as *data_size bytes of an encoding in a new buffer, without mark, with a zero behind
 * them. Null when the encoding lacks a character, or the text is not UTF-8: *offset, when offset is
 * not null, is then that of the first such character in the text. */
QN_PLAIN_API unsigned char* qncTextToEncoding(const char* text, size_t size, int encoding,
                                              size_t* data_size, size_t* offset, CQNObject** error);

#endif /* QUARNFC_C_ENCODED_TEXT_H_ */
