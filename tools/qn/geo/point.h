// SPDX-License-Identifier: MIT
// Points as text.
#ifndef QN_GEO_POINT_H_
#define QN_GEO_POINT_H_

#include <string>
#include <string_view>

namespace qn {

struct Point {
  double x;  // longitude or easting
  double y;  // latitude or northing
};

// Which of two coordinates comes first.
enum class AxisOrder { kEastNorth, kNorthEast };

// From "en" or "ne". Throws UsageError.
AxisOrder AxisOrderFrom(const std::string& name);

// A number written in full, nothing around it but blanks; false otherwise. "nan" and "inf" are
// none.
bool ReadNumber(std::string_view text, double& number);

// A coordinate: a number or, for degrees, degrees, minutes and seconds with a sign or a letter.
bool ReadCoordinate(std::string_view text, bool degrees, double& number);

// A point as "x,y", or "y,x" by its order, with another separator if asked.
std::string FormatPoint(const Point& point, int decimals, AxisOrder order = AxisOrder::kEastNorth,
                        char separator = ',');

// The same as members of a JSON object: "longitude":112.5,"latitude":28.2 for degrees, "easting"
// and "northing" otherwise.
std::string PointMembers(const Point& point, int decimals, bool degrees);

}  // namespace qn

#endif  // QN_GEO_POINT_H_
