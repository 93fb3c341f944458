// SPDX-License-Identifier: MIT
// A Set-Cookie header and the URL that is asked for its cookies.
#include <quarnfc/internet.h>

#include <string>

#include "fuzz/input.h"
#include "platform/posix/internet/chunk_reader.h"
#include "platform/posix/internet/cookie_store.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quarnfc::internet;
  fuzz::Input input(data, size);
  const std::string header = input.Text();
  const std::string url = "http://sub.h.test/" + input.Text();
  CookieStore store;
  Target target;
  if (ParseTarget(url.c_str(), target) != 0) return 0;
  store.Set(target, header, CookieOrigin::kServer);
  store.Set(target, header, CookieOrigin::kHost);
  const std::string sent = store.HeaderFor(target);
  fuzz::Expect(sent.find_first_of("\r\n") == std::string::npos);
  fuzz::Expect(store.TextFor(target).size() <= sent.size());
  ChunkReader reader;
  reader.Take(header, [](std::string_view) { return 0u; });
  return 0;
}
