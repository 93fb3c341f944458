// SPDX-License-Identifier: MIT
#include "c/path.h"

#include <cstddef>
#include <string_view>

#include "c/guarded.h"
#include "c/text.h"
#include "core/text/transcode.h"

namespace quarnfc::c {
namespace {

OwnedText PathBytes(const char* utf8) {
  return platform::PathEncoding() == Encoding::kAnsi ? AnsiText(utf8)
                                                     : OwnedText(CopyText(Given(utf8)));
}

}  // namespace

Path::Path(const char* utf8) : bytes_(PathBytes(utf8)) {}

std::string Path::InMessage(const char* message) const {
  std::string text(message);
  const std::string_view path = get();
  const std::size_t place = text.find(path);
  if (platform::PathEncoding() == Encoding::kAnsi || place == std::string::npos) return text;
  const OwnedWideText wide = ToWide(Encoding::kUtf8, get());
  return text.replace(place, path.size(), FromWide(Encoding::kAnsi, wide.get()).get());
}

}  // namespace quarnfc::c
