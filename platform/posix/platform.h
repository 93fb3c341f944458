// The functions of platform/windows/platform.h off Windows, with the same names and contracts.
// The ANSI and the OEM code page are fixed at 936.
#ifndef QUARNFC_PLATFORM_POSIX_PLATFORM_H_
#define QUARNFC_PLATFORM_POSIX_PLATFORM_H_

#include <quarnfc/platform_types.h>

#include <pthread.h>

#include <cstddef>

// --- basic types ------------------------------------------------------------------------------

typedef int BOOL;
typedef unsigned int DWORD;
typedef unsigned int UINT;
typedef const char* LPCSTR;
typedef char* LPSTR;
typedef const wchar_t* LPCWSTR;
typedef wchar_t* LPWSTR;
typedef wchar_t OLECHAR;

constexpr UINT CP_ACP = 0;
constexpr UINT CP_UTF8 = 65001;

constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
constexpr DWORD ERROR_TOO_MANY_OPEN_FILES = 4;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_WRITE_PROTECT = 19;
constexpr DWORD ERROR_GEN_FAILURE = 31;
constexpr DWORD ERROR_SHARING_VIOLATION = 32;
constexpr DWORD ERROR_FILE_EXISTS = 80;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_BROKEN_PIPE = 109;
constexpr DWORD ERROR_DISK_FULL = 112;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_DIR_NOT_EMPTY = 145;
constexpr DWORD ERROR_FILENAME_EXCED_RANGE = 206;
constexpr DWORD ERROR_FILE_TOO_LARGE = 223;
constexpr DWORD ERROR_INVALID_FLAGS = 1004;
constexpr DWORD ERROR_IO_DEVICE = 1117;

// --- critical sections (recursive locks) ------------------------------------------------------

struct CRITICAL_SECTION {
  pthread_mutex_t mutex;
};

void InitializeCriticalSection(CRITICAL_SECTION* section);
void EnterCriticalSection(CRITICAL_SECTION* section);
void LeaveCriticalSection(CRITICAL_SECTION* section);
void DeleteCriticalSection(CRITICAL_SECTION* section);

// --- code-page conversion: CP_ACP (936) and CP_UTF8, flags 0, no default character ------------

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR source, int sourceLength,
                        LPWSTR destination, int capacity);
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR source, int sourceLength,
                        LPSTR destination, int capacity, LPCSTR defaultChar, BOOL* usedDefault);

// ANSI and OEM are the same code page here, so both copy.
BOOL CharToOemA(LPCSTR source, LPSTR destination);
BOOL OemToCharA(LPCSTR source, LPSTR destination);

// Upper case of UTF-16 text in place; returns length.
DWORD CharUpperBuffW(LPWSTR text, DWORD length);

// --- multibyte run-time functions, code page 936; the others are in core/text/multibyte.h ------

inline int _ismbblead(unsigned int byte) { return byte % 0x100 >= 0x81 && byte % 0x100 <= 0xFE; }
int _ismbcspace(unsigned int ch);
int _mbscoll(const unsigned char* left, const unsigned char* right);
int _mbsicoll(const unsigned char* left, const unsigned char* right);

// --- system strings ---------------------------------------------------------------------------

// SysStringLen and SysFreeString, which hosts call too, are declared in platform_types.h.
BSTR SysAllocStringLen(const OLECHAR* source, UINT length);
int SysReAllocStringLen(BSTR* string, const OLECHAR* source, UINT length);

// --- debugger output and last error -----------------------------------------------------------

void OutputDebugStringA(LPCSTR text);

// The Windows error of this thread's last failure: the one set with SetLastError, or the one that
// corresponds to errno when a function of the C library has failed since (ERROR_GEN_FAILURE when
// none does).
DWORD GetLastError();
void SetLastError(DWORD error);

#endif  // QUARNFC_PLATFORM_POSIX_PLATFORM_H_
