// SPDX-License-Identifier: MIT
// The internet functions off Windows, through the classes, over a transport in memory.
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/internet_error_text.h"
#include "platform/posix/internet/basic_credentials.h"
#include "platform/posix/internet/chunk_reader.h"
#include "platform/posix/internet/cookie_store.h"
#include "platform/posix/internet/head.h"
#include "platform/posix/internet/http_date.h"
#include "platform/posix/internet/transport.h"
#include "tests/net/memory_transport.h"
#include "tests/net/test_text.h"

namespace quarnfc::internet {
namespace {

using Texts = std::vector<std::string>;

MemoryAnswer Ok(const std::string& body) { return {{"HTTP/1.1 200 OK"}, body}; }

MemoryAnswer Redirect(const std::string& status, const std::string& location) {
  return {{"HTTP/1.1 " + status, "Location: " + location}, "moved"};
}

class MemoryHttp : public testing::Test {
 protected:
  std::unique_ptr<CQNHttpFile> Open(const char* verb, const char* object = "/a/b",
                                    DWORD flags = 0) {
    connection_.reset(session_->GetHttpConnection("h.test", 0, "user", "secret"));
    return std::unique_ptr<CQNHttpFile>(
        connection_->OpenRequest(verb, object, nullptr, 1, nullptr, "HTTP/1.1", flags));
  }

  ServedFromMemory network_;
  std::unique_ptr<CQNInternetSession> session_ = std::make_unique<CQNInternetSession>("agent", 5);
  std::unique_ptr<CQNHttpConnection> connection_;
};

TEST_F(MemoryHttp, SendsVerbTargetHeadersAndBody) {
  network_->answers = {Ok("content")};
  const auto file = Open("POST", "/a b?q=1");
  char body[] = "body";
  file->SendRequest("X-Own: 1\r\n", 0xFFFFFFFF, body, 4);
  EXPECT_EQ(ReadAll(*file), "content");
  const MemoryRequest& request = network_->requests.at(0);
  EXPECT_EQ(request.head.verb, "POST");
  EXPECT_EQ(request.head.target, "/a%20b?q=1");
  EXPECT_EQ(request.head.route.host, "h.test");
  EXPECT_EQ(request.head.route.port, 80);
  EXPECT_EQ(request.body, "body");
  EXPECT_EQ(request.Header("User-Agent"), "agent");
  EXPECT_EQ(request.Header("X-Own"), "1");
  EXPECT_EQ(request.Header("Authorization"), "(none)");
}

TEST_F(MemoryHttp, ReloadingAsksByTheWordOfTheVersion) {
  const std::pair<const char*, const char*> cases[] = {{"HTTP/1.0", "Pragma"},
                                                       {"HTTP/1.1", "Cache-Control"}};
  network_->answers = {Ok("")};
  connection_.reset(session_->GetHttpConnection("h.test", 0));
  for (const auto& [version, header] : cases) {
    const std::unique_ptr<CQNHttpFile> file(
        connection_->OpenRequest("GET", "/", nullptr, 1, nullptr, version, INTERNET_FLAG_RELOAD));
    file->SendRequest();
    EXPECT_EQ(network_->requests.back().Header(header), "no-cache") << version;
  }
}

TEST_F(MemoryHttp, AnEmptyAgentIsNotSent) {
  session_ = std::make_unique<CQNInternetSession>("");
  network_->answers = {Ok("")};
  Open("GET")->SendRequest();
  EXPECT_EQ(network_->requests.back().Header("User-Agent"), "(none)");
}

TEST_F(MemoryHttp, SeveralTypesAreAcceptedInOneHeader) {
  network_->answers = {Ok("")};
  connection_.reset(session_->GetHttpConnection("h.test", 0));
  const char* types[] = {"text/html", "image/png", nullptr};
  const std::unique_ptr<CQNHttpFile> file(connection_->OpenRequest("GET", "/", "r", 1, types));
  file->SendRequest();
  EXPECT_EQ(network_->requests.back().Header("Accept"), "text/html, image/png");
  EXPECT_EQ(network_->requests.back().Header("Referer"), "r");
}

TEST_F(MemoryHttp, ABodyArrivesWholeHoweverItIsCut) {
  const std::string body = "first\r\nsecond\nthird";
  for (std::size_t piece = 1; piece < 8; ++piece) {
    network_->answers = {{{"HTTP/1.1 200 OK"}, body, piece}};
    const auto file = Open("GET");
    file->SendRequest();
    CQNString line;
    Texts lines;
    while (file->ReadString(line)) lines.push_back(TextOf(line));
    EXPECT_EQ(lines, (Texts{"first", "second", "third"})) << piece;
  }
}

TEST_F(MemoryHttp, ABodyThatFailsHandsOutWhatCameAndThenThrows) {
  network_->answers = {{{"HTTP/1.1 200 OK"}, "part", 4, ERROR_INTERNET_CONNECTION_RESET}};
  const auto file = Open("GET");
  file->SendRequest();
  char bytes[100];
  EXPECT_EQ(file->Read(bytes, sizeof(bytes)), 4u);
  EXPECT_EQ(ThrownBy([&] { file->Read(bytes, 1); }), (Thrown{12031, 5}));
}

TEST_F(MemoryHttp, AHeadThatIsNoneIsAnInvalidResponse) {
  for (const char* line : {"", "garbage", "HTTP/1.1", "HTTP/1.1 20 OK", "HTTP/1.1 2x0 OK"}) {
    network_->answers = {{{line}, "x"}};
    EXPECT_EQ(ThrownBy([&] { Open("GET")->SendRequest(); }), (Thrown{12152, 5})) << line;
  }
}

TEST_F(MemoryHttp, RedirectsAreFollowedByTheirStatus) {
  const struct {
    const char* status;
    const char* verb;
    const char* followed_by;
    const char* body;
  } cases[] = {{"301 Moved", "GET", "GET", "body"},     {"302 Found", "POST", "GET", ""},
               {"303 See Other", "PUT", "GET", ""},     {"307 Temporary", "POST", "POST", "body"},
               {"308 Permanent", "PUT", "PUT", "body"}, {"302 Found", "HEAD", "HEAD", ""}};
  for (const auto& c : cases) {
    network_->requests.clear();
    network_->answers = {Redirect(c.status, "../c?d"), Ok("end")};
    const auto file = Open(c.verb, "/a/b/x");
    char body[] = "body";
    file->SendRequest(nullptr, 0, body, 4);
    ASSERT_EQ(network_->requests.size(), 2u) << c.status;
    EXPECT_EQ(network_->requests[1].head.verb, c.followed_by) << c.status;
    EXPECT_EQ(network_->requests[1].head.target, "/a/c?d") << c.status;
    if (std::string(c.verb) != "HEAD") {
      EXPECT_EQ(network_->requests[1].body, c.body) << c.status;
    }
  }
}

TEST_F(MemoryHttp, RedirectsWithoutEndFail) {
  network_->answers = {Redirect("302 Found", "/again")};
  EXPECT_EQ(ThrownBy([&] { Open("GET")->SendRequest(); }), (Thrown{12156, 5}));
}

TEST_F(MemoryHttp, ASecureRequestIsNotRedirectedToAnInsecureOneUnlessAskedTo) {
  network_->answers = {Redirect("302 Found", "http://h.test/x"), Ok("end")};
  EXPECT_EQ(ThrownBy([&] { Open("GET", "/", INTERNET_FLAG_SECURE)->SendRequest(); }),
            (Thrown{12040, 5}));
  network_->answers = {Redirect("302 Found", "http://h.test/x"), Ok("end")};
  const auto file = Open("GET", "/", INTERNET_FLAG_SECURE | INTERNET_FLAG_IGNORE_REDIRECT_TO_HTTP);
  file->SendRequest();
  EXPECT_EQ(ReadAll(*file), "end");
}

TEST_F(MemoryHttp, AnotherHostPortOrSchemeGetsNoAuthorizationOfTheHost) {
  const std::pair<const char*, const char*> cases[] = {{"http://h.test/x", "own"},
                                                       {"http://other.test/", "(none)"},
                                                       {"http://h.test:81/", "(none)"},
                                                       {"https://h.test:80/", "(none)"}};
  for (const auto& [location, sent] : cases) {
    network_->answers = {Redirect("302 Found", location), Ok("end")};
    Open("GET")->SendRequest("Authorization: own");
    EXPECT_EQ(network_->requests.back().Header("Authorization"), sent) << location;
  }
}

TEST_F(MemoryHttp, ComingBackDoesNotBringTheAuthorizationBack) {
  network_->answers = {Redirect("302 Found", "http://other.test/"),
                       Redirect("302 Found", "http://h.test/x"), Ok("end")};
  Open("GET")->SendRequest("Authorization: own");
  EXPECT_EQ(network_->requests.size(), 3u);
  EXPECT_EQ(network_->requests.back().Header("Authorization"), "(none)");
}

TEST_F(MemoryHttp, ASecureRequestFollowsToAnotherSecureOne) {
  network_->answers = {Redirect("302 Found", "https://h.test/x"), Ok("end")};
  const auto file = Open("GET", "/", INTERNET_FLAG_SECURE);
  file->SendRequest();
  EXPECT_EQ(ReadAll(*file), "end");
}

TEST_F(MemoryHttp, ChallengesWithoutCredentialsAreTheAnswer) {
  network_->answers = {{{"HTTP/1.1 401 No", "WWW-Authenticate: Basic realm=x"}, "no"}};
  connection_.reset(session_->GetHttpConnection("h.test", 0));
  const std::unique_ptr<CQNHttpFile> file(connection_->OpenRequest("GET", "/"));
  file->SendRequest();
  EXPECT_EQ(ReadAll(*file), "no");
  EXPECT_EQ(network_->requests.size(), 1u);
}

// A connection that breaks before its head leaves its error, whichever request it was.
TEST_F(MemoryHttp, AConnectionThatBreaksLeavesItsError) {
  const MemoryAnswer broken = {{}, "", 1, ERROR_INTERNET_CONNECTION_RESET};
  const MemoryAnswer challenge = {{"HTTP/1.1 401 No", "WWW-Authenticate: Basic realm=x"}, "no"};
  network_->answers = {broken};
  EXPECT_EQ(ThrownBy([&] { Open("GET")->SendRequest(); }), (Thrown{12031, 5}));
  network_->answers = {challenge, broken};
  EXPECT_EQ(ThrownBy([&] { Open("GET")->SendRequest(); }), (Thrown{12031, 5}));
  network_->answers = {broken};
  const auto file = Open("PUT");
  file->SendRequestEx(0);
  EXPECT_EQ(ThrownBy([&] { file->EndRequest(); }), (Thrown{12031, 5}));
}

TEST_F(MemoryHttp, CredentialsAnswerABasicChallengeOnceAndStayWithTheirServer) {
  const MemoryAnswer challenge = {{"HTTP/1.1 401 No", "WWW-Authenticate: Basic realm=x"}, "no"};
  network_->answers = {challenge, Redirect("302 Found", "http://other.test/"), challenge};
  const auto file = Open("GET");
  file->SendRequest();
  ASSERT_EQ(network_->requests.size(), 3u);
  EXPECT_EQ(network_->requests[0].Header("Authorization"), "(none)");
  EXPECT_EQ(network_->requests[1].Header("Authorization"), "Basic dXNlcjpzZWNyZXQ=");
  EXPECT_EQ(network_->requests[2].head.route.host, "other.test");
  EXPECT_EQ(network_->requests[2].Header("Authorization"), "(none)");
  DWORD status = 0;
  file->QueryInfoStatusCode(status);
  EXPECT_EQ(status, 401u);
}

TEST_F(MemoryHttp, ABodyInPiecesHasItsLengthOrTheChunksOfTheHost) {
  network_->answers = {Ok("")};
  const auto known = Open("PUT");
  known->SendRequestEx(6);
  known->Write("abc", 3);
  known->Write("def", 3);
  known->EndRequest();
  EXPECT_EQ(network_->requests[0].head.body, BodyKind::kLength);
  EXPECT_EQ(network_->requests[0].head.body_length, 6u);
  EXPECT_EQ(network_->requests[0].body, "abcdef");
  const auto chunked = Open("PUT");
  chunked->AddRequestHeaders("Transfer-Encoding: chunked\r\n", HTTP_ADDREQ_FLAG_ADD);
  chunked->SendRequestEx(0);
  EXPECT_EQ(network_->requests[1].head.body, BodyKind::kChunked);
  EXPECT_EQ(network_->requests[1].Header("Transfer-Encoding"), "(none)");
}

// The bytes of a level, "(none)" when the query fails.
std::string Queried(CQNHttpFile& file, DWORD level) {
  char bytes[1000];
  DWORD length = sizeof(bytes);
  if (!file.QueryInfo(level, bytes, &length, nullptr)) return "(none)";
  return {bytes, length};
}

TEST_F(MemoryHttp, WhatARequestHoldsIsThereBeforeItsAnswer) {
  const auto file = Open("PUT");
  file->AddRequestHeaders("X-Own: 1\r\n", HTTP_ADDREQ_FLAG_ADD);
  EXPECT_EQ(Queried(*file, HTTP_QUERY_REQUEST_METHOD), "PUT");
  constexpr DWORD kOfRequest = HTTP_QUERY_FLAG_REQUEST_HEADERS;
  EXPECT_EQ(Queried(*file, HTTP_QUERY_RAW_HEADERS | kOfRequest),
            std::string("PUT /a/b HTTP/1.1\0X-Own: 1\0", 27));
  EXPECT_EQ(Queried(*file, HTTP_QUERY_RAW_HEADERS_CRLF | kOfRequest),
            "PUT /a/b HTTP/1.1\r\nX-Own: 1\r\n\r\n");
  for (const DWORD level : {HTTP_QUERY_VERSION, HTTP_QUERY_STATUS_CODE, HTTP_QUERY_STATUS_TEXT,
                            HTTP_QUERY_RAW_HEADERS, HTTP_QUERY_RAW_HEADERS_CRLF}) {
    EXPECT_EQ(Queried(*file, level), "(none)") << level;
    EXPECT_EQ(GetLastError(), ERROR_HTTP_HEADER_NOT_FOUND) << level;
  }
}

TEST_F(MemoryHttp, QueriesOfEveryForm) {
  network_->answers = {{{"HTTP/1.1 200 Very fine", "Content-Type: text/plain", "X-Own: a",
                         "X-Own: b", "Date: Mon, 15 Nov 1999 16:09:35 GMT", "Content-Length: 3"},
                        "abc"}};
  const auto file = Open("GET");
  file->SendRequest();
  CQNString text;
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_STATUS_TEXT, text), 1);
  EXPECT_EQ(TextOf(text), "Very fine");
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_RAW_HEADERS_CRLF, text), 1);
  EXPECT_EQ(TextOf(text),
            "HTTP/1.1 200 Very fine\r\nContent-Type: text/plain\r\nX-Own: a\r\nX-Own: b\r\n"
            "Date: Mon, 15 Nov 1999 16:09:35 GMT\r\nContent-Length: 3\r\n\r\n");
  DWORD index = 0;
  Texts values;
  for (;;) {
    char name[20] = "X-Own";
    DWORD length = sizeof(name);
    if (!file->QueryInfo(HTTP_QUERY_CUSTOM, name, &length, &index)) break;
    values.push_back(name);
  }
  EXPECT_EQ(values, (Texts{"a", "b"}));
  SYSTEMTIME time = {};
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_DATE, &time), 1);
  EXPECT_EQ(time.wDayOfWeek, 1);
  DWORD number = 0;
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_CONTENT_LENGTH, number), 1);
  EXPECT_EQ(number, 3u);
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_CONTENT_TYPE, number), 0);
  EXPECT_EQ(GetLastError(), ERROR_HTTP_INVALID_HEADER);
  EXPECT_EQ(file->QueryInfo(999, number), 0);
  EXPECT_EQ(GetLastError(), ERROR_HTTP_INVALID_QUERY_REQUEST);
}

TEST_F(MemoryHttp, ASmallBufferIsToldWhatIsNeeded) {
  network_->answers = {{{"HTTP/1.1 200 OK", "ETag: 12345"}, ""}};
  const auto file = Open("GET");
  file->SendRequest();
  char text[6] = "";
  DWORD length = 5;
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_ETAG, text, &length, nullptr), 0);
  EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
  EXPECT_EQ(length, 6u);
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_ETAG, text, &length, nullptr), 1);
  EXPECT_EQ(length, 5u);
  EXPECT_STREQ(text, "12345");
}

TEST_F(MemoryHttp, HandlesGoWithTheirParents) {
  network_->answers = {Ok("content")};
  const auto file = Open("GET");
  file->SendRequest();
  const HINTERNET request = *file;
  session_->Close();
  DWORD type = 0;
  DWORD length = sizeof(type);
  EXPECT_EQ(InternetQueryOptionA(request, INTERNET_OPTION_HANDLE_TYPE, &type, &length), 0);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
  char byte;
  EXPECT_EQ(ThrownBy([&] { file->Read(&byte, 1); }), (Thrown{6, 5}));
}

TEST(ChunkReader, TakesChunksApartHoweverTheyAreCut) {
  const std::string framed = "3\r\nabc\r\nA;x=y\r\n0123456789\r\n0\r\nTrailer: x\r\n\r\n";
  for (std::size_t piece = 1; piece <= framed.size(); ++piece) {
    ChunkReader reader;
    std::string content;
    for (std::size_t at = 0; at < framed.size(); at += piece) {
      EXPECT_EQ(reader.Take(std::string_view(framed).substr(at, piece),
                            [&](std::string_view bytes) {
                              content += bytes;
                              return 0u;
                            }),
                0u);
    }
    EXPECT_EQ(content, "abc0123456789") << piece;
    EXPECT_TRUE(reader.Ended());
  }
}

TEST(ChunkReader, RefusesWrongFraming) {
  for (const char* framed :
       {"x\r\n", "3\r\nabcd\r\n", "ffffffffffffffffff\r\n", "\r\n", "0\r\n\r\nmore", "-1\r\n"}) {
    ChunkReader reader;
    EXPECT_EQ(reader.Take(framed, [](std::string_view) { return 0u; }), 87u) << framed;
  }
}

TEST(ChunkReader, HoldsLinesUpToTheirStatedLength) {
  for (const std::size_t length : {4095u, 4096u, 4097u}) {
    ChunkReader reader;
    const auto ignore = [](std::string_view) { return 0u; };
    const std::string line = "1;" + std::string(length - 2, 'x');
    EXPECT_EQ(reader.Take(line, ignore), 0u);
    EXPECT_EQ(reader.Take("\r\n", ignore), length <= 4096 ? 0u : 87u) << length;
  }
}

TEST(ChunkReader, HandsOnTheErrorOfItsSink) {
  ChunkReader reader;
  EXPECT_EQ(reader.Take("3\r\nabc", [](std::string_view) { return 12030u; }), 12030u);
}

TEST(CookieStore, FollowDomainPathSecurityAndTime) {
  const struct {
    const char* set_by;
    const char* cookie;
    const char* asked_for;
    const char* sent;
  } cases[] = {
      {"http://a1.test/x/y", "n=v", "http://a1.test/x/z", "n=v"},
      {"http://a2.test/x/y", "n=v", "http://a2.test/xy", ""},
      {"http://a3.test/", "n=v", "http://sub.a3.test/", ""},
      {"http://a4.test/", "n=v; Domain=a4.test", "http://sub.a4.test/", "n=v"},
      {"http://sub.a5.test/", "n=v; domain=.a5.test", "http://b.a5.test/", "n=v"},
      {"http://a6.test/", "n=v; domain=other.test", "http://other.test/", ""},
      {"http://a7.test/", "n=v; domain=test", "http://b.test/", ""},
      {"http://a8.test/", "n=v; secure", "https://a8.test/", ""},
      {"https://a9.test/", "n=v; secure", "https://a9.test/", "n=v"},
      {"https://b1.test/", "n=v; secure", "http://b1.test/", ""},
      {"http://b2.test/", "n=v; max-age=0", "http://b2.test/", ""},
      {"http://b3.test/", "n=v; max-age=60", "http://b3.test/", "n=v"},
      {"http://b4.test/", "n=v; expires=Mon, 15 Nov 1999 16:09:35 GMT", "http://b4.test/", ""},
      {"http://b5.test/", "n=v; expires=Mon, 15-Nov-2199 16:09:35 GMT", "http://b5.test/", "n=v"},
      {"http://b6.test/", "n=v; path=/p", "http://b6.test/p/q", "n=v"},
      {"http://b7.test/", "n=v; path=/p", "http://b7.test/pq", ""},
      {"http://b8.test/", "no value", "http://b8.test/", ""},
      {"http://b9.test/", "=v", "http://b9.test/", ""},
      {"http://c1.test/", " n = v ; path = / ", "http://c1.test/", "n=v"},
      {"http://c2.test/", "n=v=w", "http://C2.test/", "n=v=w"},
      {"http://c3.test/", "n=v; domain=c3.test", "http://subc3.test/", ""},
      {"http://10.7.0.1/", "n=v; domain=7.0.1", "http://9.7.0.1/", ""},
      {"http://10.8.0.1/", "n=v; domain=10.8.0.1", "http://10.8.0.1/", "n=v"},
      {"http://[fe80::7]/", "n=v; domain=[fe80::7]", "http://[fe80::7]/", "n=v"},
      {"http://[fe80::1.2.3.8]/", "n=v; domain=3.8]", "http://[fe80::1.2.3.8]/", ""},
      {"http://c4.test", "n=v", "http://c4.test", "n=v"},
      {"http://c5.test/", "n=v; expires=x", "http://c5.test/", "n=v"},
      {"http://c6.test/", "n=v; max-age=60; expires=Mon, 15 Nov 1999 16:09:35 GMT",
       "http://c6.test/", "n=v"},
  };
  for (const auto& c : cases) {
    Target by;
    Target asked;
    ASSERT_EQ(ParseTarget(c.set_by, by), 0u);
    ASSERT_EQ(ParseTarget(c.asked_for, asked), 0u);
    TheCookies().Set(by, c.cookie, CookieOrigin::kServer);
    EXPECT_EQ(TheCookies().HeaderFor(asked), c.sent) << c.set_by << " " << c.cookie;
  }
}

TEST(CookieStore, HostsNeitherSeeNorSetCookiesForServersOnly) {
  Target target;
  ASSERT_EQ(ParseTarget("http://only.test/", target), 0u);
  EXPECT_FALSE(TheCookies().Set(target, "h=1; HttpOnly", CookieOrigin::kHost));
  EXPECT_TRUE(TheCookies().Set(target, "s=2; HttpOnly", CookieOrigin::kServer));
  EXPECT_EQ(TheCookies().HeaderFor(target), "s=2");
  EXPECT_EQ(TheCookies().TextFor(target), "");
}

TEST(CookieStore, HoldsCookiesUpToTheirStatedLengthAndNumber) {
  Target target;
  ASSERT_EQ(ParseTarget("http://many.test/", target), 0u);
  CookieStore store;
  for (const std::size_t length : {4095u, 4096u, 4097u}) {
    const std::string cookie = "n=" + std::string(length - 2, 'v');
    EXPECT_EQ(store.Set(target, cookie, CookieOrigin::kServer), length <= 4096) << length;
  }
  for (int i = 1; i < 3000; ++i) {
    ASSERT_TRUE(store.Set(target, std::to_string(i) + "=v", CookieOrigin::kServer)) << i;
  }
  EXPECT_FALSE(store.Set(target, "3000=v", CookieOrigin::kServer));
  EXPECT_TRUE(store.Set(target, "1=other", CookieOrigin::kServer));
  EXPECT_TRUE(store.Set(target, "1=v; max-age=0", CookieOrigin::kServer));
  EXPECT_TRUE(store.Set(target, "3000=v", CookieOrigin::kServer));
}

TEST(HttpDate, ReadsTheThreeFormsAndRefusesWhatIsNone) {
  for (const char* text : {"Sun, 06 Nov 1994 08:49:37 GMT", "Sunday, 06-Nov-94 08:49:37 GMT",
                           "Sun Nov  6 08:49:37 1994"}) {
    std::time_t seconds = 0;
    EXPECT_TRUE(ParseHttpDate(text, seconds)) << text;
    EXPECT_EQ(seconds, 784111777) << text;
  }
  for (const char* text :
       {"", "yesterday", "Sun, 06 Nov 1994", "32 Nov 1994 08:49:37", "0 Nov 1994 08:49:37",
        "06 Nov 1600 08:49:37", "06 Now 1994 08:49:37", "06 Nov 1994 25:49:37",
        "06 Nov 1994 08:60:37", "06 Nov 1994 08:49:61", "06 Nov 1994 08:49"}) {
    std::time_t seconds = 0;
    EXPECT_FALSE(ParseHttpDate(text, seconds)) << text;
  }
}

// Requests with equal routes share connections, so every part of a route counts.
TEST(Routes, AreEqualOnlyWhenEveryPartIs) {
  const Route route = {true, "h.test", 443, 1, {INTERNET_OPEN_TYPE_PROXY, "p:1", "b"}, "u", "p"};
  EXPECT_TRUE(route == Route(route));
  const std::function<void(Route&)> changes[] = {
      [](Route& each) { each.secure = false; },
      [](Route& each) { each.host = "g.test"; },
      [](Route& each) { each.port = 80; },
      [](Route& each) { each.security_flags = 0; },
      [](Route& each) { each.proxy.access_type = INTERNET_OPEN_TYPE_DIRECT; },
      [](Route& each) { each.proxy.name = "q:1"; },
      [](Route& each) { each.proxy.bypass = ""; },
      [](Route& each) { each.proxy_user = "v"; },
      [](Route& each) { each.proxy_password = ""; },
  };
  for (std::size_t i = 0; i < std::size(changes); ++i) {
    Route other = route;
    changes[i](other);
    EXPECT_FALSE(route == other) << i;
  }
}

TEST(BasicCredentials, AreBase64) {
  EXPECT_EQ(BasicCredentials("Aladdin", "open sesame"), "Basic QWxhZGRpbjpvcGVuIHNlc2FtZQ==");
  EXPECT_EQ(BasicCredentials("", ""), "Basic Og==");
  EXPECT_EQ(BasicCredentials("a", "b"), "Basic YTpi");
}

TEST(RequestHeaders, AreAddedReplacedJoinedAndRefused) {
  Headers headers;
  EXPECT_EQ(headers.AddLines("A: 1\r\nB: 2\n", HTTP_ADDREQ_FLAG_ADD), 0u);
  EXPECT_EQ(headers.AddLines("a: 3", HTTP_ADDREQ_FLAG_ADD), 0u);
  EXPECT_EQ(headers.AddLines("A: 4", HTTP_ADDREQ_FLAG_ADD_IF_NEW), 12155u);
  EXPECT_EQ(headers.AddLines("B: 5", HTTP_ADDREQ_FLAG_COALESCE), 0u);
  EXPECT_EQ(*headers.Find("b"), "2, 5");
  EXPECT_EQ(headers.AddLines("A: 6", HTTP_ADDREQ_FLAG_REPLACE), 0u);
  EXPECT_EQ(*headers.Find("A"), "6");
  EXPECT_EQ(headers.Find("A", 1), nullptr);
  EXPECT_EQ(headers.AddLines("A:", HTTP_ADDREQ_FLAG_REPLACE), 0u);
  EXPECT_EQ(headers.Find("A"), nullptr);
  EXPECT_EQ(headers.AddLines("A: 7", HTTP_ADDREQ_FLAG_REPLACE), 12150u);
  for (const char* wrong : {"no colon", ": no name", "a name: x"}) {
    EXPECT_EQ(headers.AddLines(wrong, HTTP_ADDREQ_FLAG_ADD), 12153u) << wrong;
  }
}

}  // namespace
}  // namespace quarnfc::internet
