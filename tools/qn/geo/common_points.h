// SPDX-License-Identifier: MIT
// Files of points that are known in two systems.
#ifndef QN_GEO_COMMON_POINTS_H_
#define QN_GEO_COMMON_POINTS_H_

#include <string>
#include <string_view>
#include <vector>

namespace qn {

struct CommonPointRow {
  std::string name;             // the number of the line where it has none
  std::vector<double> numbers;  // those of the first system, then those of the second
};

// Reads lines "[name] x y X Y" or "[name] x y z X Y Z", the fields separated by blanks, tabs,
// commas or semicolons. Empty lines and those that start with "#" are passed over, and so is a
// first line without numbers, which is a header. Throws Failure for a line that is none of these
// and for lines of different length; it names the line.
std::vector<CommonPointRow> ReadCommonPoints(std::string_view text, const std::string& file);

}  // namespace qn

#endif  // QN_GEO_COMMON_POINTS_H_
