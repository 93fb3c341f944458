/* SPDX-License-Identifier: MIT */
/* CSV with options in the flat C interface (quarnfc.h in this folder says how everything works):
 * any delimiter, line ends inside quotes (RFC 4180), rows of up to 16 MiB, and fields that are
 * never converted unless the caller names or leaves open an encoding. It stands beside QncCsv,
 * which knows commas, ends a field with its line and keeps text in the code page.
 *
 * Example:
 *   QncCsvText* csv = qncCsvTextFromMemory("1;\"a;b\"\n", 8, ';', NULL);
 *   qncCsvTextNextRow(csv, NULL);             // == 1
 *   qncCsvTextField(csv, 1, NULL);            // == "a;b"
 *   qncCsvTextClose(csv);
 */
#ifndef QUARNFC_C_CSV_TEXT_H_
#define QUARNFC_C_CSV_TEXT_H_

#include <quarnfc/c/base.h>

typedef struct QncCsvText QncCsvText;

/* Opens a file whose fields are separated by delimiter, a byte such as ',', ';' or '\t'. It is read
 * piece by piece. A mark EF BB BF at its start is passed over; there is no header row. */
QN_PLAIN_API QncCsvText* qncCsvTextOpen(const char* path, char delimiter, CQNObject** error);

/* The same for a file in an encoding of encoded_text.h, QNC_ENCODING_ANY for the one that is found
 * in it; any other number is an argument error. Fields are in UTF-8; the first byte that begins no
 * character ends the rows with an error in the place of the row that it is in. */
QN_PLAIN_API QncCsvText* qncCsvTextOpenEncoded(const char* path, char delimiter, int encoding,
                                               CQNObject** error);

/* The same over size bytes in memory, which are copied. */
QN_PLAIN_API QncCsvText* qncCsvTextFromMemory(const char* text, size_t size, char delimiter,
                                              CQNObject** error);

QN_PLAIN_API void qncCsvTextClose(QncCsvText* csv);

/* Reads the next row: 1, 0 at the end, -1 when a row cannot be read (a quote that is not closed, a
 * row that is too long, an error of the file). Stop at the first that is not 1. */
QN_PLAIN_API int qncCsvTextNextRow(QncCsvText* csv, CQNObject** error);

/* The line, from 1, in which the row last read starts; 0 before there is one. */
QN_PLAIN_API size_t qncCsvTextLine(const QncCsvText* csv);

/* The number of fields of the row last read, and the one at index: its bytes as they stand in the
 * file, or in UTF-8 when it was opened in an encoding, of *size bytes when size is not null. Null
 * when there is none. Borrowed until the next row.
 */
QN_PLAIN_API int qncCsvTextCount(const QncCsvText* csv);
QN_PLAIN_API const char* qncCsvTextField(const QncCsvText* csv, int index, size_t* size);

/* The index of the field of the row last read, such as the header, that is name byte for byte; -1
 * when no field or more than one is. */
QN_PLAIN_API int qncCsvTextFieldIndex(const QncCsvText* csv, const char* name, CQNObject** error);

/* A row of count texts, without line end, quoted where reading it back needs quotes. */
QN_PLAIN_API char* qncCsvTextWriteRow(const char* const* fields, size_t count, char delimiter,
                                      CQNObject** error);

#endif /* QUARNFC_C_CSV_TEXT_H_ */
