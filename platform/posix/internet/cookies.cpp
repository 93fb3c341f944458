// SPDX-License-Identifier: MIT
// The cookie functions, under the names hosts call.
#include <quarnfc/internet_api.h>

#include <cstring>
#include <string>

#include "platform/posix/internet/cookie_store.h"
#include "platform/posix/internet/handle.h"

namespace {

using quarnfc::internet::Answer;
using quarnfc::internet::Answering;
using quarnfc::internet::CookieOrigin;
using quarnfc::internet::ParseTarget;
using quarnfc::internet::Target;
using quarnfc::internet::TheCookies;

}  // namespace

int InternetSetCookieA(const char* url, const char* name, const char* data) {
  return Answering(0, [&] {
    Target target;
    if (data == nullptr) return Answer(ERROR_INVALID_PARAMETER);
    if (const DWORD error = ParseTarget(url, target)) return Answer(error);
    const std::string text = name != nullptr ? std::string(name) + "=" + data : data;
    const bool set = TheCookies().Set(target, text, CookieOrigin::kHost);
    return Answer(set ? 0 : ERROR_INVALID_PARAMETER);
  });
}

int InternetGetCookieA(const char* url, const char* /*name*/, char* data, DWORD* length) {
  return Answering(0, [&] {
    Target target;
    if (length == nullptr) return Answer(ERROR_INVALID_PARAMETER);
    if (const DWORD error = ParseTarget(url, target)) return Answer(error);
    const std::string text = TheCookies().TextFor(target);
    if (text.empty()) return Answer(ERROR_NO_MORE_ITEMS);
    const DWORD capacity = *length;
    *length = static_cast<DWORD>(text.size() + 1);
    if (data == nullptr) return 1;
    if (capacity < *length) return Answer(ERROR_INSUFFICIENT_BUFFER);
    std::memcpy(data, text.c_str(), text.size() + 1);
    return 1;
  });
}
