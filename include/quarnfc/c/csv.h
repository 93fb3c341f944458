/* SPDX-License-Identifier: MIT */
/* CSV files of the flat C interface (quarnfc.h in this folder says how everything works).
 *
 * The first row is the header. A file that starts with the UTF-8 mark EF BB BF is UTF-8 (what the
 * code page lacks becomes its replacement character); any other is text of the code page. Lines
 * have at most 409,600 bytes.
 *
 * Example:
 *   CQNObject* error = NULL;
 *   QncCsv* csv = qncCsvOpen("no such file.csv", &error);
 *   while (csv != NULL && qncCsvNextRow(csv, NULL) == 1) {
 *     char* name = qncCsvText(csv, 0, NULL);
 *     printf("%s\n", name);
 *     qnFreeMem(name);
 *   }
 *   qncErrorCode(error);                      // == QNC_ERROR_FILE
 *   qncCsvClose(csv);
 *   qnCloseHandle(error);
 */
#ifndef QUARNFC_C_CSV_H_
#define QUARNFC_C_CSV_H_

#include <quarnfc/c/base.h>

typedef struct QncCsv QncCsv;

/* Opens a file and reads its header; null when it cannot be opened or has no header. */
QN_PLAIN_API QncCsv* qncCsvOpen(const char* path, CQNObject** error);

QN_PLAIN_API void qncCsvClose(QncCsv* csv);

/* The number of header fields, and the one at index; null when there is none. */
QN_PLAIN_API int qncCsvHeaderCount(const QncCsv* csv);
QN_PLAIN_API char* qncCsvHeader(const QncCsv* csv, int index, CQNObject** error);

/* The index of the header field that is name; -1 when no field or more than one is. */
QN_PLAIN_API int qncCsvHeaderIndex(const QncCsv* csv, const char* name, CQNObject** error);

/* Reads the next row: 1, 0 at the end of the file, -1 on failure. Stop at the first that is not 1.
 */
QN_PLAIN_API int qncCsvNextRow(QncCsv* csv, CQNObject** error);

/* The number of fields of the row last read, and the one at index; null when there is none. */
QN_PLAIN_API int qncCsvCount(const QncCsv* csv);
QN_PLAIN_API char* qncCsvText(const QncCsv* csv, int index, CQNObject** error);
QN_PLAIN_API char* qncCsvTextA(const QncCsv* csv, int index, CQNObject** error);

/* Goes back in front of the first row behind the header: 1, or 0 on failure. */
QN_PLAIN_API int qncCsvRewind(QncCsv* csv, CQNObject** error);

#endif /* QUARNFC_C_CSV_H_ */
