// SPDX-License-Identifier: MIT
// The messages of this folder, in code page 936 whatever compiler builds them. Beside each: its
// text and its meaning.
#ifndef QUARNFC_GEO_MESSAGES_H_
#define QUARNFC_GEO_MESSAGES_H_

namespace quarnfc::geo::messages {

// 无效的WKT格式， (invalid WKT format,)
#define QN_INVALID_WKT "\xCE\xDE\xD0\xA7\xB5\xC4WKT\xB8\xF1\xCA\xBD\xA3\xAC"
// 未定义有效的 (no valid ... is defined)
#define QN_NO_VALID "\xCE\xB4\xB6\xA8\xD2\xE5\xD3\xD0\xD0\xA7\xB5\xC4"

// WKT参数为NULL (the WKT argument is NULL)
constexpr char kNullText[] = "WKT\xB2\xCE\xCA\xFD\xCE\xAANULL";

// 无效的WKT格式，未发现KEY[xxx]定义 (invalid WKT format, no KEY[xxx] definition found)
constexpr char kNoKey[] = QN_INVALID_WKT "\xCE\xB4\xB7\xA2\xCF\xD6KEY[xxx]\xB6\xA8\xD2\xE5";

// 无效的WKT格式，[]不匹配 (invalid WKT format, [] do not match)
constexpr char kBracketsDoNotMatch[] = QN_INVALID_WKT "[]\xB2\xBB\xC6\xA5\xC5\xE4";

// 无效的WKT格式，%s后未发现结束标记 (invalid WKT format, no end mark found after %s)
constexpr char kNoEndMark[] =
    QN_INVALID_WKT "%s\xBA\xF3\xCE\xB4\xB7\xA2\xCF\xD6\xBD\xE1\xCA\xF8\xB1\xEA\xBC\xC7";

// 无效的WKT格式，%s后未发现有效的结束标记 (invalid WKT format, no valid end mark found after %s)
constexpr char kNoValidEndMark[] = QN_INVALID_WKT
    "%s\xBA\xF3\xCE\xB4\xB7\xA2\xCF\xD6\xD3\xD0\xD0\xA7\xB5\xC4\xBD\xE1\xCA\xF8"
    "\xB1\xEA\xBC\xC7";

// 未发现GEOGCS\DATUM\SPHEROID，或值非法! (GEOGCS\DATUM\SPHEROID not found, or its value is
// illegal!)
constexpr char kNoSpheroid[] =
    "\xCE\xB4\xB7\xA2\xCF\xD6GEOGCS\\DATUM\\SPHEROID\xA3\xAC\xBB\xF2\xD6\xB5\xB7\xC7\xB7\xA8!";

// 未定义PROJCS\PROJECTION["xxx"] (PROJCS\PROJECTION["xxx"] is not defined)
constexpr char kNoProjection[] = "\xCE\xB4\xB6\xA8\xD2\xE5PROJCS\\PROJECTION[\"xxx\"]";

// PROJECTION只支持Transverse_Mercator，不支持当前定义的%s
// (PROJECTION supports only Transverse_Mercator, not the %s defined here)
constexpr char kWrongProjection[] =
    "PROJECTION\xD6\xBB\xD6\xA7\xB3\xD6Transverse_Mercator\xA3\xAC\xB2\xBB\xD6\xA7\xB3\xD6"
    "\xB5\xB1\xC7\xB0\xB6\xA8\xD2\xE5\xB5\xC4%s";

// 未定义有效的PARAMETER["...",xx] (no valid PARAMETER["...",xx] is defined)
constexpr char kNoCentralMeridian[] = QN_NO_VALID "PARAMETER[\"central_meridian\",xx]";
constexpr char kNoFalseEasting[] = QN_NO_VALID "PARAMETER[\"false_easting\",xx]";
constexpr char kNoFalseNorthing[] = QN_NO_VALID "PARAMETER[\"false_northing\",xx]";
constexpr char kNoScaleFactor[] = QN_NO_VALID "PARAMETER[\"scale_factor\",xx]";

#undef QN_INVALID_WKT
#undef QN_NO_VALID

}  // namespace quarnfc::geo::messages

#endif  // QUARNFC_GEO_MESSAGES_H_
