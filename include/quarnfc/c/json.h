/* SPDX-License-Identifier: MIT */
/* JSON documents of the flat C interface (quarnfc.h in this folder says how everything works).
 *
 * A QncJson is one value: null, a text, a number, a flag, an array or an object. Those made by
 * qncJsonParse..., qncJsonReadFile and qncJsonNew... belong to the caller and own everything below
 * them; those that qncJsonAt and qncJsonFind return are borrowed and end when the value above them
 * changes or is released.
 *
 * The grammar is the library's: lenient about commas; \u escapes are not decoded; numbers are
 * doubles and are written with at most 15 decimals. Keys keep their order and may occur twice. A
 * path is keys separated by one backslash each; keys compare exactly.
 *
 * Implemented in c/json_document.cpp, c/json_reading.cpp and c/json_changing.cpp.
 *
 * Example:
 *   QncJson* settings = qncJsonParse("{\"server\":{\"port\":8080}}", NULL);
 *   double port = 80;
 *   qncJsonNumber(qncJsonFind(settings, "server\\port"), &port);    // == 1
 *   port;                                                           // == 8080.0
 *   qncJsonSetText(settings, "server\\host", "maps.example", NULL); // == 1
 *   char* text = qncJsonWrite(settings, 0, NULL);
 *   text;    // == "{\"server\":{\"port\":8080,\"host\":\"maps.example\"}}"
 *   qnFreeMem(text);
 *   qncJsonFree(settings);
 */
#ifndef QUARNFC_C_JSON_H_
#define QUARNFC_C_JSON_H_

#include <quarnfc/c/base.h>

typedef struct QncJson QncJson;

enum {
  QNC_JSON_NULL = 0,
  QNC_JSON_TEXT = 1,
  QNC_JSON_NUMBER = 2,
  QNC_JSON_ARRAY = 3,
  QNC_JSON_BOOL = 4,
  QNC_JSON_OBJECT = 5
};

/* --- documents ----------------------------------------------------------------------------- */

/* The value that a text holds; null when it cannot be read. */
QN_PLAIN_API QncJson* qncJsonParse(const char* text, CQNObject** error);
QN_PLAIN_API QncJson* qncJsonParseA(const char* text, CQNObject** error);

/* The value that size bytes of strict JSON (RFC 8259) hold, with a mark EF BB BF in front or
 * without; \u escapes are decoded. Null when they are refused, also for what a document cannot
 * hold: characters that the code page lacks, zero characters, numbers beyond the range of doubles,
 * keys that occur twice in an object. The message then has line, column and reason, and *offset,
 * when offset is not null, is the place in bytes. */
QN_PLAIN_API QncJson* qncJsonLoadStrict(const char* text, size_t size, size_t* offset,
                                        CQNObject** error);

/* The value in a file of 11 to 52,428,800 bytes: UTF-8 behind the mark EF BB BF, otherwise text of
 * the code page. (What UTF-8 the code page lacks becomes its replacement character there.) */
QN_PLAIN_API QncJson* qncJsonReadFile(const char* path, CQNObject** error);

/* Writes a file, indented: UTF-8 with the mark when utf8 is not 0, else text of the code page. 1,
 * or 0 when the file cannot be opened. */
QN_PLAIN_API int qncJsonSaveFile(const QncJson* value, const char* path, int utf8,
                                 CQNObject** error);

/* An empty object; an empty array. */
QN_PLAIN_API QncJson* qncJsonNewObject(CQNObject** error);
QN_PLAIN_API QncJson* qncJsonNewArray(CQNObject** error);

QN_PLAIN_API void qncJsonFree(QncJson* value);

/* The value as JSON text: in lines with tabs when indent is not 0. A null value gives "". */
QN_PLAIN_API char* qncJsonWrite(const QncJson* value, int indent, CQNObject** error);
QN_PLAIN_API char* qncJsonWriteA(const QncJson* value, int indent, CQNObject** error);

/* The value as strict JSON: numbers in the shortest form that reads back as the same double,
 * escapes where RFC 8259 wants them; in lines with two blanks a level when indent is not 0. Null
 * for what JSON cannot say: not-a-number, infinities, bytes that are no text of the code page. */
QN_PLAIN_API char* qncJsonWriteStrict(const QncJson* value, int indent, CQNObject** error);

/* --- reading: null arguments read as a null value ----------------------------------------- */

/* One of QNC_JSON_... */
QN_PLAIN_API int qncJsonType(const QncJson* value);

/* How many elements an array, or members an object has; 0 for anything else. */
QN_PLAIN_API int qncJsonCount(const QncJson* value);

/* The element, or the value of the member, at index; null when there is none. Borrowed. */
QN_PLAIN_API QncJson* qncJsonAt(const QncJson* value, int index);

/* The key of the member at index; null when there is none. */
QN_PLAIN_API char* qncJsonKey(const QncJson* value, int index, CQNObject** error);

/* The value at path below an object; null when there is none. Borrowed. */
QN_PLAIN_API QncJson* qncJsonFind(const QncJson* object, const char* path);

/* The value at a place below any value; null when there is none. Borrowed. A place is a JSON
 * pointer (RFC 6901), "/servers/2/port", or a path with elements in brackets, "servers[2]\port"; ""
 * is the value itself. */
QN_PLAIN_API QncJson* qncJsonFindValue(const QncJson* value, const char* place);

/* The content; null, or 0 with the output untouched, for a value of another type. */
QN_PLAIN_API char* qncJsonText(const QncJson* value, CQNObject** error);
QN_PLAIN_API int qncJsonNumber(const QncJson* value, double* number);
QN_PLAIN_API int qncJsonBool(const QncJson* value, int* flag);

/* --- changing objects: 1, or 0 when there is no object or a member on the way is none -------- */

/* Set the member at path, which is added with the objects on the way when it is missing. A null
 * text is a null value. qncJsonSetValue stores a copy of value. */
QN_PLAIN_API int qncJsonSetText(QncJson* object, const char* path, const char* text,
                                CQNObject** error);
QN_PLAIN_API int qncJsonSetNumber(QncJson* object, const char* path, double number,
                                  CQNObject** error);
QN_PLAIN_API int qncJsonSetBool(QncJson* object, const char* path, int flag, CQNObject** error);
QN_PLAIN_API int qncJsonSetNull(QncJson* object, const char* path, CQNObject** error);
QN_PLAIN_API int qncJsonSetValue(QncJson* object, const char* path, const QncJson* value,
                                 CQNObject** error);

/* Removes the member key (no path), if there is one. */
QN_PLAIN_API int qncJsonRemove(QncJson* object, const char* key, CQNObject** error);

/* --- changing arrays: 1, or 0 when there is no array or its first element has another type --- */

/* Append one element. qncJsonAppendValue appends a copy; of an array, its elements one by one. */
QN_PLAIN_API int qncJsonAppendText(QncJson* array, const char* text, CQNObject** error);
QN_PLAIN_API int qncJsonAppendNumber(QncJson* array, double number, CQNObject** error);
QN_PLAIN_API int qncJsonAppendBool(QncJson* array, int flag, CQNObject** error);
QN_PLAIN_API int qncJsonAppendValue(QncJson* array, const QncJson* value, CQNObject** error);

#endif /* QUARNFC_C_JSON_H_ */
