// SPDX-License-Identifier: MIT
// A walk through a JSON document of any depth, in the order of the text.
#ifndef QN_JSON_WALK_H_
#define QN_JSON_WALK_H_

#include <quarnfc/ext/json_text.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace qn {

class JsonWalk {
 public:
  // Starts before root.
  explicit JsonWalk(const quarnfc::ext::JsonTextNode& root) : value_(root) {}

  // Goes to the next value, the first time to the root. False behind the last one.
  bool Next();

  const quarnfc::ext::JsonTextNode& Value() const { return value_; }

  // How many objects and arrays the value is in.
  std::size_t Level() const { return open_.size(); }

  // The key of a member; nothing for every other value.
  const std::optional<quarnfc::ext::JsonTextNode>& Key() const { return key_; }

  // Where the value is: keys separated by backslashes, "[5]" for the sixth element. Only the
  // innermost parts of a long path.
  std::string Path() const;

 private:
  struct Open {
    quarnfc::ext::JsonItems::Iterator next;
    quarnfc::ext::JsonItems::Iterator end;
    std::optional<quarnfc::ext::JsonTextNode> key;  // of the item that the walk is in
    std::size_t index = 0;                          // of that item, from 1
  };

  quarnfc::ext::JsonTextNode value_;
  std::optional<quarnfc::ext::JsonTextNode> key_;
  bool started_ = false;
  std::vector<Open> open_;
};

}  // namespace qn

#endif  // QN_JSON_WALK_H_
