// SPDX-License-Identifier: MIT
#include <quarnfc/error.h>

#include "c_host.h"

unsigned long long MakeError(int code, const char* message) {
  return QNErrorUtils::CreateError(static_cast<CQNObject::EErrorStatus>(code), message);
}
