// A walk through a JSON tree of any depth, in the order of the text.
#ifndef QN_JSON_TREE_H_
#define QN_JSON_TREE_H_

#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include <cstddef>
#include <string>
#include <vector>

namespace qn {

class JsonWalk {
 public:
  // Starts before root, which must outlive the walk and stay as it is.
  explicit JsonWalk(const CMyJsonValue& root) : value_(&root) {}

  // Goes to the next value, the first time to the root. False behind the last one.
  bool Next();

  const CMyJsonValue& Value() const { return *value_; }

  // How many objects and arrays the value is in.
  std::size_t Level() const { return open_.size(); }

  // Whether the value is a member of an object, and the key it then has.
  bool IsMember() const { return !open_.empty() && open_.back().container->IsObj(); }
  const CQNString& Key() const { return key_; }

  // Where the value is: keys separated by backslashes, "[5]" for the sixth element. Only the
  // innermost parts of a long path.
  std::string Path() const;

 private:
  struct Open {
    const CMyJsonValue* container;
    int next;  // the index of the next item
  };

  const CMyJsonValue* value_;
  CQNString key_;
  bool started_ = false;
  std::vector<Open> open_;
};

// The number of members or elements; 0 for a value that is neither object nor array.
int JsonItemCount(const CMyJsonValue& value);

}  // namespace qn

#endif  // QN_JSON_TREE_H_
