// The functions of platform/windows/crt.h off Windows, with the same names and contracts.
#ifndef QUARNFC_PLATFORM_POSIX_CRT_H_
#define QUARNFC_PLATFORM_POSIX_CRT_H_

#include <cstdio>
#include <ctime>

// --- files ------------------------------------------------------------------------------------

constexpr int _SH_DENYNO = 0x40;

// Opens a file whose path is the host's own bytes; there is no sharing mode to set. As on Windows
// a folder is refused, and so is what has no contents to seek in (pipes, devices).
std::FILE* _fsopen(const char* path, const char* mode, int sharing);

int _fseeki64(std::FILE* file, long long offset, int origin);
long long _ftelli64(std::FILE* file);

// --- times ------------------------------------------------------------------------------------

typedef long long __time64_t;

__time64_t _time64(__time64_t* time);

// 0, or an errno value when there is no local time; the result is then unspecified.
int _localtime64_s(std::tm* local, const __time64_t* time);

// -1 when the time cannot be represented.
__time64_t _mktime64(std::tm* local);

#endif  // QUARNFC_PLATFORM_POSIX_CRT_H_
