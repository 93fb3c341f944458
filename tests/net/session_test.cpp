// SPDX-License-Identifier: MIT
// Sessions and connections, against a server in this program.
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/net/scripted_server.h"
#include "tests/net/test_text.h"

namespace {

using Connection = std::unique_ptr<CQNHttpConnection>;
using File = std::unique_ptr<CQNHttpFile>;

std::string HeaderOf(const std::string& request, const std::string& name) {
  const size_t at = request.find("\r\n" + name + ": ");
  if (at == std::string::npos) return "(none)";
  const size_t start = at + name.size() + 4;
  return request.substr(start, request.find("\r\n", start) - start);
}

std::string FirstLineOf(const std::string& request) {
  return request.substr(0, request.find("\r\n"));
}

// --- sessions ------------------------------------------------------------------------------------

TEST(Session, ANullAgentIsCalledUnknow) {
  ScriptedServer server(HttpResponse("x"));
  const struct {
    const char* agent;
    const char* sent;
  } cases[] = {{nullptr, "Unknow"}, {"Sample/1.0", "Sample/1.0"}};
  for (const auto& c : cases) {
    CQNInternetSession session(c.agent);
    File(session.OpenURL(server.Url("/").c_str(), 1, INTERNET_FLAG_RELOAD))->Close();
    EXPECT_EQ(HeaderOf(server.LastRequest(), "User-Agent"), c.sent);
  }
  CQNInternetSession session;
  delete session.OpenURL(server.Url("/").c_str());
  EXPECT_EQ(HeaderOf(server.LastRequest(), "User-Agent"), "Unknow");
}

TEST(Session, AFailingOpenThrowsTheErrorWithTheGivenContext) {
  EXPECT_EQ(ThrownBy([] { CQNInternetSession("a", 42, INTERNET_OPEN_TYPE_PROXY); }),
            (Thrown{ERROR_INVALID_PARAMETER, 42}));
}

TEST(Session, ClosingTwiceIsHarmless) {
  CQNInternetSession session;
  session.Close();
  session.Close();
  EXPECT_EQ(session.EnableStatusCallback(1), 0);
  EXPECT_EQ(session.EnableStatusCallback(0), 0);
}

TEST(Session, AClosedSessionConnectsNowhere) {
  CQNInternetSession session("a", 5);
  session.Close();
  EXPECT_EQ(ThrownBy([&] { session.GetHttpConnection("127.0.0.1", 80); }).context, 5u);
  EXPECT_EQ(ThrownBy([&] { session.OpenURL("http://127.0.0.1/"); }).context, 5u);
}

TEST(Session, CopiesShareTheHandleAndOnlyOneIsClosed) {
  ScriptedServer server(HttpResponse("x"));
  alignas(CQNInternetSession) unsigned char storage[sizeof(CQNInternetSession)];
  {
    CQNInternetSession session("a", 5);
    // The copy is never destroyed: the session closes the handle for both.
    auto* copy = new (storage) CQNInternetSession(session);
    const Connection connection(copy->GetHttpConnection("127.0.0.1", server.Port()));
    const File file(connection->OpenRequest("GET", "/"));
    EXPECT_EQ(file->SendRequest(), 1);
    EXPECT_EQ(file->GetContext(), 5u);
  }
}

TEST(Session, OpensAndClosesWithoutLosingHandles) {
  ScriptedServer server(HttpResponse("x"));
  for (int i = 0; i < 200; ++i) {
    const std::unique_ptr<CQNInternetSession> session(new CQNInternetSession("a"));
    const Connection connection(session->GetHttpConnection("127.0.0.1", server.Port()));
    const File file(connection->OpenRequest("GET", "/"));
    EXPECT_NE(static_cast<HINTERNET>(*file), nullptr);
  }
}

// --- OpenURL -------------------------------------------------------------------------------------

TEST(OpenUrl, ReturnsTheResponse) {
  ScriptedServer server(HttpResponse("content"));
  CQNInternetSession session("a", 5);
  const File file(session.OpenURL(server.Url("/a?q=1").c_str(), 1, 0, "X-Test: yes\r\n", 13));
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(ReadAll(*file), "content");
  EXPECT_EQ(TextOf(file->GetVerb()), "GET");
  EXPECT_EQ(TextOf(file->GetFileURL()), "http://127.0.0.1/a?q=1");
  EXPECT_EQ(file->GetContext(), 5u);
  EXPECT_EQ(FirstLineOf(server.LastRequest()).substr(0, 12), "GET /a?q=1 H");
  EXPECT_EQ(HeaderOf(server.LastRequest(), "X-Test"), "yes");
  const File other(session.OpenURL(server.Url("/").c_str(), 9));
  EXPECT_EQ(other->GetContext(), 9u);
}

TEST(OpenUrl, HeadersAreSentWithoutALength) {
  ScriptedServer server(HttpResponse("x"));
  CQNInternetSession session;
  delete session.OpenURL(server.Url("/").c_str(), 1, INTERNET_FLAG_RELOAD, "X-Test: yes\r\n");
  EXPECT_EQ(HeaderOf(server.LastRequest(), "X-Test"), "yes");
}

TEST(OpenUrl, AFileUrlIsNotOpened) {
  CQNInternetSession session;
  EXPECT_EQ(session.OpenURL("file:///c:/windows/win.ini"), nullptr);
  EXPECT_EQ(session.OpenURL("file://no-such-host/no-such-file"), nullptr);
}

TEST(OpenUrl, FailuresThrowWithTheContextOfTheSession) {
  CQNInternetSession session("a", 5);
  const std::string refused = "http://127.0.0.1:" + std::to_string(UnusedPort()) + "/";
  EXPECT_EQ(ThrownBy([&] { session.OpenURL(refused.c_str(), 9); }), (Thrown{12029, 5}));
  for (const char* url : {"not a url", "", "strange://h/x"}) {
    const Thrown thrown = ThrownBy([&] { session.OpenURL(url); });
    EXPECT_EQ(thrown.context, 5u) << url;
    EXPECT_NE(thrown.code, 0u) << url;
  }
  EXPECT_EQ(ThrownBy([&] { session.OpenURL(nullptr); }).context, 5u);
}

#if defined(_WIN32)
// Enough of an FTP server for a file to be opened.
void ServeFtp(ServerConnection& control) {
  control.Send("220 ready\r\n");
  std::unique_ptr<ScriptedServer> data;
  for (std::string line = control.ReadLine(); !line.empty(); line = control.ReadLine()) {
    const std::string command = line.substr(0, 4);
    if (command == "PASV") {
      data = std::make_unique<ScriptedServer>([](ServerConnection& connection) {
        connection.Send("content");
        connection.Finish();
      });
      control.Send("227 Entering Passive Mode (127,0,0,1," + std::to_string(data->Port() / 256) +
                   "," + std::to_string(data->Port() % 256) + ")\r\n");
    } else if (command == "USER") {
      control.Send("331 password please\r\n");
    } else if (command == "PASS") {
      control.Send("230 logged in\r\n");
    } else if (command == "RETR") {
      control.Send("150 opening\r\n226 done\r\n");
    } else if (command == "QUIT") {
      control.Send("221 bye\r\n");
    } else if (command == "SIZE") {
      control.Send("213 7\r\n");
    } else {
      control.Send("200 fine\r\n");
    }
  }
}

TEST(OpenUrl, AnFtpUrlIsOpenedButNotReturned) {
  ScriptedServer server(ServeFtp);
  const std::string url = "ftp://127.0.0.1:" + std::to_string(server.Port()) + "/file.txt";
  CQNInternetSession session;
  EXPECT_EQ(session.OpenURL(url.c_str(), 1, INTERNET_FLAG_PASSIVE), nullptr);
}
#else
TEST(OpenUrl, AnFtpUrlIsNoSchemeThatIsServed) {
  CQNInternetSession session("a", 5);
  EXPECT_EQ(ThrownBy([&] { session.OpenURL("ftp://127.0.0.1/file.txt"); }), (Thrown{12006, 5}));
}
#endif

// --- connections ---------------------------------------------------------------------------------

TEST(InternetConnection, OpensNothingByItself) {
  CQNInternetSession session;
  CQNInternetConnection connection(&session, "server", 80);
  EXPECT_EQ(static_cast<HINTERNET>(connection), nullptr);
  EXPECT_EQ(TextOf(connection.GetServerName()), "server");
  EXPECT_EQ(connection.GetSession(), &session);
  connection.Close();
  DWORD value = 0;
  EXPECT_EQ(connection.QueryOption(INTERNET_OPTION_HANDLE_TYPE, value), 0);
  EXPECT_EQ(TextOf(CQNInternetConnection(&session, nullptr).GetServerName()), "");
}

TEST(HttpConnection, KnowsItsServerAndSessionAndCloses) {
  CQNInternetSession session;
  const Connection connection(session.GetHttpConnection("localhost", 81, "user", "password"));
  EXPECT_NE(static_cast<HINTERNET>(*connection), nullptr);
  EXPECT_EQ(TextOf(connection->GetServerName()), "localhost");
  EXPECT_EQ(connection->GetSession(), &session);
  DWORD type = 0;
  EXPECT_EQ(connection->QueryOption(INTERNET_OPTION_HANDLE_TYPE, type), 1);
  EXPECT_EQ(type, 4u);
  connection->Close();
  connection->Close();
  EXPECT_EQ(static_cast<HINTERNET>(*connection), nullptr);
}

TEST(HttpConnection, BothFormsOfGetHttpConnectionConnect) {
  ScriptedServer server(HttpResponse("x"));
  CQNInternetSession session;
  const Connection plain(session.GetHttpConnection("127.0.0.1", server.Port()));
  const Connection flagged(session.GetHttpConnection("127.0.0.1", 0u, server.Port()));
  for (const Connection* connection : {&plain, &flagged}) {
    const File file((*connection)->OpenRequest("GET", "/"));
    EXPECT_EQ(file->SendRequest(), 1);
    EXPECT_EQ(ReadAll(*file), "x");
  }
}

TEST(HttpConnection, AFailureThrowsWithTheContextAfterInheritance) {
  CQNInternetSession session("a", 5);
  EXPECT_EQ(ThrownBy([&] { CQNHttpConnection(&session, "", 80); }).context, 5u);
  EXPECT_EQ(ThrownBy([&] { CQNHttpConnection(&session, "", 80, nullptr, nullptr, 9); }).context,
            9u);
  EXPECT_EQ(ThrownBy([&] { CQNHttpConnection(nullptr, "127.0.0.1", 80); }).context, 1u);
  session.Close();
  EXPECT_EQ(ThrownBy([&] { CQNHttpConnection(&session, "127.0.0.1", 80); }).code, 6u);
}

TEST(HttpConnection, AdoptsAnHttpConnectionHandleOnly) {
  ScriptedServer server(HttpResponse("adopted"));
  CQNInternetSession session("a", 5);
  HINTERNET root = InternetOpenA("a", 0, nullptr, nullptr, 0);
  HINTERNET http = InternetConnectA(root, "127.0.0.1", server.Port(), nullptr, nullptr,
                                    INTERNET_SERVICE_HTTP, 0, 0);
  HINTERNET request = HttpOpenRequestA(http, "GET", "/", nullptr, nullptr, nullptr, 0, 0);
  for (HINTERNET handle : {root, request, HINTERNET{nullptr}}) {
    EXPECT_EQ(ThrownBy([&] { CQNHttpConnection(&session, handle, "127.0.0.1"); }), (Thrown{6, 5}));
    EXPECT_EQ(ThrownBy([&] { CQNHttpConnection(&session, handle, "127.0.0.1", 9); }),
              (Thrown{6, 9}));
  }
  {
    CQNHttpConnection adopted(&session, http, "127.0.0.1");
    EXPECT_EQ(static_cast<HINTERNET>(adopted), http);
    const File file(adopted.OpenRequest("GET", "/"));
    EXPECT_EQ(file->SendRequest(), 1);
    EXPECT_EQ(ReadAll(*file), "adopted");
  }
  DWORD type = 0;
  DWORD length = sizeof(type);
  EXPECT_EQ(InternetQueryOptionA(root, INTERNET_OPTION_HANDLE_TYPE, &type, &length), 1);
  InternetCloseHandle(request);
  InternetCloseHandle(root);
}

TEST(HttpConnection, OptionsPassThrough) {
  CQNInternetSession session;
  const Connection connection(session.GetHttpConnection("127.0.0.1", 80));
  DWORD value = 0;
  EXPECT_EQ(connection->SetOption(INTERNET_OPTION_RECEIVE_TIMEOUT, 1234), 1);
  EXPECT_EQ(connection->QueryOption(INTERNET_OPTION_RECEIVE_TIMEOUT, value), 1);
  EXPECT_EQ(value, 1234u);
  DWORD other = 4321;
  EXPECT_EQ(connection->SetOption(INTERNET_OPTION_RECEIVE_TIMEOUT, &other, sizeof(other), 0), 1);
  DWORD length = sizeof(value);
  EXPECT_EQ(connection->QueryOption(INTERNET_OPTION_RECEIVE_TIMEOUT, &value, &length), 1);
  EXPECT_EQ(value, 4321u);
  EXPECT_EQ(length, sizeof(value));
  EXPECT_EQ(connection->QueryOption(0xFFFF, value), 0);
}

// --- OpenRequest ---------------------------------------------------------------------------------

TEST(OpenRequest, SendsEveryVerbOfTheTable) {
  ScriptedServer server("HTTP/1.1 204 No Content\r\n\r\n");
  CQNInternetSession session;
  const Connection connection(session.GetHttpConnection("127.0.0.1", server.Port()));
  const char* const verbs[] = {"POST", "GET", "HEAD", "PUT", "LINK", "DELETE", "UNLINK"};
  for (int i = 0; i < 7; ++i) {
    EXPECT_STREQ(CQNHttpConnection::szHtmlVerbs[i], verbs[i]);
    const File file(connection->OpenRequest(i, "/object"));
    EXPECT_EQ(TextOf(file->GetVerb()), verbs[i]);
    file->SendRequest();
    EXPECT_EQ(FirstLineOf(server.LastRequest()), std::string(verbs[i]) + " /object HTTP/1.0");
  }
}

TEST(OpenRequest, AnyOtherNumberIsTheEmptyVerb) {
  CQNInternetSession session;
  const Connection connection(session.GetHttpConnection("127.0.0.1", 80));
  for (const int verb : {7, -1, 1000000, -2147483647 - 1}) {
    EXPECT_EQ(TextOf(File(connection->OpenRequest(verb, "/"))->GetVerb()), "") << verb;
  }
}

TEST(OpenRequest, PassesRefererAcceptTypesAndVersion) {
  ScriptedServer server(HttpResponse("x"));
  CQNInternetSession session;
  const Connection connection(session.GetHttpConnection("127.0.0.1", server.Port()));
  const char* accepted[] = {"text/plain", "text/csv", nullptr};
  const File file(connection->OpenRequest("GET", "/object", "http://referer/", 1, accepted,
                                          "HTTP/1.1", INTERNET_FLAG_RELOAD));
  file->SendRequest();
  EXPECT_EQ(FirstLineOf(server.LastRequest()), "GET /object HTTP/1.1");
  EXPECT_EQ(HeaderOf(server.LastRequest(), "Referer"), "http://referer/");
  EXPECT_EQ(HeaderOf(server.LastRequest(), "Accept").substr(0, 20), "text/plain, text/csv");
}

TEST(OpenRequest, InheritsTheContextOfItsConnection) {
  CQNInternetSession session("a", 5);
  const Connection inherited(session.GetHttpConnection("127.0.0.1", 80));
  EXPECT_EQ(File(inherited->OpenRequest("GET", "/"))->GetContext(), 5u);
  EXPECT_EQ(File(inherited->OpenRequest("GET", "/", nullptr, 8))->GetContext(), 8u);
  CQNHttpConnection own(&session, "127.0.0.1", 80, nullptr, nullptr, 6);
  EXPECT_EQ(File(own.OpenRequest(1, "/"))->GetContext(), 6u);
}

TEST(OpenRequest, AFailureShowsAtTheFirstUse) {
  CQNInternetSession session("a", 5);
  const Connection connection(session.GetHttpConnection("127.0.0.1", 80));
  connection->Close();
  const File file(connection->OpenRequest("GET", "/object"));
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(static_cast<HINTERNET>(*file), nullptr);
  EXPECT_EQ(TextOf(file->GetFileURL()), "http://");
  char byte;
  CQNString text;
  DWORD number = 0;
  // Wine calls the null handle one of the wrong type.
  const Thrown invalid = {UnderWine() ? 12018u : 6u, 5};
  EXPECT_EQ(ThrownBy([&] { file->SendRequest(); }), invalid);
  EXPECT_EQ(ThrownBy([&] { file->SendRequestEx(0); }), invalid);
  EXPECT_EQ(ThrownBy([&] { file->EndRequest(); }), invalid);
  EXPECT_EQ(ThrownBy([&] { file->Read(&byte, 1); }), (Thrown{6, 5}));
  EXPECT_EQ(file->GetLength(), 0u);
  EXPECT_EQ(file->QueryInfo(1, text), 0);
  EXPECT_EQ(file->QueryInfoStatusCode(number), 0);
  EXPECT_EQ(file->QueryOption(INTERNET_OPTION_HANDLE_TYPE, number), 0);
  EXPECT_EQ(file->AddRequestHeaders("X: y", HTTP_ADDREQ_FLAG_ADD), 0);
  file->Abort();
}

TEST(OpenRequest, ALineEndInATextOfTheHostIsRefusedWithCode87) {
  ScriptedServer server(HttpResponse("x"));
  CQNInternetSession session("a", 5);
  const Connection connection(session.GetHttpConnection("127.0.0.1", server.Port()));
  const char* accepted[] = {"text/plain", "text/csv\r\nX-Own: 1", nullptr};
  const struct {
    const char* verb;
    const char* object;
    const char* referer;
    const char** types;
    const char* version;
  } cases[] = {{"GET\r\n", "/", nullptr, nullptr, nullptr},
               {"GET", "/ HTTP/1.1\r\nX-Own: 1", nullptr, nullptr, nullptr},
               {"GET", "/", "http://h/\r\nX-Own: 1", nullptr, nullptr},
               {"GET", "/", "http://h/\n", nullptr, nullptr},
               {"GET", "/", nullptr, accepted, nullptr},
               {"GET", "/", nullptr, nullptr, "HTTP/1.1\r"}};
  for (const auto& c : cases) {
    SetLastError(0);
    const File file(connection->OpenRequest(c.verb, c.object, c.referer, 1, c.types, c.version));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(static_cast<HINTERNET>(*file), nullptr);
    EXPECT_EQ(ThrownBy([&] { file->SendRequest(); }).context, 5u);
  }
  EXPECT_TRUE(server.Requests().empty());
}

// --- cookies -------------------------------------------------------------------------------------

TEST(Cookies, AreKeptByUrl) {
  const char* url = "http://cookies.example.test/a";
  EXPECT_EQ(CQNInternetSession::GetCookieLength(url, "name"), 0u);
  CQNString cookie("old");
  EXPECT_EQ(CQNInternetSession::GetCookie(url, "name", cookie), 0);
  EXPECT_EQ(TextOf(cookie), "");
  EXPECT_EQ(CQNInternetSession::SetCookie(url, "name", "value"), 1);

  EXPECT_EQ(CQNInternetSession::GetCookieLength(url, nullptr), 11u);
  char buffer[20] = {};
  EXPECT_EQ(CQNInternetSession::GetCookie(url, nullptr, buffer, sizeof(buffer)), 1);
  EXPECT_STREQ(buffer, "name=value");
  EXPECT_EQ(CQNInternetSession::GetCookie(url, nullptr, buffer, 3), 0);
}

TEST(Cookies, AStringTakesTheLengthThatThePlatformCounts) {
  const char* url = "http://other.example.test/b";
  CQNInternetSession::SetCookie(url, nullptr, "text=1");
  CQNString cookie;
  EXPECT_EQ(CQNInternetSession::GetCookie(url, nullptr, cookie), 1);
  EXPECT_STREQ(cookie, "text=1");
  EXPECT_EQ(static_cast<DWORD>(cookie.GetLength()),
            CQNInternetSession::GetCookieLength(url, nullptr));
}

TEST(Cookies, AreSentToTheServerThatSetThem) {
  ScriptedServer server(HttpResponse("x", "Set-Cookie: id=42; path=/\r\n"));
  CQNInternetSession session;
  delete session.OpenURL(server.Url("/").c_str(), 1, INTERNET_FLAG_RELOAD);
  delete session.OpenURL(server.Url("/").c_str(), 1, INTERNET_FLAG_RELOAD);
  // Cookies of other tests for this address may stand beside it.
  const std::string sent = "; " + HeaderOf(server.LastRequest(), "Cookie") + ";";
  EXPECT_NE(sent.find("; id=42;"), std::string::npos) << sent;
}

// --- status callbacks ----------------------------------------------------------------------------

class ObservedSession : public CQNInternetSession {
 public:
  ObservedSession() : CQNInternetSession("a", 5) {}

  void OnStatusCallback(unsigned __int64 context, DWORD status, void* information,
                        DWORD length) override {
    contexts.push_back(context);
    statuses.push_back(status);
    if (on_status) on_status(status);
    CQNInternetSession::OnStatusCallback(context, status, information, length);
  }

  bool Saw(DWORD status) const {
    return std::find(statuses.begin(), statuses.end(), status) != statuses.end();
  }

  std::vector<unsigned __int64> contexts;
  std::vector<DWORD> statuses;
  std::function<void(DWORD)> on_status;
};

TEST(StatusCallback, ReportsTheProgressOfARequest) {
  ScriptedServer server(HttpResponse("content", "Connection: close\r\n"));
  ObservedSession session;
  EXPECT_EQ(session.EnableStatusCallback(1), 1);
  {
    const Connection connection(session.GetHttpConnection("127.0.0.1", server.Port()));
    const File file(connection->OpenRequest("GET", "/", nullptr, 8));
    file->SendRequest();
    EXPECT_EQ(ReadAll(*file), "content");
  }
  for (const DWORD status : {20u, 21u, 30u, 31u, 40u, 41u, 60u, 70u}) {
    EXPECT_TRUE(session.Saw(status)) << status;
  }
  EXPECT_NE(std::count(session.contexts.begin(), session.contexts.end(), 8u), 0);
  EXPECT_NE(std::count(session.contexts.begin(), session.contexts.end(), 5u), 0);
}

TEST(StatusCallback, OfAUrlReachesItsSessionOnceItIsOpen) {
  ScriptedServer server(HttpResponse("content"));
  ObservedSession session;
  session.EnableStatusCallback(1);
  const File file(session.OpenURL(server.Url("/").c_str()));
  EXPECT_FALSE(session.Saw(INTERNET_STATUS_SENDING_REQUEST));
  session.statuses.clear();
  EXPECT_EQ(ReadAll(*file), "content");
  file->Close();
  EXPECT_TRUE(session.Saw(INTERNET_STATUS_HANDLE_CLOSING));
}

TEST(StatusCallback, IsInstalledOnceAndUninstalled) {
  ScriptedServer server(HttpResponse("x"));
  ObservedSession session;
  EXPECT_EQ(session.EnableStatusCallback(0), 1);
  EXPECT_EQ(session.EnableStatusCallback(1), 1);
  EXPECT_EQ(session.EnableStatusCallback(1), 1);
  EXPECT_EQ(session.EnableStatusCallback(0), 1);
  EXPECT_EQ(session.EnableStatusCallback(0), 1);
  delete session.OpenURL(server.Url("/").c_str());
  EXPECT_TRUE(session.statuses.empty());
  EXPECT_EQ(session.EnableStatusCallback(1), 1);
  delete session.OpenURL(server.Url("/").c_str());
  EXPECT_FALSE(session.statuses.empty());
}

TEST(StatusCallback, ACopyOfTheSessionDoesNotCallItselfForEver) {
  ScriptedServer server(HttpResponse("x"));
  alignas(CQNInternetSession) unsigned char storage[sizeof(CQNInternetSession)];
  ObservedSession session;
  auto* copy = new (storage) CQNInternetSession(session);
  EXPECT_EQ(copy->EnableStatusCallback(1), 1);
  EXPECT_EQ(session.EnableStatusCallback(1), 1);
  delete session.OpenURL(server.Url("/").c_str());
  EXPECT_FALSE(session.statuses.empty());
}

TEST(StatusCallback, MayAbortTheFileAtAnyMoment) {
  const std::string body(200000, 'x');
  for (const DWORD moment : {20u, 30u, 31u, 40u, 41u, 70u}) {
    ScriptedServer server(HttpResponse(body));
    ObservedSession session;
    session.EnableStatusCallback(1);
    const Connection connection(session.GetHttpConnection("127.0.0.1", server.Port()));
    const File file(connection->OpenRequest("GET", "/"));
    file->SetReadBufferSize(1000);
    session.on_status = [&](DWORD status) {
      if (status == moment) file->Abort();
    };
    ThrownBy([&] {
      file->SendRequest();
      char bytes[100];
      while (file->Read(bytes, sizeof(bytes)) != 0) {
      }
    });
    session.on_status = nullptr;
    file->Close();
    EXPECT_EQ(static_cast<HINTERNET>(*file), nullptr) << moment;
  }
}

TEST(StatusCallback, NeverReachesADestroyedSession) {
  ScriptedServer server(HttpResponse("content"));
  auto* session = new ObservedSession;
  session->EnableStatusCallback(1);
  const Connection connection(session->GetHttpConnection("127.0.0.1", server.Port()));
  const File file(connection->OpenRequest("GET", "/"));
  file->SendRequest();
  delete session;
  // The platform has closed what was below the session; using it fails, and nobody is called.
  char bytes[100];
  ThrownBy([&] { file->Read(bytes, sizeof(bytes)); });
  file->Close();
}

// --- exceptions ----------------------------------------------------------------------------------

TEST(Exception, IsCaughtByItsTypeAndLeavesNothingInFlight) {
  bool caught = false;
  try {
    CQNInternetSession("a", 42, INTERNET_OPEN_TYPE_PROXY);
  } catch (CQNInternetException* exception) {
    caught = true;
    EXPECT_EQ(exception->GetErrorCode(), 87u);
    EXPECT_EQ(exception->GetContext(), 42u);
    delete exception;
  }
  EXPECT_TRUE(caught);
  EXPECT_EQ(std::uncaught_exceptions(), 0);
}

TEST(Exception, IsCaughtAsAnUntypedPointer) {
  bool caught = false;
  try {
    CQNInternetSession("a", 42, INTERNET_OPEN_TYPE_PROXY);
  } catch (void* exception) {
    caught = true;
    delete static_cast<CQNInternetException*>(exception);
  }
  EXPECT_TRUE(caught);
  EXPECT_EQ(std::uncaught_exceptions(), 0);
}

TEST(Exception, MayBeThrownAndCaughtManyTimes) {
  CQNInternetSession session;
  session.Close();
  for (int i = 0; i < 1000; ++i) {
    EXPECT_EQ(ThrownBy([&] { session.GetHttpConnection("h", 80); }).code, 6u);
  }
  EXPECT_EQ(std::uncaught_exceptions(), 0);
}

TEST(Exception, FormatsItsCode) {
  char text[300];
  unsigned int help = 5;
  for (const DWORD code : {12002u, 12007u, 12029u, 2u, 6u}) {
    text[0] = '\0';
    EXPECT_EQ(CQNInternetException(code).GetErrorMessage(text, sizeof(text), &help), 1) << code;
    EXPECT_NE(text[0], '\0') << code;
    EXPECT_EQ(help, 0u);
  }
}

TEST(Exception, CutsItsTextToTheBuffer) {
  char whole[300];
  const CQNInternetException exception(12029);
  ASSERT_EQ(exception.GetErrorMessage(whole, sizeof(whole)), 1);
  const std::string full(whole);
  for (unsigned int maximum = 1; maximum <= full.size() + 1; ++maximum) {
    std::string text(maximum + 1, '?');
    EXPECT_EQ(exception.GetErrorMessage(text.data(), maximum), 1);
    EXPECT_EQ(text[maximum], '?');
    const std::string cut = text.substr(0, text.find('\0'));
    EXPECT_EQ(full.substr(0, cut.size()), cut);
    EXPECT_GE(cut.size() + 2, maximum);
  }
  EXPECT_EQ(exception.GetErrorMessage(nullptr, 0), 1);
}

TEST(Exception, AnUnknownCodeGivesTheEmptyText) {
  char text[10] = "old";
  EXPECT_EQ(CQNInternetException(0x3FFFFFF).GetErrorMessage(text, sizeof(text)), 0);
  EXPECT_STREQ(text, "");
}

TEST(Exception, TheExtendedErrorTakesTheServersText) {
  SKIP_UNDER_WINE("WININET.DLL has no message for 12003; the internal tests show it");
  char text[10] = "old";
  EXPECT_EQ(CQNInternetException(12003).GetErrorMessage(text, sizeof(text)), 1);
}

}  // namespace
