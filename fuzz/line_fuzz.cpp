// SPDX-License-Identifier: MIT
// Lines of a response from memory, through read buffers of every size and in pieces of every
// length, beside a reader of the whole text.
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/input.h"
#include "tests/net/memory_transport.h"

namespace {

using Lines = std::vector<std::string>;

struct Case {
  unsigned int buffer;   // size of the read buffer; 0 leaves it to the file
  unsigned int maximum;  // of the buffer that lines are read into; 0 reads strings
  std::size_t piece;     // bytes that arrive at once
  std::string body;
};

Case CaseFrom(fuzz::Input& input) {
  Case each;
  each.buffer = input.Byte();
  each.buffer += 256u * input.Byte();
  each.maximum = input.Byte();
  if (each.maximum == 1) each.maximum = 257;  // room for the terminator alone takes nothing
  each.piece = input.Byte() + std::size_t{1};
  while (!input.IsEmpty()) each.body += static_cast<char>(input.Byte());
  return each;
}

// Carriage returns do not count. A piece ends with its line feed or when it is full.
Lines Expected(const Case& each) {
  std::string text = each.body;
  std::erase(text, '\r');
  const std::size_t longest = each.maximum == 0 ? std::string::npos : each.maximum - 1;
  Lines lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::size_t length =
        std::min({end == std::string::npos ? end : end + 1, longest, text.size()});
    lines.push_back(text.substr(0, length));
    text.erase(0, length);
    if (each.maximum == 0 && lines.back().back() == '\n') lines.back().pop_back();
  }
  return lines;
}

Lines ReadStrings(CQNInternetFile& file) {
  Lines lines;
  CQNString line;
  while (file.ReadString(line) != 0) {
    lines.emplace_back(static_cast<const char*>(line), static_cast<std::size_t>(line.GetLength()));
  }
  return lines;
}

// A zero byte may stand in a line, so its end is where the filling stops.
Lines ReadBuffers(CQNInternetFile& file, unsigned int maximum, const Lines& expected) {
  Lines lines;
  std::string buffer(maximum, '?');
  while (file.ReadString(buffer.data(), maximum) != nullptr) {
    const std::size_t length =
        lines.size() < expected.size() ? expected[lines.size()].size() : buffer.find('\0');
    fuzz::Expect(length < maximum && buffer[length] == '\0');
    lines.push_back(buffer.substr(0, length));
  }
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const Case each = CaseFrom(input);
  ServedFromMemory network;
  network->answers = {{{"HTTP/1.1 200 OK"}, each.body, each.piece, 0}};
  CQNInternetSession session("fuzz");
  const std::unique_ptr<CQNHttpConnection> connection(session.GetHttpConnection("h.test", 0));
  const std::unique_ptr<CQNHttpFile> file(connection->OpenRequest("GET", "/"));
  file->SendRequest();
  if (each.buffer != 0) file->SetReadBufferSize(each.buffer);
  const Lines expected = Expected(each);
  fuzz::Expect((each.maximum == 0 ? ReadStrings(*file)
                                  : ReadBuffers(*file, each.maximum, expected)) == expected);
  return 0;
}
