// SPDX-License-Identifier: MIT
#include "tests/platform/probe.h"

#include "platform/module.h"
#include "platform/thread_data.h"

namespace {

void (*g_report)(bool unloading) = nullptr;

struct Static {
  ~Static() {
    if (g_report != nullptr) g_report(quarnfc::platform::ModuleIsUnloading());
  }
};
Static g_static;

}  // namespace

bool ProbeIsUnloading() { return quarnfc::platform::ModuleIsUnloading(); }

void ProbeReportAtEnd(void (*report)(bool unloading)) { g_report = report; }

void* ProbeThreadData() { return quarnfc::platform::ThreadData(); }

const void* ProbeThreadMark() { return quarnfc::platform::ThreadMark(); }

void ProbeSetThreadData(void* data, void (*at_end)(void* data)) {
  quarnfc::platform::SetThreadData(data, at_end);
}

void ProbeReleaseThreadData() { quarnfc::platform::ReleaseThreadData(); }
