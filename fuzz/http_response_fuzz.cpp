// SPDX-License-Identifier: MIT
// A response from memory, through the classes: the lines of its head, then its body, which is read
// by block and by line with buffers of every size.
#include <quarnfc/internet.h>
#include <quarnfc/internet_api.h>
#include <quarnfc/internet_file.h>

#include <memory>
#include <string>

#include "fuzz/input.h"
#include "platform/posix/internet/head.h"
#include "tests/net/memory_transport.h"

namespace {

MemoryAnswer AnswerFrom(fuzz::Input& input) {
  MemoryAnswer answer;
  answer.piece = input.Byte() % 32 + std::size_t{1};
  std::string head = input.Text();
  for (std::size_t start = 0; start < head.size();) {
    const std::size_t end = head.find('\n', start);
    answer.head.push_back(head.substr(start, end - start));
    start = end == std::string::npos ? head.size() : end + 1;
  }
  while (!input.IsEmpty()) answer.body += static_cast<char>(input.Byte());
  return answer;
}

void QueryEverything(const CQNHttpFile& file) {
  CQNString text;
  DWORD number = 0;
  SYSTEMTIME time = {};
  for (DWORD level = 0; level < 80; ++level) {
    file.QueryInfo(level, text);
    file.QueryInfo(level, number);
    file.QueryInfo(level, &time);
  }
  file.QueryInfoStatusCode(number);
}

// What blocks and lines give must be the body, less what lines drop.
void Read(CQNHttpFile& file, const std::string& body, std::uint8_t how) {
  file.SetReadBufferSize(how % 16);
  if ((how & 0x80) != 0) {
    CQNString line;
    while (file.ReadString(line) != 0) {
    }
    return;
  }
  std::string received;
  char bytes[40];
  while (const unsigned int count = file.Read(bytes, how / 16 + 1)) received.append(bytes, count);
  fuzz::Expect(received == body);
}

// The head as headers of a request, with every way to add them: each that was added is found.
void CheckHeaders(const MemoryAnswer& answer, std::uint8_t how) {
  constexpr DWORD kFlags[] = {HTTP_ADDREQ_FLAG_ADD, HTTP_ADDREQ_FLAG_ADD_IF_NEW,
                              HTTP_ADDREQ_FLAG_COALESCE, HTTP_ADDREQ_FLAG_REPLACE,
                              HTTP_ADDREQ_FLAG_REPLACE | HTTP_ADDREQ_FLAG_ADD};
  quarnfc::internet::Headers headers;
  for (const std::string& line : answer.head) headers.AddLines(line, kFlags[how % 5]);
  for (const auto& header : headers.All()) fuzz::Expect(headers.Find(header.name) != nullptr);
  quarnfc::internet::ResponseHead head;
  if (!head.Parse(answer.head)) return;
  fuzz::Expect(answer.head[0].starts_with(head.version));
  fuzz::Expect(head.status <= 999);
  fuzz::Expect(answer.head[0].find(head.reason) != std::string::npos);
}

void Exchange(std::uint8_t how, const std::string& body) {
  CQNInternetSession session("fuzz");
  const std::unique_ptr<CQNHttpConnection> connection(
      session.GetHttpConnection("h.test", 0, "user", "password"));
  const std::unique_ptr<CQNHttpFile> file(connection->OpenRequest("GET", "/a/b?c"));
  file->SendRequest();
  QueryEverything(*file);
  Read(*file, body, how);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::uint8_t how = input.Byte();
  ServedFromMemory network;
  const MemoryAnswer answer = AnswerFrom(input);
  network->answers = {answer};
  CheckHeaders(answer, how);
  try {
    Exchange(how, answer.body);
  } catch (CQNInternetException* exception) {
    char text[64];
    exception->GetErrorMessage(text, sizeof(text));
    delete exception;
  }
  return 0;
}
