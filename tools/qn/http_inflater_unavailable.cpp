// SPDX-License-Identifier: MIT
// In a build without zlib.
#include "qn/errors.h"
#include "qn/http_inflater.h"

namespace qn {

struct HttpInflater::Stream {};

const char* HttpInflater::AcceptEncoding() {
  throw Failure("this build of qn has no zlib, which --compressed needs");
}

HttpInflater::HttpInflater(std::string_view /*coding*/) {}

HttpInflater::~HttpInflater() = default;

void HttpInflater::Write(std::string_view piece, const Sink& sink) { sink(piece); }

void HttpInflater::Finish() const {}

}  // namespace qn
