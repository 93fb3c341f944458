// SPDX-License-Identifier: MIT
#include "qn/os.h"

#include <quarnfc/ext/utf8_text.h>

#if defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <shellapi.h>

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#else
#include <fcntl.h>
#include <iconv.h>
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

// Converts with a function that is called twice, the first time for the length.
template <class Text, class Convert>
std::optional<Text> Converted(Convert convert) {
  const int length = convert(nullptr, 0);
  if (length <= 0) return std::nullopt;
  Text text(static_cast<std::size_t>(length), typename Text::value_type());
  return convert(text.data(), length) == length ? std::optional(std::move(text)) : std::nullopt;
}

std::optional<std::wstring> Widen(unsigned code_page, std::string_view text, unsigned flags) {
  if (text.empty()) return std::wstring();
  return Converted<std::wstring>([&](wchar_t* wide, int count) {
    return MultiByteToWideChar(code_page, flags, text.data(), static_cast<int>(text.size()), wide,
                               count);
  });
}

std::wstring WidePath(const std::string& path) { return Widen(CP_UTF8, path, 0).value_or(L""); }

std::string Utf8FromWide(std::wstring_view wide) {
  std::string text;
  for (std::size_t i = 0; i < wide.size(); ++i) {
    char32_t ch = wide[i];
    const bool paired = ch >= 0xD800 && ch < 0xDC00 && i + 1 < wide.size() &&
                        wide[i + 1] >= 0xDC00 && wide[i + 1] < 0xE000;
    if (paired) ch = 0x10000 + ((ch - 0xD800) << 10) + (wide[++i] - 0xDC00u);
    quarnfc::ext::AppendUtf8(text, ch);
  }
  return text;
}

void WriteToConsole(FILE* stream, std::string_view text) {
  const std::wstring wide = Widen(CP_UTF8, text, 0).value_or(L"");
  std::fflush(stream);
  DWORD written = 0;
  WriteConsoleW(HandleOf(stream), wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
}

wchar_t interrupt_path[32768];

BOOL WINAPI RemoveInterrupted(DWORD /*event*/) {
  if (interrupt_path[0] != L'\0') {
    // The file is open, and can be renamed and deleted only after it has been closed.
    _fcloseall();
    DeleteFileW(interrupt_path);
  }
  return FALSE;
}

}  // namespace

void PrepareStreams() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
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
  std::optional<std::string> bytes = ToCodePage(text);
  if (!bytes) {
    if (!lossy) return false;
    const std::wstring wide = Widen(CP_UTF8, text, 0).value_or(L"");
    bytes = Converted<std::string>([&](char* to, int count) {
      return WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), to, count,
                                 nullptr, nullptr);
    });
  }
  if (bytes) std::fwrite(bytes->data(), 1, bytes->size(), stream);
  return true;
}

bool IsLeadByte(char byte) { return IsDBCSLeadByte(static_cast<BYTE>(byte)) != 0; }

std::optional<std::string> FromCodePage(std::string_view bytes) {
  const std::optional<std::wstring> wide = Widen(CP_ACP, bytes, MB_ERR_INVALID_CHARS);
  return wide ? std::optional(Utf8FromWide(*wide)) : std::nullopt;
}

std::optional<std::string> ToCodePage(std::string_view text) {
  if (text.empty()) return std::string();
  const std::optional<std::wstring> wide = Widen(CP_UTF8, text, MB_ERR_INVALID_CHARS);
  if (!wide) return std::nullopt;
  // For the code page UTF-8 the strict form of the function does not exist, and nothing is lost.
  if (GetACP() == CP_UTF8) return std::string(text);
  BOOL lost = FALSE;
  std::optional<std::string> bytes = Converted<std::string>([&](char* to, int count) {
    return WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide->data(),
                               static_cast<int>(wide->size()), to, count, nullptr, &lost);
  });
  return lost ? std::nullopt : bytes;
}

std::optional<std::string> LibraryPath(const std::string& path) { return ToCodePage(path); }

FILE* OpenFile(const std::string& path, const char* mode) {
  return _wfopen(WidePath(path).c_str(), Widen(CP_UTF8, mode, 0).value_or(L"rb").c_str());
}

unsigned long long FileSize(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!GetFileAttributesExW(WidePath(path).c_str(), GetFileExInfoStandard, &data)) return 0;
  return (static_cast<unsigned long long>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

bool IsSpecialFile(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(WidePath(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DEVICE) != 0;
}

std::string ResolveLinks(const std::string& path) { return path; }

FILE* CreateFileLike(const std::string& path, const std::string& /*like*/) {
  const int file = _wopen(WidePath(path).c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY,
                          _S_IREAD | _S_IWRITE);
  return file < 0 ? nullptr : _fdopen(file, "wb");
}

bool RenameOver(const std::string& from, const std::string& to) {
  return MoveFileExW(WidePath(from).c_str(), WidePath(to).c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}

void RemoveFile(const std::string& path) { _wremove(WidePath(path).c_str()); }

void RemoveOnInterrupt(const std::string& path) {
  const std::wstring wide = WidePath(path);
  if (wide.size() >= std::size(interrupt_path)) return;
  interrupt_path[wide.copy(interrupt_path, wide.size())] = L'\0';
  static const BOOL installed = SetConsoleCtrlHandler(RemoveInterrupted, TRUE);
  static_cast<void>(installed);
}

unsigned long ProcessId() { return GetCurrentProcessId(); }

bool LocalTime(long long seconds, std::tm& time) {
  const __time64_t value = seconds;
  return _localtime64_s(&time, &value) == 0;
}

long long SecondsOf(std::tm time) { return _mktime64(&time); }

#else

namespace {

std::optional<std::string> Converted(const char* to, const char* from, std::string_view text) {
  const iconv_t converter = iconv_open(to, from);
  if (converter == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
  // No character of either grows to more than three times its bytes.
  std::string result(text.size() * 3 + 1, '\0');
  char* in = const_cast<char*>(text.data());
  char* out = result.data();
  std::size_t in_left = text.size();
  std::size_t out_left = result.size();
  const bool whole = iconv(converter, &in, &in_left, &out, &out_left) == 0 && in_left == 0;
  iconv_close(converter);
  if (!whole) return std::nullopt;
  result.resize(result.size() - out_left);
  return result;
}

char interrupt_path[4096];

void RemoveInterrupted(int signal) {
  if (interrupt_path[0] != '\0') unlink(interrupt_path);
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

bool IsLeadByte(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 0x81 && value <= 0xFE;
}

std::optional<std::string> FromCodePage(std::string_view bytes) {
  return Converted("UTF-8", "CP936", bytes);
}

std::optional<std::string> ToCodePage(std::string_view text) {
  return Converted("CP936", "UTF-8", text);
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
  if (path.size() >= sizeof(interrupt_path)) return;
  std::memcpy(interrupt_path, path.c_str(), path.size() + 1);
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
