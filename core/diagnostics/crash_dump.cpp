// SPDX-License-Identifier: MIT
#include <quarnfc/crash_dump.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>

#include "core/diagnostics/crash_dump_name.h"
#include "core/text/character.h"
#include "platform/clock.h"
#include "platform/diagnostics.h"
#include "platform/lock.h"

namespace {

// The longest path of the library's own file for which dumps are written, with its terminator.
constexpr std::size_t kModulePathCapacity = 260;

// The folder and a file name of the greatest length file systems allow.
constexpr std::size_t kDumpPathCapacity = kModulePathCapacity + 256 + sizeof "log\\";

constexpr char kNoInfoText[] = "_EXCEPTION_POINTERS is null";

// Dumps are written one at a time: the system's debug-help functions take one thread. The lock is
// made when the library is loaded and never destroyed, since a process may crash after that.
alignas(quarnfc::platform::Lock) unsigned char g_dump_lock_storage[sizeof(quarnfc::platform::Lock)];
auto& g_dump_lock = *new (g_dump_lock_storage) quarnfc::platform::Lock;

bool LeadsElsewhere(unsigned char byte) {
  return byte < ' ' || byte == 0x7F || byte == '/' || byte == '\\' || byte == ':';
}

// By characters: the second byte of a double-byte character may be a backslash.
void KeepInFolder(unsigned char* name) {
  while (*name != '\0') {
    if (quarnfc::IsPair(name) && quarnfc::platform::IsCharacter(name[0], name[1])) {
      name += 2;
    } else {
      if (LeadsElsewhere(*name)) *name = '_';
      ++name;
    }
  }
}

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
  if (length < 0 || static_cast<std::size_t>(length) >= capacity) return false;
  KeepInFolder(Bytes(name));
  return true;
}

}  // namespace quarnfc

namespace {

struct Dump {
  void (*write)(const Dump& dump, const char* text);
  _EXCEPTION_POINTERS* info;
  unsigned long thread;  // that info is about
  const char* text;      // a prefix or a path
};

void WriteTo(const Dump& dump, const char* path) {
  quarnfc::platform::WriteDumpFile(dump.info, dump.thread, path, kNoInfoText);
}

void WriteBesideLibrary(const Dump& dump, const char* prefix) {
  char path[kDumpPathCapacity];
  if (!quarnfc::platform::FindLibraryFolder(path, kModulePathCapacity)) return;
  std::strcat(path, "log");
  quarnfc::platform::MakeFolder(path);

  std::tm time{};
  const bool has_time = quarnfc::platform::ToLocalTime(quarnfc::platform::CurrentTime(), time);
  char* name = path + std::strlen(path);
  *name++ = quarnfc::platform::kFolderSeparator;
  const std::size_t room = static_cast<std::size_t>(path + sizeof path - name);
  if (quarnfc::FormatDumpName(has_time ? &time : nullptr, prefix, dump.info, name, room)) {
    WriteTo(dump, path);
  }
}

void WriteWithStack(void* dump) {
  const Dump& given = *static_cast<const Dump*>(dump);
  given.write(given, given.text);
}

void WriteDump(void (*write)(const Dump& dump, const char* text), _EXCEPTION_POINTERS* info,
               const char* text) {
  const quarnfc::platform::LockGuard guard(g_dump_lock);
  Dump dump{write, info, quarnfc::platform::ThreadNumber(), text};
  quarnfc::platform::RunWithStack(WriteWithStack, &dump);
}

}  // namespace

namespace QNErrorUtils {

void DbgDumpErrorFileEx(_EXCEPTION_POINTERS* info, const char* prefix) {
  WriteDump(WriteBesideLibrary, info, prefix != nullptr ? prefix : "");
}

void DbgDumpErrorFile(_EXCEPTION_POINTERS* info, const char* path) {
  if (path != nullptr) WriteDump(WriteTo, info, path);
}

}  // namespace QNErrorUtils
