// What qn needs from the operating system. os.cpp is the only file of qn that differs between
// platforms.
#ifndef QN_OS_H_
#define QN_OS_H_

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace qn::os {

// Standard input and output carry bytes: no line-end translation.
void PrepareStreams();

bool IsTerminal(FILE* stream);

// Writes library text as the stream's reader expects it; see console.h.
void WriteText(FILE* stream, std::string_view text);

// A command-line argument in the process ANSI code page. What cannot be converted becomes "?" when
// lossy, and makes the result empty otherwise.
std::optional<std::string> AnsiFromArgument(std::string_view argument, bool lossy);

// Whether path names something that exists and is no regular file: a device, a pipe.
bool IsSpecialFile(const std::string& path);

// The file that path stands for, symbolic links followed; path itself where there is none.
std::string ResolveLinks(const std::string& path);

// Creates a file that must not exist yet, for binary writing, with the access rights of the file
// `like` where that exists. Null when it cannot be created.
FILE* CreateFileLike(const std::string& path, const std::string& like);

// Renames a file, replacing the target in one step.
bool RenameOver(const std::string& from, const std::string& to);

unsigned long ProcessId();

}  // namespace qn::os

#endif  // QN_OS_H_
