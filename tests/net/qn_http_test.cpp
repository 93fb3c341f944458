// SPDX-License-Identifier: MIT
// The command qn http, as the dispatcher runs it, against the web server of run-with-nginx.sh.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "qn/command.h"
#include "qn/http_error.h"
#include "qn/input_file.h"
#include "qn/output_file.h"
#include "tests/net/memory_in_use.h"
#include "tests/net/scripted_server.h"
#include "tests/tools/run_qn.h"

namespace qn {
extern const Command kHttpCommand;
}

namespace {

using qn_test::Outcome;

qn_test::FullOutcome RunQn(const std::vector<std::string>& arguments) {
  return qn_test::RunQn({&qn::kHttpCommand, 1}, arguments);
}

bool Exists(const char* path) {
  FILE* file = std::fopen(path, "rb");
  if (file != nullptr) std::fclose(file);
  return file != nullptr;
}

TEST(QnHttpParse, PrintsThePartsOfAUrl) {
  EXPECT_EQ(RunQn({"http", "parse", "https://me:secret@h/p?q=1"}),
            (Outcome{0,
                     "service   https\nserver    h\nport      443\nobject    /p?q=1\n"
                     "user      me\npassword  secret\n"}));
  EXPECT_EQ(RunQn({"http", "parse", "http://h:81"}),
            (Outcome{0, "service   http\nserver    h\nport      81\nobject    /\n"}));
  EXPECT_EQ(RunQn({"http", "parse", "no url"}).code, 1);
  EXPECT_EQ(RunQn({"http", "parse"}).code, 2);
}

TEST(QnHttpParse, DecodesCredentialsStripsTheFragmentAndEscapesAsUtf8) {
  EXPECT_EQ(RunQn({"http", "parse", "http://a%40b:c%3Ad@h/\xE4\xB8\xAD#part"}),
            (Outcome{0,
                     "service   http\nserver    h\nport      80\nobject    /%E4%B8%AD\n"
                     "user      a@b\npassword  c:d\n"}));
}

TEST(QnHttpUsage, WrongCommandLinesAreUsageErrors) {
  EXPECT_EQ(RunQn({"http", "get"}).code, 2);
  EXPECT_EQ(RunQn({"http", "post", "http://h/"}).code, 2);
  EXPECT_EQ(RunQn({"http", "put", "--data", "x", "http://h/", "file"}).code, 2);
  EXPECT_EQ(RunQn({"http", "get", "--timeout", "0", "http://h/"}).code, 2);
  EXPECT_EQ(RunQn({"http", "get", "-O", "-o", "x", "http://h/f"}).code, 2);
  EXPECT_EQ(RunQn({"http", "get", "-C", "http://h/f"}).code, 2);
  EXPECT_EQ(RunQn({"http", "get", "-C", "--compressed", "-o", "x", "http://h/f"}).code, 2);
  EXPECT_EQ(RunQn({"http", "get", "-O", "http://h/"}).code, 1);
  EXPECT_EQ(RunQn({"http", "get", "ftp://h/"}).code, 1);
  EXPECT_EQ(RunQn({"http", "get", "no url"}).code, 1);
}

TEST(QnHttpErrors, HaveWordsTheirCodeAndAHintWhereOneHelps) {
  const std::pair<unsigned int, const char*> cases[] = {
      {12002, "; --timeout"},   {12005, ""},      {12007, "; is it spelled"}, {12029, "; is it "},
      {12037, "; -k "},         {12038, "; -k "}, {12045, "; -k "},           {12057, "; -k "},
      {12152, "; is it HTTPS"}, {12156, ""},      {12157, "; does the"},      {12169, "; -k "},
      {12175, "; -k "}};
  for (const auto& [code, hint] : cases) {
    const std::string message = qn::DescribeError(CQNInternetException(code));
    const std::string end = " (error " + std::to_string(code) + ")" + hint;
    EXPECT_NE(message.find(end), std::string::npos) << message;
    EXPECT_GT(message.find(end), 5u) << message;
    EXPECT_EQ(message.find("without a text"), std::string::npos) << message;
  }
}

TEST(QnHttpErrors, AServerThatIsNotThereIsToldWithItsUrl) {
  const std::string url = "http://127.0.0.1:" + std::to_string(UnusedPort()) + "/a";
  const auto outcome = RunQn({"http", "get", url});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.errors.find("qn: " + url + ": "), 0u) << outcome.errors;
  EXPECT_NE(outcome.errors.find("(error 12029); is it running on that port?"), std::string::npos);
}

class QnHttp : public testing::Test {
 public:
  static constexpr const char* kTarget = "qn_http_test.out";

 protected:
  void SetUp() override {
    const char* port = std::getenv("QUARNFC_HTTP_PORT");
    const char* secure_port = std::getenv("QUARNFC_HTTPS_PORT");
    if (port == nullptr || secure_port == nullptr) {
      GTEST_SKIP() << "no web server: run it through tests/net/run-with-nginx.sh";
    }
    server_ = std::string("http://127.0.0.1:") + port;
    secure_server_ = std::string("https://localhost:") + secure_port;
  }
  ~QnHttp() override { std::remove(kTarget); }

  std::string server_;
  std::string secure_server_;
};

TEST_F(QnHttp, GetPrintsTheBody) {
  EXPECT_EQ(RunQn({"http", "get", server_ + "/small.txt"}), (Outcome{0, "small content"}));
  EXPECT_EQ(RunQn({"http", "get", server_ + "/redirect"}), (Outcome{0, "small content"}));
}

TEST_F(QnHttp, GetWritesAFile) {
  EXPECT_EQ(RunQn({"http", "get", "-o", kTarget, server_ + "/large.bin"}), (Outcome{0, ""}));
  EXPECT_EQ(qn::ReadInput(kTarget).size(), 100u * 1024 * 1024);
}

TEST_F(QnHttp, GetLeavesNoFileBehindAFailure) {
  EXPECT_EQ(RunQn({"http", "get", "-o", kTarget, server_ + "/no-such-file"}).code, 1);
  EXPECT_FALSE(Exists(kTarget));
  EXPECT_EQ(RunQn({"http", "get", "-o", kTarget, "http://127.0.0.1:1/"}).code, 1);
  EXPECT_FALSE(Exists(kTarget));
}

TEST_F(QnHttp, GetLeavesNoFileWhenTheBodyBreaksOff) {
  ScriptedServer broken([](ServerConnection& connection) {
    connection.ReadRequest();
    connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nshort");
    connection.Finish();
  });
  EXPECT_EQ(RunQn({"http", "get", "-o", kTarget, broken.Url("/")}).code, 1);
  EXPECT_FALSE(Exists(kTarget));
}

TEST_F(QnHttp, GetSendsHeadersAndKnowsTheCredentialsOfTheUrl) {
  EXPECT_EQ(RunQn({"http", "get", "-H", "X-Test: one", server_ + "/echo-header"}),
            (Outcome{0, "one"}));
  std::string url = server_ + "/private-file";
  url.insert(url.find("127"), "user:secret@");
  EXPECT_EQ(RunQn({"http", "get", url}), (Outcome{0, "small content"}));
}

TEST_F(QnHttp, GetTakesATimeoutAndAnyCertificateWhenAsked) {
  const char* untrusted_port = std::getenv("QUARNFC_UNTRUSTED_HTTPS_PORT");
  ASSERT_NE(untrusted_port, nullptr);
  const std::string untrusted_server = std::string("https://localhost:") + untrusted_port;
  const auto refused = RunQn({"http", "get", untrusted_server + "/scheme"});
  EXPECT_EQ(refused.code, 1);
  EXPECT_NE(refused.errors.find("; -k accepts"), std::string::npos) << refused.errors;
  EXPECT_EQ(RunQn({"http", "get", "-k", "--timeout", "20", secure_server_ + "/scheme"}),
            (Outcome{0, "https"}));
}

TEST_F(QnHttp, HeadPrintsTheHeadOfTheResponse) {
  const Outcome outcome = RunQn({"http", "head", server_ + "/small.txt"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.output.substr(0, 16), "HTTP/1.1 200 OK\n");
  EXPECT_NE(outcome.output.find("Content-Length: 13\n"), std::string::npos);
  EXPECT_EQ(RunQn({"http", "head", server_ + "/no-such-file"}).code, 1);
}

TEST_F(QnHttp, PutAndPostSendABody) {
  EXPECT_EQ(RunQn({"http", "put", "--data", "from qn", server_ + "/upload/qn.txt"}).code, 0);
  EXPECT_EQ(RunQn({"http", "get", server_ + "/upload/qn.txt"}), (Outcome{0, "from qn"}));
  EXPECT_EQ(RunQn({"http", "post", "-d", "x", server_ + "/verb"}), (Outcome{0, "POST"}));
  {
    qn::OutputFile file(kTarget);
    file.Write("from a file");
    file.Commit();
  }
  EXPECT_EQ(RunQn({"http", "put", server_ + "/upload/qn.txt", kTarget}).code, 0);
  EXPECT_EQ(RunQn({"http", "get", server_ + "/upload/qn.txt"}), (Outcome{0, "from a file"}));
}

// A server that keeps what it was sent and gives its answers in turn; the last one stays.
class AnsweringServer {
 public:
  explicit AnsweringServer(std::vector<std::string> answers)
      : answers_(std::move(answers)), server_([this](ServerConnection& connection) {
          for (;;) {
            const std::string request = connection.ReadRequest();
            if (request.empty()) return;
            if (!connection.Send(Take(request))) return;
          }
        }) {}

  std::string Url(const std::string& path) const { return server_.Url(path); }

  // Whether a request holds a text.
  bool Got(std::size_t index, const std::string& part) {
    const std::lock_guard lock(mutex_);
    return index < requests_.size() && requests_[index].find(part) != std::string::npos;
  }

  std::size_t Count() {
    const std::lock_guard lock(mutex_);
    return requests_.size();
  }

 private:
  // Keeps a request and returns its answer.
  std::string Take(const std::string& request) {
    const std::lock_guard lock(mutex_);
    const std::size_t index = std::min(requests_.size(), answers_.size() - 1);
    requests_.push_back(request);
    return answers_[index];
  }

  std::mutex mutex_;
  std::vector<std::string> requests_;
  std::vector<std::string> answers_;
  ScriptedServer server_;
};

TEST(QnHttpClient, SendsRepeatedHeadersVerbAndCredentials) {
  AnsweringServer server({HttpResponse("fine")});
  std::string url = server.Url("/a#part");
  url.insert(url.find("127"), "us%40er:secret@");
  EXPECT_EQ(RunQn({"http", "get", "-X", "REPORT", "-H", "X-One: 1", "-H", "X-One: 2", url}),
            (Outcome{0, "fine"}));
  EXPECT_TRUE(server.Got(0, "REPORT /a HTTP/1.1\r\n"));
  EXPECT_TRUE(server.Got(0, "\r\nX-One: 1\r\n"));
  EXPECT_TRUE(server.Got(0, "\r\nX-One: 2\r\n"));
  EXPECT_TRUE(server.Got(0, "\r\nAuthorization: Basic dXNAZXI6c2VjcmV0\r\n"));
}

TEST(QnHttpClient, DoesNotRepeatCredentialsToAnotherServer) {
  AnsweringServer other({HttpResponse("end")});
  AnsweringServer server(
      {HttpResponse("", "Location: " + other.Url("/next") + "\r\n", "302 Found")});
  EXPECT_EQ(RunQn({"http", "get", "-u", "user:secret", "-H", "Cookie: own=1", "-H", "X-Own: 1",
                   server.Url("/")}),
            (Outcome{0, "end"}));
  EXPECT_TRUE(server.Got(0, "Authorization: Basic"));
  EXPECT_TRUE(other.Got(0, "GET /next HTTP/1.1"));
  EXPECT_TRUE(other.Got(0, "X-Own: 1"));
  EXPECT_FALSE(other.Got(0, "Authorization"));
  EXPECT_FALSE(other.Got(0, "own=1"));
}

TEST(QnHttpClient, FollowsSoManyRedirectsOnly) {
  AnsweringServer server({HttpResponse("", "Location: again\r\n", "302 Found")});
  EXPECT_EQ(RunQn({"http", "get", "--max-redirects", "3", server.Url("/a/b")}).code, 1);
  EXPECT_EQ(server.Count(), 4u);
  EXPECT_TRUE(server.Got(3, "GET /a/again HTTP/1.1"));
  EXPECT_EQ(RunQn({"http", "get", "--max-redirects", "0", server.Url("/")}).code, 0);
}

TEST(QnHttpClient, APostBecomesAGetBehindA303AndStaysOneBehindA307) {
  for (const auto& [status, verb] :
       {std::pair("303 See Other", "GET"), std::pair("307 Temporary Redirect", "POST")}) {
    AnsweringServer server({HttpResponse("", "Location: /next\r\n", status), HttpResponse("end")});
    EXPECT_EQ(RunQn({"http", "post", "-d", "body", server.Url("/")}), (Outcome{0, "end"}));
    EXPECT_TRUE(server.Got(0, "\r\nContent-Type: application/x-www-form-urlencoded\r\n"));
    EXPECT_TRUE(server.Got(1, std::string(verb) + " /next HTTP/1.1")) << status;
    EXPECT_EQ(server.Got(1, "\r\n\r\nbody"), std::string(verb) == "POST") << status;
  }
}

TEST(QnHttpClient, WritesTheBodyOfAnErrorStatusWhenAsked) {
  AnsweringServer server({HttpResponse("why not", "", "404 Not Found")});
  EXPECT_EQ(RunQn({"http", "get", server.Url("/")}).code, 1);
  EXPECT_EQ(RunQn({"http", "get", "--error-body", server.Url("/")}), (Outcome{1, "why not"}));
}

TEST(QnHttpClient, IncludesTheHead) {
  AnsweringServer server({HttpResponse("body", "X-Own: 1\r\n")});
  const std::string output = RunQn({"http", "get", "-i", server.Url("/")}).output;
  EXPECT_EQ(output.rfind("HTTP/1.1 200 OK\n", 0), 0u);
  EXPECT_NE(output.find("X-Own: 1\n"), std::string::npos);
  EXPECT_EQ(output.substr(output.size() - 4), "body");
}

TEST(QnHttpClient, ShowsBothHeadsOnStandardErrorButNoCredentials) {
  AnsweringServer server({HttpResponse("body", "X-Own: 1\r\n")});
  const auto outcome = RunQn({"http", "get", "-v", "-u", "user:secret", server.Url("/a")});
  EXPECT_EQ(outcome, (Outcome{0, "body"}));
  EXPECT_NE(outcome.errors.find("> GET /a HTTP/1.1\n"), std::string::npos);
  EXPECT_NE(outcome.errors.find("> (credentials)\n"), std::string::npos);
  EXPECT_NE(outcome.errors.find("< HTTP/1.1 200 OK\n"), std::string::npos);
  EXPECT_NE(outcome.errors.find("< X-Own: 1\n"), std::string::npos);
  EXPECT_EQ(outcome.errors.find("dXNlcjpzZWNyZXQ"), std::string::npos);
}

TEST(QnHttpClient, GoesThroughAProxy) {
  AnsweringServer proxy({HttpResponse("from the proxy")});
  const std::string address = proxy.Url("").substr(7);
  EXPECT_EQ(RunQn({"http", "get", "-x", address, "http://h.invalid/a"}),
            (Outcome{0, "from the proxy"}));
  // Wine names the port as well.
  EXPECT_TRUE(proxy.Got(0, "GET http://h.invalid/a HTTP/1.1\r\n") ||
              proxy.Got(0, "GET http://h.invalid:80/a HTTP/1.1\r\n"));
}

TEST(QnHttpClient, TriesAgainWhenTheConnectionFails) {
  std::atomic<int> connections{0};
  ScriptedServer server([&connections](ServerConnection& connection) {
    connection.ReadRequest();
    if (++connections > 1) {
      connection.Send(HttpResponse("at last"));
    } else {
      connection.ReadSome(1);  // silent until the client gives up
    }
  });
  EXPECT_EQ(RunQn({"http", "get", "-t", "1", "--retry", "3", server.Url("/")}),
            (Outcome{0, "at last"}));
}

TEST(QnHttpClient, FollowsRedirectsWithAndWithoutAskingForIt) {
  for (const char* option : {"-L", "--location", "-v"}) {
    AnsweringServer server(
        {HttpResponse("", "Location: /next\r\n", "302 Found"), HttpResponse("end")});
    EXPECT_EQ(RunQn({"http", "get", option, server.Url("/")}), (Outcome{0, "end"})) << option;
  }
}

TEST(QnHttpClient, NamesTheFileAfterTheUrl) {
  AnsweringServer server({HttpResponse("named")});
  EXPECT_EQ(RunQn({"http", "get", "-O", server.Url("/a/qn_http%5Ftest.name?q")}), (Outcome{0, ""}));
  EXPECT_EQ(qn::ReadInput("qn_http_test.name"), "named");
  std::remove("qn_http_test.name");
}

TEST(QnHttpClient, KeepsCookiesInAFile) {
  const std::string jar = testing::TempDir() + "jar.txt";
  AnsweringServer server({HttpResponse("",
                                       "Set-Cookie: a=1; Path=/\r\nSet-Cookie: b=2; Path=/\r\n"
                                       "Location: /next\r\n",
                                       "302 Found"),
                          HttpResponse("end")});
  EXPECT_EQ(RunQn({"http", "get", "-c", jar, server.Url("/")}), (Outcome{0, "end"}));
  EXPECT_FALSE(server.Got(0, "Cookie:"));
  EXPECT_TRUE(server.Got(1, "\r\nCookie: a=1; b=2\r\n"));
  EXPECT_EQ(RunQn({"http", "head", "-b", jar, server.Url("/")}).code, 0);
  EXPECT_TRUE(server.Got(2, "\r\nCookie: a=1; b=2\r\n"));
  EXPECT_EQ(RunQn({"http", "get", "-b", "own=3", server.Url("/")}), (Outcome{0, "end"}));
  EXPECT_TRUE(server.Got(3, "\r\nCookie: own=3\r\n"));
  std::remove(jar.c_str());
}

TEST(QnHttpClient, KeepsTheCookiesOfAFailedRequest) {
  const std::string jar = testing::TempDir() + "jar.txt";
  AnsweringServer server({HttpResponse("", "Set-Cookie: a=1; Path=/\r\n", "403 Forbidden")});
  EXPECT_EQ(RunQn({"http", "get", "-c", jar, server.Url("/")}).code, 1);
  EXPECT_NE(qn::ReadInput(jar).find("\ta\t1\n"), std::string::npos);
  std::remove(jar.c_str());
}

TEST(QnHttpClient, UnpacksACompressedBodyWhenAsked) {
  const std::string packed(
      "\x1F\x8B\x08\x00\x00\x00\x00\x00\x02\x03\x2B\xCE\x4D\xCC\xC9\x51\x48\xCE\xCF\x2B\x49\xCD"
      "\x2B\x01\x00\x19\x69\xBE\xC4\x0D\x00\x00\x00",
      33);
  AnsweringServer server({HttpResponse(packed, "Content-Encoding: gzip\r\n")});
  const auto outcome = RunQn({"http", "get", "--compressed", server.Url("/")});
  if (outcome.errors.find("no zlib") != std::string::npos) GTEST_SKIP() << "built without zlib";
  EXPECT_EQ(outcome, (Outcome{0, "small content"}));
  EXPECT_TRUE(server.Got(0, "\r\nAccept-Encoding: gzip, deflate\r\n"));
  EXPECT_EQ(RunQn({"http", "get", "-o", QnHttp::kTarget, server.Url("/")}).code, 0);
  EXPECT_EQ(qn::ReadInput(QnHttp::kTarget), packed);
  EXPECT_FALSE(server.Got(1, "Accept-Encoding"));
  std::remove(QnHttp::kTarget);
}

TEST(QnHttpClient, SendsAFileOf300MegabytesInTheMemoryOfAFew) {
  constexpr std::size_t kSize = std::size_t{300} << 20;
  const std::string path = testing::TempDir() + "qn_http_large.bin";
  std::ofstream(path).close();
  std::filesystem::resize_file(path, kSize);
  std::atomic<std::size_t> most{0};
  ScriptedServer server([&most](ServerConnection& connection) {
    while (!connection.ReadLine().empty()) {
    }
    for (std::size_t received = 0, sampled = 0; received < kSize;) {
      const std::string piece = connection.ReadSome(65536);
      if (piece.empty()) return;
      received += piece.size();
      if (received - sampled < (4u << 20)) continue;
      sampled = received;
      most = std::max(most.load(), MemoryInUse());
    }
    connection.Send(HttpResponse("taken"));
  });
  const std::size_t before = MemoryInUse();
  EXPECT_EQ(RunQn({"http", "put", server.Url("/"), path}), (Outcome{0, "taken"}));
  std::remove(path.c_str());
  EXPECT_NE(most, 0u);
  RecordProperty("megabytes", std::to_string((most - std::min(most.load(), before)) >> 20));
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)  // they hold memory back
  EXPECT_LT(most, before + (40u << 20));
#endif
}

// Everything over TLS, too.
TEST_F(QnHttp, SpeaksTlsWithEveryOption) {
  const std::string jar = testing::TempDir() + "jar.txt";
  EXPECT_EQ(RunQn({"http", "get", "-k", "-c", jar, secure_server_ + "/set-cookie"}),
            (Outcome{0, "set"}));
  EXPECT_EQ(RunQn({"http", "get", "-k", "-b", jar, secure_server_ + "/cookie"}),
            (Outcome{0, "flavour=vanilla"}));
  std::remove(jar.c_str());
  EXPECT_EQ(RunQn({"http", "get", "-k", "-H", "X-Test: 1", secure_server_ + "/echo-header"}),
            (Outcome{0, "1"}));
  EXPECT_EQ(RunQn({"http", "get", "-k", "-X", "DELETE", secure_server_ + "/verb"}),
            (Outcome{0, "DELETE"}));
  EXPECT_EQ(RunQn({"http", "get", "-k", "-u", "user:secret", secure_server_ + "/private-file"}),
            (Outcome{0, "small content"}));
  EXPECT_EQ(RunQn({"http", "put", "-k", "-d", "tls", secure_server_ + "/upload/tls.txt"}).code, 0);
  EXPECT_EQ(RunQn({"http", "get", "-k", secure_server_ + "/upload/tls.txt"}), (Outcome{0, "tls"}));
  const auto packed =
      RunQn({"http", "get", "-k", "-v", "--compressed", secure_server_ + "/compressed"});
  if (packed.errors.find("no zlib") != std::string::npos) return;
  EXPECT_EQ(packed.output, RunQn({"http", "get", "-k", secure_server_ + "/lines.txt"}).output);
  EXPECT_NE(packed.errors.find("Content-Encoding: gzip"), std::string::npos);
}

TEST_F(QnHttp, ContinuesAFileThatBrokeOff) {
  {
    qn::OutputFile file(kTarget);
    file.Write("small ");
    file.Commit();
  }
  EXPECT_EQ(RunQn({"http", "get", "-C", "-o", kTarget, server_ + "/small.txt"}), (Outcome{0, ""}));
  EXPECT_EQ(qn::ReadInput(kTarget), "small content");
  // Nothing is missing now. (So curl spells it.)
  EXPECT_EQ(RunQn({"http", "get", "-C", "-", "-o", kTarget, server_ + "/small.txt"}).code, 0);
  EXPECT_EQ(qn::ReadInput(kTarget), "small content");
}

TEST_F(QnHttp, SendsALargeFilePieceByPiece) {
  EXPECT_EQ(RunQn({"http", "get", "-o", kTarget, server_ + "/large.bin"}).code, 0);
  EXPECT_EQ(RunQn({"http", "put", server_ + "/upload/large.bin", kTarget}).code, 0);
  EXPECT_EQ(RunQn({"http", "get", "-o", kTarget, server_ + "/upload/large.bin"}).code, 0);
  EXPECT_EQ(qn::ReadInput(kTarget).size(), 100u * 1024 * 1024);
}

}  // namespace
