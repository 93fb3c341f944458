// What a session asks of the platform, and how callbacks reach it.
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/net/fake_internet.h"
#include "tests/net/test_text.h"

namespace {

using Texts = std::vector<std::string>;

struct Report {
  HINTERNET handle;
  unsigned __int64 context;
  unsigned long status;
};

std::vector<Report> g_reports;

void CALLBACK EarlierCallback(HINTERNET handle, DWORD_PTR context, DWORD status, void*, DWORD) {
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
  } cases[] = {{INTERNET_HANDLE_TYPE_HTTP_REQUEST, true},
               {INTERNET_HANDLE_TYPE_FTP_FILE, false},
               {0, false}};
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
