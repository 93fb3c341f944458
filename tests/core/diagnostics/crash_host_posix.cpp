// SPDX-License-Identifier: MIT
// A host that crashes: its signal handler leaves a crash record, as the library's hosts do.
// Usage: crash_host PREFIX REPORT [overflow]
// REPORT receives the faulting thread's id and the address of the exception information. With
// overflow the stack ends, without it an address is bad.
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <thread>

#include <sys/syscall.h>
#include <unistd.h>

#include <quarnfc/quarnfc.h>

namespace {

const char* g_prefix = nullptr;
const char* g_report = nullptr;

void LeaveRecord(int /*signal*/, siginfo_t* signal_info, void* /*context*/) {
  auto* info = reinterpret_cast<_EXCEPTION_POINTERS*>(signal_info);
  if (FILE* report = std::fopen(g_report, "w")) {
    std::fprintf(report, "%lu %llx\n", static_cast<unsigned long>(syscall(SYS_gettid)),
                 static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(info)));
    std::fclose(report);
  }
  QNErrorUtils::DbgDumpErrorFileEx(info, g_prefix);
  _exit(1);
}

void Crash() {
  volatile std::uintptr_t address = 16;
  *reinterpret_cast<volatile int*>(address) = 1;
}

volatile int g_depth = 0;

// Needs stack without an end.
int Overflow() {
  volatile char taken[1024];
  taken[0] = 1;
  g_depth = g_depth + 1;
  return g_depth < 0 ? 0 : Overflow() + taken[0];
}

// The handler has a stack of its own.
void OverflowOnThread() {
  static char handler_stack[64 * 1024];
  stack_t stack{};
  stack.ss_sp = handler_stack;
  stack.ss_size = sizeof handler_stack;
  sigaltstack(&stack, nullptr);
  Overflow();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  g_prefix = argv[1];
  g_report = argv[2];
  struct sigaction action {};
  action.sa_sigaction = LeaveRecord;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  sigaction(SIGSEGV, &action, nullptr);
  std::thread(argc > 3 && std::strcmp(argv[3], "overflow") == 0 ? OverflowOnThread : Crash).join();
  return 0;
}
