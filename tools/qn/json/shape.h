// SPDX-License-Identifier: MIT
// The shape of a JSON tree, for people.
#ifndef QN_JSON_SHAPE_H_
#define QN_JSON_SHAPE_H_

#include <quarnfc/ext/json_text.h>

#include <string>

namespace qn {

// Lines of text: how many values of which type, how deep, the longest arrays, the keys per level.
std::string DescribeJsonShape(const quarnfc::ext::JsonTextNode& root);

}  // namespace qn

#endif  // QN_JSON_SHAPE_H_
