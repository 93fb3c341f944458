/* SPDX-License-Identifier: MIT */
/* Errors and text of the flat C interface (quarnfc.h in this folder says how everything works).
 * qnFreeMem and qnCloseHandle are in plain.h, qnGetVersion is in version.h.
 *
 * Implemented in c/error.cpp and c/text.cpp.
 *
 * Example:
 *   CQNObject* error = NULL;
 *   qncAnsiFromUtf8("\xFF", &error) == NULL;  // == 1
 *   qncErrorCode(error);                      // == QNC_ERROR_INVALID_DATA
 *   qnCloseHandle(error);
 *   size_t offset = 0;
 *   qncIsUtf8("ab\xFF", 3, &offset);          // == 0
 *   offset;                                   // == 2u
 */
#ifndef QUARNFC_C_BASE_H_
#define QUARNFC_C_BASE_H_

#include <quarnfc/export.h>
#include <quarnfc/plain.h>
#include <quarnfc/version.h>

#include <stddef.h>

/* Error codes. HTTP failures have the codes of the platform's internet API, 12001 and above. */
enum {
  QNC_ERROR_NONE = 0,
  QNC_ERROR_NOT_FOUND = 2,    /* a file or its folder does not exist */
  QNC_ERROR_INVALID_DATA = 5, /* a content cannot be used */
  QNC_ERROR_MEMORY = 8,       /* memory is exhausted */
  QNC_ERROR_FILE = 14,        /* a file cannot be opened, read or written */
  QNC_ERROR_ARGUMENT = 87     /* an argument is null, or out of its range */
};

/* The version of this interface: 4. It grows when functions are added; functions that are there
 * stay as they are. */
QN_PLAIN_API int qncInterfaceVersion(void);

/* The code and the message (a new text) of an error handle; 0 and null for a null handle. */
QN_PLAIN_API int qncErrorCode(const CQNObject* error);
QN_PLAIN_API char* qncErrorMessage(const CQNObject* error);

/* Text of the code page as UTF-8, and the other way round. */
QN_PLAIN_API char* qncUtf8FromAnsi(const char* ansi, CQNObject** error);
QN_PLAIN_API char* qncAnsiFromUtf8(const char* utf8, CQNObject** error);

/* Whether size bytes are well-formed UTF-8: 1, or 0 with the offset of the first byte that is not
 * in *offset, when offset is not null. Null text is no bytes. */
QN_PLAIN_API int qncIsUtf8(const char* text, size_t size, size_t* offset);

#endif /* QUARNFC_C_BASE_H_ */
