// SPDX-License-Identifier: MIT
#include "qn/os.h"

#include <quarnfc/ext/text_conversion.h>

#include "qn/exit_code.h"

#include <atomic>

#if defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <shellapi.h>

#include <fcntl.h>
#include <io.h>

#include <cerrno>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#endif

namespace qn::os {

#if defined(_WIN32)

#if defined(__MINGW32__)
// Arguments are taken as they are: the run-time library does not expand wildcards in them.
extern "C" int _dowildcard;
int _dowildcard = 0;
#endif

namespace {

HANDLE HandleOf(FILE* stream) { return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))); }

// qn's own text, which is UTF-8, for the system.
std::wstring Widen(std::string_view text) {
  const std::u16string utf16 = quarnfc::ext::Utf16FromUtf8(text);
  return {utf16.begin(), utf16.end()};
}

std::string Utf8FromWide(const wchar_t* text) {
  return quarnfc::ext::Utf8FromUtf16(quarnfc::ext::Utf16View(text));
}

void WriteToConsole(FILE* stream, std::string_view text) {
  const std::wstring wide = Widen(text);
  std::fflush(stream);
  DWORD written = 0;
  WriteConsoleW(HandleOf(stream), wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
}

// The path is whole as long as it is armed: half of one may be the name of another file.
wchar_t interrupt_path[32768];
std::atomic<bool> interrupt_armed{false};

// Runs on a thread of its own, beside the one that writes.
BOOL WINAPI EndInterrupted(DWORD event) {
  if (interrupt_armed) DeleteFileW(interrupt_path);
  if (event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT) ExitProcess(kInterrupted);
  return FALSE;
}

}  // namespace

void PrepareStreams() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  SetConsoleCtrlHandler(EndInterrupted, TRUE);
}

std::vector<std::string> Arguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  LPWSTR* const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; wide != nullptr && i < count; ++i) arguments.push_back(Utf8FromWide(wide[i]));
  LocalFree(wide);
  return arguments;
}

bool IsTerminal(FILE* stream) {
  DWORD mode = 0;
  return GetConsoleMode(HandleOf(stream), &mode) != 0;
}

bool WriteText(FILE* stream, std::string_view text, bool lossy) {
  if (IsTerminal(stream)) {
    WriteToConsole(stream, text);
    return true;
  }
  std::optional<std::string> bytes = quarnfc::ext::StrictAnsiFromUtf8(text);
  if (!bytes) {
    if (!lossy) return false;
    bytes = quarnfc::ext::AnsiFromUtf8(text);
  }
  std::fwrite(bytes->data(), 1, bytes->size(), stream);
  return true;
}

std::optional<std::string> LibraryPath(const std::string& path) {
  return quarnfc::ext::StrictAnsiFromUtf8(path);
}

FILE* OpenFile(const std::string& path, const char* mode) {
  return _wfopen(Widen(path).c_str(), Widen(mode).c_str());
}

unsigned long long FileSize(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!GetFileAttributesExW(Widen(path).c_str(), GetFileExInfoStandard, &data)) return 0;
  return (static_cast<unsigned long long>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

bool IsSpecialFile(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(Widen(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DEVICE) != 0;
}

std::string ResolveLinks(const std::string& path) { return path; }

namespace {

int ErrnoOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
      return ENOENT;
    case ERROR_FILE_EXISTS:
      return EEXIST;
    case ERROR_DISK_FULL:
      return ENOSPC;
    default:
      return EACCES;
  }
}

}  // namespace

// Deleting is shared, so that an interrupt can remove the file while it is written.
FILE* CreateFileLike(const std::string& path, const std::string& /*like*/) {
  const HANDLE handle =
      CreateFileW(Widen(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                  CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    errno = ErrnoOf(GetLastError());
    return nullptr;
  }
  const int file = _open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_WRONLY | _O_BINARY);
  return file < 0 ? nullptr : _fdopen(file, "wb");
}

bool RenameOver(const std::string& from, const std::string& to) {
  return MoveFileExW(Widen(from).c_str(), Widen(to).c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}

void RemoveFile(const std::string& path) { _wremove(Widen(path).c_str()); }

void RemoveOnInterrupt(const std::string& path) {
  const std::wstring wide = Widen(path);
  interrupt_armed = false;
  if (wide.empty() || wide.size() >= std::size(interrupt_path)) return;
  interrupt_path[wide.copy(interrupt_path, wide.size())] = L'\0';
  interrupt_armed = true;
}

unsigned long ProcessId() { return GetCurrentProcessId(); }

bool LocalTime(long long seconds, std::tm& time) {
  const __time64_t value = seconds;
  return _localtime64_s(&time, &value) == 0;
}

long long SecondsOf(std::tm time) { return _mktime64(&time); }

#else

namespace {

// The path is whole as long as it is armed: half of one may be the name of another file.
char interrupt_path[4096];
std::atomic<bool> interrupt_armed{false};

void RemoveInterrupted(int signal) {
  if (interrupt_armed) unlink(interrupt_path);
  // The parent learns of the signal; shells call SIGINT 130.
  std::signal(signal, SIG_DFL);
  raise(signal);
}

bool InstallHandlers() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    if (std::signal(signal, RemoveInterrupted) == SIG_IGN) std::signal(signal, SIG_IGN);
  }
  return true;
}

}  // namespace

void PrepareStreams() {}

std::vector<std::string> Arguments(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

bool IsTerminal(FILE* stream) { return isatty(fileno(stream)) != 0; }

bool WriteText(FILE* stream, std::string_view text, bool /*lossy*/) {
  std::fwrite(text.data(), 1, text.size(), stream);
  return true;
}

std::optional<std::string> LibraryPath(const std::string& path) { return path; }

FILE* OpenFile(const std::string& path, const char* mode) { return std::fopen(path.c_str(), mode); }

unsigned long long FileSize(const std::string& path) {
  struct stat status;
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return 0;
  return static_cast<unsigned long long>(status.st_size);
}

bool IsSpecialFile(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

std::string ResolveLinks(const std::string& path) {
  char* resolved = realpath(path.c_str(), nullptr);
  const std::string result = resolved == nullptr ? path : resolved;
  std::free(resolved);
  return result;
}

FILE* CreateFileLike(const std::string& path, const std::string& like) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (file < 0) return nullptr;
  struct stat status;
  if (stat(like.c_str(), &status) == 0) fchmod(file, status.st_mode & 07777);
  return fdopen(file, "wb");
}

bool RenameOver(const std::string& from, const std::string& to) {
  return rename(from.c_str(), to.c_str()) == 0;
}

void RemoveFile(const std::string& path) { std::remove(path.c_str()); }

void RemoveOnInterrupt(const std::string& path) {
  interrupt_armed = false;
  if (path.empty() || path.size() >= sizeof(interrupt_path)) return;
  std::memcpy(interrupt_path, path.c_str(), path.size() + 1);
  interrupt_armed = true;
  static const bool installed = InstallHandlers();
  static_cast<void>(installed);
}

unsigned long ProcessId() { return static_cast<unsigned long>(getpid()); }

bool LocalTime(long long seconds, std::tm& time) {
  const std::time_t value = seconds;
  return localtime_r(&value, &time) != nullptr;
}

long long SecondsOf(std::tm time) { return mktime(&time); }

#endif

}  // namespace qn::os
