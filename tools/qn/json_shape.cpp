#include "json_shape.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <vector>

#include "json_tree.h"

namespace qn {
namespace {

constexpr std::size_t kMostArrays = 5;
constexpr std::size_t kMostLevels = 5;
constexpr std::size_t kMostKeys = 8;

// By CMyJsonValue::EValueType.
constexpr std::array<const char*, 6> kTypeNames = {"nulls",  "strings",  "numbers",
                                                   "arrays", "booleans", "objects"};

struct LongArray {
  int length;
  std::string path;
};

// The keys of one level, in order of appearance, and how often each occurs.
class LevelKeys {
 public:
  void Add(const CQNString& key) {
    const auto [place, added] = counts_.try_emplace(static_cast<const char*>(key), 0);
    if (added) order_.emplace_back(place);
    ++place->second;
  }

  bool IsEmpty() const { return order_.empty(); }

  std::string Describe() const {
    std::string line;
    for (std::size_t i = 0; i < std::min(order_.size(), kMostKeys); ++i) {
      line += (i > 0 ? ", " : "") + order_[i]->first;
      if (order_[i]->second > 1) line += " (" + std::to_string(order_[i]->second) + ")";
    }
    if (order_.size() <= kMostKeys) return line;
    return line + " and " + std::to_string(order_.size() - kMostKeys) + " more";
  }

 private:
  std::map<std::string, long long> counts_;
  std::vector<std::map<std::string, long long>::const_iterator> order_;
};

class Shape {
 public:
  explicit Shape(const CMyJsonValue& root) {
    JsonWalk walk(root);
    while (walk.Next()) Count(walk);
  }

  std::string Describe() const {
    return DescribeTypes() + "depth     " + std::to_string(depth_) + "\n" + DescribeArrays() +
           DescribeKeys();
  }

 private:
  void Count(const JsonWalk& walk) {
    const CMyJsonValue& value = walk.Value();
    ++types_[static_cast<std::size_t>(value.Type())];
    if (value.IsObj() || value.IsArr()) depth_ = std::max(depth_, walk.Level() + 1);
    if (walk.IsMember() && walk.Level() <= kMostLevels) keys_[walk.Level() - 1].Add(walk.Key());
    if (value.IsArr()) CountArray(walk);
  }

  // The first of equally long arrays goes before the others.
  void CountArray(const JsonWalk& walk) {
    const int length = walk.Value().ValueArrLength();
    if (arrays_.size() == kMostArrays && arrays_.back().length >= length) return;
    const auto place = std::find_if(arrays_.begin(), arrays_.end(),
                                    [&](const LongArray& other) { return other.length < length; });
    arrays_.insert(place, {length, walk.Path()});
    if (arrays_.size() > kMostArrays) arrays_.pop_back();
  }

  std::string DescribeTypes() const {
    std::string line;
    for (const auto type : {CMyJsonValue::eObj, CMyJsonValue::eArr, CMyJsonValue::eStr,
                            CMyJsonValue::eNumber, CMyJsonValue::eBool, CMyJsonValue::eEmpty}) {
      if (types_[type] == 0) continue;
      line += (line.empty() ? "" : ", ") + std::to_string(types_[type]) + " " + kTypeNames[type];
    }
    return "values    " + line + "\n";
  }

  std::string DescribeArrays() const {
    if (arrays_.empty()) return "";
    std::string lines = "longest arrays\n";
    for (const LongArray& each : arrays_) {
      std::string line = "  " + std::to_string(each.length);
      line.resize(std::max<std::size_t>(line.size() + 1, 10), ' ');
      lines += line + (each.path.empty() ? "(the document)" : each.path) + "\n";
    }
    return lines;
  }

  std::string DescribeKeys() const {
    std::string lines;
    for (std::size_t level = 0; level < kMostLevels; ++level) {
      if (keys_[level].IsEmpty()) continue;
      lines += "  level " + std::to_string(level + 1) + " " + keys_[level].Describe() + "\n";
    }
    if (lines.empty()) return "";
    return "keys, and how often they occur\n" + lines;
  }

  std::array<long long, kTypeNames.size()> types_{};
  std::size_t depth_ = 0;
  std::vector<LongArray> arrays_;
  std::array<LevelKeys, kMostLevels> keys_;
};

}  // namespace

std::string DescribeJsonShape(const CMyJsonValue& root) { return Shape(root).Describe(); }

}  // namespace qn
