// The command qn http, as the dispatcher runs it, against the web server of run-with-nginx.sh.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "command.h"
#include "input_file.h"
#include "output_file.h"
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

TEST(QnHttpUsage, WrongCommandLinesAreUsageErrors) {
  EXPECT_EQ(RunQn({"http", "get"}).code, 2);
  EXPECT_EQ(RunQn({"http", "post", "http://h/"}).code, 2);
  EXPECT_EQ(RunQn({"http", "put", "--data", "x", "http://h/", "file"}).code, 2);
  EXPECT_EQ(RunQn({"http", "get", "--timeout", "0", "http://h/"}).code, 2);
  EXPECT_EQ(RunQn({"http", "get", "ftp://h/"}).code, 1);
  EXPECT_EQ(RunQn({"http", "get", "no url"}).code, 1);
}

class QnHttp : public testing::Test {
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

  static constexpr const char* kTarget = "qn_http_test.out";
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
  EXPECT_EQ(RunQn({"http", "get", untrusted_server + "/scheme"}).code, 1);
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

}  // namespace
