// SPDX-License-Identifier: MIT
#include "platform/posix/debug_output_observer.h"
#include "tests/support/captured_debug_output.h"

namespace quarnfc_test {
namespace {

std::vector<std::string> g_texts;

void Keep(const char* text) { g_texts.emplace_back(text); }

}  // namespace

CapturedDebugOutput::CapturedDebugOutput() {
  g_texts.clear();
  quarnfc::platform::SetDebugOutputObserver(Keep);
}

CapturedDebugOutput::~CapturedDebugOutput() { quarnfc::platform::SetDebugOutputObserver(nullptr); }

const std::vector<std::string>& CapturedDebugOutput::Texts() const { return g_texts; }

}  // namespace quarnfc_test
