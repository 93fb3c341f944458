// SPDX-License-Identifier: MIT
#include "qn/output_file.h"

#include <cerrno>
#include <cstring>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/os.h"

namespace qn {

OutputFile::OutputFile(const std::string& path) : target_(path) {
  if (os::IsSpecialFile(path)) {
    name_ = path;
    file_ = os::OpenFile(path, "wb");
  } else {
    target_ = os::ResolveLinks(path);
    name_ = target_ + "." + std::to_string(os::ProcessId()) + ".tmp";
    // Said first, so that no moment is left in which an interrupt leaves the file.
    os::RemoveOnInterrupt(name_);
    file_ = os::CreateFileLike(name_, target_);
    if (file_ == nullptr) os::RemoveOnInterrupt("");
  }
  if (file_ == nullptr) Fail("cannot create ");
}

OutputFile::~OutputFile() {
  if (file_ != nullptr) std::fclose(file_);
  if (name_.empty() || name_ == target_) return;
  os::RemoveFile(name_);
  os::RemoveOnInterrupt("");
}

void OutputFile::Write(std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) Fail("cannot write ");
}

const std::string& OutputFile::Name() {
  Close();
  return name_;
}

void OutputFile::Commit() {
  Close();
  if (name_ != target_ && !os::RenameOver(name_, target_)) Fail("cannot write ");
  name_.clear();
  os::RemoveOnInterrupt("");
}

void OutputFile::Close() {
  if (file_ == nullptr) return;
  const int result = std::fclose(file_);
  file_ = nullptr;
  if (result != 0) Fail("cannot write ");
}

void OutputFile::Fail(const char* what) const {
  throw Failure(what + DisplayText(target_) + ": " + std::strerror(errno));
}

}  // namespace qn
