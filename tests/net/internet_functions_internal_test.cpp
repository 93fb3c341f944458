// SPDX-License-Identifier: MIT
// The internet functions off Windows as hosts call them, over a transport in memory: what they
// refuse, with which error, and what they leave behind.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/internet.h"
#include "tests/net/memory_transport.h"

namespace quarnfc::internet {
namespace {

constexpr DWORD kNone = 0xAAAA;
const HINTERNET kNoHandle = reinterpret_cast<HINTERNET>(4);

// The error that a call leaves; 0 when it succeeds.
template <class Call>
DWORD FailureOf(Call call) {
  SetLastError(kNone);
  return call() ? 0 : GetLastError();
}

MemoryAnswer Answers(const std::string& status, const std::vector<std::string>& headers,
                     const std::string& body = "") {
  std::vector<std::string> head = {"HTTP/1.1 " + status};
  head.insert(head.end(), headers.begin(), headers.end());
  return {head, body};
}

class InternetFunctions : public testing::Test {
 protected:
  ~InternetFunctions() override { InternetCloseHandle(session_); }

  HINTERNET Request(const char* verb = "GET", DWORD flags = 0) const {
    return HttpOpenRequestA(connection_, verb, "/a/b", "HTTP/1.1", nullptr, nullptr, flags, 1);
  }
  HINTERNET Sent(const char* verb = "GET", DWORD flags = 0) const {
    HINTERNET request = Request(verb, flags);
    EXPECT_EQ(HttpSendRequestA(request, nullptr, 0, nullptr, 0), 1) << GetLastError();
    return request;
  }

  ServedFromMemory network_;
  HINTERNET session_ = InternetOpenA("agent", INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0);
  HINTERNET connection_ =
      InternetConnectA(session_, "h.test", 0, "user", "secret", INTERNET_SERVICE_HTTP, 0, 1);
};

using HandleCall = std::function<int(HINTERNET handle)>;

// Every function that takes a request.
std::vector<HandleCall> RequestCalls() {
  static char bytes[10];
  static DWORD number = 0;
  return {[](HINTERNET h) { return HttpAddRequestHeadersA(h, "A: b", 4, HTTP_ADDREQ_FLAG_ADD); },
          [](HINTERNET h) { return HttpSendRequestA(h, nullptr, 0, nullptr, 0); },
          [](HINTERNET h) { return HttpSendRequestExA(h, nullptr, nullptr, 0, 0); },
          [](HINTERNET h) { return HttpEndRequestA(h, nullptr, 0, 0); },
          [](HINTERNET h) { return HttpQueryInfoA(h, HTTP_QUERY_ETAG, bytes, &number, nullptr); },
          [](HINTERNET h) { return InternetReadFile(h, bytes, 1, &number); },
          [](HINTERNET h) { return InternetWriteFile(h, bytes, 1, &number); },
          [](HINTERNET h) { return InternetQueryDataAvailable(h, &number, 0, 0); },
          [](HINTERNET h) {
            return InternetSetFilePointer(h, 0, nullptr, FILE_BEGIN, 0) == 0xFFFFFFFF ? 0 : 1;
          }};
}

TEST_F(InternetFunctions, RefuseHandlesThatAreNoneOrOfAnotherKind) {
  for (const HandleCall& call : RequestCalls()) {
    EXPECT_EQ(FailureOf([&] { return call(kNoHandle); }), ERROR_INVALID_HANDLE);
    EXPECT_EQ(FailureOf([&] { return call(session_); }), ERROR_INTERNET_INCORRECT_HANDLE_TYPE);
  }
  DWORD number = 0;
  DWORD length = sizeof(number);
  const HandleCall others[] = {
      [](HINTERNET h) {
        return InternetConnectA(h, "h", 0, nullptr, nullptr, INTERNET_SERVICE_HTTP, 0, 0) !=
               nullptr;
      },
      [](HINTERNET h) { return InternetOpenUrlA(h, "http://h/", nullptr, 0, 0, 0) != nullptr; },
      [](HINTERNET h) {
        return HttpOpenRequestA(h, "GET", "/", nullptr, nullptr, nullptr, 0, 0) != nullptr;
      },
      [&](HINTERNET h) { return InternetSetOptionA(h, 2, &number, sizeof(number)); },
      [&](HINTERNET h) { return InternetQueryOptionA(h, 2, &number, &length); },
      [](HINTERNET h) {
        return InternetSetStatusCallback(h, nullptr) != INTERNET_INVALID_STATUS_CALLBACK ? 1 : 0;
      },
      [](HINTERNET h) { return InternetCloseHandle(h); }};
  for (const HandleCall& call : others) {
    EXPECT_EQ(FailureOf([&] { return call(kNoHandle); }), ERROR_INVALID_HANDLE);
  }
}

TEST_F(InternetFunctions, RefuseArgumentsThatMakeNoSense) {
  HINTERNET request = Request();
  char bytes[10];
  DWORD number = 0;
  INTERNET_BUFFERSA wrong_size = {};
  const std::function<int()> calls[] = {
      [] { return InternetOpenA("a", 99, nullptr, nullptr, 0) != nullptr; },
      [] { return InternetOpenA("a", 0, nullptr, nullptr, 1) != nullptr; },
      [] { return InternetOpenA("a", INTERNET_OPEN_TYPE_PROXY, nullptr, nullptr, 0) != nullptr; },
      [&] { return InternetConnectA(session_, nullptr, 0, nullptr, nullptr, 3, 0, 0) != nullptr; },
      [&] { return HttpAddRequestHeadersA(request, nullptr, 0, HTTP_ADDREQ_FLAG_ADD); },
      [&] { return HttpAddRequestHeadersA(request, "", 0xFFFFFFFF, HTTP_ADDREQ_FLAG_ADD); },
      [&] { return HttpSendRequestA(request, nullptr, 0, nullptr, 1); },
      [&] { return HttpSendRequestExA(request, &wrong_size, nullptr, 0, 0); },
      [&] { return HttpEndRequestA(request, &wrong_size, 0, 0); },
      [&] { return HttpQueryInfoA(request, HTTP_QUERY_ETAG, bytes, nullptr, nullptr); },
      [&] { return HttpQueryInfoA(request, HTTP_QUERY_CUSTOM, nullptr, &number, nullptr); },
      [&] { return InternetReadFile(request, bytes, 1, nullptr); },
      [&] { return InternetReadFile(request, nullptr, 1, &number); },
      [&] { return InternetWriteFile(request, bytes, 1, nullptr); },
      [&] { return InternetWriteFile(request, nullptr, 1, &number); },
      [&] { return InternetQueryDataAvailable(request, nullptr, 0, 0); },
      [&] { return InternetQueryDataAvailable(request, &number, 1, 0); },
      [&] { return InternetQueryDataAvailable(request, &number, 0, 1); },
      [&] { return InternetSetOptionA(request, 2, nullptr, 4); },
      [&] { return InternetSetOptionExA(request, 2, &number, 4, 1); },
      [&] { return InternetSetOptionA(request, 2, &number, 3); },
      [&] { return InternetQueryOptionA(request, 2, &number, nullptr); },
      [&] { return InternetGetLastResponseInfoA(nullptr, bytes, &number); },
      [&] { return InternetGetLastResponseInfoA(&number, bytes, nullptr); },
      [] { return InternetSetCookieA("http://h/", "n", nullptr); },
      [] { return InternetSetCookieA("http://h/", "n", "v\r\n"); },
      [] { return InternetSetCookieA(nullptr, "n", "v"); },
      [&] { return InternetGetCookieA("http://h/", nullptr, bytes, nullptr); },
      [&] { return InternetGetCookieA(nullptr, nullptr, bytes, &number); },
      [&] { return InternetCanonicalizeUrlA(nullptr, bytes, &number, 0); },
      [&] { return InternetCanonicalizeUrlA("", bytes, &number, 0); },
      [&] { return InternetCanonicalizeUrlA("http://h/", bytes, nullptr, 0); },
  };
  int index = 0;
  for (const auto& call : calls) EXPECT_EQ(FailureOf(call), ERROR_INVALID_PARAMETER) << index++;
}

TEST_F(InternetFunctions, RefuseWhatTheyDoNotOffer) {
  DWORD number = 0;
  DWORD length = sizeof(number);
  EXPECT_EQ(
      FailureOf([&] { return InternetConnectA(session_, "h", 21, nullptr, nullptr, 1, 0, 0); }),
      ERROR_INTERNET_UNRECOGNIZED_SCHEME);
  EXPECT_EQ(FailureOf([&] { return InternetOpenUrlA(session_, "ftp://h/", nullptr, 0, 0, 0); }),
            ERROR_INTERNET_UNRECOGNIZED_SCHEME);
  for (const char* url : {"http:h", "http:///x", "http://h:x/", "http://h:65536/"}) {
    EXPECT_EQ(FailureOf([&] { return InternetOpenUrlA(session_, url, nullptr, 0, 0, 0); }),
              ERROR_INTERNET_INVALID_URL)
        << url;
  }
  EXPECT_EQ(FailureOf([&] { return InternetOpenUrlA(session_, "http://h", "no header", 9, 0, 0); }),
            ERROR_HTTP_INVALID_HEADER);
  EXPECT_EQ(FailureOf([&] { return InternetSetOptionA(session_, 0xFFFF, &number, 4); }),
            ERROR_INTERNET_INVALID_OPTION);
  for (const DWORD option : {0xFFFFu, INTERNET_OPTION_URL}) {
    EXPECT_EQ(FailureOf([&] { return InternetQueryOptionA(session_, option, &number, &length); }),
              ERROR_INTERNET_INVALID_OPTION);
  }
  EXPECT_EQ(FailureOf([&] {
              return InternetSetFilePointer(Request(), 0, nullptr, FILE_BEGIN, 0) != 0xFFFFFFFF;
            }),
            ERROR_INTERNET_INVALID_OPERATION);
}

TEST_F(InternetFunctions, RequestsThatAreNotUnderWayNeitherReadNorWrite) {
  char byte = 0;
  DWORD number = 0;
  HINTERNET request = Request("PUT");
  const std::function<int()> calls[] = {
      [&] { return InternetReadFile(request, &byte, 1, &number); },
      [&] { return InternetWriteFile(request, &byte, 1, &number); },
      [&] { return InternetQueryDataAvailable(request, &number, 0, 0); },
      [&] { return HttpEndRequestA(request, nullptr, 0, 0); }};
  for (const auto& call : calls) {
    EXPECT_EQ(FailureOf(call), ERROR_INTERNET_INCORRECT_HANDLE_STATE);
  }
}

TEST_F(InternetFunctions, OptionsAreInheritedChangedAndAsked) {
  char text[20] = "name\0garbage";
  EXPECT_EQ(InternetSetOptionA(connection_, INTERNET_OPTION_PROXY_USERNAME, text, 5), 1);
  EXPECT_EQ(InternetSetOptionA(connection_, INTERNET_OPTION_PROXY_PASSWORD, text, 4), 1);
  DWORD number = 7;
  EXPECT_EQ(InternetSetOptionA(connection_, INTERNET_OPTION_SEND_TIMEOUT, &number, 4), 1);
  HINTERNET request = Request();
  const std::pair<DWORD, const char*> texts[] = {{INTERNET_OPTION_USERNAME, "user"},
                                                 {INTERNET_OPTION_PASSWORD, "secret"},
                                                 {INTERNET_OPTION_PROXY_USERNAME, "name"},
                                                 {INTERNET_OPTION_PROXY_PASSWORD, "name"},
                                                 {INTERNET_OPTION_URL, "http://h.test/a/b"}};
  for (const auto& row : texts) {
    const DWORD option = row.first;
    const char* const expected = row.second;
    const DWORD needed = static_cast<DWORD>(std::strlen(expected)) + 1;
    DWORD length = needed - 1;
    EXPECT_EQ(FailureOf([&] { return InternetQueryOptionA(request, option, text, &length); }),
              ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(length, needed);
    EXPECT_EQ(FailureOf([&] { return InternetQueryOptionA(request, option, nullptr, &length); }),
              ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(InternetQueryOptionA(request, option, text, &length), 1);
    EXPECT_STREQ(text, expected);
    EXPECT_EQ(length, needed - 1);
  }
  for (const DWORD length : {3u, 4u, 5u}) {
    DWORD given = length;
    EXPECT_EQ(InternetQueryOptionA(request, INTERNET_OPTION_SEND_TIMEOUT, &number, &given),
              length >= 4 ? 1 : 0);
    EXPECT_EQ(given, 4u);
  }
  EXPECT_EQ(number, 7u);
}

// What a query for a level leaves: its error, or 0.
DWORD QueryFailure(HINTERNET request, DWORD level, void* buffer, DWORD length) {
  return FailureOf([&] { return HttpQueryInfoA(request, level, buffer, &length, nullptr); });
}

TEST_F(InternetFunctions, QueriesRefuseValuesThatAreNotWhatIsAskedFor) {
  network_->answers = {Answers("200 OK", {"Content-Length: 4294967296", "Date: soon", "ETag: -1",
                                          "Expires: Mon, 15 Nov 1999 16:09:35 GMT",
                                          "Last-Modified: x", "Server: 4294967295"})};
  HINTERNET request = Sent();
  char buffer[100];
  constexpr DWORD kNumber = HTTP_QUERY_FLAG_NUMBER;
  constexpr DWORD kTime = HTTP_QUERY_FLAG_SYSTEMTIME;
  const struct {
    DWORD level;
    DWORD size;
    DWORD error;
  } cases[] = {
      {HTTP_QUERY_CONTENT_LENGTH | kNumber, 4, ERROR_HTTP_INVALID_HEADER},
      {HTTP_QUERY_ETAG | kNumber, 4, ERROR_HTTP_INVALID_HEADER},
      {HTTP_QUERY_LAST_MODIFIED | kNumber, 4, ERROR_HTTP_INVALID_HEADER},
      {HTTP_QUERY_SERVER | kNumber, 3, ERROR_INSUFFICIENT_BUFFER},
      {HTTP_QUERY_SERVER | kNumber, 4, 0},
      {HTTP_QUERY_DATE | kTime, 16, ERROR_HTTP_INVALID_HEADER},
      {HTTP_QUERY_EXPIRES | kTime, 15, ERROR_INSUFFICIENT_BUFFER},
      {HTTP_QUERY_EXPIRES | kTime, 16, 0},
      {HTTP_QUERY_LOCATION, 100, ERROR_HTTP_HEADER_NOT_FOUND},
      {999, 100, ERROR_HTTP_INVALID_QUERY_REQUEST},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(QueryFailure(request, c.level, buffer, c.size), c.error) << std::hex << c.level;
  }
  EXPECT_EQ(QueryFailure(request, HTTP_QUERY_VERSION, buffer, sizeof(buffer)), 0u);
  EXPECT_STREQ(buffer, "HTTP/1.1");
  for (const DWORD level : {HTTP_QUERY_SERVER | kNumber, HTTP_QUERY_EXPIRES | kTime}) {
    EXPECT_EQ(QueryFailure(request, level, nullptr, 100), ERROR_INSUFFICIENT_BUFFER);
  }
}

TEST_F(InternetFunctions, PiecewiseRequestsTakeHeadersAndTheFirstBytes) {
  network_->answers = {Answers("200 OK", {})};
  HINTERNET request = Request("PUT");
  char first[] = "first ";
  INTERNET_BUFFERSA start = {};
  start.dwStructSize = sizeof(start);
  start.lpcszHeader = "X-Own: 1";
  start.dwHeadersLength = 8;
  start.lpvBuffer = first;
  start.dwBufferLength = 6;
  start.dwBufferTotal = 10;
  EXPECT_EQ(HttpSendRequestExA(request, &start, nullptr, 0, 9), 1);
  DWORD written = 0;
  EXPECT_EQ(InternetWriteFile(request, "last", 4, &written), 1);
  EXPECT_EQ(written, 4u);
  EXPECT_EQ(HttpEndRequestA(request, nullptr, 0, 0), 1);
  EXPECT_EQ(network_->requests.at(0).body, "first last");
  EXPECT_EQ(network_->requests[0].Header("X-Own"), "1");
  start.lpcszHeader = "none";
  start.dwHeadersLength = 4;
  EXPECT_EQ(FailureOf([&] { return HttpSendRequestExA(Request(), &start, nullptr, 0, 0); }),
            ERROR_HTTP_INVALID_HEADER);
}

TEST_F(InternetFunctions, PiecewiseRequestsFollowOnlyRedirectsThatNeedNoBody) {
  const std::pair<const char*, std::size_t> cases[] = {
      {"303 See Other", 2}, {"307 Temporary", 1}, {"308 Permanent", 1}, {"200 OK", 1}};
  for (const auto& [status, count] : cases) {
    network_->requests.clear();
    network_->answers = {Answers(status, {"Location: /next"}), Answers("200 OK", {})};
    HINTERNET request = Request("PUT");
    EXPECT_EQ(HttpSendRequestExA(request, nullptr, nullptr, 0, 0), 1);
    EXPECT_EQ(HttpEndRequestA(request, nullptr, 0, 0), 1) << status;
    EXPECT_EQ(network_->requests.size(), count) << status;
  }
  network_->answers = {Answers("303 See Other", {"Location: ftp://h/"})};
  HINTERNET request = Request("PUT");
  EXPECT_EQ(HttpSendRequestExA(request, nullptr, nullptr, 0, 0), 1);
  EXPECT_EQ(FailureOf([&] { return HttpEndRequestA(request, nullptr, 0, 0); }),
            ERROR_HTTP_REDIRECT_FAILED);
}

TEST_F(InternetFunctions, TwentyRedirectsAreFollowedAndNoMore) {
  for (const int redirects : {19, 20, 21}) {
    network_->answers.clear();
    for (int i = 0; i < redirects; ++i) {
      network_->answers.push_back(Answers("302 Found", {"Location: /again"}));
    }
    network_->answers.push_back(Answers("200 OK", {}));
    EXPECT_EQ(FailureOf([&] { return HttpSendRequestA(Request(), nullptr, 0, nullptr, 0); }),
              redirects <= 20 ? 0 : ERROR_HTTP_REDIRECT_FAILED)
        << redirects;
  }
}

TEST_F(InternetFunctions, RedirectsAreResolvedAgainstTheRequest) {
  const struct {
    const char* location;
    const char* host;
    const char* target;
  } cases[] = {{"http://other.test:81/x", "other.test", "/x"},
               {"//other.test/y", "other.test", "/y"},
               {"/root", "h.test", "/root"},
               {"beside?q", "h.test", "/a/beside?q"},
               {"?q", "h.test", "/a/b?q"},
               {"#part", "h.test", "/a/b"},
               {"", "h.test", "/a/b"},
               {"../up", "h.test", "/up"}};
  for (const auto& c : cases) {
    network_->requests.clear();
    network_->answers = {Answers("301 Moved", {std::string("Location: ") + c.location}),
                         Answers("200 OK", {})};
    Sent();
    ASSERT_EQ(network_->requests.size(), 2u) << c.location;
    EXPECT_EQ(network_->requests[1].head.route.host, c.host) << c.location;
    EXPECT_EQ(network_->requests[1].head.target, c.target) << c.location;
  }
  // What is no redirect of HTTP is the answer.
  for (const char* status : {"300 Multiple", "304 Not Modified", "200 OK"}) {
    network_->requests.clear();
    network_->answers = {Answers(status, {"Location: /next"})};
    Sent();
    EXPECT_EQ(network_->requests.size(), 1u) << status;
  }
}

TEST_F(InternetFunctions, ChallengesAreAnsweredOnlyWhereCredentialsMayGo) {
  const MemoryAnswer basic =
      Answers("401 No", {"WWW-Authenticate: Digest", "WWW-Authenticate: basic"});
  const MemoryAnswer digest = Answers("401 No", {"WWW-Authenticate: Digest"});
  const MemoryAnswer silent = Answers("401 No", {});
  const struct {
    MemoryAnswer answer;
    DWORD flags;
    const char* headers;
    std::size_t requests;
  } cases[] = {{basic, 0, nullptr, 2},
               {digest, 0, nullptr, 1},
               {silent, 0, nullptr, 1},
               {basic, INTERNET_FLAG_NO_AUTH, nullptr, 1},
               {basic, 0, "Authorization: own", 1}};
  for (const auto& c : cases) {
    network_->requests.clear();
    network_->answers = {c.answer};
    EXPECT_EQ(HttpSendRequestA(Request("GET", c.flags), c.headers, 0xFFFFFFFF, nullptr, 0), 1);
    EXPECT_EQ(network_->requests.size(), c.requests);
  }
}

TEST_F(InternetFunctions, BodiesInFrontOfTheNextRequestAreReadUpToALimitOrAnError) {
  MemoryAnswer endless = Answers("302 Found", {"Location: /x"}, std::string(1000000, 'x'));
  MemoryAnswer broken = Answers("302 Found", {"Location: /x"}, "abc");
  broken.error = ERROR_INTERNET_CONNECTION_RESET;
  for (const MemoryAnswer& first : {endless, broken}) {
    network_->requests.clear();
    network_->answers = {first, Answers("200 OK", {})};
    Sent();
    EXPECT_EQ(network_->requests.size(), 2u);
  }
}

TEST_F(InternetFunctions, AvailableBytesStayUntilTheyAreRead) {
  network_->answers = {{{"HTTP/1.1 200 OK"}, "abcdef", 4, ERROR_INTERNET_CONNECTION_RESET}};
  HINTERNET request = Sent();
  DWORD available = 0;
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(InternetQueryDataAvailable(request, &available, 0, 0), 1);
    EXPECT_EQ(available, 4u);
  }
  char bytes[10] = "";
  DWORD read = 0;
  EXPECT_EQ(InternetReadFile(request, bytes, 3, &read), 1);
  EXPECT_EQ(std::string(bytes, read), "abc");
  EXPECT_EQ(InternetReadFile(request, bytes, 3, &read), 1);
  EXPECT_EQ(std::string(bytes, read), "def");
  EXPECT_EQ(FailureOf([&] { return InternetQueryDataAvailable(request, &available, 0, 0); }),
            ERROR_INTERNET_CONNECTION_RESET);
}

// --- status callbacks
// -----------------------------------------------------------------------------

HINTERNET g_closed_at_redirect = nullptr;
std::vector<DWORD> g_reports;

void Watch(HINTERNET handle, unsigned __int64 /*context*/, DWORD status, void* /*information*/,
           DWORD /*length*/) {
  g_reports.push_back(status);
  if (status == INTERNET_STATUS_REDIRECT) {
    g_closed_at_redirect = handle;
    InternetCloseHandle(handle);
  }
}

TEST_F(InternetFunctions, AHostMayCloseTheRequestWhileItIsRedirected) {
  EXPECT_EQ(InternetSetStatusCallback(connection_, Watch), nullptr);
  network_->answers = {Answers("302 Found", {"Location: /x"}), Answers("200 OK", {})};
  g_reports.clear();
  HINTERNET request = Request();
  EXPECT_EQ(FailureOf([&] { return HttpSendRequestA(request, nullptr, 0, nullptr, 0); }),
            ERROR_INTERNET_OPERATION_CANCELLED);
  EXPECT_EQ(g_closed_at_redirect, request);
  EXPECT_EQ(network_->requests.size(), 1u);
  EXPECT_EQ(g_reports.front(), INTERNET_STATUS_HANDLE_CREATED);
  EXPECT_EQ(g_reports.back(), INTERNET_STATUS_HANDLE_CLOSING);
}

// --- cookies and URLs ----------------------------------------------------------------------------

TEST_F(InternetFunctions, CookiesTellTheRoomTheyNeed) {
  EXPECT_EQ(InternetSetCookieA("http://room.test/", "n", "v"), 1);
  EXPECT_EQ(InternetSetCookieA("http://room.test/", nullptr, "m=w"), 1);
  char text[20] = "";
  DWORD length = 0;
  EXPECT_EQ(InternetGetCookieA("http://room.test/", nullptr, nullptr, &length), 1);
  EXPECT_EQ(length, 9u);
  length = 8;
  EXPECT_EQ(
      FailureOf([&] { return InternetGetCookieA("http://room.test/", nullptr, text, &length); }),
      ERROR_INSUFFICIENT_BUFFER);
  EXPECT_EQ(length, 9u);
  EXPECT_EQ(InternetGetCookieA("http://room.test/", nullptr, text, &length), 1);
  EXPECT_STREQ(text, "n=v; m=w");
  EXPECT_EQ(
      FailureOf([&] { return InternetGetCookieA("http://empty.test/", nullptr, text, &length); }),
      ERROR_NO_MORE_ITEMS);
}

TEST_F(InternetFunctions, CanonicalUrlsTellTheRoomTheyNeed) {
  char url[30] = "";
  for (const DWORD room : {10u, 11u, 12u}) {
    DWORD length = room;
    const bool fits = room > 10;  // with the terminator
    EXPECT_EQ(InternetCanonicalizeUrlA("http://h/a ", url, &length, 0), fits ? 1 : 0);
    EXPECT_EQ(length, fits ? 10u : 11u);
  }
  EXPECT_STREQ(url, "http://h/a");
}

TEST_F(InternetFunctions, CrackedUrlsLeaveOutWhatHasNoBuffer) {
  char scheme[10] = "";
  char extra[10] = "";
  URL_COMPONENTSA parts = {};
  parts.dwStructSize = sizeof(parts);
  parts.lpszScheme = scheme;
  parts.dwSchemeLength = sizeof(scheme);
  parts.lpszExtraInfo = extra;
  parts.dwExtraInfoLength = sizeof(extra);
  EXPECT_EQ(InternetCrackUrlA("https://h/p?q#f and more", 15, 0, &parts), 1);
  EXPECT_STREQ(scheme, "https");
  EXPECT_STREQ(extra, "?q#f");
  EXPECT_EQ(parts.nPort, 443);
  parts.dwExtraInfoLength = 4;
  EXPECT_EQ(FailureOf([&] { return InternetCrackUrlA("https://h/p?q#f", 0, 0, &parts); }),
            ERROR_INSUFFICIENT_BUFFER);
  EXPECT_EQ(parts.dwExtraInfoLength, 5u);
  parts.dwStructSize = 1;
  for (URL_COMPONENTSA* wrong : {&parts, static_cast<URL_COMPONENTSA*>(nullptr)}) {
    EXPECT_EQ(FailureOf([&] { return InternetCrackUrlA("https://h/", 0, 0, wrong); }),
              ERROR_INVALID_PARAMETER);
  }
  EXPECT_EQ(FailureOf([&] { return InternetCrackUrlA(nullptr, 0, 0, &parts); }),
            ERROR_INVALID_PARAMETER);
}

TEST_F(InternetFunctions, EscapesAreDecodedUpToTheQueryOrEverywhere) {
  char object[] = "/a%20b?c%20d";
  EXPECT_EQ(UrlUnescapeA(object, nullptr, nullptr, URL_DONT_UNESCAPE_EXTRA_INFO), 0);
  EXPECT_STREQ(object, "/a b?c%20d");
  EXPECT_EQ(UrlUnescapeA(object, nullptr, nullptr, 0), 0);
  EXPECT_STREQ(object, "/a b?c d");
}

TEST_F(InternetFunctions, TheLastResponseHasNoWordsOfItsOwn) {
  DWORD error = 7;
  char text[4] = "old";
  for (const DWORD room : {0u, 4u}) {
    DWORD length = room;
    EXPECT_EQ(InternetGetLastResponseInfoA(&error, text, &length), 1);
    EXPECT_EQ(error, 0u);
    EXPECT_EQ(length, 0u);
    EXPECT_STREQ(text, room == 0 ? "old" : "");
  }
  DWORD length = 4;
  EXPECT_EQ(InternetGetLastResponseInfoA(&error, nullptr, &length), 1);
}

}  // namespace
}  // namespace quarnfc::internet
