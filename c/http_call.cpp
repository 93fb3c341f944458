// SPDX-License-Identifier: MIT
#include <quarnfc/c/http_call.h>
#include <quarnfc/ext/http_call.h>

#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include "c/guarded.h"
#include "c/http_handle.h"
#include "c/path.h"
#include "c/text.h"

struct QncHttpCall {
  std::string verb;
  std::string url;
  std::string body;
  quarnfc::ext::HttpCallOptions options;
  quarnfc::ext::HttpCancel cancel;
};

namespace {

using quarnfc::c::AnsiText;
using quarnfc::c::Failure;
using quarnfc::c::Given;
using quarnfc::c::Guarded;
using quarnfc::c::GuardedNew;
using quarnfc::c::HeadersOf;
using quarnfc::c::NewResponse;
using quarnfc::c::Path;

QncHttpCall* NewCall(const char* verb, const char* url) {
  auto call = std::make_unique<QncHttpCall>();
  call->verb = Given(verb);
  call->url = Given(url);
  call->options.cancel = &call->cancel;
  return call.release();
}

QncHttpResponse* Download(const QncHttpCall& call, const char* path) {
  if (call.verb != "GET" || !call.body.empty()) {
    throw Failure(QNC_ERROR_ARGUMENT, "Quarn: a download is a GET without body");
  }
  return NewResponse(quarnfc::ext::HttpDownload(call.url, Path(path).get(), call.options));
}

}  // namespace

QncHttpCall* qncHttpCallNew(const char* verb, const char* url, CQNObject** error) {
  return GuardedNew(error, [=] { return NewCall(verb, url); });
}

void qncHttpCallFree(QncHttpCall* call) { delete call; }

int qncHttpCallSetHeaders(QncHttpCall* call, const char* headers, CQNObject** error) {
  return Guarded(error, 0, [=] {
    Given(call)->options.headers = HeadersOf(headers);
    return 1;
  });
}

int qncHttpCallSetBody(QncHttpCall* call, const void* body, size_t size, CQNObject** error) {
  return Guarded(error, 0, [=] {
    const auto* const bytes = static_cast<const char*>(body);
    Given(call)->body = bytes == nullptr ? std::string() : std::string(bytes, size);
    return 1;
  });
}

int qncHttpCallSetUser(QncHttpCall* call, const char* user, const char* password,
                       CQNObject** error) {
  return Guarded(error, 0, [=] {
    std::string name = AnsiText(user).get();
    std::string secret = AnsiText(password).get();
    Given(call)->options.user = std::move(name);
    call->options.password = std::move(secret);
    return 1;
  });
}

void qncHttpCallSetDeadline(QncHttpCall* call, unsigned int deadline) {
  if (call != nullptr) call->options.deadline = std::chrono::milliseconds(deadline);
}

void qncHttpCallSetLargest(QncHttpCall* call, unsigned long long size) {
  if (call != nullptr) call->options.largest = size;
}

void qncHttpCallSetProgress(QncHttpCall* call, QncHttpProgress progress, void* context) {
  Guarded(nullptr, 0, [=] {
    Given(call)->options.progress = nullptr;
    if (progress == nullptr) return 1;
    call->options.progress = [=](unsigned long long received, unsigned long long total) {
      return progress(context, received, total) != 0;
    };
    return 1;
  });
}

QncHttpResponse* qncHttpCallSend(QncHttpCall* call, CQNObject** error) {
  return GuardedNew(error, [=] {
    Given(call);
    return NewResponse(quarnfc::ext::HttpSend(call->verb, call->url, call->body, call->options));
  });
}

QncHttpResponse* qncHttpCallDownload(QncHttpCall* call, const char* path, CQNObject** error) {
  return GuardedNew(error, [=] { return Download(*Given(call), path); });
}

void qncHttpCallCancel(QncHttpCall* call) {
  if (call != nullptr) call->cancel.Cancel();
}
