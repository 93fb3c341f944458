// SPDX-License-Identifier: MIT
// The one place that throws the HTTP client's exception.
#ifndef QUARNFC_NET_INTERNET_ERROR_H_
#define QUARNFC_NET_INTERNET_ERROR_H_

#include <quarnfc/platform_types.h>

namespace quarnfc::net {

struct InternetError {
  // Throws a new CQNInternetException with code and the context of the object that failed.
  [[noreturn]] static void Throw(DWORD code, unsigned __int64 context);

  // The same with the platform's last error: call it right after the platform's call.
  [[noreturn]] static void ThrowLast(unsigned __int64 context);
};

}  // namespace quarnfc::net

#endif  // QUARNFC_NET_INTERNET_ERROR_H_
