// SPDX-License-Identifier: MIT
// Platform types that appear in signatures of this library, declared forward so that a host may
// include the platform's own headers before or after these, or not at all, and sees one type.
//
// Off Windows the system strings are implemented in platform/posix.
//
// Example:
//   BSTR text = CQNString("abc").AllocSysString();
//   SysStringLen(text);     // == 3u
//   SysFreeString(text);
#ifndef QUARNFC_PLATFORM_TYPES_H_
#define QUARNFC_PLATFORM_TYPES_H_

#include <quarnfc/export.h>

// Wide text is UTF-16 on every target. Off Windows the CMake target QuarnFC::QuarnFC carries the
// compile option that makes wchar_t 16 bits wide.
static_assert(sizeof(wchar_t) == 2, "compile with -fshort-wchar, as QuarnFC::QuarnFC asks");

#if !defined(_WIN32) && !defined(__int64)
// The Windows spelling of 64-bit integers, so that one host source serves both targets.
#define __int64 long long
#endif

// What the functions take by address. A host that fills them in includes the platform's header.
struct _SYSTEMTIME;
struct _INTERNET_BUFFERSA;
struct _EXCEPTION_POINTERS;

// The platform's 32-bit number. It is unsigned long where that has 32 bits, which is what
// signatures on Windows have always said, and unsigned int elsewhere: numbers, lengths and flags
// that hosts hand to the HTTP client have four bytes on every target.
#if defined(_WIN32)
typedef unsigned long DWORD;
#else
typedef unsigned int DWORD;
#endif
static_assert(sizeof(DWORD) == 4, "numbers of the platform have 32 bits");

typedef wchar_t* BSTR;    // a system string, released with SysFreeString
typedef void* HINTERNET;  // a handle of the platform's internet API
typedef struct _SYSTEMTIME SYSTEMTIME;
typedef struct _INTERNET_BUFFERSA INTERNET_BUFFERSA;

namespace quarnfc {
// The room of a lock of the platform in objects that hold one, in bytes.
#if defined(_WIN32) || defined(__x86_64__)
inline constexpr unsigned int kLockSize = 40;
#else
inline constexpr unsigned int kLockSize = 48;
#endif
}  // namespace quarnfc

#if !defined(_WIN32)
// Whether the library supplies the internet functions (quarnfc/internet_api.h); where this is not
// defined, <wininet.h> does.
#define QUARNFC_SUPPLIES_INTERNET_API 1

// What a host does with a system string; on Windows these are the platform's own.

// The length in UTF-16 units without the terminator; 0 for null.
QN_PLAIN_API unsigned int SysStringLen(BSTR string);

// Releases string; null does nothing.
QN_PLAIN_API void SysFreeString(BSTR string);
#endif

#endif  // QUARNFC_PLATFORM_TYPES_H_
