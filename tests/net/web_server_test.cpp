// SPDX-License-Identifier: MIT
// The HTTP client end to end, against nginx on this machine: run-with-nginx.sh starts it.
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/net/md5.h"
#include "tests/net/test_text.h"

namespace {

using Connection = std::unique_ptr<CQNHttpConnection>;
using File = std::unique_ptr<CQNHttpFile>;

constexpr unsigned int kLargeSize = 100 * 1024 * 1024;
constexpr DWORD kKeepAlive =
    INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_KEEP_CONNECTION;

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

unsigned short PortFrom(const char* name) {
  return static_cast<unsigned short>(std::atoi(Environment(name).c_str()));
}

// The checksum of a response, and its length.
std::string Md5Of(CQNInternetFile& file, unsigned int& length) {
  Md5 md5;
  std::vector<char> bytes(1 << 18);
  length = 0;
  while (const unsigned int count = file.Read(bytes.data(), 1 << 18)) {
    md5.Add(bytes.data(), count);
    length += count;
  }
  return md5.Hex();
}

DWORD StatusOf(CQNHttpFile& file) {
  DWORD status = 0;
  EXPECT_EQ(file.QueryInfoStatusCode(status), 1);
  return status;
}

class WebServer : public testing::Test {
 protected:
  void SetUp() override {
    if (port_ == 0) GTEST_SKIP() << "no web server: run it through tests/net/run-with-nginx.sh";
    connection_.reset(session_.GetHttpConnection("127.0.0.1", port_));
  }

  File Open(const char* verb, const char* object, DWORD flags = kKeepAlive) {
    return File(connection_->OpenRequest(verb, object, nullptr, 1, nullptr, "HTTP/1.1", flags));
  }

  // The body of a response to GET.
  std::string Get(const char* object) {
    const File file = Open("GET", object);
    file->SendRequest();
    return ReadAll(*file);
  }

  std::string Url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
  }

  unsigned short port_ = PortFrom("QUARNFC_HTTP_PORT");
  CQNInternetSession session_{"QuarnFC test", 5};
  Connection connection_;
};

// --- verbs and statuses --------------------------------------------------------------------------

TEST_F(WebServer, SeesEveryVerb) {
  const char* const verbs[] = {"POST", "GET", "HEAD", "PUT", "LINK", "DELETE", "UNLINK"};
  for (int i = 0; i < 7; ++i) {
    const File file(
        connection_->OpenRequest(i, "/verb", nullptr, 1, nullptr, "HTTP/1.1", kKeepAlive));
    file->SendRequest();
    const std::string seen = ReadAll(*file);
    EXPECT_EQ(StatusOf(*file), 200u) << verbs[i];
    EXPECT_EQ(seen, i == 2 ? "" : verbs[i]);
  }
  for (const char* verb : {"OPTIONS", "PATCH", "PROPFIND", "OWN"}) {
    const File file = Open(verb, "/verb");
    file->SendRequest();
    EXPECT_EQ(ReadAll(*file), verb);
  }
}

TEST_F(WebServer, TheEmptyVerbIsSentAsGet) {
  const File file(connection_->OpenRequest(-1, "/verb"));
  file->SendRequest();
  EXPECT_EQ(ReadAll(*file), "GET");
}

TEST_F(WebServer, AnswersWithoutABodyReadAsNothing) {
  const struct {
    const char* verb;
    const char* object;
    DWORD status;
  } cases[] = {{"GET", "/empty", 204},
               {"GET", "/not-modified", 304},
               {"HEAD", "/small.txt", 200},
               {"HEAD", "/large.bin", 200},
               {"POST", "/empty", 204}};
  for (const auto& c : cases) {
    const File file = Open(c.verb, c.object);
    file->SendRequest();
    EXPECT_EQ(StatusOf(*file), c.status) << c.object;
    EXPECT_EQ(ReadAll(*file), "") << c.object;
    CQNString line;
    EXPECT_EQ(file->ReadString(line), 0) << c.object;
    EXPECT_EQ(Get("/small.txt"), "small content") << "after " << c.object;
  }
}

TEST_F(WebServer, HeadTellsTheLengthOfTheContent) {
  const File file = Open("HEAD", "/large.bin");
  file->SendRequest();
  DWORD length = 0;
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_CONTENT_LENGTH, length), 1);
  EXPECT_EQ(length, kLargeSize);
  SYSTEMTIME modified = {};
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_LAST_MODIFIED, &modified), 1);
  EXPECT_GE(modified.wYear, 2020);
}

TEST_F(WebServer, ErrorStatusesAreResponsesNotExceptions) {
  for (const auto& [object, status] :
       {std::pair("/no-such-file", 404u), std::pair("/teapot", 418u)}) {
    const File file = Open("GET", object);
    EXPECT_EQ(file->SendRequest(), 1);
    EXPECT_EQ(StatusOf(*file), status);
    EXPECT_FALSE(ReadAll(*file).empty());
  }
}

// --- bodies --------------------------------------------------------------------------------------

TEST_F(WebServer, DownloadsALargeFileUnchanged) {
  for (const unsigned int buffer : {0u, 65536u}) {
    const File file = Open("GET", "/large.bin");
    file->SendRequest();
    file->SetReadBufferSize(buffer);
    unsigned int length = 0;
    EXPECT_EQ(Md5Of(*file, length), Environment("QUARNFC_LARGE_MD5"));
    EXPECT_EQ(length, kLargeSize);
  }
}

TEST_F(WebServer, UploadsALargeBodyInOnePiece) {
  std::string body;
  {
    const File source = Open("GET", "/large.bin");
    source->SendRequest();
    body = ReadAll(*source);
  }
  ASSERT_EQ(body.size(), kLargeSize);
  const File upload = Open("PUT", "/upload/whole.bin");
  EXPECT_EQ(upload->SendRequest(nullptr, 0, body.data(), kLargeSize), 1);
  EXPECT_EQ(StatusOf(*upload), 201u);
  body.clear();

  const File file = Open("GET", "/upload/whole.bin");
  file->SendRequest();
  unsigned int length = 0;
  EXPECT_EQ(Md5Of(*file, length), Environment("QUARNFC_LARGE_MD5"));
}

TEST_F(WebServer, UploadsALargeBodyInPieces) {
  const unsigned int sizes[] = {1, 1000, 65536, 100000, 1 << 20};
  std::string body;
  {
    const File source = Open("GET", "/large.bin");
    source->SendRequest();
    body = ReadAll(*source);
  }
  ASSERT_EQ(body.size(), kLargeSize);
  const File upload = Open("PUT", "/upload/pieces.bin");
  upload->SetWriteBufferSize(65536);
  upload->SendRequestEx(kLargeSize);
  for (unsigned int sent = 0, i = 0; sent < kLargeSize; ++i) {
    const unsigned int size = std::min(sizes[i % 5], kLargeSize - sent);
    upload->Write(body.data() + sent, size);
    sent += size;
  }
  EXPECT_EQ(upload->EndRequest(), 1);
  EXPECT_EQ(StatusOf(*upload), 201u);

  const File file = Open("GET", "/upload/pieces.bin");
  file->SendRequest();
  unsigned int length = 0;
  EXPECT_EQ(Md5Of(*file, length), Environment("QUARNFC_LARGE_MD5"));
  const File removal = Open("DELETE", "/upload/pieces.bin");
  removal->SendRequest();
  EXPECT_EQ(StatusOf(*removal), 204u);
}

TEST_F(WebServer, ReadsChunkedResponses) {
  const File file = Open("GET", "/chunked");
  file->SendRequest();
  CQNString text;
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_TRANSFER_ENCODING, text), 1);
  EXPECT_EQ(TextOf(text), "chunked");
  EXPECT_EQ(ReadAll(*file), "first line\r\nsecond line\n\nlast line");
}

TEST_F(WebServer, ReadsLinesOfAFile) {
  const File file = Open("GET", "/lines.txt");
  file->SendRequest();
  std::vector<std::string> lines;
  CQNString line;
  while (file->ReadString(line)) lines.push_back(TextOf(line));
  EXPECT_EQ(lines, (std::vector<std::string>{"first line", "second line", "", "last line"}));
}

// --- redirects, authentication, cookies, headers -------------------------------------------------

TEST_F(WebServer, FollowsRedirects) {
  EXPECT_EQ(Get("/redirect"), "small content");
  EXPECT_EQ(Get("/redirect-far"), "small content");
  const File file(session_.OpenURL(Url("/redirect-far").c_str()));
  EXPECT_EQ(ReadAll(*file), "small content");
}

TEST_F(WebServer, DoesNotFollowRedirectsWhenAskedNotTo) {
  const File file = Open("GET", "/redirect", kKeepAlive | INTERNET_FLAG_NO_AUTO_REDIRECT);
  file->SendRequest();
  EXPECT_EQ(StatusOf(*file), 302u);
  CQNString location;
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_LOCATION, location), 1);
  EXPECT_NE(TextOf(location).find("/small.txt"), std::string::npos);
}

TEST_F(WebServer, AnswersABasicChallengeWithTheConnectionsCredentials) {
  const struct {
    const char* user;
    const char* password;
    DWORD status;
  } cases[] = {{"user", "secret", 200}, {"user", "wrong", 401}, {nullptr, nullptr, 401}};
  for (const auto& c : cases) {
    CQNInternetSession session;
    const Connection connection(session.GetHttpConnection("127.0.0.1", port_, c.user, c.password));
    const File file(connection->OpenRequest("GET", "/private-file", nullptr, 1, nullptr, "HTTP/1.1",
                                            kKeepAlive));
    file->SendRequest();
    EXPECT_EQ(StatusOf(*file), c.status) << (c.user != nullptr ? c.password : "nobody");
    if (c.status == 200) {
      EXPECT_EQ(ReadAll(*file), "small content");
    }
  }
}

TEST_F(WebServer, TakesCredentialsAfterAChallenge) {
  CQNInternetSession session;
  const Connection connection(session.GetHttpConnection("127.0.0.1", port_));
  const File file(
      connection->OpenRequest("GET", "/private-file", nullptr, 1, nullptr, "HTTP/1.1", kKeepAlive));
  file->SendRequest();
  // The credentials of earlier requests to the same realm may be remembered.
  if (StatusOf(*file) == 401) {
    ReadAll(*file);
    char user[] = "user";
    char password[] = "secret";
    EXPECT_EQ(file->SetOption(INTERNET_OPTION_USERNAME, user, sizeof(user) - 1, 0), 1);
    EXPECT_EQ(file->SetOption(INTERNET_OPTION_PASSWORD, password, sizeof(password) - 1, 0), 1);
    file->SendRequest();
  }
  EXPECT_EQ(StatusOf(*file), 200u);
  EXPECT_EQ(ReadAll(*file), "small content");
}

TEST_F(WebServer, KeepsCookies) {
  EXPECT_EQ(Get("/set-cookie"), "set");
  EXPECT_EQ(Get("/cookie"), "flavour=vanilla");
  const std::string url = Url("/cookie");
  CQNString cookie;
  EXPECT_EQ(CQNInternetSession::GetCookie(url.c_str(), nullptr, cookie), 1);
  EXPECT_STREQ(cookie, "flavour=vanilla");
  EXPECT_EQ(CQNInternetSession::SetCookie(url.c_str(), "size", "small"), 1);
  const std::string sent = Get("/cookie");
  EXPECT_NE(sent.find("size=small"), std::string::npos) << sent;
  EXPECT_NE(sent.find("flavour=vanilla"), std::string::npos) << sent;
}

TEST_F(WebServer, SeesAgentAndHeaders) {
  EXPECT_EQ(Get("/agent"), "QuarnFC test");
  const File file = Open("GET", "/echo-header");
  file->AddRequestHeaders("X-Test: from the client", HTTP_ADDREQ_FLAG_ADD);
  file->SendRequest();
  EXPECT_EQ(ReadAll(*file), "from the client");
}

// --- HTTPS ---------------------------------------------------------------------------------------

class SecureWebServer : public WebServer {
 protected:
  void SetUp() override {
    WebServer::SetUp();
    if (IsSkipped()) return;
    secure_.reset(session_.GetHttpConnection("localhost", PortFrom("QUARNFC_HTTPS_PORT")));
  }

  // From here on, a port that no test trusts: the platform keeps connections it trusted once.
  void ConnectUntrusted(const char* server) {
    secure_.reset(session_.GetHttpConnection(server, PortFrom("QUARNFC_UNTRUSTED_HTTPS_PORT")));
  }

  File OpenSecure(const char* verb, const char* object) {
    return File(secure_->OpenRequest(verb, object, nullptr, 1, nullptr, "HTTP/1.1",
                                     kKeepAlive | INTERNET_FLAG_SECURE));
  }

  static void TrustUnknownAuthority(CQNHttpFile& file) {
    EXPECT_EQ(file.SetOption(INTERNET_OPTION_SECURITY_FLAGS, SECURITY_FLAG_IGNORE_UNKNOWN_CA), 1);
  }

  Connection secure_;
};

TEST_F(SecureWebServer, RefusesAnUnknownAuthority) {
  ConnectUntrusted("localhost");
  EXPECT_EQ(ThrownBy([&] { OpenSecure("GET", "/scheme")->SendRequest(); }), (Thrown{12045, 5}));
}

TEST_F(SecureWebServer, IsTrustedThroughAnOption) {
  const File file = OpenSecure("GET", "/scheme");
  TrustUnknownAuthority(*file);
  file->SendRequest();
  EXPECT_EQ(StatusOf(*file), 200u);
  EXPECT_EQ(ReadAll(*file), "https");
}

TEST_F(SecureWebServer, IsRefusedUnderAnotherNameUnlessThatIsTrustedToo) {
  ConnectUntrusted("127.0.0.1");
  const File refused = OpenSecure("GET", "/scheme");
  TrustUnknownAuthority(*refused);
  EXPECT_EQ(ThrownBy([&] { refused->SendRequest(); }), (Thrown{12038, 5}));
  secure_.reset(session_.GetHttpConnection("127.0.0.1", PortFrom("QUARNFC_HTTPS_PORT")));
  const File trusted = OpenSecure("GET", "/scheme");
  trusted->SetOption(INTERNET_OPTION_SECURITY_FLAGS,
                     SECURITY_FLAG_IGNORE_UNKNOWN_CA | SECURITY_FLAG_IGNORE_CERT_CN_INVALID);
  trusted->SendRequest();
  EXPECT_EQ(ReadAll(*trusted), "https");
}

TEST_F(SecureWebServer, DownloadsALargeFileUnchanged) {
  const File file = OpenSecure("GET", "/large.bin");
  TrustUnknownAuthority(*file);
  file->SendRequest();
  unsigned int length = 0;
  EXPECT_EQ(Md5Of(*file, length), Environment("QUARNFC_LARGE_MD5"));
  EXPECT_EQ(length, kLargeSize);
}

TEST_F(SecureWebServer, ReceivesABodyInPieces) {
  const File upload = OpenSecure("PUT", "/upload/secure.txt");
  TrustUnknownAuthority(*upload);
  upload->SendRequestEx(12);
  upload->WriteString("one ");
  upload->WriteString("two four");
  upload->EndRequest();
  EXPECT_EQ(StatusOf(*upload), 201u);
  EXPECT_EQ(Get("/upload/secure.txt"), "one two four");
}

// --- many requests, many threads -----------------------------------------------------------------

// Runs work on four threads at once and waits for them.
template <class Work>
void OnFourThreads(Work work) {
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int t = 0; t < 4; ++t) threads.emplace_back(work);
  for (std::thread& thread : threads) thread.join();
}

TEST_F(WebServer, ServesTenThousandRequestsOverKeptConnections) {
  std::atomic<int> right{0};
  std::atomic<int> requests_of_one_connection{0};
  OnFourThreads([&] {
    CQNInternetSession session("thread");
    const Connection connection(session.GetHttpConnection("127.0.0.1", port_));
    for (int i = 0; i < 2500; ++i) {
      const File file(connection->OpenRequest("GET", "/connection", nullptr, 1, nullptr, "HTTP/1.1",
                                              kKeepAlive));
      file->SendRequest();
      char report[100] = {};
      if (file->Read(report, sizeof(report) - 1) != 0) ++right;
      // "number of the connection, requests on it so far"
      const std::string text(report);
      const int requests = std::atoi(text.substr(text.find(' ') + 1).c_str());
      if (requests > requests_of_one_connection) requests_of_one_connection = requests;
    }
  });
  EXPECT_EQ(right, 10000);
  EXPECT_GT(requests_of_one_connection, 1000);
}

class CountingSession : public CQNInternetSession {
 public:
  CountingSession() : CQNInternetSession("thread", 5) {}
  void OnStatusCallback(unsigned __int64, DWORD, void*, DWORD) override { ++calls; }
  std::atomic<int> calls{0};
};

TEST_F(WebServer, ServesThreadsWithASessionEach) {
  std::atomic<int> right{0};
  OnFourThreads([&] {
    CountingSession session;
    session.EnableStatusCallback(1);
    const Connection connection(session.GetHttpConnection("127.0.0.1", port_));
    for (int i = 0; i < 50; ++i) {
      const File file(connection->OpenRequest("GET", "/small.txt", nullptr, 1, nullptr, "HTTP/1.1",
                                              kKeepAlive));
      file->SendRequest();
      if (ReadAll(*file) == "small content") ++right;
    }
    const File file(
        connection->OpenRequest("GET", "/large.bin", nullptr, 1, nullptr, "HTTP/1.1", kKeepAlive));
    file->SendRequest();
    unsigned int length = 0;
    if (Md5Of(*file, length) == Environment("QUARNFC_LARGE_MD5")) ++right;
    if (session.calls > 50) ++right;
  });
  EXPECT_EQ(right, 4 * 52);
}

}  // namespace
