// SPDX-License-Identifier: MIT
#include <quarnfc/error.h>

#include <cstddef>

#include "c/guarded.h"
#include "c/text.h"

namespace quarnfc::c {

void StoreError(CQNObject** error, int code, const char* message) noexcept {
  if (error == nullptr) return;
  try {
    const auto status = static_cast<CQNObject::EErrorStatus>(code);
    const auto handle = static_cast<std::size_t>(QNErrorUtils::CreateError(status, message));
    *error = reinterpret_cast<CQNObject*>(handle);
  } catch (...) {
    *error = nullptr;
  }
}

Failure TakeFailure(unsigned long long handle) {
  unsigned int code = QNC_ERROR_INVALID_DATA;
  const OwnedText message(qnGetErrorA(handle, &code));
  qnCloseHandle(handle);
  return Failure(static_cast<int>(code), message.get());
}

}  // namespace quarnfc::c

int qncInterfaceVersion(void) { return 4; }

int qncErrorCode(const CQNObject* error) {
  return error == nullptr ? QNC_ERROR_NONE : static_cast<int>(error->GetErrorCode());
}

char* qncErrorMessage(const CQNObject* error) {
  return quarnfc::c::GuardedNew(nullptr, [=]() -> char* {
    if (error == nullptr) return nullptr;
    const char* message = error->GetErrorMsgA();
    return quarnfc::c::NewUtf8(message == nullptr ? "" : message);
  });
}
