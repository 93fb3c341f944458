// SPDX-License-Identifier: MIT
#include "tests/core/diagnostics/crash_dump_test_support.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

#include "support/build_paths.h"

namespace fs = std::filesystem;

fs::path LogFolder() { return fs::path(QUARNFC_TEST_LIBRARY_FOLDER) / "log"; }

std::vector<fs::path> DumpsWithPrefix(const std::string& prefix) {
  std::vector<fs::path> dumps;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(LogFolder(), ignored)) {
    if (entry.path().filename().string().rfind(prefix, 0) == 0) dumps.push_back(entry.path());
  }
  return dumps;
}

void RemoveDumpsWithPrefix(const std::string& prefix) {
  for (const fs::path& dump : DumpsWithPrefix(prefix)) fs::remove(dump);
}

std::string ReadBytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

namespace {

Crash RunCrashHost(const std::string& name, const std::string& way) {
  // Other processes of the tests look at a crash of their own at the same time.
  const std::string prefix = name + std::to_string(std::random_device{}()) + "Host";
  RemoveDumpsWithPrefix(prefix);
  const fs::path program = fs::absolute(QUARNFC_TEST_CRASH_HOST).make_preferred();
  const fs::path report = fs::absolute(LogFolder() / ("report_" + prefix)).make_preferred();
  fs::create_directories(report.parent_path());

  Crash crash;
  const std::string command = program.string() + " " + prefix + " " + report.string() + way;
  crash.exit_code = std::system(command.c_str());
  std::ifstream(report) >> crash.thread >> std::hex >> crash.info;
  fs::remove(report);
  for (const fs::path& dump : DumpsWithPrefix(prefix)) {
    crash.names.push_back(dump.filename().string().substr(prefix.size()));
    crash.dump = ReadBytes(dump);
  }
  RemoveDumpsWithPrefix(prefix);
  return crash;
}

}  // namespace

const Crash& HostCrash() {
  static const Crash crash = RunCrashHost("Crash", "");
  return crash;
}

const Crash& HostOverflow() {
  static const Crash crash = RunCrashHost("Overflow", " overflow");
  return crash;
}
