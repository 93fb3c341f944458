// SPDX-License-Identifier: MIT
#include "geo/messages.h"

#include <gtest/gtest.h>
#include <quarnfc/string_utils.h>

#include <string>
#include <vector>

namespace {

namespace messages = quarnfc::geo::messages;

std::u16string Decoded(const char* text) {
  const int count = QNStringUtils::Ansi2Unicode(text, nullptr, 0);
  std::vector<wchar_t> wide(static_cast<std::size_t>(count) + 1);
  QNStringUtils::Ansi2Unicode(text, wide.data(), count);
  return std::u16string(wide.begin(), wide.begin() + count - 1);
}

TEST(GeoMessages, DecodeToTheirTexts) {
  const struct {
    const char* message;
    const char16_t* text;
  } cases[] = {
      {messages::kNullText, u"WKT参数为NULL"},
      {messages::kNoKey, u"无效的WKT格式，未发现KEY[xxx]定义"},
      {messages::kBracketsDoNotMatch, u"无效的WKT格式，[]不匹配"},
      {messages::kNoEndMark, u"无效的WKT格式，%s后未发现结束标记"},
      {messages::kNoValidEndMark, u"无效的WKT格式，%s后未发现有效的结束标记"},
      {messages::kNoSpheroid, u"未发现GEOGCS\\DATUM\\SPHEROID，或值非法!"},
      {messages::kNoProjection, u"未定义PROJCS\\PROJECTION[\"xxx\"]"},
      {messages::kWrongProjection, u"PROJECTION只支持Transverse_Mercator，不支持当前定义的%s"},
      {messages::kNoCentralMeridian, u"未定义有效的PARAMETER[\"central_meridian\",xx]"},
      {messages::kNoFalseEasting, u"未定义有效的PARAMETER[\"false_easting\",xx]"},
      {messages::kNoFalseNorthing, u"未定义有效的PARAMETER[\"false_northing\",xx]"},
      {messages::kNoScaleFactor, u"未定义有效的PARAMETER[\"scale_factor\",xx]"},
  };
  for (const auto& c : cases) EXPECT_TRUE(Decoded(c.message) == c.text) << c.message;
}

}  // namespace
