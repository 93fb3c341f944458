// SPDX-License-Identifier: MIT
#include "platform/posix/internet/curl_line.h"

#include <algorithm>
#include <utility>

namespace quarnfc::internet {
namespace {

constexpr std::size_t kMostIdle = 16;

// All that two exchanges on one connection must have in common. What certificates were accepted for
// is part of it: a connection that was trusted on demand serves only those who demand the same.
std::string NameOf(const Route& route) {
  std::string name = route.secure ? "https\n" : "http\n";
  for (const std::string* text : {&route.host, &route.proxy.name, &route.proxy.bypass,
                                  &route.proxy_user, &route.proxy_password}) {
    name += *text + '\n';
  }
  for (const DWORD number : {DWORD{route.port}, route.security_flags, route.proxy.access_type}) {
    name += std::to_string(number) + '\n';
  }
  return name;
}

}  // namespace

CurlLine CurlPool::Take(const Route& route) {
  static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
  std::string name = NameOf(route);
  {
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(idle_.begin(), idle_.end(),
                                    [&](const CurlLine& line) { return line.route == name; });
    if (found != idle_.end()) {
      CurlLine line = std::move(*found);
      idle_.erase(found);
      curl_easy_reset(line.easy.get());
      return line;
    }
  }
  CurlLine line;
  if (ready == CURLE_OK) {
    line.easy.reset(curl_easy_init());
    line.multi.reset(curl_multi_init());
  }
  line.route = std::move(name);
  return line;
}

void CurlPool::Give(CurlLine line) {
  std::list<CurlLine> gone;
  const std::lock_guard lock(mutex_);
  idle_.push_front(std::move(line));
  if (idle_.size() > kMostIdle) gone.splice(gone.begin(), idle_, std::prev(idle_.end()));
}

}  // namespace quarnfc::internet
