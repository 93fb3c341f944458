// SPDX-License-Identifier: MIT
// A URL, split with flags that the first byte chooses, and a reference from it: flags, URL, zero,
// reference.
#include <quarnfc/internet_api.h>
#include <quarnfc/url.h>

#include <string>

#include "fuzz/input.h"
#include "platform/posix/internet/url.h"

namespace {

using quarnfc::internet::ParseTarget;
using quarnfc::internet::ResolveReference;
using quarnfc::internet::Target;
using quarnfc::internet::TextOf;

DWORD FlagsFrom(std::uint8_t byte) {
  constexpr DWORD kFlags[] = {ICU_NO_ENCODE,          ICU_DECODE,       ICU_NO_META,
                              ICU_ENCODE_SPACES_ONLY, ICU_BROWSER_MODE, ICU_ESCAPE};
  DWORD flags = 0;
  for (int i = 0; i < 6; ++i) {
    if ((byte >> i & 1) != 0) flags |= kFlags[i];
  }
  return flags;
}

// What a request goes to comes back from its text.
void CheckTarget(const Target& target) {
  Target again;
  fuzz::Expect(ParseTarget(TextOf(target).c_str(), again) == 0);
  fuzz::Expect(TextOf(again) == TextOf(target));
}

void CheckReference(const std::string& url, const std::string& reference) {
  Target target;
  Target referred;
  if (ParseTarget(url.c_str(), target) != 0) return;
  CheckTarget(target);
  if (ResolveReference(target, reference, referred)) CheckTarget(referred);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const DWORD flags = FlagsFrom(input.Byte());
  const std::string url = input.Text();
  CQNString server;
  CQNString object;
  CQNString user;
  CQNString password;
  DWORD service = 0;
  unsigned short port = 7;
  const int split = qnParseURLEx(url.c_str(), service, server, object, port, user, password, flags);
  fuzz::Expect(split != 0 || (service == eServiceUnknown && port == 7));
  fuzz::Expect(server.GetLength() <= 255 && object.GetLength() <= 2047);
  fuzz::Expect(user.GetLength() <= 127 && password.GetLength() <= 127);
  qnParseURL(url.c_str(), service, server, object, port);
  CheckReference(url, input.Text());
  return 0;
}
