// SPDX-License-Identifier: MIT
// Reading input whole.
#ifndef QN_INPUT_FILE_H_
#define QN_INPUT_FILE_H_

#include <string>

namespace qn {

// The bytes of a file, or of standard input when path is "-". Throws Failure.
std::string ReadInput(const std::string& path);

}  // namespace qn

#endif  // QN_INPUT_FILE_H_
