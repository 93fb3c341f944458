// SPDX-License-Identifier: MIT
// HTTP in one call through the flat C interface, against a server in this program.
#include <gtest/gtest.h>

#include <quarnfc/c/http.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/c/handles.h"
#include "tests/c/results.h"
#include "tests/net/scripted_server.h"
#include "tests/support/contains.h"
#include "tests/support/temp_file.h"

namespace {

using c_results::Error;
using c_results::HttpAnswer;
using c_results::Taken;
using quarnfc_test::Contains;

std::string Body(const HttpAnswer& response) {
  size_t size = 0;
  const char* body = qncHttpBody(response.get(), &size);
  return std::string(body, size);
}

// The headers as "name=value" with '|' behind each.
std::string Pairs(const HttpAnswer& response) {
  std::string joined;
  for (int i = 0; i < qncHttpHeaderCount(response.get()); ++i) {
    joined += qncHttpHeaderName(response.get(), i);
    joined += std::string("=") + qncHttpHeaderValue(response.get(), i) + "|";
  }
  return joined;
}

}  // namespace

TEST(CInterfaceHttp, BringsStatusHeadersAndBody) {
  const std::string sent("the\0body", 8);
  ScriptedServer server(HttpResponse(sent, "ETag: \"1\"\r\n"));
  Error error;
  const HttpAnswer response(qncHttpGet(server.Url("/a").c_str(), 20000, error.Out()));
  EXPECT_EQ(error.Text(), "");
  ASSERT_NE(response, nullptr);
  EXPECT_EQ(qncHttpStatus(response.get()), 200);
  EXPECT_EQ(Body(response), sent);
  EXPECT_EQ(Taken(qncHttpHeader(response.get(), "etag", nullptr)), "\"1\"");
  EXPECT_EQ(qncHttpHeader(response.get(), "X-None", error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "");
}

TEST(CInterfaceHttp, HeadersArePairsInTheOrderAndWithTheRepeatsOfTheServer) {
  ScriptedServer server(
      "HTTP/1.1 200 OK\r\nX-Two: b\r\nset-cookie: a=1; Path=/\r\nx-one: \r\n"
      "Set-Cookie: b=2\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
  const HttpAnswer response(qncHttpGet(server.Url("/a").c_str(), 20000, nullptr));
  ASSERT_NE(response, nullptr);
  EXPECT_EQ(Pairs(response),
            "X-Two=b|set-cookie=a=1; Path=/|x-one=|Set-Cookie=b=2|Content-Length=0|"
            "Connection=close|");
  for (const int index : {-1, 6, 7, 2147483647, -2147483647}) {
    EXPECT_EQ(qncHttpHeaderName(response.get(), index), nullptr) << index;
    EXPECT_EQ(qncHttpHeaderValue(response.get(), index), nullptr) << index;
  }
}

TEST(CInterfaceHttp, HeadersOfARedirectedCallAreThoseOfTheLastAnswer) {
  ScriptedServer server([](ServerConnection& connection) {
    const bool is_first = Contains(connection.ReadRequest(), "GET /a ");
    connection.Send(std::string(is_first ? "HTTP/1.1 302 Found\r\nLocation: /b\r\nX-First: 1"
                                         : "HTTP/1.1 200 OK\r\nX-Last: 2") +
                    "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
    connection.Finish();
  });
  const HttpAnswer response(qncHttpGet(server.Url("/a").c_str(), 20000, nullptr));
  ASSERT_NE(response, nullptr);
  EXPECT_EQ(Pairs(response), "X-Last=2|Content-Length=0|Connection=close|");
}

TEST(CInterfaceHttp, SendsVerbHeadersAndBodyAsTheyStand) {
  ScriptedServer server(HttpResponse("", ""));
  const HttpAnswer response(qncHttpSend("PUT", server.Url("/a").c_str(),
                                        "X-One: 1\r\nContent-Type: text/plain\n", "a\0b", 3, 20000,
                                        nullptr));
  ASSERT_NE(response, nullptr);
  const std::string request = server.LastRequest();
  EXPECT_TRUE(Contains(request, "PUT /a HTTP/1.1\r\n")) << request;
  EXPECT_TRUE(Contains(request, "X-One: 1\r\n")) << request;
  EXPECT_TRUE(Contains(request, "Content-Type: text/plain\r\n")) << request;
  EXPECT_TRUE(Contains(request, std::string("\r\n\r\na\0b", 7))) << request;
}

TEST(CInterfaceHttp, DownloadsIntoAFile) {
  ScriptedServer server(HttpResponse("file content", ""));
  const std::string path = quarnfc_test::TempFile::NewPath();
  const HttpAnswer response(
      qncHttpDownload(server.Url("/a").c_str(), path.c_str(), 20000, nullptr));
  ASSERT_NE(response, nullptr);
  EXPECT_EQ(qncHttpStatus(response.get()), 200);
  EXPECT_EQ(Body(response), "");
  {
    std::ifstream file(path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "file content");
  }
  std::remove(path.c_str());
}

TEST(CInterfaceHttp, FailuresHaveThePlatformsCode) {
  Error error;
  EXPECT_EQ(qncHttpGet("http://127.0.0.1:1/", 20000, error.Out()), nullptr);
  EXPECT_EQ(error.Text().substr(0, 7), "12029: ");
  EXPECT_EQ(qncHttpGet("nothing://host/", 20000, error.Out()), nullptr);
  EXPECT_NE(error.Text(), "");
  EXPECT_EQ(qncHttpGet(nullptr, 0, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  for (const char* headers : {"no colon", ": no name", "Good: 1\r\nbad\r\n"}) {
    EXPECT_EQ(qncHttpSend("GET", "http://127.0.0.1:1/", headers, nullptr, 0, 0, error.Out()),
              nullptr);
    EXPECT_EQ(error.Text(), "87: Quarn: a header has no name") << headers;
  }
}

TEST(CInterfaceHttp, NullResponsesAreEmpty) {
  EXPECT_EQ(qncHttpStatus(nullptr), 0);
  EXPECT_EQ(qncHttpBody(nullptr, nullptr), nullptr);
  EXPECT_EQ(qncHttpHeaderCount(nullptr), 0);
  EXPECT_EQ(qncHttpHeaderName(nullptr, 0), nullptr);
  EXPECT_EQ(qncHttpHeaderValue(nullptr, 0), nullptr);
  qncHttpFree(nullptr);
}
