// SPDX-License-Identifier: MIT
// Requests and responses, against a server in this program.
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/net/scripted_server.h"
#include "tests/net/test_text.h"
#include "tests/support/contains.h"

namespace {

using quarnfc_test::Contains;

// A session and a connection to a server that gives one answer.
class HttpFile : public testing::Test {
 protected:
  void Serve(const std::string& answer) {
    server_ = std::make_unique<ScriptedServer>(answer);
    connection_.reset(session_.GetHttpConnection("127.0.0.1", server_->Port()));
  }

  std::unique_ptr<CQNHttpFile> Open(const char* verb, const char* object = "/object") {
    return std::unique_ptr<CQNHttpFile>(
        connection_->OpenRequest(verb, object, nullptr, 1, nullptr, "HTTP/1.1",
                                 INTERNET_FLAG_RELOAD | INTERNET_FLAG_KEEP_CONNECTION));
  }

  std::unique_ptr<CQNHttpFile> Get() {
    auto file = Open("GET");
    EXPECT_EQ(file->SendRequest(), 1);
    return file;
  }

  std::string LastRequest() { return server_->LastRequest(); }

  CQNInternetSession session_{"test", 5};
  std::unique_ptr<ScriptedServer> server_;
  std::unique_ptr<CQNHttpConnection> connection_;
};

// --- sending -------------------------------------------------------------------------------------

TEST_F(HttpFile, SendsHeadersAndABody) {
  Serve(HttpResponse("answer"));
  const auto file = Open("POST");
  char body[] = "the body";
  EXPECT_EQ(file->SendRequest("X-Test: 1\r\n", 11, body, 8), 1);
  EXPECT_TRUE(Contains(LastRequest(), "POST /object HTTP/1.1\r\n"));
  EXPECT_TRUE(Contains(LastRequest(), "\r\nX-Test: 1\r\n"));
  EXPECT_TRUE(Contains(LastRequest(), "\r\nContent-Length: 8\r\n"));
  EXPECT_TRUE(Contains(LastRequest(), "\r\n\r\nthe body"));
  EXPECT_EQ(ReadAll(*file), "answer");
}

TEST_F(HttpFile, SendsHeadersUpToTheirTerminatorWithoutALength) {
  Serve(HttpResponse("answer"));
  const auto file = Open("GET");
  EXPECT_EQ(file->SendRequest("X-Test: 1\r\n"), 1);
  EXPECT_TRUE(Contains(LastRequest(), "\r\nX-Test: 1\r\n"));
}

TEST_F(HttpFile, SendsHeadersFromAString) {
  Serve(HttpResponse("answer"));
  const auto file = Open("PUT");
  CQNString headers("X-Test: 2\r\n");
  char body[] = "body";
  EXPECT_EQ(file->SendRequest(headers, body, 4), 1);
  EXPECT_TRUE(Contains(LastRequest(), "\r\nX-Test: 2\r\n"));
  EXPECT_TRUE(Contains(LastRequest(), "\r\n\r\nbody"));
}

TEST_F(HttpFile, AddsHeadersByLengthByTerminatorAndFromAString) {
  Serve(HttpResponse("answer"));
  const auto file = Open("GET");
  CQNString third("X-Third: 3\r\n");
  EXPECT_EQ(file->AddRequestHeaders("X-First: 1\r\nX-Not: sent\r\n", HTTP_ADDREQ_FLAG_ADD, 12), 1);
  EXPECT_EQ(file->AddRequestHeaders("X-Second: 2\r\n", HTTP_ADDREQ_FLAG_ADD), 1);
  EXPECT_EQ(file->AddRequestHeaders(third, HTTP_ADDREQ_FLAG_ADD), 1);
  file->SendRequest();
  EXPECT_TRUE(Contains(LastRequest(), "\r\nX-First: 1\r\n"));
  EXPECT_TRUE(Contains(LastRequest(), "\r\nX-Second: 2\r\n"));
  EXPECT_TRUE(Contains(LastRequest(), "\r\nX-Third: 3\r\n"));
  EXPECT_FALSE(Contains(LastRequest(), "X-Not"));
}

TEST_F(HttpFile, AddingNoHeadersIsNotACrash) {
  Serve(HttpResponse("answer"));
  const auto file = Open("GET");
  CQNString empty;
  file->AddRequestHeaders(nullptr, HTTP_ADDREQ_FLAG_ADD);
  file->AddRequestHeaders("", HTTP_ADDREQ_FLAG_ADD);
  file->AddRequestHeaders(empty, HTTP_ADDREQ_FLAG_ADD);
  EXPECT_EQ(file->SendRequest(), 1);
}

TEST_F(HttpFile, SendsABodyInPieces) {
  Serve(HttpResponse("answer"));
  const auto file = Open("POST");
  EXPECT_EQ(ThrownBy([&] { file->Write("a", 1); }), (Thrown{6, 5}));
  EXPECT_EQ(file->SendRequestEx(10), 1);
  file->Write("01234", 5);
  file->WriteString("56789");
  EXPECT_EQ(file->EndRequest(), 1);
  EXPECT_TRUE(Contains(LastRequest(), "\r\nContent-Length: 10\r\n"));
  EXPECT_TRUE(Contains(LastRequest(), "\r\n\r\n0123456789"));
  EXPECT_EQ(ReadAll(*file), "answer");
}

TEST_F(HttpFile, SendsPiecesThroughAWriteBufferAndTheNextRequestIsIntact) {
  Serve(HttpResponse("answer"));
  for (int i = 0; i < 3; ++i) {
    const auto file = Open("POST");
    file->SetWriteBufferSize(8);
    file->SendRequestEx(12);
    for (const char* piece : {"one ", "two ", "four"}) file->WriteString(piece);
    file->EndRequest();
    EXPECT_EQ(ReadAll(*file), "answer");
    EXPECT_TRUE(Contains(LastRequest(), "\r\n\r\none two four"));
  }
  EXPECT_EQ(server_->Requests().size(), 3u);
}

TEST_F(HttpFile, SendsPiecesWithBuffersOfTheCaller) {
  Serve(HttpResponse("answer"));
  const auto file = Open("POST");
  const char headers[] = "X-Buffers: yes\r\n";
  INTERNET_BUFFERSA buffers = {};
  buffers.dwStructSize = sizeof(buffers);
  buffers.lpcszHeader = headers;
  buffers.dwHeadersLength = sizeof(headers) - 1;
  buffers.dwBufferTotal = 4;
  EXPECT_EQ(file->SendRequestEx(&buffers, nullptr, 0, 1), 1);
  file->Write("body", 4);
  EXPECT_EQ(file->EndRequest(0, nullptr, 1), 1);
  EXPECT_TRUE(Contains(LastRequest(), "\r\nX-Buffers: yes\r\n"));
  EXPECT_TRUE(Contains(LastRequest(), "\r\n\r\nbody"));
}

// --- reading -------------------------------------------------------------------------------------

TEST_F(HttpFile, ReadsByBlockThroughBuffersOfAnySize) {
  std::string body;
  for (int i = 0; i < 20000; ++i) body += static_cast<char>(i * 31 + i / 256);
  Serve(HttpResponse(body));
  for (const unsigned int size : {0u, 1u, 7u, 999u, 1000u, 1001u, 4096u, 100000u}) {
    const auto file = Get();
    EXPECT_EQ(file->SetReadBufferSize(size), 1);
    EXPECT_EQ(ReadAll(*file), body) << size;
  }
}

TEST_F(HttpFile, ReadsByLine) {
  const std::string long_line(300, 'x');
  Serve(HttpResponse("a\r\nb\n" + long_line + "\r\n\r\nlast"));
  const auto file = Get();
  CQNString line;
  std::vector<std::string> lines;
  while (file->ReadString(line)) lines.push_back(TextOf(line));
  EXPECT_EQ(lines, (std::vector<std::string>{"a", "b", long_line, "", "last"}));

  const auto other = Get();
  char buffer[400];
  EXPECT_STREQ(other->ReadString(buffer, sizeof(buffer)), "a\n");
  EXPECT_STREQ(other->ReadString(buffer, sizeof(buffer)), "b\n");
  EXPECT_STREQ(other->ReadString(buffer, sizeof(buffer)), (long_line + "\n").c_str());
}

TEST_F(HttpFile, GetLengthIsWhatHasArrived) {
  Serve(HttpResponse("content"));
  const auto file = Get();
  EXPECT_EQ(file->GetLength(), 7u);
  char bytes[3];
  file->Read(bytes, 3);
  EXPECT_EQ(file->GetLength(), 4u);
  file->Close();
  EXPECT_EQ(file->GetLength(), 0u);
}

TEST_F(HttpFile, SeekReportsWhatThePlatformSays) {
  Serve(HttpResponse("content"));
  const auto file = Get();
  EXPECT_EQ(ThrownBy([&] { file->Seek(0, 3); }), (Thrown{87, 5}));
#if defined(_WIN32)
  if (!UnderWine()) {
    EXPECT_EQ(file->Seek(0, 0), 0u);
    return;
  }
#endif
  // A body that is not kept anywhere cannot be read twice.
  EXPECT_EQ(ThrownBy([&] { file->Seek(0, 0); }), (Thrown{12016, 5}));
}

// --- queries -------------------------------------------------------------------------------------

TEST_F(HttpFile, QueriesTextNumberDateAndStatus) {
  Serve(HttpResponse("content",
                     "Content-Type: text/plain; charset=gb2312\r\n"
                     "Last-Modified: Mon, 15 Nov 1999 16:09:35 GMT\r\nX-Own: value\r\n",
                     "404 Not Here"));
  const auto file = Get();
  CQNString text;
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_CONTENT_TYPE, text), 1);
  EXPECT_EQ(TextOf(text), "text/plain; charset=gb2312");
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_STATUS_TEXT, text), 1);
  EXPECT_EQ(TextOf(text), "Not Here");
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_ETAG, text), 0);
  EXPECT_EQ(TextOf(text), "");

  DWORD number = 0;
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_CONTENT_LENGTH, number), 1);
  EXPECT_EQ(number, 7u);
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_STATUS_CODE, number), 1);
  EXPECT_EQ(number, 404u);
  number = 0;
  EXPECT_EQ(file->QueryInfoStatusCode(number), 1);
  EXPECT_EQ(number, 404u);

  SYSTEMTIME time = {};
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_LAST_MODIFIED, &time), 1);
  EXPECT_EQ(time.wYear, 1999);
  EXPECT_EQ(time.wMonth, 11);
  EXPECT_EQ(time.wDay, 15);
  EXPECT_EQ(time.wHour, 16);

  char raw[10] = {};
  DWORD length = sizeof(raw);
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_STATUS_CODE, raw, &length, nullptr), 1);
  EXPECT_STREQ(raw, "404");
}

TEST_F(HttpFile, ADateThatIsNoneFails) {
  SKIP_UNDER_WINE("HttpQueryInfo crashes when a header that is no date is asked for as a date");
  Serve(HttpResponse("content", "Last-Modified: yesterday\r\n"));
  SYSTEMTIME time = {};
  EXPECT_EQ(Get()->QueryInfo(HTTP_QUERY_LAST_MODIFIED, &time), 0);
}

TEST_F(HttpFile, QueriesHeadersOfOneNameByIndex) {
  Serve(HttpResponse("x", "Via: one\r\nVia: two\r\n"));
  const auto file = Get();
  std::vector<std::string> values;
  CQNString text;
  DWORD index = 0;
  while (values.size() < 5 && file->QueryInfo(HTTP_QUERY_SET_COOKIE, text, &index)) {
    values.push_back(TextOf(text));
  }
  EXPECT_TRUE(values.empty());
  Serve(HttpResponse("x", "Set-Cookie: a=1\r\nSet-Cookie: b=2\r\n"));
  const auto other = Get();
  index = 0;
  while (values.size() < 5 && other->QueryInfo(HTTP_QUERY_SET_COOKIE, text, &index)) {
    values.push_back(TextOf(text));
  }
  EXPECT_EQ(values, (std::vector<std::string>{"a=1", "b=2"}));
}

TEST_F(HttpFile, QueriesAllHeadersAtOnce) {
  Serve(HttpResponse("x", "X-Own: value\r\n"));
  const auto file = Get();
  CQNString text;
  EXPECT_EQ(file->QueryInfo(HTTP_QUERY_RAW_HEADERS_CRLF, text), 1);
  EXPECT_TRUE(Contains(TextOf(text), "HTTP/1.1 200 OK\r\n"));
  EXPECT_TRUE(Contains(TextOf(text), "X-Own: value\r\n"));
}

TEST_F(HttpFile, OptionsPassThrough) {
  Serve(HttpResponse("x"));
  const auto file = Open("GET");
  DWORD value = 0;
  DWORD length = sizeof(value);
  EXPECT_EQ(file->SetOption(INTERNET_OPTION_RECEIVE_TIMEOUT, 1234), 1);
  value = 4321;
  EXPECT_EQ(file->SetOption(INTERNET_OPTION_RECEIVE_TIMEOUT, &value, length, 0), 1);
  EXPECT_EQ(file->QueryOption(INTERNET_OPTION_HANDLE_TYPE, value), 1);
  EXPECT_EQ(value, 13u);
  value = 0;
  EXPECT_EQ(file->QueryOption(INTERNET_OPTION_HANDLE_TYPE, &value, &length), 1);
  EXPECT_EQ(value, 13u);
  EXPECT_EQ(file->QueryOption(0xFFFF, value), 0);
  EXPECT_EQ(file->SetOption(0xFFFF, 1), 0);
}

TEST_F(HttpFile, TheFileUrlIsHttpAlsoForHttps) {
  Serve(HttpResponse("x"));
  EXPECT_EQ(TextOf(Open("GET", "/a")->GetFileURL()), "http://127.0.0.1/a");
  EXPECT_EQ(TextOf(Open("GET", "a")->GetFileURL()), "http://127.0.0.1/a");
  EXPECT_EQ(TextOf(Open("GET", "")->GetFileURL()), "http://127.0.0.1");
  const std::unique_ptr<CQNHttpFile> secure(
      connection_->OpenRequest("GET", "/s", nullptr, 1, nullptr, nullptr, INTERNET_FLAG_SECURE));
  EXPECT_EQ(TextOf(secure->GetFileURL()), "http://127.0.0.1/s");
}

TEST_F(HttpFile, ClosingAndAbortingTwiceIsHarmless) {
  Serve(HttpResponse("x"));
  const auto file = Get();
  file->SetReadBufferSize(10);
  file->SetWriteBufferSize(10);
  file->Abort();
  file->Abort();
  file->Close();
  file->Flush();
  EXPECT_EQ(static_cast<HINTERNET>(*file), nullptr);
  EXPECT_EQ(TextOf(file->GetFileURL()), "http://127.0.0.1/object");
}

}  // namespace
