// SPDX-License-Identifier: MIT
// What the two targets' file functions need of their C library; for platform/file.cpp alone.
#ifndef QUARNFC_PLATFORM_C_STREAM_H_
#define QUARNFC_PLATFORM_C_STREAM_H_

#include <cstdint>
#include <cstdio>

#include "platform/file.h"

namespace quarnfc::platform {

// Null, with its error, when the file cannot be opened; path is not null.
std::FILE* OpenStream(const char* path, FileMode mode, SystemError& error);

// As fseek and ftell, with 64 bits.
bool SeekStream(std::FILE* stream, std::int64_t offset, int origin);
std::int64_t TellStream(std::FILE* stream);

// The system's error of the stream function that has just failed on this thread.
SystemError StreamError();

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_C_STREAM_H_
