// SPDX-License-Identifier: MIT
#include <quarnfc/ext/http_call.h>

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "c/guarded.h"
#include "c/http_handle.h"
#include "c/path.h"
#include "c/text.h"

namespace quarnfc::c {
namespace {

// Whether every line that is not empty has a colon behind a name: others would be left out.
bool AreHeaders(std::string_view lines) {
  while (!lines.empty()) {
    const std::string_view line = lines.substr(0, lines.find('\n'));
    lines.remove_prefix(line.size() == lines.size() ? line.size() : line.size() + 1);
    const bool is_empty = line.empty() || line == "\r";
    const std::size_t colon = line.find(':');
    if (!is_empty && (colon == 0 || colon == std::string_view::npos)) return false;
  }
  return true;
}

}  // namespace

QncHttpResponse* NewResponse(ext::HttpResponse response) {
  if (response.failure == ext::HttpFailure::kNone) return new QncHttpResponse{std::move(response)};
  throw Failure(static_cast<int>(response.code), response.Message().c_str());
}

std::vector<ext::HttpHeader> HeadersOf(const char* lines) {
  if (lines == nullptr) return {};
  if (!AreHeaders(lines)) throw Failure(QNC_ERROR_ARGUMENT, "Quarn: a header has no name");
  return ext::HttpHeadersOf("\n" + std::string(lines));  // behind a status line
}

}  // namespace quarnfc::c

namespace {

using quarnfc::c::Given;
using quarnfc::c::GuardedNew;
using quarnfc::c::HeadersOf;
using quarnfc::c::NewResponse;
using quarnfc::c::NewText;
using quarnfc::c::Path;
using quarnfc::ext::HttpCallOptions;
using quarnfc::ext::HttpHeader;

HttpCallOptions OptionsOf(unsigned int deadline, const char* headers = nullptr) {
  HttpCallOptions options;
  options.deadline = std::chrono::milliseconds(deadline);
  options.headers = HeadersOf(headers);
  return options;
}

// The header at index; null when there is none.
const HttpHeader* HeaderAt(const QncHttpResponse* response, int index) {
  if (index < 0 || index >= qncHttpHeaderCount(response)) return nullptr;
  return &response->response.headers[static_cast<std::size_t>(index)];
}

}  // namespace

QncHttpResponse* qncHttpSend(const char* verb, const char* url, const char* headers,
                             const void* body, size_t size, unsigned int deadline,
                             CQNObject** error) {
  return GuardedNew(error, [=] {
    const std::string_view content(body == nullptr ? "" : static_cast<const char*>(body),
                                   body == nullptr ? 0 : size);
    return NewResponse(
        quarnfc::ext::HttpSend(Given(verb), Given(url), content, OptionsOf(deadline, headers)));
  });
}

QncHttpResponse* qncHttpGet(const char* url, unsigned int deadline, CQNObject** error) {
  return GuardedNew(
      error, [=] { return NewResponse(quarnfc::ext::HttpGet(Given(url), OptionsOf(deadline))); });
}

QncHttpResponse* qncHttpDownload(const char* url, const char* path, unsigned int deadline,
                                 CQNObject** error) {
  return GuardedNew(error, [=] {
    return NewResponse(
        quarnfc::ext::HttpDownload(Given(url), Path(path).get(), OptionsOf(deadline)));
  });
}

void qncHttpFree(QncHttpResponse* response) { delete response; }

int qncHttpStatus(const QncHttpResponse* response) {
  return response == nullptr ? 0 : static_cast<int>(response->response.status);
}

const char* qncHttpBody(const QncHttpResponse* response, size_t* size) {
  if (response == nullptr) return nullptr;
  if (size != nullptr) *size = response->response.body.size();
  return response->response.body.c_str();
}

char* qncHttpHeader(const QncHttpResponse* response, const char* name, CQNObject** error) {
  return GuardedNew(error, [=]() -> char* {
    const std::string wanted = Given(name);
    for (const HttpHeader& header : Given(response)->response.headers) {
      if (quarnfc::ext::detail::SameHeaderName(header.first, wanted)) return NewText(header.second);
    }
    return nullptr;
  });
}

int qncHttpHeaderCount(const QncHttpResponse* response) {
  return response == nullptr ? 0 : static_cast<int>(response->response.headers.size());
}

const char* qncHttpHeaderName(const QncHttpResponse* response, int index) {
  const HttpHeader* header = HeaderAt(response, index);
  return header == nullptr ? nullptr : header->first.c_str();
}

const char* qncHttpHeaderValue(const QncHttpResponse* response, int index) {
  const HttpHeader* header = HeaderAt(response, index);
  return header == nullptr ? nullptr : header->second.c_str();
}
