// SPDX-License-Identifier: MIT
// A host that crashes: its unhandled-exception filter leaves a dump, as the library's hosts do.
// Usage: crash_host PREFIX REPORT [overflow]
// REPORT receives the faulting thread's id and the address of the exception information. With
// overflow the stack comes to its end, without it an address is bad.
#include <windows.h>

#include <cstdio>
#include <cstring>
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

std::size_t StackLeft() {
  MEMORY_BASIC_INFORMATION stack{};
  VirtualQuery(&stack, &stack, sizeof stack);
  return static_cast<std::size_t>(reinterpret_cast<char*>(&stack) -
                                  static_cast<char*>(stack.AllocationBase));
}

// Wine itself ends the process when a stack has come to its end. So the exception is raised where
// some is left: what Windows leaves to a thread that asks for it with SetThreadStackGuarantee.
void Overflow() {
  volatile char taken[1024];
  taken[0] = 0;
  if (StackLeft() > 24 * 1024) {
    Overflow();
  } else {
    RaiseException(STATUS_STACK_OVERFLOW, 0, 0, nullptr);
  }
  taken[1] = taken[0];
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  g_prefix = argv[1];
  g_report = argv[2];
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  SetUnhandledExceptionFilter(LeaveDump);
  std::thread(argc > 3 && std::strcmp(argv[3], "overflow") == 0 ? Overflow : Crash).join();
  return 0;
}
