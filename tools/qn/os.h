// SPDX-License-Identifier: MIT
// What qn needs from the operating system. os.cpp is the only file of qn that differs between
// platforms. Text and paths are UTF-8 on every platform; the code page is the process ANSI code
// page, which is 936 off Windows, as the library has it.
#ifndef QN_OS_H_
#define QN_OS_H_

#include <cstdio>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qn::os {

// Standard input and output carry bytes: no line-end translation. From now on an interrupt (Ctrl-C)
// ends the program with kInterrupted, off Windows by the signal, which shells report so.
void PrepareStreams();

// The command line without the program's name. On Windows it comes as wide text, so that no
// character is lost on the way.
std::vector<std::string> Arguments(int argc, char** argv);

bool IsTerminal(FILE* stream);

// Writes text as the stream's reader expects it; see console.h. False, and nothing written, when
// the text holds a character that the stream cannot carry and lossy is false.
bool WriteText(FILE* stream, std::string_view text, bool lossy);

// --- files --------------------------------------------------------------------------------------

// A path as the library's own functions take it: in the code page on Windows, as it is elsewhere.
// Nothing when it holds a character that the code page lacks.
std::optional<std::string> LibraryPath(const std::string& path);

// fopen.
FILE* OpenFile(const std::string& path, const char* mode);

// The size in bytes; 0 where there is none, as for a pipe.
unsigned long long FileSize(const std::string& path);

// Whether path names something that exists and is no regular file: a device, a pipe.
bool IsSpecialFile(const std::string& path);

// The file that path stands for, symbolic links followed; path itself where there is none.
std::string ResolveLinks(const std::string& path);

// Creates a file that must not exist yet, for binary writing, with the access rights of the file
// `like` where that exists. Null when it cannot be created.
FILE* CreateFileLike(const std::string& path, const std::string& like);

// Renames a file, replacing the target in one step.
bool RenameOver(const std::string& from, const std::string& to);

void RemoveFile(const std::string& path);

// The file that is removed when the user interrupts the program; "" for none.
void RemoveOnInterrupt(const std::string& path);

unsigned long ProcessId();

// --- time ---------------------------------------------------------------------------------------

// Seconds since 1970-01-01 00:00:00 UTC as local time; false when the platform cannot say.
bool LocalTime(long long seconds, std::tm& time);

// The way back; -1 when there is no such time. Members out of their range are carried over.
long long SecondsOf(std::tm time);

}  // namespace qn::os

#endif  // QN_OS_H_
