// SPDX-License-Identifier: MIT
// A text for the debugger travels as an exception, which a handler in the process sees first.

#include <windows.h>

#include "tests/support/captured_debug_output.h"

namespace quarnfc_test {
namespace {

constexpr DWORD kTextForTheDebugger = 0x40010006;

std::vector<std::string> g_texts;
void* g_handler = nullptr;

LONG CALLBACK Keep(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  if (record.ExceptionCode != kTextForTheDebugger) return EXCEPTION_CONTINUE_SEARCH;
  g_texts.emplace_back(reinterpret_cast<const char*>(record.ExceptionInformation[1]));
  return EXCEPTION_CONTINUE_EXECUTION;
}

}  // namespace

CapturedDebugOutput::CapturedDebugOutput() {
  g_texts.clear();
  g_handler = AddVectoredExceptionHandler(1, Keep);
}

CapturedDebugOutput::~CapturedDebugOutput() { RemoveVectoredExceptionHandler(g_handler); }

const std::vector<std::string>& CapturedDebugOutput::Texts() const { return g_texts; }

}  // namespace quarnfc_test
