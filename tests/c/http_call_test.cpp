// SPDX-License-Identifier: MIT
// HTTP calls with options through the flat C interface, against a server in this program.
#include <gtest/gtest.h>

#include <quarnfc/c/http_call.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include "tests/c/handles.h"
#include "tests/c/results.h"
#include "tests/net/scripted_server.h"
#include "tests/support/contains.h"
#include "tests/support/temp_file.h"

namespace {

using c_results::Error;
using c_results::HttpAnswer;
using c_results::HttpCall;
using quarnfc_test::Contains;

HttpCall CallTo(const ScriptedServer& server, const char* verb = "GET") {
  HttpCall call(qncHttpCallNew(verb, server.Url("/a").c_str(), nullptr));
  qncHttpCallSetDeadline(call.get(), 20000);
  return call;
}

std::string CodeOf(const Error& error) { return error.Text().substr(0, error.Text().find(':')); }

int EndAtOnce(void*, unsigned long long, unsigned long long) { return 0; }

}  // namespace

TEST(CInterfaceHttpCall, SendsWhatItWasGiven) {
  ScriptedServer server(HttpResponse("answer"));
  const HttpCall call = CallTo(server, "PUT");
  EXPECT_EQ(qncHttpCallSetHeaders(call.get(), "X-Old: 1\n", nullptr), 1);
  EXPECT_EQ(qncHttpCallSetHeaders(call.get(), "X-One: 1\nX-Two: 2\n", nullptr), 1);
  EXPECT_EQ(qncHttpCallSetBody(call.get(), "a\0b", 3, nullptr), 1);
  Error error;
  for (int sent = 0; sent < 2; ++sent) {
    const HttpAnswer response(qncHttpCallSend(call.get(), error.Out()));
    ASSERT_NE(response, nullptr) << error.Text();
    EXPECT_EQ(qncHttpStatus(response.get()), 200);
    EXPECT_STREQ(qncHttpBody(response.get(), nullptr), "answer");
    const std::string request = server.LastRequest();
    EXPECT_TRUE(Contains(request, "PUT /a HTTP/1.1\r\n")) << request;
    EXPECT_TRUE(Contains(request, "X-One: 1\r\n")) << request;
    EXPECT_TRUE(Contains(request, "X-Two: 2\r\n")) << request;
    EXPECT_FALSE(Contains(request, "X-Old")) << request;
    EXPECT_TRUE(Contains(request, std::string("\r\n\r\na\0b", 7))) << request;
  }
}

TEST(CInterfaceHttpCall, TheUserAnswersAChallenge) {
  ScriptedServer server([](ServerConnection& connection) {
    for (std::string request = connection.ReadRequest(); !request.empty();
         request = connection.ReadRequest()) {
      connection.Send(
          Contains(request, "Authorization: Basic dXNAZXI6c2VjcmV0")
              ? HttpResponse("in")
              : HttpResponse("out", "WWW-Authenticate: Basic realm=\"x\"\r\n", "401 Unauthorized"));
    }
  });
  const HttpCall call = CallTo(server);
  EXPECT_EQ(qncHttpCallSetUser(call.get(), "us@er", "secret", nullptr), 1);
  const HttpAnswer response(qncHttpCallSend(call.get(), nullptr));
  EXPECT_STREQ(qncHttpBody(response.get(), nullptr), "in");
}

TEST(CInterfaceHttpCall, TakesNoBodyAboveTheLimit) {
  ScriptedServer server(HttpResponse("01234567890"));
  const HttpCall call = CallTo(server);
  Error error;
  qncHttpCallSetLargest(call.get(), 10);
  EXPECT_EQ(qncHttpCallSend(call.get(), error.Out()), nullptr);
  EXPECT_EQ(CodeOf(error), "223");
  qncHttpCallSetLargest(call.get(), 11);
  EXPECT_NE(HttpAnswer(qncHttpCallSend(call.get(), error.Out())), nullptr) << error.Text();
}

TEST(CInterfaceHttpCall, ProgressIsToldUpToTheAnnouncedLength) {
  struct Seen {
    unsigned long long received = 0;
    unsigned long long total = 0;
  } seen;
  ScriptedServer server(HttpResponse(std::string(100000, 'x')));
  const HttpCall call = CallTo(server);
  qncHttpCallSetProgress(
      call.get(),
      [](void* context, unsigned long long received, unsigned long long total) {
        *static_cast<Seen*>(context) = {received, total};
        return 1;
      },
      &seen);
  EXPECT_NE(HttpAnswer(qncHttpCallSend(call.get(), nullptr)), nullptr);
  EXPECT_EQ(seen.received, 100000u);
  EXPECT_EQ(seen.total, 100000u);
  seen = {};
  qncHttpCallSetProgress(call.get(), nullptr, &seen);
  EXPECT_NE(HttpAnswer(qncHttpCallSend(call.get(), nullptr)), nullptr);
  EXPECT_EQ(seen.received, 0u);
}

TEST(CInterfaceHttpCall, ProgressEndsADownloadAndNoFileIsLeft) {
  ScriptedServer server(HttpResponse(std::string(100000, 'x')));
  const HttpCall call = CallTo(server);
  const std::string path = quarnfc_test::TempFile::NewPath();
  Error error;
  qncHttpCallSetProgress(call.get(), EndAtOnce, nullptr);
  EXPECT_EQ(qncHttpCallDownload(call.get(), path.c_str(), error.Out()), nullptr);
  EXPECT_EQ(CodeOf(error), "12017");
  EXPECT_FALSE(std::ifstream(path).is_open());
  EXPECT_FALSE(std::ifstream(path + ".part").is_open());
}

TEST(CInterfaceHttpCall, DownloadsIntoAFile) {
  ScriptedServer server(HttpResponse("file content"));
  const HttpCall call = CallTo(server);
  const std::string path = quarnfc_test::TempFile::NewPath();
  const HttpAnswer response(qncHttpCallDownload(call.get(), path.c_str(), nullptr));
  EXPECT_EQ(qncHttpStatus(response.get()), 200);
  {
    std::ifstream file(path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "file content");
  }
  std::remove(path.c_str());
}

TEST(CInterfaceHttpCallThreads, AnotherThreadCancelsForGood) {
  struct Canceller {
    QncHttpCall* call;
    std::thread thread;
  } canceller;
  ScriptedServer server([](ServerConnection& connection) {
    connection.ReadRequest();
    connection.Send("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
    while (connection.Send("x")) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  });
  const HttpCall call = CallTo(server);
  canceller.call = call.get();
  qncHttpCallSetProgress(
      call.get(),
      [](void* context, unsigned long long, unsigned long long) {
        auto& who = *static_cast<Canceller*>(context);
        if (!who.thread.joinable()) who.thread = std::thread(qncHttpCallCancel, who.call);
        return 1;
      },
      &canceller);
  Error error;
  EXPECT_EQ(qncHttpCallSend(call.get(), error.Out()), nullptr);
  EXPECT_EQ(CodeOf(error), "12017");
  canceller.thread.join();
  EXPECT_EQ(qncHttpCallSend(call.get(), error.Out()), nullptr);
  EXPECT_EQ(CodeOf(error), "12017");
}

TEST(CInterfaceHttpCall, RefusesWhatIsNoCall) {
  Error error;
  EXPECT_EQ(qncHttpCallNew(nullptr, "http://127.0.0.1:1/", error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncHttpCallNew("GET", nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  const HttpCall put(qncHttpCallNew("PUT", "http://127.0.0.1:1/", nullptr));
  EXPECT_EQ(qncHttpCallDownload(put.get(), "x", error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: a download is a GET without body");
  EXPECT_EQ(qncHttpCallSetHeaders(put.get(), "no colon", error.Out()), 0);
  EXPECT_EQ(error.Text(), "87: Quarn: a header has no name");
  EXPECT_EQ(qncHttpCallSetUser(put.get(), "\xF0\x9F\x98\x80", "", error.Out()), 0);
  EXPECT_EQ(CodeOf(error), "5");
  EXPECT_EQ(qncHttpCallSetUser(put.get(), "a", nullptr, error.Out()), 0);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncHttpCallSend(nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncHttpCallDownload(nullptr, "x", error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncHttpCallSetBody(nullptr, "x", 1, nullptr), 0);
  EXPECT_EQ(qncHttpCallSetHeaders(nullptr, "A: 1\n", nullptr), 0);
  qncHttpCallSetDeadline(nullptr, 1);
  qncHttpCallSetLargest(nullptr, 1);
  qncHttpCallSetProgress(nullptr, EndAtOnce, nullptr);
  qncHttpCallCancel(nullptr);
  qncHttpCallFree(nullptr);
}
