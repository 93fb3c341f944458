// SPDX-License-Identifier: MIT
// What the tests of crash dumps share: running the host that crashes, and its dump.
#ifndef QUARNFC_TESTS_CORE_CRASH_DUMP_TEST_SUPPORT_H_
#define QUARNFC_TESTS_CORE_CRASH_DUMP_TEST_SUPPORT_H_

#include <filesystem>
#include <string>
#include <vector>

// The folder "log" beside the library.
std::filesystem::path LogFolder();

// The files in LogFolder() whose names begin with prefix.
std::vector<std::filesystem::path> DumpsWithPrefix(const std::string& prefix);

void RemoveDumpsWithPrefix(const std::string& prefix);

std::string ReadBytes(const std::filesystem::path& path);

// A crash of the separate host program and the dump it left.
struct Crash {
  int exit_code = 0;
  unsigned long thread = 0;        // the faulting thread
  unsigned long long info = 0;     // the address of the exception information
  std::vector<std::string> names;  // of the dumps, without the prefix
  std::string dump;                // the bytes of the dump
};

// The one crash that all tests look at: writing a dump takes seconds on some systems.
const Crash& HostCrash();

// The same of a host whose stack overflows.
const Crash& HostOverflow();

#endif  // QUARNFC_TESTS_CORE_CRASH_DUMP_TEST_SUPPORT_H_
