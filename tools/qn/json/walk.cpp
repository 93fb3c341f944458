// SPDX-License-Identifier: MIT
#include "qn/json/walk.h"

namespace qn {

bool JsonWalk::Next() {
  if (!started_) return started_ = true;
  if (value_.Count() > 0) {
    const auto items = value_.Items();
    open_.push_back({items.begin(), items.end(), std::nullopt});
  }
  while (!open_.empty() && !(open_.back().next != open_.back().end)) open_.pop_back();
  if (open_.empty()) return false;
  Open& open = open_.back();
  const auto item = *open.next;
  ++open.next;
  ++open.index;
  open.key = key_ = item.key;
  value_ = item.value;
  return true;
}

std::string JsonWalk::Path() const {
  constexpr std::size_t kMostParts = 12;
  const std::size_t first = open_.size() > kMostParts ? open_.size() - kMostParts : 0;
  std::string path = first > 0 ? "..." : "";
  for (std::size_t level = first; level < open_.size(); ++level) {
    const Open& open = open_[level];
    if (!path.empty() && open.key) path += '\\';
    if (open.key) {
      path += open.key->String();
    } else {
      path += '[';
      path += std::to_string(open.index - 1) + "]";
    }
  }
  return path;
}

}  // namespace qn
