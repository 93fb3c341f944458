// SPDX-License-Identifier: MIT
// How a command ends early. The dispatcher prints what is thrown and gives the exit code.
#ifndef QN_ERRORS_H_
#define QN_ERRORS_H_

#include <stdexcept>

namespace qn {

// The operation failed, or the data says no. The text is UTF-8.
class Failure : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The command line is wrong.
class UsageError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace qn

#endif  // QN_ERRORS_H_
