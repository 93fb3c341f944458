// SPDX-License-Identifier: MIT
#include <quarnfc/url.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/net/test_text.h"

namespace {

struct Parsed {
  int result;
  DWORD service = 7;
  unsigned short port = 7;
  CQNString server = "old server";
  CQNString object = "old object";
  CQNString user = "old user";
  CQNString password = "old password";
};

Parsed Parse(const char* url) {
  Parsed parsed;
  parsed.result = qnParseURL(url, parsed.service, parsed.server, parsed.object, parsed.port);
  return parsed;
}

Parsed ParseEx(const char* url, DWORD flags) {
  Parsed parsed;
  parsed.result = qnParseURLEx(url, parsed.service, parsed.server, parsed.object, parsed.port,
                               parsed.user, parsed.password, flags);
  return parsed;
}

TEST(Url, SplitsIntoServiceServerObjectAndPort) {
  const struct {
    const char* url;
    DWORD service;
    const char* server;
    const char* object;
    unsigned short port;
  } cases[] = {
      {"http://h/p", eServiceHttp, "h", "/p", 80},
      {"http://h", eServiceHttp, "h", "/", 80},
      {"HTTP://Host.Example:8080/a/b.txt", eServiceHttp, "Host.Example", "/a/b.txt", 8080},
      {"https://h/p?q=1", eServiceHttps, "h", "/p?q=1", 443},
      {"https://h:8443/p", eServiceHttps, "h", "/p", 8443},
      {"http://h/p?q=a/b#part", eServiceHttp, "h", "/p?q=a/b#part", 80},
      {"http://h/p#part?no-query", eServiceHttp, "h", "/p#part?no-query", 80},
      {"http://u:secret@h:81/p", eServiceHttp, "h", "/p", 81},
      {"ftp://h/f", eServiceFtp, "h", "/f", 21},
      {"http://127.0.0.1:65535/", eServiceHttp, "127.0.0.1", "/", 65535},
  };
  for (const auto& c : cases) {
    const Parsed parsed = Parse(c.url);
    EXPECT_EQ(parsed.result, 1) << c.url;
    EXPECT_EQ(parsed.service, c.service) << c.url;
    EXPECT_EQ(TextOf(parsed.server), c.server) << c.url;
    EXPECT_EQ(TextOf(parsed.object), c.object) << c.url;
    EXPECT_EQ(parsed.port, c.port) << c.url;
  }
}

enum Where { kEverywhere, kNotUnderWine };

struct UrlRow {
  DWORD flags;
  const char* url;
  int result;
  DWORD service;
  unsigned short port;
  const char* server;
  const char* object;
  const char* user;
  const char* password;
  Where where;
};

constexpr UrlRow kUrlTable[] = {
#include "tests/net/url_table.inc"
};

// Known of Wine: the dots of the last segment and those below the root stay, also in queries;
// addresses with colons, credentials with colons and ports that are none are cut anywhere; paths
// with double-byte characters lose their end; "&" in a path is escaped; a missing server, and a
// missing "/" in front of a query, are let through; spaces in front of a URL are not.
TEST(UrlTable, HoldsOnEveryTarget) {
  int checked = 0;
  for (const UrlRow& row : kUrlTable) {
    if (row.where == kNotUnderWine && UnderWine()) continue;
    ++checked;
    const Parsed parsed = ParseEx(row.url, row.flags);
    EXPECT_EQ(parsed.result, row.result) << row.url << std::hex << row.flags;
    EXPECT_EQ(parsed.service, row.service) << row.url;
    EXPECT_EQ(parsed.port, row.port) << row.url;
    if (row.result == 0) continue;
    EXPECT_EQ(TextOf(parsed.server), row.server) << row.url;
    EXPECT_EQ(TextOf(parsed.object), row.object) << row.url << std::hex << row.flags;
    EXPECT_EQ(TextOf(parsed.user), row.user) << row.url;
    EXPECT_EQ(TextOf(parsed.password), row.password) << row.url;
  }
  EXPECT_GT(checked, 450);
}

TEST(Url, MayBeTheTextOfAStringThatReceivesAPart) {
  DWORD service = 0;
  unsigned short port = 0;
  CQNString server = "http://h:81/p";
  CQNString object;
  CQNString user;
  CQNString password;
  EXPECT_EQ(qnParseURL(server, service, server, object, port), 1);
  EXPECT_EQ(TextOf(server), "h");
  EXPECT_EQ(TextOf(object), "/p");

  password = "http://u:secret@h/p";
  EXPECT_EQ(qnParseURLEx(password, service, server, object, port, user, password, 0), 1);
  EXPECT_EQ(TextOf(user), "u");
  EXPECT_EQ(TextOf(password), "secret");
}

TEST(Url, MapsEverySchemeToItsServiceCode) {
  const struct {
    const char* url;
    DWORD service;
  } cases[] = {{"ftp://h/", 1},        {"gopher://h/", 2},       {"http://h/", 3},
               {"https://h/", 0x100B}, {"file:///c:/x", 0x1001}, {"news:group", 0x1006},
               {"mailto:a@h", 0x1002}, {"strange://h/x", 0x1000}};
  for (const auto& c : cases) EXPECT_EQ(Parse(c.url).service, c.service) << c.url;
}

TEST(Url, GopherHasThePort70) {
  SKIP_UNDER_WINE("has no default port for gopher and reports 0");
  EXPECT_EQ(Parse("gopher://h/").port, 70);
}

TEST(Url, NullTouchesNothingButTheService) {
  for (const Parsed& parsed : {Parse(nullptr), ParseEx(nullptr, ICU_BROWSER_MODE)}) {
    EXPECT_EQ(parsed.result, 0);
    EXPECT_EQ(parsed.service, 0x1000u);
    EXPECT_EQ(parsed.port, 7);
    EXPECT_EQ(TextOf(parsed.server), "old server");
    EXPECT_EQ(TextOf(parsed.object), "old object");
    EXPECT_EQ(TextOf(parsed.user), "old user");
    EXPECT_EQ(TextOf(parsed.password), "old password");
  }
}

TEST(Url, WithoutASchemeIsRefusedAndLeavesThePort) {
  for (const char* url : {"h/p", "www.example.com", "", "/p"}) {
    const Parsed parsed = Parse(url);
    EXPECT_EQ(parsed.result, 0) << url;
    EXPECT_EQ(parsed.service, 0x1000u) << url;
    EXPECT_EQ(parsed.port, 7) << url;
  }
}

TEST(Url, StringsKeepTheirTextWhenThePlatformWritesNothing) {
  const Parsed parsed = Parse("h/p");
  EXPECT_EQ(TextOf(parsed.server), "old server");
  EXPECT_EQ(TextOf(parsed.object), "old object");
}

TEST(Url, AStringLongerThanItsPartKeepsItsTextToo) {
  const std::string long_text(5000, 'x');
  CQNString server(long_text.c_str());
  CQNString object;
  DWORD service = 0;
  unsigned short port = 0;
  EXPECT_EQ(qnParseURL("h/p", service, server, object, port), 0);
  EXPECT_EQ(TextOf(server), long_text);
}

TEST(Url, OutputsDoNotDisturbStringsThatSharedTheirText) {
  CQNString server("shared");
  const CQNString copy(server);
  CQNString object;
  DWORD service = 0;
  unsigned short port = 0;
  EXPECT_EQ(qnParseURL("http://other/p", service, server, object, port), 1);
  EXPECT_EQ(TextOf(server), "other");
  EXPECT_EQ(TextOf(copy), "shared");
}

TEST(Url, LongerThanTheLocalBufferStillParses) {
  // 2084 characters is the longest canonical URL that fits the local buffer.
  const std::string host(100, 'h');
  for (const size_t length : {1900u, 1976u, 1977u, 2000u, 2050u}) {
    const std::string object = "/" + std::string(length - 1, 'p');
    std::string url = "http://" + host;
    url += object;
    const Parsed parsed = Parse(url.c_str());
    EXPECT_EQ(parsed.result, 1) << length;
    EXPECT_EQ(TextOf(parsed.server), host) << length;
    EXPECT_EQ(TextOf(parsed.object), object) << length;
  }
}

TEST(Url, PartsBeyondTheirLengthFail) {
  const std::string host(257, 'h');
  const std::string path(2100, 'p');
  EXPECT_EQ(ParseEx(("http://" + host + "/p").c_str(), ICU_BROWSER_MODE).result, 0);
  EXPECT_EQ(ParseEx(("http://h/" + path.substr(0, 2048)).c_str(), ICU_BROWSER_MODE).result, 0);
  EXPECT_EQ(Parse(("http://h/" + path).c_str()).result, 0);

  const Parsed parsed = Parse(("http://" + host + "/p").c_str());
  EXPECT_EQ(parsed.result, 1);
  EXPECT_EQ(TextOf(parsed.server), host);
}

TEST(Url, HostileUrlsFailOrParseSafely) {
  const std::string urls[] = {std::string(100000, 'a'),
                              "http://" + std::string(100000, 'h'),
                              "http://h/" + std::string(100000, '%'),
                              "http://h/%",
                              "http://h/%zz%1",
                              "http://h:99999999999/",
                              "http://h:-1/",
                              "http://@@@:::/",
                              "http://[::1/",
                              "http:////////",
                              "\x01\x02\xFF\xFE",
                              "http://\xC4\xE3\xBA\xC3/\x81"};
  for (const std::string& url : urls) {
    for (const DWORD flags : {0u, 0x02000000u, 0x12000000u, 0x90000000u}) {
      const Parsed parsed = ParseEx(url.c_str(), flags);
      if (parsed.result == 0) {
        EXPECT_EQ(parsed.service, 0x1000u);
        EXPECT_EQ(parsed.port, 7);
      }
    }
  }
}

TEST(UrlEx, SplitsCredentials) {
  const Parsed parsed = ParseEx("http://user:secret@h/p", ICU_BROWSER_MODE);
  EXPECT_EQ(parsed.result, 1);
  EXPECT_EQ(TextOf(parsed.user), "user");
  EXPECT_EQ(TextOf(parsed.password), "secret");
  EXPECT_EQ(TextOf(parsed.server), "h");
  EXPECT_EQ(TextOf(parsed.object), "/p");
}

TEST(UrlEx, BrowserModeDecodesTheObjectUpToItsQuery) {
  const struct {
    const char* url;
    DWORD flags;
    const char* object;
  } cases[] = {
      {"http://h/a%20b?c%20d", ICU_DECODE | ICU_BROWSER_MODE, "/a b?c%20d"},
      {"http://h/a%20b?c%20d", ICU_ESCAPE | ICU_BROWSER_MODE, "/a b?c%20d"},
      {"http://h/a%20b#c%20d", ICU_DECODE | ICU_BROWSER_MODE, "/a b#c%20d"},
      {"http://h/a%20b?c%20d", ICU_BROWSER_MODE, "/a%20b?c%20d"},
      {"http://h/a%41", ICU_DECODE | ICU_BROWSER_MODE, "/aA"},
      {"http://h/%", ICU_DECODE | ICU_BROWSER_MODE, "/%"},
  };
  for (const auto& c : cases) {
    const Parsed parsed = ParseEx(c.url, c.flags);
    EXPECT_EQ(parsed.result, 1) << c.url;
    EXPECT_EQ(TextOf(parsed.object), c.object) << c.url << " " << std::hex << c.flags;
  }
}

TEST(UrlEx, WithoutBrowserModeThePlatformDecodes) {
  SKIP_UNDER_WINE("InternetCrackUrl ignores ICU_ESCAPE");
  EXPECT_EQ(TextOf(ParseEx("http://h/a%20b", ICU_DECODE).object), "/a b");
  EXPECT_EQ(TextOf(ParseEx("http://h/a%20b", ICU_ESCAPE).object), "/a b");
}

TEST(UrlEx, CanonicalisationTakesOnlyItsOwnFlags) {
  // Encoding of spaces and removal of "." and ".." are governed by flags; decoding is not asked
  // for.
  const struct {
    const char* url;
    DWORD flags;
    const char* object;
  } cases[] = {
      {"http://h/a b?c d", ICU_BROWSER_MODE, "/a%20b?c d"},
      {"http://h/a b", ICU_ENCODE_SPACES_ONLY, "/a%20b"},
      {"http://h/a b", ICU_NO_ENCODE, "/a b"},
      {"http://h/a/../b", ICU_NO_ENCODE, "/b"},
      {"http://h/a/../b", ICU_NO_ENCODE | ICU_NO_META, "/a/../b"},
      {"http://h/a%20b", 0, "/a%20b"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(TextOf(ParseEx(c.url, c.flags).object), c.object)
        << c.url << " " << std::hex << c.flags;
  }
}

}  // namespace
