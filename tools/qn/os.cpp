#include "os.h"

#if defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <vector>
#else
#include <fcntl.h>
#include <iconv.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
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

bool IsConsole(FILE* stream) {
  DWORD mode = 0;
  return GetConsoleMode(HandleOf(stream), &mode) != 0;
}

void WriteToConsole(FILE* stream, std::string_view text) {
  const int length = static_cast<int>(text.size());
  std::vector<wchar_t> wide(text.size());
  const int count = MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), length);
  std::fflush(stream);
  DWORD written = 0;
  WriteConsoleW(HandleOf(stream), wide.data(), static_cast<DWORD>(count), &written, nullptr);
}

}  // namespace

void PrepareStreams() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
}

bool IsTerminal(FILE* stream) { return IsConsole(stream); }

void WriteText(FILE* stream, std::string_view text) {
  if (IsConsole(stream)) {
    WriteToConsole(stream, text);
  } else {
    std::fwrite(text.data(), 1, text.size(), stream);
  }
}

std::optional<std::string> AnsiFromArgument(std::string_view argument, bool /*lossy*/) {
  return std::string(argument);  // the run-time library has converted it
}

bool IsSpecialFile(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DEVICE) != 0;
}

std::string ResolveLinks(const std::string& path) { return path; }

FILE* CreateFileLike(const std::string& path, const std::string& /*like*/) {
  const int file =
      _open(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
  return file < 0 ? nullptr : _fdopen(file, "wb");
}

bool RenameOver(const std::string& from, const std::string& to) {
  return MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}

unsigned long ProcessId() { return GetCurrentProcessId(); }

#else

namespace {

// Converts text; a byte that cannot be converted becomes "?" when lossy.
std::optional<std::string> Convert(const char* to, const char* from, std::string_view text,
                                   bool lossy) {
  const iconv_t converter = iconv_open(to, from);
  if (converter == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
  std::string result(text.size() * 3 + 1, '\0');
  char* in = const_cast<char*>(text.data());
  char* out = result.data();
  std::size_t inLeft = text.size();
  std::size_t outLeft = result.size();
  bool converted = true;
  while (converted && iconv(converter, &in, &inLeft, &out, &outLeft) == std::size_t(-1)) {
    converted = lossy;
    *out++ = '?';
    --outLeft;
    ++in;
    --inLeft;
  }
  iconv_close(converter);
  result.resize(result.size() - outLeft);
  return converted ? std::optional<std::string>(std::move(result)) : std::nullopt;
}

}  // namespace

void PrepareStreams() {}

bool IsTerminal(FILE* stream) { return isatty(fileno(stream)) != 0; }

void WriteText(FILE* stream, std::string_view text) {
  const std::string shown = Convert("UTF-8", "CP936", text, true).value_or(std::string(text));
  std::fwrite(shown.data(), 1, shown.size(), stream);
}

std::optional<std::string> AnsiFromArgument(std::string_view argument, bool lossy) {
  return Convert("CP936", "UTF-8", argument, lossy);
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

unsigned long ProcessId() { return static_cast<unsigned long>(getpid()); }

#endif

}  // namespace qn::os
