// SPDX-License-Identifier: MIT
// Reading and saving JSON files.
//
// A file is JSON text in the process ANSI code page, or UTF-8 behind the mark EF BB BF. Without the
// mark UTF-8 is taken for ANSI text. Files of 11 to 52,428,800 bytes are read; shorter ones, such
// as one that holds just "{}", are refused, deliberately. A zero byte ends the text.
//
// Paths are in the process ANSI code page.
//
// Errors: the functions return false and, when error is not null, store a new error handle there,
// released with qnCloseHandle; on success *error is not touched. Codes and messages:
//   2   the file or its folder does not exist   "Quarn: Can't open %s, error: 0x%X"
//   14  the file cannot be opened for reading   "Quarn: Can't open %s, error: 0x%X"
//   14  the file cannot be opened for writing   "Quarn: Can't save %s, error: 0x%X"
//   5   its length is out of range              "Quarn: %s file length is invalid"
//   5   its text cannot be read                 the reader's message
// All but the last also go to the debugger output. The number is the system's error.
//
// Start the handle with 0 and close it in every case: on success it is still 0.
//
// Threads: there is no shared state; different files and targets may be used at the same time.
//
// Implemented in json/files.cpp.
//
// Example:
//   CMyJsonObj settings;
//   unsigned __int64 error = 0;
//   QNJsonUtils::ReadJsonFile("no such folder\\settings.json", settings, &error);    // == false
//   unsigned int code = 0;
//   char* message = qnGetErrorA(error, &code);
//   code;                                                                            // == 2u
//   qnFreeMem(message);
//   qnCloseHandle(error);
#ifndef QUARNFC_JSON_FILES_H_
#define QUARNFC_JSON_FILES_H_

#include <quarnfc/export.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/platform_types.h>

namespace QNJsonUtils {

// Reads a file into obj. When the file cannot be opened or its length is refused, obj stays as it
// is; when its text cannot be read, obj is empty and the error's message is obj.GetErrMsg().
QN_API bool ReadJsonFile(const char* path, CMyJsonObj& obj, unsigned __int64* error);

// Reads a file into value, which is left as by CMyJsonValue::Load when the text cannot be read. The
// message of that error is the reader's behind the Chinese words for "invalid JSON,", deliberately
// unlike ReadJsonFile.
QN_API bool ReadJsonFileEx(const char* path, CMyJsonValue& value, unsigned __int64* error);

// Writes obj indented, in the ANSI code page, over whatever the file held. A failure to write, once
// the file is open, is not reported.
QN_API bool SaveJsonFile(const char* path, const CMyJsonObj& obj, unsigned __int64* error);

// Writes value indented; with utf8 true as UTF-8 with the mark, else in the ANSI code page. A bare
// number does not read back: the reader wants something behind it.
QN_API bool SaveJsonFileEx(const char* path, const CMyJsonValue& value, bool utf8,
                           unsigned __int64* error);

}  // namespace QNJsonUtils

#endif  // QUARNFC_JSON_FILES_H_
