// SPDX-License-Identifier: MIT
// The exit codes of qn: the one place that defines them.
#ifndef QN_EXIT_CODE_H_
#define QN_EXIT_CODE_H_

namespace qn {

enum ExitCode : int {
  kSuccess = 0,        // the operation was carried out; a check found nothing wrong
  kFailure = 1,        // the operation failed, or the data says no
  kUsageError = 2,     // the command line is wrong; nothing was done
  kInterrupted = 130,  // the user pressed Ctrl-C; no half-written file is left
};

}  // namespace qn

#endif  // QN_EXIT_CODE_H_
