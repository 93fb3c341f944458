// SPDX-License-Identifier: MIT
#include "platform/posix/internet/curl_line.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quarnfc::internet {
namespace {

constexpr std::size_t kMostIdle = 16;

}  // namespace

std::unique_ptr<CurlLine> CurlPool::Take(const Route& route) {
  if (auto idle = TakeIdle(route)) return idle;
  auto line = std::make_unique<CurlLine>(route);
  line->easy.reset(curl_easy_init());
  line->multi.reset(curl_multi_init());
  return line->easy != nullptr && line->multi != nullptr ? std::move(line) : nullptr;
}

std::unique_ptr<CurlLine> CurlPool::TakeIdle(const Route& route) {
  const std::lock_guard lock(mutex_);
  idle_.reserve(kMostIdle);  // giving back, which must not fail, takes no memory
  const auto found = std::find_if(idle_.rbegin(), idle_.rend(),
                                  [&](const auto& line) { return line->route == route; });
  if (found == idle_.rend()) return nullptr;
  std::unique_ptr<CurlLine> line = std::move(*found);
  idle_.erase(std::prev(found.base()));
  return line;
}

void CurlPool::Give(std::unique_ptr<CurlLine> line) {
  std::unique_ptr<CurlLine> gone;  // after the lock: its connection may have to say goodbye
  const std::lock_guard lock(mutex_);
  if (idle_.size() == kMostIdle) {
    gone = std::move(idle_.front());
    idle_.erase(idle_.begin());
  }
  idle_.push_back(std::move(line));
}

}  // namespace quarnfc::internet
