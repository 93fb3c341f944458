// SPDX-License-Identifier: MIT
// A module of the tests' own around the services that know about modules and threads: what they
// promise shows only where a module is loaded and goes. probe_host loads it and finds these
// functions by name.
#ifndef QUARNFC_TESTS_PLATFORM_PROBE_H_
#define QUARNFC_TESTS_PLATFORM_PROBE_H_

#include <quarnfc/export.h>

// ModuleIsUnloading now, and a function that hears about it from the destructor of a static object.
QN_PLAIN_API bool ProbeIsUnloading();
QN_PLAIN_API void ProbeReportAtEnd(void (*report)(bool unloading));

// The functions of platform/thread_data.h.
QN_PLAIN_API void* ProbeThreadData();
QN_PLAIN_API const void* ProbeThreadMark();
QN_PLAIN_API void ProbeSetThreadData(void* data, void (*at_end)(void* data));
QN_PLAIN_API void ProbeReleaseThreadData();

#endif  // QUARNFC_TESTS_PLATFORM_PROBE_H_
