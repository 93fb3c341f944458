// The shape of a JSON tree, for people.
#ifndef QN_JSON_SHAPE_H_
#define QN_JSON_SHAPE_H_

#include <quarnfc/json_value.h>

#include <string>

namespace qn {

// Lines of text: how many values of which type, how deep, the longest arrays, the keys per level.
std::string DescribeJsonShape(const CMyJsonValue& root);

}  // namespace qn

#endif  // QN_JSON_SHAPE_H_
