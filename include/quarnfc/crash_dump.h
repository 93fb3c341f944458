// SPDX-License-Identifier: MIT
// Crash dumps beside the library and entries in the system's event log.
//
// A host calls these from its unhandled-exception filter or wherever it wants a trace left behind.
// All of them are best effort: every failure is silent, and nothing is returned. Texts are in the
// process ANSI code page; null counts as the empty text. The functions use fixed buffers on the
// stack only, so that they do not depend on a heap that may be damaged; what the system does
// underneath is its own affair.
//
// A thread whose stack has overflowed leaves a dump as well, if its handler has stack to run on. On
// Windows that is what the thread asked for with SetThreadStackGuarantee (32 KiB are enough); where
// less than 128 KiB are left, the dump is written on a thread made for it. Off Windows the handler
// runs on the stack given to sigaltstack (64 KiB are enough).
//
// Off Windows a dump is a short text record under the same name: process, thread, local time, the
// address in info and the call stack of the calling thread. Event-log entries go to syslog, in
// UTF-8, with the source as the text's first word.
//
// Threads: any thread may call; dumps are written one at a time. Two dumps with the same prefix and
// info within one second have the same name, and the later one replaces the earlier.
//
// Implemented in core/diagnostics: crash_dump.cpp and event_log.cpp.
//
// Example:
//   // In the filter a Windows host gives to SetUnhandledExceptionFilter, with its info:
//   _EXCEPTION_POINTERS* info = nullptr;
//   QNErrorUtils::DbgDumpErrorFileEx(info, "MapServer");
//   QNErrorUtils::WriteWindowsLog(1, "MapServer stopped; a dump is beside QuarnFC.dll.");
#ifndef QUARNFC_CRASH_DUMP_H_
#define QUARNFC_CRASH_DUMP_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>

namespace QNErrorUtils {

// Writes a dump into the folder "log" beside the library, which is created when it is missing. The
// file is named after the local time, without padding and without a year:
//
//   <prefix><month>_<day>_<hour>_<minute>_<second>(0x<address>).dmp
//
// where address is the low half of the pointer info itself, in upper-case hexadecimal (it is not
// the exception code, deliberately); "error.dmp" when the local time cannot be had. The file stays
// in the folder: "_" takes the place of control characters, slashes, backslashes and colons in the
// prefix.
QN_API void DbgDumpErrorFileEx(_EXCEPTION_POINTERS* info, const char* prefix);

// Writes a dump of the process to the file path, replacing what is there: a minidump of the normal
// type with the exception in info and the calling thread as the faulting one. Without info (null)
// the file holds the 27 bytes "_EXCEPTION_POINTERS is null" instead.
//
// No file is made when the system's debug-help library cannot be loaded.
QN_API void DbgDumpErrorFile(_EXCEPTION_POINTERS* info, const char* path);

// Adds an entry with the source "Quarn" to the application event log. type is the platform's event
// type (1 error, 2 warning, 4 information ...), passed on as it is. The source has no message
// file: the event viewer shows text among its own words. Windows takes texts of at most 31,839
// characters; a longer one is not entered.
QN_API void WriteWindowsLog(unsigned short type, const char* text);

}  // namespace QNErrorUtils

#endif  // QUARNFC_CRASH_DUMP_H_
