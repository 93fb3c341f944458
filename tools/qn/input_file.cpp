// SPDX-License-Identifier: MIT
#include "qn/input_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/os.h"

namespace qn {
namespace {

[[noreturn]] void Fail(const char* what, const std::string& path) {
  throw Failure(what + DisplayText(path) + ": " + std::strerror(errno));
}

std::string ReadAll(FILE* file, const std::string& path) {
  constexpr std::size_t kStep = 64 * 1024;
  std::string bytes;
  std::size_t read = 0;
  do {
    const std::size_t old = bytes.size();
    bytes.resize(old + kStep);
    read = std::fread(bytes.data() + old, 1, kStep, file);
    bytes.resize(old + read);
  } while (read == kStep);
  if (std::ferror(file) != 0) Fail("cannot read ", path);
  return bytes;
}

}  // namespace

std::string ReadInput(const std::string& path) {
  if (path == "-") return ReadAll(stdin, "standard input");
  const std::unique_ptr<FILE, int (*)(FILE*)> file(os::OpenFile(path, "rb"), std::fclose);
  if (!file) Fail("cannot open ", path);
  return ReadAll(file.get(), path);
}

}  // namespace qn
