// SPDX-License-Identifier: MIT
#include "platform/posix/internet/curl_line.h"

#include <algorithm>
#include <utility>

namespace quarnfc::internet {
namespace {

constexpr std::size_t kMostIdle = 16;

}  // namespace

CurlLine CurlPool::Take(const Route& route) {
  {
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(idle_.begin(), idle_.end(),
                                    [&](const CurlLine& line) { return line.route == route; });
    if (found != idle_.end()) {
      CurlLine line = std::move(*found);
      idle_.erase(found);
      curl_easy_reset(line.easy.get());
      return line;
    }
  }
  CurlLine line;
  line.easy.reset(curl_easy_init());
  line.multi.reset(curl_multi_init());
  line.route = route;
  return line;
}

void CurlPool::Give(CurlLine line) {
  std::list<CurlLine> gone;
  const std::lock_guard lock(mutex_);
  idle_.push_front(std::move(line));
  if (idle_.size() > kMostIdle) gone.splice(gone.begin(), idle_, std::prev(idle_.end()));
}

}  // namespace quarnfc::internet
