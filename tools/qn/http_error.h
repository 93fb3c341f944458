// SPDX-License-Identifier: MIT
// What qn http says about errors.
#ifndef QN_HTTP_ERROR_H_
#define QN_HTTP_ERROR_H_

#include <quarnfc/internet_exception.h>

#include <memory>
#include <string>

#include "qn/errors.h"

namespace qn {

// The text of an error: the platform's, or qn's own where it has none, with the number and, where
// there is something to do about it, a hint.
std::string DescribeError(const CQNInternetException& exception);

// Whether another attempt may succeed: time-outs and connections that fail or break.
bool IsTransient(unsigned int code);

// A failure of the exchange with a server.
class HttpFailure : public Failure {
 public:
  HttpFailure(const std::string& label, const CQNInternetException& error)
      : Failure(label + ": " + DescribeError(error)), code_(error.GetErrorCode()) {}

  unsigned int Code() const { return code_; }

 private:
  unsigned int code_;
};

// Runs an action of the library's HTTP client; what it throws becomes an HttpFailure.
template <class Action>
auto Guarded(const std::string& label, Action action) {
  try {
    return action();
  } catch (CQNInternetException* exception) {
    const std::unique_ptr<CQNInternetException> owner(exception);
    throw HttpFailure(label, *exception);
  }
}

}  // namespace qn

#endif  // QN_HTTP_ERROR_H_
