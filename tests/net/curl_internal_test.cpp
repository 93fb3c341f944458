// SPDX-License-Identifier: MIT
// Requests over libcurl where libcurl itself fails, and what it is told about proxies and lines.
#include <gtest/gtest.h>

#include <openssl/x509_vfy.h>
#include <quarnfc/internet_api.h>

#include <cerrno>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "platform/posix/internet/curl_certificates.h"
#include "platform/posix/internet/curl_errors.h"
#include "platform/posix/internet/curl_exchange.h"
#include "tests/failing_memory/door.h"
#include "tests/net/failing_curl.h"
#include "tests/net/scripted_server.h"

namespace quarnfc::internet {
namespace {

class Curl : public testing::Test {
 protected:
  ~Curl() override {
    failing_curl::Refuse("");
    failing_curl::Tell(nullptr);
  }

  // The error of sending a head; exchange lives as long as the next call.
  DWORD Send(const OutgoingHead& head) {
    exchange_ = std::make_unique<CurlExchange>(pool_);
    return exchange_->SendHead(
        head, [] {}, [] {});
  }

  // The body of the response; the head's lines stand in lines_.
  std::string Receive() {
    EXPECT_EQ(exchange_->ReceiveHead(lines_), 0u);
    std::string body;
    char bytes[100];
    std::size_t count = 0;
    while (exchange_->PullBody(bytes, sizeof(bytes), count) == 0 && count != 0) {
      body.append(bytes, count);
    }
    return body;
  }

  std::shared_ptr<CurlPool> pool_ = std::make_shared<CurlPool>();
  std::unique_ptr<CurlExchange> exchange_;
  std::vector<std::string> lines_;
};

OutgoingHead Get(unsigned short port, const std::string& host = "127.0.0.1") {
  OutgoingHead head;
  head.verb = "GET";
  head.target = "/x";
  head.route.host = host;
  head.route.port = port;
  head.route.proxy.access_type = INTERNET_OPEN_TYPE_DIRECT;
  return head;
}

TEST_F(Curl, WhatLibcurlRefusesIsAnErrorOfTheRequest) {
  const struct {
    const char* function;
    int nth;
    DWORD error;
  } cases[] = {
      {"curl_easy_init", 1, ERROR_NOT_ENOUGH_MEMORY},
      {"curl_multi_init", 1, ERROR_NOT_ENOUGH_MEMORY},
      {"curl_slist_append", 1, ERROR_NOT_ENOUGH_MEMORY},
      {"curl_slist_append", 2, ERROR_NOT_ENOUGH_MEMORY},
      {"curl_url", 1, ERROR_NOT_ENOUGH_MEMORY},
      {"curl_url_set", 1, ERROR_INTERNET_INVALID_URL},
      {"curl_url_set", 2, ERROR_INTERNET_INVALID_URL},
      {"curl_url_set", 3, ERROR_INTERNET_INVALID_URL},
      {"curl_url_set", 4, ERROR_INTERNET_INVALID_URL},
      {"curl_multi_add_handle", 1, ERROR_NOT_ENOUGH_MEMORY},
  };
  OutgoingHead head = Get(1);
  head.headers = {"X: y"};
  for (const auto& c : cases) {
    failing_curl::Refuse(c.function, c.nth);
    EXPECT_EQ(Send(head), c.error) << c.function << " " << c.nth;
    EXPECT_EQ(failing_curl::Calls(c.function), c.nth) << c.function;
  }
}

TEST_F(Curl, WithoutAWayToJudgeCertificatesThereIsNoSecureChannel) {
  OutgoingHead head = Get(1);
  head.route.secure = true;
  for (const CURLoption option : {CURLOPT_SSL_CTX_DATA, CURLOPT_SSL_CTX_FUNCTION}) {
    failing_curl::RefuseOption(option);
    EXPECT_EQ(Send(head), ERROR_INTERNET_SECURITY_CHANNEL_ERROR);
  }
}

TEST_F(Curl, EveryFailureOfLibcurlHasAnErrorOfTheInternetFunctions) {
  const std::unique_ptr<CURL, EasyCloser> easy(curl_easy_init());
  const std::pair<CURLcode, DWORD> cases[] = {
      {CURLE_OK, 0},
      {CURLE_URL_MALFORMAT, ERROR_INTERNET_INVALID_URL},
      {CURLE_COULDNT_RESOLVE_HOST, ERROR_INTERNET_NAME_NOT_RESOLVED},
      {CURLE_COULDNT_RESOLVE_PROXY, ERROR_INTERNET_NAME_NOT_RESOLVED},
      {CURLE_COULDNT_CONNECT, ERROR_INTERNET_CANNOT_CONNECT},
      {CURLE_PROXY, ERROR_INTERNET_CANNOT_CONNECT},
      {CURLE_OPERATION_TIMEDOUT, ERROR_INTERNET_TIMEOUT},
      {CURLE_OUT_OF_MEMORY, ERROR_NOT_ENOUGH_MEMORY},
      {CURLE_SSL_CONNECT_ERROR, ERROR_INTERNET_SECURITY_CHANNEL_ERROR},
      {CURLE_ABORTED_BY_CALLBACK, ERROR_INTERNET_OPERATION_CANCELLED},
      {CURLE_UNSUPPORTED_PROTOCOL, ERROR_HTTP_INVALID_SERVER_RESPONSE},
      {CURLE_WEIRD_SERVER_REPLY, ERROR_HTTP_INVALID_SERVER_RESPONSE},
      {CURLE_WRITE_ERROR, ERROR_HTTP_INVALID_SERVER_RESPONSE},
      {CURLE_BAD_CONTENT_ENCODING, ERROR_HTTP_INVALID_SERVER_RESPONSE},
      {CURLE_READ_ERROR, ERROR_INTERNET_CONNECTION_ABORTED},
  };
  for (const auto& [code, error] : cases) EXPECT_EQ(ErrorOf(easy.get(), code), error) << code;
}

TEST_F(Curl, ABrokenConnectionIsAResetWhereTheSystemSaysSo) {
  const std::unique_ptr<CURL, EasyCloser> easy(curl_easy_init());
  const std::pair<long, DWORD> cases[] = {{ECONNRESET, 10054},
                                          {EPIPE, 10054},
                                          {0, ERROR_INTERNET_CONNECTION_ABORTED},
                                          {ENETDOWN, ERROR_INTERNET_CONNECTION_ABORTED}};
  for (const auto& [system, error] : cases) {
    failing_curl::Tell(&system);
    for (const CURLcode code : {CURLE_SEND_ERROR, CURLE_RECV_ERROR, CURLE_GOT_NOTHING}) {
      EXPECT_EQ(ErrorOf(easy.get(), code), error) << system;
    }
  }
}

TEST_F(Curl, ACertificateIsRefusedForItsDateItsNameOrItsAuthority) {
  const std::unique_ptr<CURL, EasyCloser> easy(curl_easy_init());
  const std::pair<long, DWORD> cases[] = {
      {X509_V_OK, ERROR_INTERNET_SEC_CERT_CN_INVALID},
      {X509_V_ERR_UNSPECIFIED, ERROR_INTERNET_SEC_CERT_CN_INVALID},
      {X509_V_ERR_HOSTNAME_MISMATCH, ERROR_INTERNET_SEC_CERT_CN_INVALID},
      {X509_V_ERR_IP_ADDRESS_MISMATCH, ERROR_INTERNET_SEC_CERT_CN_INVALID},
      {X509_V_ERR_CERT_HAS_EXPIRED, ERROR_INTERNET_SEC_CERT_DATE_INVALID},
      {X509_V_ERR_CERT_NOT_YET_VALID, ERROR_INTERNET_SEC_CERT_DATE_INVALID},
      {X509_V_ERR_SELF_SIGNED_CERT_IN_CHAIN, ERROR_INTERNET_INVALID_CA},
      {X509_V_ERR_CERT_UNTRUSTED, ERROR_INTERNET_INVALID_CA},
      {X509_V_ERR_CERT_REVOKED, ERROR_INTERNET_INVALID_CA}};
  for (const auto& [result, error] : cases) {
    failing_curl::Tell(&result);
    EXPECT_EQ(ErrorOf(easy.get(), CURLE_PEER_FAILED_VERIFICATION), error) << result;
  }
}

TEST_F(Curl, SixteenIdleLinesAreKept) {
  failing_curl::Refuse("");
  std::vector<std::unique_ptr<CurlLine>> lines;
  for (unsigned short port = 1; port <= 17; ++port) lines.push_back(pool_->Take(Get(port).route));
  EXPECT_EQ(failing_curl::Calls("curl_easy_init"), 17);
  for (auto& line : lines) pool_->Give(std::move(line));
  for (unsigned short port = 2; port <= 17; ++port) pool_->Take(Get(port).route);
  EXPECT_EQ(failing_curl::Calls("curl_easy_init"), 17);
  pool_->Take(Get(1).route);
  EXPECT_EQ(failing_curl::Calls("curl_easy_init"), 18);
}

TEST_F(Curl, ALineThatIsUsedAgainSendsWhatANewOneSends) {
  ScriptedServer server("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
  const struct {
    const char* verb;
    const char* target;
    std::vector<std::string> headers;
    BodyKind kind;
    std::string body;
    bool http_1_0;
  } requests[] = {
      {"GET", "/a?b", {"X: y"}, BodyKind::kNone, "", false},
      {"POST", "/a", {"X: y"}, BodyKind::kLength, "12345", false},
      {"GET", "/", {"X: y"}, BodyKind::kNone, "", false},
      {"HEAD", "/", {"X: y", "Accept: z"}, BodyKind::kNone, "", false},
      {"PUT", "/", {}, BodyKind::kLength, "1", false},
      {"HEAD", "/", {}, BodyKind::kNone, "", false},
      {"GET", "/", {"X: "}, BodyKind::kNone, "", false},
      {"POST", "/", {}, BodyKind::kLength, "", false},
      {"DELETE", "/a", {"X: other"}, BodyKind::kNone, "", false},
      {"GET", "/", {"Connection: Keep-Alive"}, BodyKind::kNone, "", true},
      {"GET", "/", {}, BodyKind::kNone, "", false},
  };
  const auto kept = pool_;
  failing_curl::Refuse("");
  for (const auto& request : requests) {
    OutgoingHead head = Get(server.Port());
    head.verb = request.verb;
    head.target = request.target;
    head.headers = request.headers;
    head.http_1_0 = request.http_1_0;
    head.body = request.kind;
    head.body_length = request.body.size();
    std::vector<std::string> sent;
    for (const auto& pool : {kept, std::make_shared<CurlPool>()}) {
      pool_ = pool;
      ASSERT_EQ(Send(head), 0u) << request.verb;
      if (request.kind != BodyKind::kNone) {
        ASSERT_EQ(exchange_->PushBody(request.body.data(), request.body.size()), 0u);
      }
      EXPECT_EQ(Receive(), "");
      exchange_.reset();
      sent.push_back(server.LastRequest());
    }
    EXPECT_EQ(sent[0], sent[1]);
    EXPECT_EQ(sent[0].substr(0, sent[0].find(' ')), request.verb);
  }
  // A line for every new pool, and one for all requests of the other.
  EXPECT_EQ(failing_curl::Calls("curl_easy_init"), static_cast<int>(std::size(requests)) + 1);
}

// What a whole exchange ends with; without memory where no error can be handed back.
DWORD Fetch(const std::shared_ptr<CurlPool>& pool, const OutgoingHead& head, std::string& body) {
  try {
    CurlExchange exchange(pool);
    DWORD error = exchange.SendHead(
        head, [] {}, [] {});
    std::vector<std::string> lines;
    if (error == 0) error = exchange.ReceiveHead(lines);
    char bytes[100];
    std::size_t count = 1;
    while (error == 0 && count != 0) {
      error = exchange.PullBody(bytes, sizeof(bytes), count);
      body.append(bytes, count);
    }
    return error;
  } catch (const std::bad_alloc&) {
    return ERROR_NOT_ENOUGH_MEMORY;
  }
}

TEST_F(Curl, MemoryThatRunsOutEndsAnExchangeWithItsErrorAndNoOther) {
  const std::string whole(300, 'x');
  ScriptedServer server(HttpResponse(whole, "X-Header: with a value of some length\r\n"));
  OutgoingHead head = Get(server.Port());
  head.headers = {"X-Header: with a value of some length"};
  for (const failing::Refusal refusal : {failing::Refusal::kOnce, failing::Refusal::kEver}) {
    for (int n = 1;; ++n) {
      ASSERT_LT(n, 100);
      std::string body;
      body.reserve(1000);
      failing::CloseDoor(n, refusal);
      const DWORD error = Fetch(pool_, head, body);
      failing::OpenDoor();
      const bool refused = failing::RefusedCount() > 0;
      EXPECT_EQ(error, refused ? ERROR_NOT_ENOUGH_MEMORY : 0) << n;
      if (!refused) {
        EXPECT_EQ(body, whole);
        EXPECT_GT(n, 3);
        break;
      }
    }
  }
}

TEST_F(Curl, AnIPv6AddressNeedsNoBrackets) {
  for (const char* host : {"::1", "[::1]"}) {
    EXPECT_EQ(Send(Get(UnusedPort(), host)), ERROR_INTERNET_CANNOT_CONNECT) << host;
  }
}

// The first line of what a server is asked, and whether it was asked as a proxy.
std::string FirstLine(ScriptedServer& server) {
  const std::string request = server.LastRequest();
  return request.substr(0, request.find("\r\n"));
}

TEST_F(Curl, ATargetThatCannotBeToldIsNotReplacedByTheOneBefore) {
  for (const bool by_proxy : {false, true}) {
    ScriptedServer server(HttpResponse("answer"));
    OutgoingHead head = Get(server.Port());
    if (by_proxy) {
      head.route.proxy = {INTERNET_OPEN_TYPE_PROXY, "127.0.0.1:" + std::to_string(server.Port()),
                          ""};
    }
    ASSERT_EQ(Send(head), 0u);
    EXPECT_EQ(Receive(), "answer");
    exchange_.reset();  // its line is free again
    head.target = "/second";
    if (by_proxy) {
      failing_curl::Refuse("curl_url_set");
      EXPECT_EQ(Send(head), DWORD{ERROR_INTERNET_INVALID_URL});
    } else {
      failing_curl::RefuseOption(CURLOPT_REQUEST_TARGET);
      EXPECT_EQ(Send(head), DWORD{ERROR_NOT_ENOUGH_MEMORY});
    }
    failing_curl::Refuse("");
    EXPECT_EQ(server.LastRequest().find("/second"), std::string::npos);
  }
}

// Not another verb, past the proxy, or without its credentials.
TEST_F(Curl, NothingIsSentWhereAPartOfTheRequestCannotBeTold) {
  constexpr CURLoption kParts[] = {CURLOPT_CUSTOMREQUEST, CURLOPT_PROXY, CURLOPT_NOPROXY,
                                   CURLOPT_PROXYUSERNAME, CURLOPT_PROXYPASSWORD};
  for (const CURLoption part : kParts) {
    ScriptedServer server(HttpResponse("answer"));
    OutgoingHead head = Get(server.Port());
    head.verb = "DELETE";
    head.route.proxy = {INTERNET_OPEN_TYPE_PROXY, "127.0.0.1:" + std::to_string(server.Port()), ""};
    head.route.proxy_user = "user";
    head.route.proxy_password = "password";
    failing_curl::RefuseOption(part);
    EXPECT_EQ(Send(head), DWORD{ERROR_NOT_ENOUGH_MEMORY}) << part;
    failing_curl::Refuse("");
    EXPECT_EQ(server.LastRequest(), "") << part;
    ASSERT_EQ(Send(head), 0u) << part;
    EXPECT_EQ(Receive(), "answer") << part;
  }
}

TEST_F(Curl, AProxyGetsTheWholeUrlAndItsCredentials) {
  ScriptedServer proxy(HttpResponse("through"));
  OutgoingHead head = Get(81, "far.test");
  head.route.proxy = {INTERNET_OPEN_TYPE_PROXY, "127.0.0.1:" + std::to_string(proxy.Port()), ""};
  head.route.proxy_user = "name";
  head.route.proxy_password = "word";
  EXPECT_EQ(Send(head), 0u);
  EXPECT_EQ(Receive(), "through");
  EXPECT_EQ(FirstLine(proxy), "GET http://far.test:81/x HTTP/1.1");
  EXPECT_NE(proxy.LastRequest().find("Proxy-Authorization: Basic bmFtZTp3b3Jk\r\n"),
            std::string::npos);
}

TEST_F(Curl, HostsOfTheBypassAreReachedDirectly) {
  ScriptedServer server(HttpResponse("direct"));
  for (const char* bypass : {"<local>", "far.test 127.0.0.1", "far.test;127.0.0.1"}) {
    OutgoingHead head = Get(server.Port());
    head.route.proxy = {INTERNET_OPEN_TYPE_PROXY, "127.0.0.1:1", bypass};
    EXPECT_EQ(Send(head), 0u) << bypass;
    EXPECT_EQ(Receive(), "direct") << bypass;
    EXPECT_EQ(FirstLine(server), "GET /x HTTP/1.1") << bypass;
  }
}

TEST_F(Curl, TheEnvironmentNamesTheProxyOfSessionsThatLeaveItToTheSystem) {
  ScriptedServer proxy(HttpResponse("through"));
  const std::string url = "http://127.0.0.1:" + std::to_string(proxy.Port());
  for (const char* variable : {"http_proxy", "all_proxy"}) {
    setenv(variable, url.c_str(), 1);
    OutgoingHead head = Get(80, "far.test");
    head.route.proxy.access_type = INTERNET_OPEN_TYPE_PRECONFIG;
    EXPECT_EQ(Send(head), 0u) << variable;
    EXPECT_EQ(Receive(), "through") << variable;
    EXPECT_EQ(FirstLine(proxy), "GET http://far.test/x HTTP/1.1") << variable;
    unsetenv(variable);
  }
}

TEST_F(Curl, OldHeadRequestsWithABodyAreSentAsTheyAre) {
  ScriptedServer server("HTTP/1.0 200 OK\r\nContent-Length: 100\r\nConnection: close\r\n\r\n");
  OutgoingHead head = Get(server.Port());
  head.verb = "HEAD";
  head.http_1_0 = true;
  EXPECT_EQ(Send(head), 0u);
  EXPECT_EQ(Receive(), "");
  EXPECT_EQ(FirstLine(server), "HEAD /x HTTP/1.0");
}

TEST_F(Curl, ChunksOfTheHostAreSentWithTheirContentOnly) {
  std::string received;
  ScriptedServer server([&received](ServerConnection& connection) {
    connection.ReadRequest();
    std::string line;
    do {
      line = connection.ReadLine();
      received += line + "|";
    } while (!line.empty() && line != "0");
    connection.Send(HttpResponse("x"));
  });
  OutgoingHead head = Get(server.Port());
  head.verb = "PUT";
  head.body = BodyKind::kChunked;
  EXPECT_EQ(Send(head), 0u);
  EXPECT_EQ(exchange_->PushBody("3;own\r\nabc\r\n0\r\n\r\n", 17), 0u);
  EXPECT_EQ(Receive(), "x");
  EXPECT_EQ(received, "3|abc|0|");
  EXPECT_EQ(exchange_->PushBody("no chunk\r\n", 10), ERROR_INVALID_PARAMETER);
}

TEST_F(Curl, HeadersWithoutAValueAndAnAcceptOfTheHostAreSent) {
  ScriptedServer server(HttpResponse("x"));
  OutgoingHead head = Get(server.Port());
  head.headers = {"X-Empty: ", "accept: text/plain", "Expect: own"};
  EXPECT_EQ(Send(head), 0u);
  EXPECT_EQ(Receive(), "x");
  const std::string request = server.LastRequest();
  EXPECT_NE(request.find("X-Empty:\r\n"), std::string::npos) << request;
  EXPECT_NE(request.find("accept: text/plain\r\n"), std::string::npos) << request;
  EXPECT_EQ(request.find("Accept: */*"), std::string::npos) << request;
}

TEST_F(Curl, InterimResponsesAndTrailersAreNoPartOfTheHead) {
  ScriptedServer server(
      "HTTP/1.1 103 Early Hints\r\nLink: x\r\n\r\nHTTP/1.1 200 OK\r\n"
      "Transfer-Encoding: chunked\r\nTrailer: X-Late\r\n\r\n3\r\nabc\r\n0\r\nX-Late: y\r\n\r\n");
  EXPECT_EQ(Send(Get(server.Port())), 0u);
  EXPECT_EQ(Receive(), "abc");
  EXPECT_EQ(lines_, (std::vector<std::string>{"HTTP/1.1 200 OK", "Transfer-Encoding: chunked",
                                              "Trailer: X-Late"}));
}

TEST_F(Curl, ACancelledExchangeFailsWithEveryCall) {
  ScriptedServer server(HttpResponse("abc"));
  exchange_ = std::make_unique<CurlExchange>(pool_);
  exchange_->Cancel();
  EXPECT_EQ(exchange_->SendHead(
                Get(server.Port()), [] {}, [] {}),
            ERROR_INTERNET_OPERATION_CANCELLED);
  char byte = 0;
  std::size_t count = 0;
  EXPECT_EQ(exchange_->PushBody("x", 1), ERROR_INTERNET_OPERATION_CANCELLED);
  EXPECT_EQ(exchange_->ReceiveHead(lines_), ERROR_INTERNET_OPERATION_CANCELLED);
  EXPECT_EQ(exchange_->PullBody(&byte, 1, count), ERROR_INTERNET_OPERATION_CANCELLED);
}

}  // namespace
}  // namespace quarnfc::internet
