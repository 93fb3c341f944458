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

// The calling thread's number in the system.
unsigned long ThreadNumber();

// Runs work(argument) to its end where there is stack for it: on the calling thread, or on another
// one where that has little left, because its stack has overflowed. One call at a time. (Off
// Windows on the calling thread: a handler of signals brings a stack of its own, and starts no
// threads.)
void RunWithStack(void (*work)(void* argument), void* argument);

// Writes a dump of this process to the file path, with info as what happened on a thread; or
// noInfoText when info is null.
void WriteDumpFile(_EXCEPTION_POINTERS* info, unsigned long thread, const char* path,
                   const char* noInfoText);

// Adds an entry to the system's event log.
void WriteEventLogEntry(const char* source, unsigned short type, const char* text);

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_DIAGNOSTICS_H_
