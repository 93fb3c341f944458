// SPDX-License-Identifier: MIT
// A host whose use of the library draws no warning, whatever it asks its compiler for; clang alone
// says of standard owners of sessions and exceptions that the destructor is not virtual. It is
// compiled only.
#include <quarnfc/quarnfc.h>

#include <memory>

namespace {

void Download(const char* url) {
  const auto session = std::make_unique<CQNInternetSession>();
  try {
    const std::unique_ptr<CQNInternetFile> file(session->OpenURL(url));
  } catch (CQNInternetException* exception) {
    const std::unique_ptr<CQNInternetException> caught(exception);
  }
}

}  // namespace

[[maybe_unused]] void (*const kDownload)(const char*) = Download;
