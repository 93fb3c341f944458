// SPDX-License-Identifier: MIT
#include "io/messages.h"

#include <gtest/gtest.h>

#include "tests/io/csv_rows.h"

namespace quarnfc::io {
namespace {

TEST(CsvMessages, DecodeToTheirTexts) {
  const struct {
    const char* message;
    const char16_t* text;
  } kCases[] = {{kCsvOpenFailed, u"打开 %s 失败，错误码: %d"},
                {kCsvReadFailed, u"读取 %s 失败，错误码: %d"},
                {kCsvNotOpen, u"未打开文件!"},
                {kCsvNoHeader, u"CSV数据为空或格式无效!"},
                {kCsvLineTooLong, u"文件中数据的行长度超过缓存长度(%d字节)，处理失败!"}};
  for (const auto& [message, text] : kCases) EXPECT_EQ(io_test::FromAnsi(message), text);
}

}  // namespace
}  // namespace quarnfc::io
