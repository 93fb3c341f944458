// SPDX-License-Identifier: MIT
// Fetches a page line by line, watching the progress. Without an argument it asks a port on which
// nobody listens and shows how that fails.
#include <quarnfc/quarnfc.h>

#include <cstdio>
#include <memory>

namespace {

class WatchedSession : public CQNInternetSession {
 public:
  WatchedSession() : CQNInternetSession("sample/1.0") { EnableStatusCallback(1); }

  void OnStatusCallback(unsigned __int64 /*context*/, DWORD status, void* /*information*/,
                        DWORD /*length*/) override {
    std::printf("status %u\n", static_cast<unsigned int>(status));
  }
};

void Fetch(CQNInternetSession& session, const char* url) {
  DWORD service = 0;
  unsigned short port = 0;
  CQNString server;
  CQNString object;
  if (!qnParseURL(url, service, server, object, port) || service != eServiceHttp) {
    std::printf("%s is not an HTTP URL\n", url);
    return;
  }
  const std::unique_ptr<CQNHttpConnection> connection(session.GetHttpConnection(server, port));
  const std::unique_ptr<CQNHttpFile> page(connection->OpenRequest("GET", object));
  page->SendRequest();
  DWORD status = 0;
  page->QueryInfoStatusCode(status);
  std::printf("%s answers %u\n", static_cast<const char*>(page->GetFileURL()),
              static_cast<unsigned int>(status));
  CQNString line;
  while (page->ReadString(line)) std::printf("  %s\n", static_cast<const char*>(line));
}

}  // namespace

int main(int argc, char** argv) {
  const bool expects_failure = argc < 2;
  WatchedSession session;
  try {
    Fetch(session, expects_failure ? "http://127.0.0.1:1/" : argv[1]);
  } catch (CQNInternetException* exception) {
    char text[200];
    exception->GetErrorMessage(text, sizeof(text));
    std::printf("error %u: %s\n", exception->GetErrorCode(), text);
    delete exception;
    return expects_failure ? 0 : 1;
  }
  return expects_failure ? 1 : 0;
}
