// SPDX-License-Identifier: MIT
// The cookies that qn http keeps in a file.
#include <gtest/gtest.h>

#include <string>

#include "qn/http_cookie_jar.h"
#include "qn/input_file.h"
#include "qn/output_file.h"

namespace {

using qn::HttpCookieJar;

std::string TestFile() { return testing::TempDir() + "cookies.txt"; }

void Write(const std::string& text) {
  qn::OutputFile file(TestFile());
  file.Write(text);
  file.Commit();
}

// What url is sent after it has set a cookie itself.
std::string Kept(const std::string& from, const std::string& set_cookie, const std::string& to) {
  HttpCookieJar jar;
  jar.Take(qn::ParseUrl(from), set_cookie);
  return jar.HeaderFor(qn::ParseUrl(to));
}

TEST(QnHttpCookieJar, SendsACookieWhereItBelongs) {
  struct Case {
    const char* from;
    const char* set_cookie;
    const char* to;
    const char* sent;
  };
  const Case cases[] = {
      {"http://h.test/", "a=1", "http://h.test/x/y", "a=1"},
      {"http://h.test/", "a=1", "https://h.test:444/", "a=1"},
      {"http://H.test/", " a = 1 ; ignored", "http://h.TEST/", "a=1"},
      {"http://h.test/", "a=", "http://h.test/", "a="},
      {"http://h.test/", "a=1=2", "http://h.test/", "a=1=2"},
      {"http://h.test/", "no pair", "http://h.test/", ""},
      {"http://h.test/", "=1", "http://h.test/", ""},
      // Domains.
      {"http://h.test/", "a=1", "http://sub.h.test/", ""},
      {"http://h.test/", "a=1", "http://xh.test/", ""},
      {"http://sub.h.test/", "a=1; Domain=h.test", "http://other.h.test/", "a=1"},
      {"http://sub.h.test/", "a=1; domain=.h.test", "http://h.test/", "a=1"},
      {"http://sub.h.test/", "a=1; Domain=h.test", "http://xh.test/", ""},
      {"http://h.test/", "a=1; Domain=other.test", "http://other.test/", ""},
      {"http://h.test/", "a=1; Domain=test", "http://x.test/", ""},
      {"http://127.0.0.1/", "a=1; Domain=0.0.1", "http://127.0.0.1/", ""},
      // Paths.
      {"http://h.test/x/y?q=/", "a=1", "http://h.test/x/z", "a=1"},
      {"http://h.test/x/y", "a=1", "http://h.test/", ""},
      {"http://h.test/", "a=1; Path=/x", "http://h.test/x", "a=1"},
      {"http://h.test/", "a=1; Path=/x", "http://h.test/x/y", "a=1"},
      {"http://h.test/", "a=1; Path=/x", "http://h.test/xy", ""},
      {"http://h.test/x/y", "a=1; Path=none", "http://h.test/x/z", "a=1"},
      // Secure ones.
      {"https://h.test/", "a=1; Secure", "https://h.test/", "a=1"},
      {"https://h.test/", "a=1; Secure", "http://h.test/", ""},
      {"http://h.test/", "a=1; Secure", "https://h.test/", ""},
      // Time.
      {"http://h.test/", "a=1; Max-Age=1000", "http://h.test/", "a=1"},
      {"http://h.test/", "a=1; Max-Age=0", "http://h.test/", ""},
      {"http://h.test/", "a=1; Expires=Sun, 06 Nov 1994 08:49:37 GMT", "http://h.test/", ""},
      {"http://h.test/", "a=1; Expires=Sun, 06 Nov 2094 08:49:37 GMT", "http://h.test/", "a=1"},
      {"http://h.test/", "a=1; Expires=Sun, 06 Nov 1994 08:49:37 GMT; Max-Age=9", "http://h.test/",
       "a=1"},
      {"http://h.test/", "a=1; Max-Age=9; Expires=Sun, 06 Nov 1994 08:49:37 GMT", "http://h.test/",
       "a=1"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Kept(c.from, c.set_cookie, c.to), c.sent)
        << c.from << " " << c.set_cookie << " " << c.to;
  }
}

TEST(QnHttpCookieJar, SendsLongerPathsFirstAndReplacesACookie) {
  const qn::HttpUrl url = qn::ParseUrl("http://h.test/x/y");
  HttpCookieJar jar;
  jar.Take(url, "a=1; path=/");
  jar.Take(url, "b=2; path=/x");
  jar.Take(url, "c=3; path=/");
  jar.Take(url, "a=4; path=/");
  EXPECT_EQ(jar.HeaderFor(url), "b=2; a=4; c=3");
  jar.Take(url, "a=; path=/; max-age=-1");
  EXPECT_EQ(jar.HeaderFor(url), "b=2; c=3");
}

TEST(QnHttpCookieJar, ReadsWhatOthersWrite) {
  Write(
      "# Netscape HTTP Cookie File\r\n"
      "\n"
      ".h.test\tTRUE\t/\tFALSE\t0\twide\t1\r\n"
      "h.test\tFALSE\t/\tFALSE\t4102444800\town\t2\n"
      "#HttpOnly_h.test\tFALSE\t/\tFALSE\t0\thidden\t3\n"
      "h.test\tFALSE\t/\tTRUE\t0\tsecure\t4\n"
      "h.test\tFALSE\t/\tFALSE\t1000\told\t5\n"
      "h.test\tFALSE\t/\tFALSE\t0\tempty\t\n"
      "h.test\tFALSE\n"
      "no cookie at all\n"
      "h.test\tFALSE\t/\tFALSE\t0\tlast\t6");
  HttpCookieJar jar;
  jar.Load(TestFile());
  EXPECT_EQ(jar.HeaderFor(qn::ParseUrl("http://h.test/")),
            "wide=1; own=2; hidden=3; empty=; last=6");
  EXPECT_EQ(jar.HeaderFor(qn::ParseUrl("http://sub.h.test/")), "wide=1");
}

TEST(QnHttpCookieJar, WritesWhatOthersRead) {
  HttpCookieJar jar;
  const qn::HttpUrl url = qn::ParseUrl("https://sub.h.test/x/y");
  jar.Take(url, "a=1");
  jar.Take(url,
           "b=2; Domain=h.test; Path=/; Secure; HttpOnly; "
           "Expires=Fri, 01-Jan-2100 00:00:00 GMT");
  jar.Take(url, "c=3; Max-Age=0");
  jar.Save(TestFile());
  EXPECT_EQ(qn::ReadInput(TestFile()),
            "# Netscape HTTP Cookie File\n"
            "sub.h.test\tFALSE\t/x\tFALSE\t0\ta\t1\n"
            "#HttpOnly_.h.test\tTRUE\t/\tTRUE\t4102444800\tb\t2\n");
}

TEST(QnHttpCookieJar, AFileThatIsNotThereHasNoCookies) {
  HttpCookieJar jar;
  jar.Load(testing::TempDir() + "no such file");
  EXPECT_EQ(jar.HeaderFor(qn::ParseUrl("http://h.test/")), "");
}

TEST(QnHttpCookieJar, ReadsDatesOfEveryForm) {
  EXPECT_EQ(qn::CookieDate("Sun, 06 Nov 1994 08:49:37 GMT"), 784111777);
  EXPECT_EQ(qn::CookieDate("Sun, 06-Nov-1994 08:49:37 GMT"), 784111777);
  EXPECT_EQ(qn::CookieDate("Sunday, 06-Nov-94 08:49:37 GMT"), 784111777);
  for (const char* none :
       {"", "tomorrow", "Sun, 31 Feb 1994 08:49:37 GMT", "Sun, 06 Nov 1994 25:49:37 GMT",
        "Sun, 06 Foo 1994 08:49:37 GMT", "Sun, 06 Nov 1994"}) {
    EXPECT_EQ(qn::CookieDate(none), 0) << none;
  }
}

}  // namespace
