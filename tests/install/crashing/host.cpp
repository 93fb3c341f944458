// SPDX-License-Identifier: MIT
// Hands the library data that are none, and leaves a dump of the crash that follows.
#include <windows.h>

#include <quarnfc/quarnfc.h>

#include <cstdint>

namespace {

LONG WINAPI LeaveDump(EXCEPTION_POINTERS* info) {
  QNErrorUtils::DbgDumpErrorFileEx(info, "Crashing");
  return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

int main() {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  SetUnhandledExceptionFilter(LeaveDump);
  char* text = QNCRC64::qnGetCRC64StrA(reinterpret_cast<unsigned char*>(std::uintptr_t{16}), 9);
  qnFreeMem(text);
  return 0;
}
