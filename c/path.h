// SPDX-License-Identifier: MIT
// Paths that callers of the flat C interface give as UTF-8. The file functions take them in the
// code page on Windows and as the host's own bytes elsewhere.
#ifndef QUARNFC_C_PATH_H_
#define QUARNFC_C_PATH_H_

#include <string>

#include "core/memory/memory.h"

namespace quarnfc::c {

class Path {
 public:
  // Throws Failure for null and, where paths are in the code page, as AnsiText does.
  explicit Path(const char* utf8);

  // What the file functions take.
  const char* get() const { return bytes_.get(); }

  // A message of the library that names the path, with the path, too, in the code page.
  std::string InMessage(const char* message) const;

 private:
  OwnedText bytes_;
};

}  // namespace quarnfc::c

#endif  // QUARNFC_C_PATH_H_
