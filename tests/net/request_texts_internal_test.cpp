// SPDX-License-Identifier: MIT
// What may stand in the texts of a request, and what stands there when a host leaves them out.
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/internet.h"
#include "tests/net/memory_transport.h"
#include "tests/net/test_text.h"

namespace {

struct RequestText {
  const char* verb;
  const char* object;
  const char* referer;
  const char* type;
  const char* version = "HTTP/1.1";
};

class RequestTexts : public testing::Test {
 protected:
  RequestTexts() { network_->answers = {{{"HTTP/1.1 200 OK", "ETag: e"}, ""}}; }
  ~RequestTexts() override { InternetCloseHandle(session_); }

  HINTERNET Open(const RequestText& text) const {
    const char* types[] = {text.type, nullptr};
    SetLastError(0);
    return HttpOpenRequestA(connection_, text.verb, text.object, text.version, text.referer, types,
                            0, 1);
  }

  static std::string Query(HINTERNET request, DWORD level) {
    char text[200] = "";
    DWORD length = sizeof(text);
    return HttpQueryInfoA(request, level, text, &length, nullptr) ? std::string(text, length)
                                                                  : "(none)";
  }

  ServedFromMemory network_;
  HINTERNET session_ = InternetOpenA("agent", INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0);
  HINTERNET connection_ =
      InternetConnectA(session_, "h.test", 0, nullptr, nullptr, INTERNET_SERVICE_HTTP, 0, 1);
};

TEST_F(RequestTexts, WhatEndsAWordOrALineIsRefused) {
  constexpr RequestText kCases[] = {
      {"GET /", "/", nullptr, nullptr},    {"G:T", "/", nullptr, nullptr},
      {"GE\x01", "/", nullptr, nullptr},   {"GE\x7F", "/", nullptr, nullptr},
      {"GET", "/", "a\nb", nullptr},       {"GET", "/", "a\x7F", nullptr},
      {"GET", "/", "a", "text/html\r\nb"}, {"GET", "/", nullptr, "\x1F"},
  };
  for (const RequestText& text : kCases) {
    EXPECT_EQ(Open(text), nullptr) << &text - kCases;
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER) << &text - kCases;
  }
  EXPECT_NE(Open({"GET", "/", " \x80\xFF", "a b"}), nullptr);
}

TEST_F(RequestTexts, TheClassesRefuseALineEndInEveryText) {
  constexpr RequestText kCases[] = {
      {"G\nT", "/", "r", "t", "v"},  {"GET", "/\r", "r", "t", "v"}, {"GET", "/", "\nr", "t", "v"},
      {"GET", "/", "r", "t\n", "v"}, {"GET", "/", "r", "t", "\n"},
  };
  CQNInternetSession session("agent");
  const std::unique_ptr<CQNHttpConnection> connection(session.GetHttpConnection("h.test", 0));
  for (const RequestText& text : kCases) {
    const char* types[] = {text.type, nullptr};
    const std::unique_ptr<CQNHttpFile> file(
        connection->OpenRequest(text.verb, text.object, text.referer, 1, types, text.version));
    EXPECT_EQ(static_cast<HINTERNET>(*file), nullptr) << &text - kCases;
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER) << &text - kCases;
  }
}

TEST_F(RequestTexts, WhatIsLeftOutHasAMeaning) {
  const struct {
    RequestText text;
    const char* line;
  } cases[] = {
      {{nullptr, nullptr, nullptr, nullptr}, "GET / HTTP/1.1\r\n\r\n"},
      {{"", "", nullptr, nullptr}, "GET / HTTP/1.1\r\n\r\n"},
      {{"PUT", "a", nullptr, nullptr}, "PUT /a HTTP/1.1\r\n\r\n"},
      {{"OPTIONS", "*", nullptr, nullptr}, "OPTIONS * HTTP/1.1\r\n\r\n"},
      {{"GET", "/", "r", "t"}, "GET / HTTP/1.1\r\nReferer: r\r\nAccept: t\r\n\r\n"},
      {{"GET", "/", nullptr, nullptr, "HTTP/1.0"}, "GET / HTTP/1.0\r\n\r\n"},
      {{"GET", "/", nullptr, nullptr, "HTTP/2"}, "GET / HTTP/1.1\r\n\r\n"},
      {{"GET", "/", nullptr, nullptr, nullptr}, "GET / HTTP/1.1\r\n\r\n"},
  };
  for (const auto& c : cases) {
    const HINTERNET request = Open(c.text);
    EXPECT_EQ(Query(request, HTTP_QUERY_RAW_HEADERS_CRLF | HTTP_QUERY_FLAG_REQUEST_HEADERS),
              c.line);
  }
}

TEST_F(RequestTexts, HeadersOfTheRequestAndOfTheAnswerAreAskedApart) {
  const HINTERNET request = Open({"GET", "/", nullptr, nullptr});
  EXPECT_EQ(HttpSendRequestA(request, "Content-Type: c", 15, nullptr, 0), 1);
  EXPECT_EQ(Query(request, HTTP_QUERY_CONTENT_TYPE | HTTP_QUERY_FLAG_REQUEST_HEADERS), "c");
  EXPECT_EQ(Query(request, HTTP_QUERY_CONTENT_TYPE), "(none)");
  EXPECT_EQ(Query(request, HTTP_QUERY_ETAG | HTTP_QUERY_FLAG_REQUEST_HEADERS), "(none)");
  EXPECT_EQ(Query(request, HTTP_QUERY_ETAG), "e");
}

TEST_F(RequestTexts, OnlyTheCodingChunkedLeavesFramingToTheHost) {
  for (const char* coding : {"Transfer-Encoding: gzip", "Transfer-Encoding: Chunked"}) {
    const HINTERNET request = Open({"PUT", "/", nullptr, nullptr});
    const DWORD length = static_cast<DWORD>(std::string(coding).size());
    EXPECT_EQ(HttpAddRequestHeadersA(request, coding, length, HTTP_ADDREQ_FLAG_ADD), 1);
    EXPECT_EQ(HttpSendRequestExA(request, nullptr, nullptr, 0, 0), 1);
    const bool chunked = std::string(coding).ends_with("Chunked");
    EXPECT_EQ(network_->requests.back().head.body == quarnfc::internet::BodyKind::kChunked,
              chunked);
    EXPECT_EQ(HttpEndRequestA(request, nullptr, 0, 0), 1);
  }
}

TEST_F(RequestTexts, HeadersThatAreNoneKeepARequestFromBeingSent) {
  SetLastError(0);
  EXPECT_EQ(HttpSendRequestA(Open({"GET", "/", nullptr, nullptr}), "none", 4, nullptr, 0), 0);
  EXPECT_EQ(GetLastError(), ERROR_HTTP_INVALID_HEADER);
  EXPECT_TRUE(network_->requests.empty());
}

TEST_F(RequestTexts, FirstBytesNeedBothABufferAndALength) {
  char first[] = "first";
  const struct {
    void* buffer;
    DWORD length;
    const char* sent;
  } cases[] = {{nullptr, 5, ""}, {first, 0, ""}, {first, 5, "first"}};
  for (const auto& c : cases) {
    INTERNET_BUFFERSA start = {};
    start.dwStructSize = sizeof(start);
    start.lpvBuffer = c.buffer;
    start.dwBufferLength = c.length;
    const HINTERNET request = Open({"PUT", "/", nullptr, nullptr});
    EXPECT_EQ(HttpSendRequestExA(request, &start, nullptr, 0, 0), 1);
    EXPECT_EQ(network_->requests.back().body, c.sent) << c.length;
  }
}

TEST_F(RequestTexts, NothingIsReadAndWrittenWithoutABuffer) {
  DWORD count = 7;
  const HINTERNET request = Open({"PUT", "/", nullptr, nullptr});
  EXPECT_EQ(HttpSendRequestExA(request, nullptr, nullptr, 0, 0), 1);
  EXPECT_EQ(InternetWriteFile(request, nullptr, 0, &count), 1);
  EXPECT_EQ(count, 0u);
  EXPECT_EQ(HttpEndRequestA(request, nullptr, 0, 0), 1);
  count = 7;
  EXPECT_EQ(InternetReadFile(request, nullptr, 0, &count), 1);
  EXPECT_EQ(count, 0u);
}

TEST_F(RequestTexts, ANumberWithoutABufferIsToldTheRoomItNeeds) {
  DWORD length = 4;
  EXPECT_EQ(InternetQueryOptionA(session_, INTERNET_OPTION_SEND_TIMEOUT, nullptr, &length), 0);
  EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
  EXPECT_EQ(length, 4u);
}

}  // namespace
