#include <quarnfc/crash_dump.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "core/diagnostics/crash_dump_name.h"
#include "platform/crt.h"
#include "platform/diagnostics.h"

namespace {

// The longest path of the library's own file for which dumps are written, with its terminator.
constexpr std::size_t kModulePathCapacity = 260;

// The folder and a file name of the greatest length file systems allow.
constexpr std::size_t kDumpPathCapacity = kModulePathCapacity + 256 + sizeof "log\\";

constexpr char kNoInfoText[] = "_EXCEPTION_POINTERS is null";

}  // namespace

namespace quarnfc {

bool FormatDumpName(const std::tm* time, const char* prefix, const void* info, char* name,
                    std::size_t capacity) {
  int length;
  if (time == nullptr) {
    length = std::snprintf(name, capacity, "error.dmp");
  } else {
    // Without padding and without a year, deliberately: hosts look for these names.
    length = std::snprintf(name, capacity, "%s%d_%d_%d_%d_%d(0x%X).dmp", prefix, time->tm_mon + 1,
                           time->tm_mday, time->tm_hour, time->tm_min, time->tm_sec,
                           static_cast<unsigned int>(reinterpret_cast<std::uintptr_t>(info)));
  }
  return length >= 0 && static_cast<std::size_t>(length) < capacity;
}

}  // namespace quarnfc

namespace QNErrorUtils {

void DbgDumpErrorFileEx(_EXCEPTION_POINTERS* info, const char* prefix) {
  char path[kDumpPathCapacity];
  if (!quarnfc::FindLibraryFolder(path, kModulePathCapacity)) return;
  std::strcat(path, "log");
  quarnfc::MakeFolder(path);

  const __time64_t now = _time64(nullptr);
  std::tm time{};
  const bool has_time = _localtime64_s(&time, &now) == 0;
  char* name = path + std::strlen(path);
  *name++ = quarnfc::kFolderSeparator;
  const std::size_t room = static_cast<std::size_t>(path + sizeof path - name);
  if (quarnfc::FormatDumpName(has_time ? &time : nullptr, prefix != nullptr ? prefix : "", info,
                              name, room)) {
    DbgDumpErrorFile(info, path);
  }
}

void DbgDumpErrorFile(_EXCEPTION_POINTERS* info, const char* path) {
  if (path != nullptr) quarnfc::WriteDumpFile(info, path, kNoInfoText);
}

}  // namespace QNErrorUtils
