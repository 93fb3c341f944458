// SPDX-License-Identifier: MIT
#include "qn/input_stream.h"

#include <cerrno>
#include <cstring>

#include "qn/errors.h"
#include "qn/os.h"

namespace qn {
namespace {

std::string NameOf(const std::string& path) {
  return path == "-" ? "standard input" : DisplayText(path);
}

[[noreturn]] void Fail(const char* what, const std::string& name) {
  throw Failure(what + name + ": " + std::strerror(errno));
}

FILE* Open(const std::string& path, const std::string& name) {
  FILE* const file = path == "-" ? stdin : os::OpenFile(path, "rb");
  if (file == nullptr) Fail("cannot open ", name);
  return file;
}

}  // namespace

InputStream::InputStream(const std::string& path)
    : name_(NameOf(path)), file_(Open(path, name_)), progress_(name_) {
  if (path != "-") total_ = os::FileSize(path);
}

std::string InputStream::Read(std::size_t size) {
  std::string bytes(size, '\0');
  bytes.resize(std::fread(bytes.data(), 1, size, file_.get()));
  if (bytes.size() < size && std::ferror(file_.get()) != 0) Fail("cannot read ", name_);
  done_ += bytes.size();
  progress_.Update(done_, total_);
  return bytes;
}

}  // namespace qn
