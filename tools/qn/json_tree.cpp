#include "json_tree.h"

namespace qn {
namespace {

// The item at index, and its key when it is a member.
const CMyJsonValue* ItemOf(const CMyJsonValue& container, int index, CQNString& key) {
  if (!container.IsObj()) return container.ValueArrItem(index);
  CMyJsonValue* value = nullptr;
  container.ValueObj()->Item(index, key, value);
  return value;
}

}  // namespace

int JsonItemCount(const CMyJsonValue& value) {
  return value.IsObj() ? value.ValueObj()->ValueCount() : value.ValueArrLength();
}

bool JsonWalk::Next() {
  if (!started_) return started_ = true;
  if (JsonItemCount(*value_) > 0) open_.push_back({value_, 0});
  while (!open_.empty() && open_.back().next == JsonItemCount(*open_.back().container)) {
    open_.pop_back();
  }
  if (open_.empty()) return false;
  Open& open = open_.back();
  value_ = ItemOf(*open.container, open.next++, key_);
  return true;
}

std::string JsonWalk::Path() const {
  constexpr std::size_t kMostParts = 12;
  const std::size_t first = open_.size() > kMostParts ? open_.size() - kMostParts : 0;
  std::string path = first > 0 ? "..." : "";
  for (std::size_t level = first; level < open_.size(); ++level) {
    const Open& open = open_[level];
    CQNString key;
    key.Format("[%d]", open.next - 1);
    ItemOf(*open.container, open.next - 1, key);
    if (!path.empty()) path += '\\';
    path += key;
  }
  return path;
}

}  // namespace qn
