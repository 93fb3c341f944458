// SPDX-License-Identifier: MIT
// HTTP in one call, against a server in this program.
#include <quarnfc/ext/http_call.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "tests/net/scripted_server.h"
#include "tests/support/contains.h"

namespace {

using quarnfc::ext::HttpCallOptions;
using quarnfc::ext::HttpCancel;
using quarnfc::ext::HttpDownload;
using quarnfc::ext::HttpFailure;
using quarnfc::ext::HttpGet;
using quarnfc::ext::HttpHeader;
using quarnfc::ext::HttpPost;
using quarnfc::ext::HttpPut;
using quarnfc::ext::HttpSend;
using quarnfc_test::Contains;

constexpr const char* kTarget = "http_call_test.out";
constexpr const char* kPart = "http_call_test.out.part";

bool Exists(const char* path) { return std::ifstream(path).is_open(); }

std::string Content(const char* path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

// A server that sends bytes once it has been asked, and waits for the client to go.
ScriptedServer::Script Sends(const std::string& bytes) {
  return [bytes](ServerConnection& connection) {
    connection.ReadRequest();
    connection.Send(bytes);
    connection.Finish();
  };
}

// A body without an end, a byte at a time.
void Trickle(ServerConnection& connection) {
  connection.ReadRequest();
  connection.Send("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
  while (connection.Send("x")) std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

// Answers nothing until the client goes.
void Stall(ServerConnection& connection) {
  connection.ReadRequest();
  connection.ReadSome(1);
}

HttpCallOptions WithDeadline(int milliseconds) {
  HttpCallOptions options;
  options.deadline = std::chrono::milliseconds(milliseconds);
  return options;
}

TEST(HttpCall, GetsAResponseAsAValue) {
  ScriptedServer server(HttpResponse("the body", "X-One: 1\r\nx-two:  2 \r\nX-One: 3\r\n"));
  const auto response = HttpGet(server.Url("/a%20b?c#part"));
  EXPECT_EQ(response.failure, HttpFailure::kNone);
  EXPECT_EQ(response.code, 0u);
  EXPECT_EQ(response.Message(), "");
  EXPECT_TRUE(response.Succeeded());
  EXPECT_EQ(response.status, 200u);
  EXPECT_EQ(response.body, "the body");
  EXPECT_EQ(response.Header("x-one"), "1");
  EXPECT_EQ(response.Header("X-TWO"), "2");
  EXPECT_EQ(response.Header("X-Three"), "");
  const std::vector<HttpHeader> headers = {
      {"Content-Length", "8"}, {"X-One", "1"}, {"x-two", "2"}, {"X-One", "3"}};
  EXPECT_EQ(response.headers, headers);
  EXPECT_TRUE(Contains(server.LastRequest(), "GET /a%20b?c HTTP/1.1\r\n"));
}

TEST(HttpCall, EscapesTheUrlAsItStands) {
  ScriptedServer server(HttpResponse(""));
  EXPECT_TRUE(HttpGet(server.Url("/\xE4\xB8\xAD x")).Succeeded());
  EXPECT_TRUE(Contains(server.LastRequest(), "GET /%E4%B8%AD%20x HTTP/1.1\r\n"));
}

TEST(HttpCall, SendsHeadersAndAgent) {
  ScriptedServer server(HttpResponse(""));
  HttpCallOptions options;
  options.agent = "maps/1.0";
  options.headers = {{"X-One", "1"}, {"X-One", "2"}};
  EXPECT_TRUE(HttpGet(server.Url("/"), options).Succeeded());
  EXPECT_TRUE(Contains(server.LastRequest(), "\r\nUser-Agent: maps/1.0\r\n"));
  EXPECT_TRUE(Contains(server.LastRequest(), "\r\nX-One: 1\r\n"));
  EXPECT_TRUE(Contains(server.LastRequest(), "\r\nX-One: 2\r\n"));
}

TEST(HttpCall, PostsAndPutsContent) {
  ScriptedServer server(HttpResponse("done"));
  EXPECT_EQ(HttpPost(server.Url("/p"), std::string("a\0b", 3), "text/plain").body, "done");
  EXPECT_TRUE(Contains(server.LastRequest(), "POST /p HTTP/1.1\r\n"));
  EXPECT_TRUE(Contains(server.LastRequest(), "\r\nContent-Type: text/plain\r\n"));
  EXPECT_TRUE(Contains(server.LastRequest(), std::string("\r\n\r\na\0b", 7)));

  HttpCallOptions options;
  options.headers = {{"content-type", "text/own"}};
  EXPECT_EQ(HttpPut(server.Url("/p"), "c", "text/plain", options).status, 200u);
  EXPECT_TRUE(Contains(server.LastRequest(), "PUT /p HTTP/1.1\r\n"));
  EXPECT_TRUE(Contains(server.LastRequest(), "\r\ncontent-type: text/own\r\n"));
  EXPECT_FALSE(Contains(server.LastRequest(), "text/plain"));
}

TEST(HttpCall, AHeadHasNoBodyWhateverItAnnounces) {
  ScriptedServer server("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n");
  const auto response = HttpSend("HEAD", server.Url("/"));
  EXPECT_TRUE(response.Succeeded());
  EXPECT_EQ(response.Header("Content-Length"), "5");
}

TEST(HttpCall, AnErrorStatusIsAResponse) {
  ScriptedServer server(HttpResponse("why not", "", "404 Not Found"));
  const auto response = HttpGet(server.Url("/"));
  EXPECT_FALSE(response.Succeeded());
  EXPECT_EQ(response.failure, HttpFailure::kNone);
  EXPECT_EQ(response.status, 404u);
  EXPECT_EQ(response.body, "why not");
}

TEST(HttpCall, FollowsARedirect) {
  ScriptedServer server([](ServerConnection& connection) {
    connection.ReadRequest();
    connection.Send(HttpResponse("", "Location: /next\r\n", "302 Found"));
    connection.ReadRequest();
    connection.Send(HttpResponse("there"));
  });
  EXPECT_EQ(HttpGet(server.Url("/")).body, "there");
}

TEST(HttpCall, AnswersAChallengeWithTheCredentialsOfTheUrlOrOfTheOptions) {
  ScriptedServer server([](ServerConnection& connection) {
    for (;;) {
      const std::string request = connection.ReadRequest();
      if (request.empty()) return;
      connection.Send(
          Contains(request, "Authorization: Basic dXNAZXI6c2VjcmV0")
              ? HttpResponse("in")
              : HttpResponse("out", "WWW-Authenticate: Basic realm=\"x\"\r\n", "401 Unauthorized"));
    }
  });
  EXPECT_EQ(HttpGet(server.Url("/")).status, 401u);
  std::string url = server.Url("/");
  url.insert(url.find("127"), "us%40er:secret@");
  EXPECT_EQ(HttpGet(url).body, "in");
  HttpCallOptions options;
  options.user = "us@er";
  options.password = "secret";
  EXPECT_EQ(HttpGet(server.Url("/"), options).body, "in");
}

TEST(HttpCall, RefusesWhatIsNoRequest) {
  struct Case {
    const char* url;
    HttpHeader header;
    DWORD code;
  };
  const Case cases[] = {
      {"no url", {"X", "1"}, 12005},
      {"", {"X", "1"}, 12005},
      {"ftp://h/", {"X", "1"}, 12006},
      {"http://127.0.0.1:1/", {"", "1"}, 87},
      {"http://127.0.0.1:1/", {"X Y", "1"}, 87},
      {"http://127.0.0.1:1/", {"X:", "1"}, 87},
      {"http://127.0.0.1:1/", {"X\r\nY", "1"}, 87},
      {"http://127.0.0.1:1/", {"X", "1\r\nY: 2"}, 87},
  };
  for (const Case& c : cases) {
    HttpCallOptions options;
    options.headers = {c.header};
    const auto response = HttpGet(c.url, options);
    EXPECT_EQ(response.failure, HttpFailure::kRequest) << c.url << c.header.first;
    EXPECT_EQ(response.code, c.code) << c.url << c.header.first;
    EXPECT_EQ(response.status, 0u);
  }
  EXPECT_EQ(HttpSend("GET\r\nX: 1", "http://127.0.0.1:1/").failure, HttpFailure::kRequest);
}

TEST(HttpCall, HandsTheFailureOfTheNetworkBack) {
  const auto response = HttpGet("http://127.0.0.1:" + std::to_string(UnusedPort()) + "/");
  EXPECT_EQ(response.failure, HttpFailure::kNetwork);
  EXPECT_EQ(response.code, 12029u);
  EXPECT_EQ(response.status, 0u);
}

TEST(HttpCall, ABodyThatBreaksOffIsNoSuccess) {
  ScriptedServer server(Sends("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nshort"));
  const auto response = HttpGet(server.Url("/"));
  EXPECT_EQ(response.failure, HttpFailure::kIncomplete);
  EXPECT_EQ(response.code, 12030u);
  EXPECT_EQ(response.status, 200u);
  EXPECT_EQ(response.body, "short");
}

// The answer and its end may have come before the client looks for the first time.
TEST(HttpCall, ABodyThatBreaksOffIsIncompleteHoweverSoonThatIs) {
  ScriptedServer server([](ServerConnection& connection) {
    connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nshort");
    connection.Finish();
  });
  for (int round = 0; round < 50; ++round) {
    const auto response = HttpGet(server.Url("/"));
    EXPECT_EQ(response.failure, HttpFailure::kIncomplete);
    EXPECT_EQ(response.body, "short");
  }
}

TEST(HttpCall, TheDeadlineEndsAServerThatNeverAnswersAndOneThatNeverEnds) {
  for (const ScriptedServer::Script& script : {ScriptedServer::Script(Stall), {Trickle}}) {
    ScriptedServer server(script);
    const auto response = HttpGet(server.Url("/"), WithDeadline(300));
    EXPECT_EQ(response.failure, HttpFailure::kDeadline);
    EXPECT_EQ(response.code, 12002u);
  }
}

TEST(HttpCall, TakesNoBodyAboveTheLimit) {
  HttpCallOptions options;
  options.largest = 10;
  ScriptedServer announced(HttpResponse("01234567890"));
  ScriptedServer streamed(
      Sends("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + std::string(1000, 'x')));
  ScriptedServer fitting(HttpResponse("0123456789"));
  for (const ScriptedServer* server : {&announced, &streamed}) {
    const auto response = HttpGet(server->Url("/"), options);
    EXPECT_EQ(response.failure, HttpFailure::kTooLarge);
    EXPECT_EQ(response.code, 223u);
    EXPECT_LE(response.body.size(), 10u);
  }
  EXPECT_EQ(HttpGet(fitting.Url("/"), options).body, "0123456789");
}

TEST(HttpCall, TakesBodiesUpToTheLimitWhetherTheirLengthIsAnnouncedOrNot) {
  HttpCallOptions options;
  options.largest = 1000;
  for (const std::size_t size : {999u, 1000u, 1001u}) {
    const std::string body(size, 'x');
    ScriptedServer announced(HttpResponse(body));
    ScriptedServer streamed(Sends("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + body));
    for (const ScriptedServer* server : {&announced, &streamed}) {
      const auto response = HttpGet(server->Url("/"), options);
      EXPECT_EQ(response.failure, size <= 1000 ? HttpFailure::kNone : HttpFailure::kTooLarge);
      EXPECT_TRUE(size > 1000 || response.body == body) << size;
    }
  }
}

TEST(HttpCall, ReportsProgressUpToTheAnnouncedLength) {
  ScriptedServer server(HttpResponse(std::string(100000, 'x')));
  unsigned __int64 last = 0;
  HttpCallOptions options;
  options.progress = [&last](unsigned __int64 received, unsigned __int64 total) {
    EXPECT_GT(received, last);
    EXPECT_EQ(total, 100000u);
    last = received;
    return true;
  };
  EXPECT_TRUE(HttpGet(server.Url("/"), options).Succeeded());
  EXPECT_EQ(last, 100000u);
}

TEST(HttpCall, ProgressCancels) {
  ScriptedServer server(Trickle);
  HttpCallOptions options;
  options.progress = [](unsigned __int64 received, unsigned __int64) { return received < 3; };
  const auto response = HttpGet(server.Url("/"), options);
  EXPECT_EQ(response.failure, HttpFailure::kCancelled);
  EXPECT_EQ(response.code, 12017u);
}

TEST(HttpCallThreads, CancelsFromAnotherThread) {
  ScriptedServer server(Trickle);
  HttpCancel cancel;
  std::thread user;
  HttpCallOptions options;
  options.cancel = &cancel;
  options.progress = [&](unsigned __int64, unsigned __int64) {
    if (!user.joinable()) user = std::thread([&cancel] { cancel.Cancel(); });
    return true;
  };
  const auto response = HttpGet(server.Url("/"), options);
  user.join();
  EXPECT_EQ(response.failure, HttpFailure::kCancelled);
  EXPECT_EQ(response.code, 12017u);
  EXPECT_TRUE(cancel.IsCancelled());
  // It stays cancelled.
  EXPECT_EQ(HttpGet(server.Url("/"), options).failure, HttpFailure::kCancelled);
}

TEST(HttpCallThreads, CancelsWhileTheServerIsSilent) {
  std::atomic<bool> asked{false};
  ScriptedServer server([&asked](ServerConnection& connection) {
    connection.ReadRequest();
    asked = true;
    connection.ReadSome(1);
  });
  HttpCancel cancel;
  HttpCallOptions options = WithDeadline(3000);  // where the platform keeps its wait
  options.cancel = &cancel;
  std::thread user([&] {
    while (!asked) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    cancel.Cancel();
  });
  const auto response = HttpGet(server.Url("/"), options);
  user.join();
  EXPECT_EQ(response.failure, HttpFailure::kCancelled);
}

TEST(HttpCall, HandsABodyToTheSinkUntilItRefuses) {
  ScriptedServer server(HttpResponse(std::string(100000, 'x')));
  std::string taken;
  const auto response = HttpSend("GET", server.Url("/"), {}, {}, [&taken](std::string_view piece) {
    taken += piece;
    return taken.size() < 50000;
  });
  EXPECT_EQ(response.failure, HttpFailure::kTarget);
  EXPECT_EQ(response.code, 29u);
  EXPECT_EQ(response.body, "");
  EXPECT_GE(taken.size(), 50000u);
  EXPECT_LT(taken.size(), 100000u);
}

TEST(HttpCall, WhatASinkThrowsPassesThrough) {
  ScriptedServer server(HttpResponse("x"));
  EXPECT_THROW(HttpSend("GET", server.Url("/"), {}, {},
                        [](std::string_view) -> bool { throw std::runtime_error("full"); }),
               std::runtime_error);
}

class HttpDownloadTest : public testing::Test {
 protected:
  HttpDownloadTest() { Write("old"); }
  ~HttpDownloadTest() override { std::remove(kTarget); }

  static void Write(const std::string& text) { std::ofstream(kTarget, std::ios::binary) << text; }
};

TEST_F(HttpDownloadTest, ReplacesTheFileWhenAllHasArrived) {
  const std::string body(300000, 'y');
  ScriptedServer server(HttpResponse(body));
  const auto response = HttpDownload(server.Url("/"), kTarget);
  EXPECT_TRUE(response.Succeeded());
  EXPECT_EQ(response.body, "");
  EXPECT_EQ(Content(kTarget), body);
  EXPECT_FALSE(Exists(kPart));
}

TEST_F(HttpDownloadTest, WritesAnEmptyFile) {
  ScriptedServer server(HttpResponse(""));
  EXPECT_TRUE(HttpDownload(server.Url("/"), kTarget).Succeeded());
  EXPECT_EQ(Content(kTarget), "");
}

TEST_F(HttpDownloadTest, LeavesTheFileAsItWasOnAnyFailure) {
  ScriptedServer refusing(HttpResponse("why not", "", "404 Not Found"));
  ScriptedServer breaking(Sends("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nshort"));
  EXPECT_EQ(HttpDownload(refusing.Url("/"), kTarget).body, "why not");
  EXPECT_EQ(HttpDownload(breaking.Url("/"), kTarget).failure, HttpFailure::kIncomplete);
  EXPECT_EQ(Content(kTarget), "old");
  EXPECT_FALSE(Exists(kPart));
}

TEST_F(HttpDownloadTest, AFileThatCannotBeWrittenIsTheTargetsFailure) {
  ScriptedServer server(HttpResponse("body"));
  const auto response = HttpDownload(server.Url("/"), "no such folder/file");
  EXPECT_EQ(response.failure, HttpFailure::kTarget);
  EXPECT_EQ(response.code, 29u);
}

}  // namespace
