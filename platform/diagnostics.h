// SPDX-License-Identifier: MIT
// Crash dumps and event-log entries: the parts that differ between Windows and elsewhere.
//
// All functions are called from crash handlers: none of them throws or takes memory from the heap
// itself. 8-bit text is in the process ANSI code page, paths are as the host's file functions take
// them.
#ifndef QUARNFC_PLATFORM_DIAGNOSTICS_H_
#define QUARNFC_PLATFORM_DIAGNOSTICS_H_

#include <quarnfc/platform_types.h>

#include <cstddef>

namespace quarnfc::platform {

// The character between a folder and what is in it.
extern const char kFolderSeparator;

// Stores the full path of the folder that holds the library, with the separator at its end. False
// when the path of the library's own file does not fit or cannot be had.
bool FindLibraryFolder(char* folder, std::size_t capacity);

// Creates a folder; an existing one and a failure are fine.
void MakeFolder(const char* path);

// Writes a dump of this process with info to the file path, or noInfoText when info is null.
void WriteDumpFile(_EXCEPTION_POINTERS* info, const char* path, const char* noInfoText);

// Adds an entry to the system's event log.
void WriteEventLogEntry(const char* source, unsigned short type, const char* text);

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_DIAGNOSTICS_H_
