// SPDX-License-Identifier: MIT
// HTTP in one call: get, post, put, download. The response comes back as a value, and so does the
// reason when there is none: nothing of the platform is thrown.
//
// A call opens a session of its own, sends one request, follows redirects, answers a challenge with
// the credentials that were given or stand in the URL, and receives the whole body. Hosts that send
// many requests to one server keep a session and a connection (<quarnfc/internet.h>), which keeps
// the network connection, too.
//
// URLs are http or https; user and password may stand in them, decoded. Blanks and bytes above 126
// are escaped as they stand: URLs hold UTF-8, so convert text of the code page first. A fragment is
// not sent.
//
// Deadline: for the whole call. It bounds every wait for the network and is looked at before each,
// so a call ends soon after it even if the server sends its body byte by byte. Looking up a name
// and a head that arrives byte by byte are waited for as long as the platform does.
//
// Threads: a call runs on the caller's thread and starts none. HttpCancel::Cancel is called on any
// other thread. Errors: std::bad_alloc; what the host's own callbacks throw passes through. Header
// only, C++17.
//
// Example:
//   quarnfc::ext::HttpCallOptions options;
//   options.deadline = std::chrono::seconds(20);
//   options.headers.emplace_back("Accept", "application/json");
//   const auto response = quarnfc::ext::HttpGet("https://maps.example/index.json", options);
//   if (response.Succeeded()) {
//     std::printf("%s\n", response.body.c_str());
//   } else {
//     std::printf("%s\n", response.Message().c_str());
//   }
#ifndef QUARNFC_EXT_HTTP_CALL_H_
#define QUARNFC_EXT_HTTP_CALL_H_

#include <quarnfc/ext/http_response.h>
#include <quarnfc/ext/http_transfer.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <string_view>

namespace quarnfc::ext {

// Sends a request with any verb. content is the body, empty for none. sink takes the body of a
// response whose status is one of success, piece by piece, and returns false to end the call; every
// other body, and without a sink each, is kept in the response.
inline HttpResponse HttpSend(const std::string& verb, const std::string& url,
                             std::string_view content = {}, const HttpCallOptions& options = {},
                             const HttpSink& sink = {}) {
  return detail::HttpTransfer(options).Run(verb, url, content, sink);
}

// Fetches a resource.
inline HttpResponse HttpGet(const std::string& url, const HttpCallOptions& options = {}) {
  return HttpSend("GET", url, {}, options);
}

// Sends content with POST. type is its media type, such as "application/json"; a header
// Content-Type among the options holds instead.
inline HttpResponse HttpPost(const std::string& url, std::string_view content,
                             const std::string& type, const HttpCallOptions& options = {}) {
  return HttpSend("POST", url, content, detail::WithContentType(options, type));
}

// The same with PUT.
inline HttpResponse HttpPut(const std::string& url, std::string_view content,
                            const std::string& type, const HttpCallOptions& options = {}) {
  return HttpSend("PUT", url, content, detail::WithContentType(options, type));
}

namespace detail {

// A file that takes its name when it is whole. Until then it is called path and ".part"; it is
// removed when it does not become whole.
class PartFile {
 public:
  explicit PartFile(const std::string& path) : path_(path), part_(path + ".part") {}
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;
  ~PartFile() {
    if (!file_.is_open()) return;
    file_.close();
    std::remove(part_.c_str());
  }

  bool Write(std::string_view piece) {
    if (!file_.is_open()) file_.open(part_, std::ios::binary | std::ios::trunc);
    file_.write(piece.data(), static_cast<std::streamsize>(piece.size()));
    return file_.good();
  }

  bool Commit() {
    if (!Write({})) return false;
    file_.close();
    // Where renaming does not replace, the old file makes room first.
    const bool renamed =
        file_.good() &&
        (std::rename(part_.c_str(), path_.c_str()) == 0 ||
         (std::remove(path_.c_str()) == 0 && std::rename(part_.c_str(), path_.c_str()) == 0));
    if (!renamed) std::remove(part_.c_str());
    return renamed;
  }

 private:
  std::string path_;
  std::string part_;
  std::ofstream file_;
};

}  // namespace detail

// Fetches a resource into the file at path (ANSI code page, as for the C library), which is there
// whole or as it was before: meanwhile the bytes are in path + ".part". The response's body is
// empty unless the status is no success; that one is kept, and no file is written. One download at
// a time to a path.
inline HttpResponse HttpDownload(const std::string& url, const std::string& path,
                                 const HttpCallOptions& options = {}) {
  detail::PartFile file(path);
  HttpResponse response = HttpSend("GET", url, {}, options,
                                   [&file](std::string_view piece) { return file.Write(piece); });
  if (response.Succeeded() && !file.Commit()) {
    response.failure = HttpFailure::kTarget;
    response.code = detail::kWriteFault;
  }
  return response;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_HTTP_CALL_H_
