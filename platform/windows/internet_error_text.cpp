// SPDX-License-Identifier: MIT
#include "platform/internet_error_text.h"

#include <windows.h>

#include <memory>
#include <type_traits>

namespace quarnfc::platform {
namespace {

constexpr DWORD kSystemLanguage = 0x0800;

struct LocalDeleter {
  void operator()(char* text) const { LocalFree(text); }
};
using LocalText = std::unique_ptr<char, LocalDeleter>;

struct ModuleDeleter {
  void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, ModuleDeleter>;

// The text of code in a message table; null when it has none.
LocalText FormatCode(DWORD source, HMODULE module, DWORD code) {
  char* text = nullptr;
  FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | source, module, code, kSystemLanguage,
                 reinterpret_cast<char*>(&text), 0, nullptr);
  return LocalText(text);
}

}  // namespace

bool InternetErrorText(unsigned int code, std::string& text) {
  const Module internet_api(LoadLibraryA("WININET.DLL"));
  LocalText message;
  if (internet_api != nullptr) {
    message = FormatCode(FORMAT_MESSAGE_FROM_HMODULE, internet_api.get(), code);
  }
  if (message == nullptr) message = FormatCode(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code);
  if (message == nullptr) return false;
  text = message.get();
  return true;
}

}  // namespace quarnfc::platform
