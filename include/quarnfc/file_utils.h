// SPDX-License-Identifier: MIT
// Files written so that they are whole or stay as they were.
//
// Errors: the functions return false and, when error is not null, store a new error handle there,
// released with qnCloseHandle; on success *error is not touched. Code 2 when the folder does not
// exist, otherwise 14; the message is "Quarn: Can't save %s, error: 0x%X" with the path and the
// system's error, also off Windows a number of Windows (0x70: the disk is full).
// Threads: different files may be written at the same time; two writers of one file each write it
// whole, and the last one stays.
//
// Implemented in io/file_utils.cpp.
//
// Example:
//   unsigned __int64 error = 0;
//   QNFileUtils::WriteFileAtomicA("no such folder/settings.json", "{}", 2, &error);    // == false
//   unsigned int code = 0;
//   qnFreeMem(qnGetErrorA(error, &code));
//   code;                                                                              // == 2u
//   qnCloseHandle(error);
#ifndef QUARNFC_FILE_UTILS_H_
#define QUARNFC_FILE_UTILS_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>

#include <cstddef>

namespace QNFileUtils {

// Replaces what a file holds by size bytes, or creates it. The bytes go to a temporary file in the
// same folder, are flushed to the disk, and the file is renamed: whoever opens the file meets the
// old contents or the new ones, and after a failure (no space, no right, no power) the old ones are
// all there. The temporary file is removed on failure; its name is that of the file with a number
// and ".tmp" behind it.
//
// path is in the process ANSI code page on Windows and in the host's own bytes elsewhere; null is
// refused, and so are folders, devices and, on Windows, files with the read-only attribute. A
// symbolic link stays, what it leads to is replaced. Off Windows the new file takes the permissions
// of the old one; on Windows those of the folder. A null data counts as no bytes.
QN_API bool WriteFileAtomicA(const char* path, const void* data, std::size_t size,
                             unsigned __int64* error);

// The same with a path in UTF-16, which names every file; off Windows it is opened in UTF-8.
QN_API bool WriteFileAtomicW(const wchar_t* path, const void* data, std::size_t size,
                             unsigned __int64* error);

}  // namespace QNFileUtils

#endif  // QUARNFC_FILE_UTILS_H_
