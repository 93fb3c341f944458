// SPDX-License-Identifier: MIT
// Paths into JSON documents, as people write them.
//
// Two notations: a pointer (RFC 6901), which starts with "/" or is empty; and keys separated by
// backslashes, as the library has them, with elements in brackets: server\ports[0]\name. A key that
// looks like one with brackets is found all the same when it exists.
#ifndef QN_JSON_PATH_H_
#define QN_JSON_PATH_H_

#include <quarnfc/ext/json_text.h>

#include <string>
#include <vector>

namespace qn {

// How far a path leads: to a value that exists, with the steps that are left; none when it exists
// whole.
struct JsonPlaceInTree {
  quarnfc::ext::JsonTextNode node;
  std::vector<std::string> missing;  // keys, or elements as "[3]" and "[-]"
};

// Follows a path. Throws Failure when it is none, and when a key on the way occurs twice in its
// object, so that it does not say which is meant. With ignore_case a key that differs in the case
// of a-z is as good when there is no equal one.
JsonPlaceInTree FollowJsonPath(const quarnfc::ext::JsonTextNode& root, const std::string& path,
                               bool ignore_case = false);

// The value at a path. Throws Failure when there is none.
quarnfc::ext::JsonTextNode ValueAtJsonPath(const quarnfc::ext::JsonTextNode& root,
                                           const std::string& path, bool ignore_case = false);

// Whether a step that leads on names an element of an array: "[3]", or "[-]" for a new last one.
bool IsJsonElementStep(const std::string& step);

}  // namespace qn

#endif  // QN_JSON_PATH_H_
