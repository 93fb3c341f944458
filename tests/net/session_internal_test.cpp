// SPDX-License-Identifier: MIT
// What a session asks of the platform, and how callbacks reach it.
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>
#include <vector>

#include "tests/net/fake_internet.h"
#include "tests/net/test_text.h"

namespace {

using Texts = std::vector<std::string>;

constexpr DWORD kFtpFileHandle = 7;  // the platform's number

struct Report {
  HINTERNET handle;
  unsigned __int64 context;
  DWORD status;
};

std::vector<Report> g_reports;

void EarlierCallback(HINTERNET handle, unsigned __int64 context, DWORD status, void*, DWORD) {
  g_reports.push_back({handle, context, status});
}

TEST(SessionCalls, ADefaultSessionOpensWithTheDefaults) {
  { CQNInternetSession session; }
  EXPECT_EQ(TheFakeInternet().calls, (Texts{"open Unknow access 0 flags 0", "close 1234"}));
}

TEST(SessionCalls, TheCallbackIsInstalledOnceAndUninstalledBeforeTheHandleIsClosed) {
  CQNInternetSession session("agent");
  session.EnableStatusCallback(1);
  session.EnableStatusCallback(1);
  session.Close();
  session.Close();
  EXPECT_EQ(TheFakeInternet().calls,
            (Texts{"open agent access 0 flags 0", "install", "uninstall", "close 1234"}));
}

TEST(SessionCalls, ARefusedCallbackThrowsWithTheContextOfTheSession) {
  CQNInternetSession session("agent", 5);
  TheFakeInternet().refuses_callback = true;
  EXPECT_EQ(ThrownBy([&] { session.EnableStatusCallback(1); }),
            (Thrown{ERROR_INTERNET_INVALID_OPERATION, 5}));
  TheFakeInternet().calls.clear();
  EXPECT_EQ(session.EnableStatusCallback(0), 1);
  EXPECT_EQ(TheFakeInternet().calls, Texts{});
}

TEST(SessionCalls, ReportsGoOnToTheCallbackThatWasInstalledBefore) {
  g_reports.clear();
  CQNInternetSession session;
  TheFakeInternet().callback = EarlierCallback;
  session.EnableStatusCallback(1);
  const INTERNET_STATUS_CALLBACK dispatcher = TheFakeInternet().callback;
  ASSERT_NE(dispatcher, EarlierCallback);
  dispatcher(FakeHandle(), 7, INTERNET_STATUS_CONNECTED_TO_SERVER, nullptr, 0);
  dispatcher(reinterpret_cast<HINTERNET>(0x9999), 7, INTERNET_STATUS_CLOSING_CONNECTION, nullptr,
             0);  // a handle of nobody
  ASSERT_EQ(g_reports.size(), 1u);
  EXPECT_EQ(g_reports[0].handle, FakeHandle());
  EXPECT_EQ(g_reports[0].context, 7u);
  EXPECT_EQ(g_reports[0].status, 21u);
  session.Close();
  dispatcher(FakeHandle(), 7, INTERNET_STATUS_HANDLE_CLOSING, nullptr, 0);
  EXPECT_EQ(g_reports.size(), 1u);
}

TEST(SessionCalls, AUrlThatDoesNotParseIsWhatItsHandleSays) {
  const struct {
    DWORD handle_type;
    bool served;
  } cases[] = {{INTERNET_HANDLE_TYPE_HTTP_REQUEST, true}, {kFtpFileHandle, false}, {0, false}};
  for (const auto& c : cases) {
    TheFakeInternet() = FakeInternet();
    TheFakeInternet().handle_type = c.handle_type;
    CQNInternetSession session("agent", 5);
    {
      const std::unique_ptr<CQNHttpFile> file(session.OpenURL("no-scheme", 1, 3, "X: y", 4));
      ASSERT_EQ(file != nullptr, c.served) << c.handle_type;
      EXPECT_EQ(TheFakeInternet().calls.back(), "url no-scheme headers 4 flags 3 context 5");
    }
    // What is not served deliberately stays open.
    EXPECT_EQ(TheFakeInternet().calls.back() == "close 5678", c.served) << c.handle_type;
  }
}

TEST(SessionCalls, HeadersReachToTheirTerminatorUnlessALengthIsGiven) {
  const struct {
    const char* headers;
    const char* call;
  } cases[] = {{"X: y\r\n", "url u headers 6 flags 0 context 5"},
               {nullptr, "url u headers 0 flags 0 context 5"}};
  TheFakeInternet().handle_type = INTERNET_HANDLE_TYPE_HTTP_REQUEST;
  CQNInternetSession session("agent", 5);
  for (const auto& c : cases) {
    TheFakeInternet().calls.clear();
    const std::unique_ptr<CQNHttpFile> file(session.OpenURL("u", 1, 0, c.headers));
    EXPECT_EQ(TheFakeInternet().calls, Texts{c.call});
  }
  const std::unique_ptr<CQNHttpFile> file(session.OpenURL("u", 1, 0, "X: y\r\n", 0));
  EXPECT_EQ(TheFakeInternet().calls.back(), "url u headers 0 flags 0 context 5");
}

// The stand-in hands out the same numbers again and again, as the platform may.
TEST(HandleReuse, AFileClosesNothingOnceItsSessionIsClosed) {
  TheFakeInternet().handle_type = INTERNET_HANDLE_TYPE_HTTP_REQUEST;
  CQNInternetSession first;
  std::unique_ptr<CQNHttpFile> stale(first.OpenURL("u"));
  stale->SetReadBufferSize(16);
  first.Close();
  CQNInternetSession second;
  const std::unique_ptr<CQNHttpFile> file(second.OpenURL("u"));
  TheFakeInternet().calls.clear();
  char byte;
  ThrownBy([&] { stale->Read(&byte, 1); });
  stale->Close();
  stale.reset();
  EXPECT_EQ(TheFakeInternet().calls, Texts{});
  file->Close();
  EXPECT_EQ(TheFakeInternet().calls, Texts{"close 5678"});
}

TEST(HandleReuse, HeldBytesAreNotWrittenToSomebodyElse) {
  CQNInternetSession session;
  {
    // Below the session, as OpenURL makes it, but for writing.
    class WritableFile : public CQNInternetFile {
     public:
      explicit WritableFile(HINTERNET session_handle)
          : CQNInternetFile(FakeUrlHandle(), session_handle, "o", "s", kTestContext, 0) {}
    } file(FakeHandle());
    file.SetWriteBufferSize(100);
    file.Write("held", 4);
    session.Close();
  }
  EXPECT_TRUE(TheFakeInternet().writes.empty());
}

TEST(HandleReuse, OfTwoCopiesTheFirstOneClosesAndTheOtherDoesNothing) {
  {
    CQNInternetSession assigned;
    assigned.Close();
    CQNInternetSession session;
    CQNInternetSession copy(session);
    TheFakeInternet().calls.clear();
    assigned = copy;
    copy.Close();
  }
  EXPECT_EQ(TheFakeInternet().calls, Texts{"close 1234"});
}

TEST(ConnectionCopies, KnowTheServerAndTheSessionOfTheFirst) {
  CQNInternetSession session;
  const CQNInternetConnection connection(&session, "h.test", 80);
  const CQNInternetConnection copy(connection);
  CQNInternetConnection assigned(nullptr, "other.test");
  assigned = copy;
  const CQNInternetConnection& same = assigned;
  assigned = same;
  for (const CQNInternetConnection* each : {&copy, &same}) {
    EXPECT_EQ(TextOf(each->GetServerName()), "h.test");
    EXPECT_EQ(each->GetSession(), &session);
    EXPECT_EQ(static_cast<HINTERNET>(*each), nullptr);
  }
}

// A file as a host's class makes it over its connection.
class ConnectedFile : public CQNInternetFile {
 public:
  explicit ConnectedFile(CQNInternetConnection* connection)
      : CQNInternetFile(FakeUrlHandle(), "object", connection, 1) {}
};

TEST(ConnectionCopies, ASessionAssignedToItselfStaysOpen) {
  CQNInternetSession session("agent");
  const CQNInternetSession& same = session;
  session = same;
  EXPECT_EQ(TheFakeInternet().calls, (Texts{"open agent access 0 flags 0"}));
}

TEST(AdoptedConnections, AreHandlesOfHttpConnectionsOnly) {
  CQNInternetSession session("agent", 5);
  for (const DWORD type : {DWORD{0}, kFtpFileHandle}) {
    TheFakeInternet().handle_type = type;
    EXPECT_EQ(ThrownBy([&] { CQNHttpConnection(&session, FakeConnectionHandle(), "h", 5); }),
              (Thrown{ERROR_INVALID_HANDLE, 5}))
        << type;
  }
  TheFakeInternet().handle_type = INTERNET_HANDLE_TYPE_CONNECT_HTTP;
  EXPECT_EQ(ThrownBy([&] { CQNHttpConnection(&session, HINTERNET{}, "h", 5); }),
            (Thrown{ERROR_INVALID_HANDLE, 5}));
  TheFakeInternet().calls.clear();
  { const CQNHttpConnection connection(&session, FakeConnectionHandle(), "h", 5); }
  EXPECT_EQ(TheFakeInternet().calls, Texts{"close 4321"});
}

TEST(ConnectedFiles, TakeTheContextOfTheirConnectionAndCloseTheirHandle) {
  CQNInternetSession session("agent");
  CQNInternetConnection connection(&session, "h.test", 80, 9);
  {
    const ConnectedFile file(&connection);
    EXPECT_EQ(file.GetContext(), 9u);
    EXPECT_EQ(static_cast<HINTERNET>(file), FakeUrlHandle());
  }
  EXPECT_EQ(TheFakeInternet().calls.back(), "close 5678");
}

TEST(ConnectionMemory, NewThatDoesNotThrowGivesAConnection) {
  CQNInternetSession session;
  auto* const connection = new (std::nothrow) CQNInternetConnection(&session, "h.test");
  ASSERT_NE(connection, nullptr);
  EXPECT_EQ(TextOf(connection->GetServerName()), "h.test");
  delete connection;
}

TEST(SessionCookies, AStringMeasuresItselfWhenThePlatformDoesNotCount) {
  TheFakeInternet().cookie = "name=value";
  CQNString cookie("old");
  EXPECT_EQ(CQNInternetSession::GetCookie("http://h/", "name", cookie), 1);
  EXPECT_EQ(TextOf(cookie), std::string("name=value\0", 11));
  TheFakeInternet().counts_cookie = false;
  EXPECT_EQ(CQNInternetSession::GetCookie("http://h/", "name", cookie), 1);
  EXPECT_EQ(TextOf(cookie), "name=value");
  TheFakeInternet().cookie.clear();
  EXPECT_EQ(CQNInternetSession::GetCookie("http://h/", "name", cookie), 0);
  EXPECT_EQ(TextOf(cookie), "");
}

}  // namespace
