/* SPDX-License-Identifier: MIT */
/* Strict JSON (RFC 8259) in the flat C interface (quarnfc.h in this folder says how everything
 * works): UTF-8 throughout, never converted; numbers and escapes keep their spelling, and an edit
 * changes the bytes of one value alone. It stands beside QncJson, whose reader is lenient and whose
 * text has to fit into the code page.
 *
 * Pointers are those of RFC 6901: "" is the whole document, "/a/0" the first element of its member
 * a; "~1" stands for "/" and "~0" for "~". Of a key that occurs again the last one counts.
 *
 * Example:
 *   QncJsonText* document = qncJsonTextParse("{\"port\": 1.50}", 14, NULL, NULL);
 *   qncJsonTextReplace(document, "/port", "9090", NULL);    // == 1
 *   qncJsonTextAdd(document, "/hosts", "[]", NULL);         // == 1
 *   char* text = qncJsonTextWrite(document, NULL);
 *   text;    // == "{\"port\": 9090, \"hosts\": []}"
 *   qnFreeMem(text);
 *   qncJsonTextFree(document);
 */
#ifndef QUARNFC_C_JSON_TEXT_H_
#define QUARNFC_C_JSON_TEXT_H_

#include <quarnfc/c/base.h>
#include <quarnfc/c/json.h>

typedef struct QncJsonText QncJsonText;

/* Reads size bytes, without mark or terminator. Null when they are refused: the message has line,
 * column and reason, and *offset, when offset is not null, is the place in bytes. */
QN_PLAIN_API QncJsonText* qncJsonTextParse(const char* text, size_t size, size_t* offset,
                                           CQNObject** error);

QN_PLAIN_API void qncJsonTextFree(QncJsonText* document);

/* The whole document as it stands. */
QN_PLAIN_API char* qncJsonTextWrite(const QncJsonText* document, CQNObject** error);

/* The type of the value at pointer, one of QNC_JSON_...; -1 when there is no such value or an
 * argument is null. */
QN_PLAIN_API int qncJsonTextType(const QncJsonText* document, const char* pointer);

/* How many elements or members it has; 0 for anything else. */
QN_PLAIN_API int qncJsonTextCount(const QncJsonText* document, const char* pointer);

/* The value at pointer as it is written; null when there is none. */
QN_PLAIN_API char* qncJsonTextSource(const QncJsonText* document, const char* pointer,
                                     CQNObject** error);

/* The text of a string with its escapes resolved, of *size bytes when size is not null (it may hold
 * zeros); null when there is no string at pointer. */
QN_PLAIN_API char* qncJsonTextString(const QncJsonText* document, const char* pointer, size_t* size,
                                     CQNObject** error);

/* The nearest double. 0, with the output untouched, when there is no number at pointer or it is
 * beyond the range of doubles. */
QN_PLAIN_API int qncJsonTextNumber(const QncJsonText* document, const char* pointer,
                                   double* number);

/* Puts json, itself a strict JSON text, in the place of the value at pointer; every other byte
 * stays. 1, or 0, with the document unchanged, when there is no such value or json is refused. */
QN_PLAIN_API int qncJsonTextReplace(QncJsonText* document, const char* pointer, const char* json,
                                    CQNObject** error);

/* Adds json, itself a strict JSON text, where pointer leads, as RFC 6902 has it: the value of a new
 * key of an object; in an array an element before the one at an index, or behind the last at the
 * count and at "-". The value of a key that is there, and the whole document, are replaced. The
 * item takes the layout of those beside it; every other byte stays. 1, or 0, with the document
 * unchanged, when there is no object or array that pointer leads into, an index is beyond the
 * count, or json is refused. */
QN_PLAIN_API int qncJsonTextAdd(QncJsonText* document, const char* pointer, const char* json,
                                CQNObject** error);

/* Removes the member or element at pointer with one comma; of a key that occurs again every one.
 * Every other byte stays. 1, or 0, with the document unchanged, when there is no such value, and
 * for the whole document. */
QN_PLAIN_API int qncJsonTextRemove(QncJsonText* document, const char* pointer, CQNObject** error);

#endif /* QUARNFC_C_JSON_TEXT_H_ */
