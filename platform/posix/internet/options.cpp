// SPDX-License-Identifier: MIT
// Options of handles.
#include <cstring>
#include <string>

#include "platform/posix/internet/handle.h"
#include "platform/posix/internet/request.h"

namespace {

using quarnfc::internet::Answer;
using quarnfc::internet::Answering;
using quarnfc::internet::FindHandle;
using quarnfc::internet::Handle;
using quarnfc::internet::Request;
using quarnfc::internet::Settings;
using quarnfc::internet::StoreText;

DWORD* NumberOption(Settings& settings, DWORD option) {
  switch (option) {
    case INTERNET_OPTION_CONNECT_TIMEOUT:
      return &settings.connect_timeout;
    case INTERNET_OPTION_SEND_TIMEOUT:
      return &settings.send_timeout;
    case INTERNET_OPTION_RECEIVE_TIMEOUT:
      return &settings.receive_timeout;
    case INTERNET_OPTION_SECURITY_FLAGS:
      return &settings.security_flags;
    default:
      return nullptr;
  }
}

std::string* TextOption(Settings& settings, DWORD option) {
  switch (option) {
    case INTERNET_OPTION_USERNAME:
      return &settings.user;
    case INTERNET_OPTION_PASSWORD:
      return &settings.password;
    case INTERNET_OPTION_PROXY_USERNAME:
      return &settings.proxy_user;
    case INTERNET_OPTION_PROXY_PASSWORD:
      return &settings.proxy_password;
    default:
      return nullptr;
  }
}

DWORD Set(Handle& handle, DWORD option, const void* buffer, DWORD length) {
  if (std::string* text = TextOption(handle.settings, option)) {
    text->assign(static_cast<const char*>(buffer), length);
    // A length that counts the terminator means the same text.
    text->resize(std::strlen(text->c_str()));
    return 0;
  }
  DWORD* number = NumberOption(handle.settings, option);
  if (number == nullptr) return ERROR_INTERNET_INVALID_OPTION;
  if (length != sizeof(*number)) return ERROR_INVALID_PARAMETER;
  std::memcpy(number, buffer, sizeof(*number));
  return 0;
}

DWORD StoreNumber(DWORD number, void* buffer, DWORD& length) {
  const bool fits = buffer != nullptr && length >= sizeof(number);
  length = sizeof(number);
  if (!fits) return ERROR_INSUFFICIENT_BUFFER;
  std::memcpy(buffer, &number, sizeof(number));
  return 0;
}

DWORD Query(Handle& handle, DWORD option, void* buffer, DWORD& length) {
  if (option == INTERNET_OPTION_HANDLE_TYPE) return StoreNumber(handle.type, buffer, length);
  if (option == INTERNET_OPTION_URL && handle.type == Request::kType) {
    return StoreText(static_cast<Request&>(handle).url, buffer, length);
  }
  if (const std::string* text = TextOption(handle.settings, option)) {
    return StoreText(*text, buffer, length);
  }
  const DWORD* number = NumberOption(handle.settings, option);
  return number != nullptr ? StoreNumber(*number, buffer, length) : ERROR_INTERNET_INVALID_OPTION;
}

}  // namespace

namespace quarnfc::internet {

DWORD StoreText(const std::string& text, void* buffer, DWORD& length) {
  const bool fits = buffer != nullptr && length > text.size();
  length = static_cast<DWORD>(text.size()) + (fits ? 0 : 1);
  if (!fits) return ERROR_INSUFFICIENT_BUFFER;
  std::memcpy(buffer, text.c_str(), text.size() + 1);
  return 0;
}

}  // namespace quarnfc::internet

int InternetSetOptionA(HINTERNET handle, DWORD option, void* buffer, DWORD length) {
  return InternetSetOptionExA(handle, option, buffer, length, 0);
}

int InternetSetOptionExA(HINTERNET handle, DWORD option, void* buffer, DWORD length, DWORD flags) {
  return Answering(0, [&] {
    const auto found = FindHandle(handle);
    if (found == nullptr) return 0;
    if (buffer == nullptr || flags != 0) return Answer(ERROR_INVALID_PARAMETER);
    return Answer(Set(*found, option, buffer, length));
  });
}

int InternetQueryOptionA(HINTERNET handle, DWORD option, void* buffer, DWORD* length) {
  return Answering(0, [&] {
    const auto found = FindHandle(handle);
    if (found == nullptr) return 0;
    if (length == nullptr) return Answer(ERROR_INVALID_PARAMETER);
    return Answer(Query(*found, option, buffer, *length));
  });
}
