// SPDX-License-Identifier: MIT
// A host that crashes: its unhandled-exception filter leaves a dump, as the library's hosts do.
// Usage: crash_host PREFIX REPORT
// REPORT receives the faulting thread's id and the address of the exception information.
#include <windows.h>

#include <cstdio>
#include <thread>

#include <quarnfc/quarnfc.h>

namespace {

const char* g_prefix = nullptr;
const char* g_report = nullptr;

LONG WINAPI LeaveDump(EXCEPTION_POINTERS* info) {
  if (FILE* report = std::fopen(g_report, "w")) {
    std::fprintf(report, "%lu %llx\n", GetCurrentThreadId(),
                 static_cast<unsigned long long>(reinterpret_cast<ULONG_PTR>(info)));
    std::fclose(report);
  }
  QNErrorUtils::DbgDumpErrorFileEx(info, g_prefix);
  return EXCEPTION_EXECUTE_HANDLER;
}

void Crash() {
  volatile ULONG_PTR address = 16;
  *reinterpret_cast<volatile int*>(address) = 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  g_prefix = argv[1];
  g_report = argv[2];
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  SetUnhandledExceptionFilter(LeaveDump);
  std::thread(Crash).join();
  return 0;
}
