// SPDX-License-Identifier: MIT
// The file that qn http -O writes is named by somebody else.
#include <gtest/gtest.h>

#include <string>

#include "qn/http_url.h"

namespace {

TEST(QnHttpUrl, TheRemoteNameIsTheLastPartOfThePathOrNone) {
  const struct {
    const char* path;
    std::string name;
  } cases[] = {
      {"/a/b.txt", "b.txt"},
      {"/a/b.txt?q=/c", "b.txt"},
      {"/%E9%95%BF.json", "\xE9\x95\xBF.json"},
      {"/..name", "..name"},
      {"/name..", "name.."},
      {"/", ""},
      {"/a/", ""},
      {"/%2E", ""},
      {"/%2E%2E", ""},
      {"/a%2Fb", ""},
      {"/..%5Cb", ""},
      {"/c%3Ab", ""},
      {"/a%0Ab", ""},
      {"/a%1Fb", ""},
      {"/a%7Fb", ""},
      {"/a.txt%00.exe", ""},
      {"/a%20b", "a b"},
  };
  for (const auto& c : cases) {
    qn::HttpUrl url;
    url.object = c.path;
    EXPECT_EQ(qn::RemoteName(url), c.name) << c.path;
  }
}

}  // namespace
