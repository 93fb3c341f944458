// SPDX-License-Identifier: MIT
#include "platform/diagnostics.h"

#include <cstring>

#include "platform/windows/module.h"
#include "platform/windows/platform.h"

#include <dbghelp.h>
#include <direct.h>
#include <mbstring.h>

namespace quarnfc::platform {

namespace {

// The system's debug-help library, loaded only while a dump is written.
class DebugHelp {
 public:
  using WriteDump = decltype(&MiniDumpWriteDump);

  // From the system's folder alone: a file of that name beside the program is somebody else's.
  DebugHelp() : library_(LoadLibraryExA("DBGHELP.DLL", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {
    if (library_ == nullptr) return;
    const FARPROC entry = GetProcAddress(library_, "MiniDumpWriteDump");
    write_dump_ = reinterpret_cast<WriteDump>(reinterpret_cast<void*>(entry));
  }
  ~DebugHelp() {
    if (library_ != nullptr) FreeLibrary(library_);
  }
  DebugHelp(const DebugHelp&) = delete;
  DebugHelp& operator=(const DebugHelp&) = delete;

  WriteDump write_dump() const { return write_dump_; }

 private:
  HMODULE library_;
  WriteDump write_dump_ = nullptr;
};

void WriteMiniDump(DebugHelp::WriteDump write_dump, HANDLE file, _EXCEPTION_POINTERS* info,
                   DWORD thread) {
  MINIDUMP_EXCEPTION_INFORMATION exception;
  exception.ThreadId = thread;
  exception.ExceptionPointers = info;
  exception.ClientPointers = FALSE;
  write_dump(GetCurrentProcess(), GetCurrentProcessId(), file, MiniDumpNormal, &exception, nullptr,
             nullptr);
}

void WriteText(HANDLE file, const char* text) {
  DWORD written = 0;
  WriteFile(file, text, static_cast<DWORD>(std::strlen(text)), &written, nullptr);
}

}  // namespace

const char kFolderSeparator = '\\';

bool FindLibraryFolder(char* folder, std::size_t capacity) {
  const DWORD size = static_cast<DWORD>(capacity);
  const DWORD length = GetModuleFileNameA(static_cast<HMODULE>(ModuleHandle()), folder, size);
  if (length == 0 || length >= size) return false;
  // By characters: the second byte of a double-byte character may be a backslash.
  unsigned char* separator = _mbsrchr(reinterpret_cast<unsigned char*>(folder), kFolderSeparator);
  if (separator == nullptr) return false;
  separator[1] = '\0';
  return true;
}

void MakeFolder(const char* path) { _mkdir(path); }

unsigned long ThreadNumber() { return GetCurrentThreadId(); }

void WriteDumpFile(_EXCEPTION_POINTERS* info, unsigned long thread, const char* path,
                   const char* noInfoText) {
  const DebugHelp debug_help;
  if (debug_help.write_dump() == nullptr) return;
  const HANDLE file =
      CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  if (info != nullptr) {
    WriteMiniDump(debug_help.write_dump(), file, info, thread);
  } else {
    WriteText(file, noInfoText);
  }
  CloseHandle(file);
}

}  // namespace quarnfc::platform
