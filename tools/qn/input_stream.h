// SPDX-License-Identifier: MIT
// Reading long input piece by piece, showing how far it is.
#ifndef QN_INPUT_STREAM_H_
#define QN_INPUT_STREAM_H_

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

#include "qn/console.h"

namespace qn {

class InputStream {
 public:
  // A file, or standard input when path is "-". Throws Failure.
  explicit InputStream(const std::string& path);

  // The size of the input; 0 when it is not known, as for a pipe.
  unsigned long long Size() const { return total_; }

  // The next bytes: size of them, fewer only at the end. Throws Failure.
  std::string Read(std::size_t size);

 private:
  struct Closer {
    void operator()(FILE* file) const {
      if (file != stdin) std::fclose(file);
    }
  };

  std::string name_;
  std::unique_ptr<FILE, Closer> file_;
  unsigned long long done_ = 0;
  unsigned long long total_ = 0;  // 0 when it is not known
  Progress progress_;
};

}  // namespace qn

#endif  // QN_INPUT_STREAM_H_
