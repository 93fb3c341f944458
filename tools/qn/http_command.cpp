// SPDX-License-Identifier: MIT
// qn http: requests to web servers.
#include <quarnfc/url.h>

#include <chrono>
#include <limits>
#include <thread>

#include "qn/command.h"
#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/http_client.h"
#include "qn/http_cookie_jar.h"
#include "qn/http_error.h"
#include "qn/input_file.h"
#include "qn/options.h"
#include "qn/os.h"
#include "qn/output.h"

namespace qn {
namespace {

constexpr OptionSpec kOutput = {"output", 'o', Takes::kValue};
constexpr OptionSpec kRemoteName = {"remote-name", 'O'};
constexpr OptionSpec kContinue = {"continue", 'C'};
constexpr OptionSpec kInclude = {"include", 'i'};
constexpr OptionSpec kVerbose = {"verbose", 'v'};
constexpr OptionSpec kHeader = {"header", 'H', Takes::kValues};
constexpr OptionSpec kUser = {"user", 'u', Takes::kValue};
constexpr OptionSpec kProxy = {"proxy", 'x', Takes::kValue};
constexpr OptionSpec kTimeout = {"timeout", 't', Takes::kValue};
constexpr OptionSpec kInsecure = {"insecure", 'k'};
constexpr OptionSpec kMaxRedirects = {"max-redirects", '\0', Takes::kValue};
constexpr OptionSpec kRetry = {"retry", '\0', Takes::kValue};
constexpr OptionSpec kErrorBody = {"error-body"};
constexpr OptionSpec kRequest = {"request", 'X', Takes::kValue};
constexpr OptionSpec kLocation = {"location", 'L'};
constexpr OptionSpec kCompressed = {"compressed"};
constexpr OptionSpec kCookie = {"cookie", 'b', Takes::kValue};
constexpr OptionSpec kCookieJar = {"cookie-jar", 'c', Takes::kValue};
constexpr OptionSpec kData = {"data", 'd', Takes::kValue};

constexpr const char* kFormData = "application/x-www-form-urlencoded";
constexpr const char* kAnyData = "application/octet-stream";

HttpRequest RequestFrom(const std::string& verb, const Options& options) {
  HttpRequest request;
  request.verb = options.Value("request", verb);
  request.url = options.Positional()[0];
  for (const std::string& header : options.Values("header")) {
    request.headers.push_back(LibraryText(header));
  }
  request.user = LibraryText(options.Value("user"));
  request.proxy = options.Value("proxy");
  request.timeout_seconds = static_cast<DWORD>(options.Number("timeout", 0, 1, 1'000'000));
  request.redirects = options.Number("max-redirects", 20, 0, 1000);
  request.insecure = options.Has("insecure");
  request.verbose = options.Has("verbose");
  request.compressed = options.Has("compressed");
  return request;
}

// The cookies of --cookie, which go on to --cookie-jar whatever becomes of the request.
class CookieFiles {
 public:
  CookieFiles(const Options& options, HttpRequest& request) : target_(options.Value("cookie-jar")) {
    const std::string source = options.Value("cookie");
    // As in curl: a file, or the cookies themselves.
    if (source.find('=') != std::string::npos) {
      request.headers.push_back("Cookie: " + LibraryText(source));
    } else if (!source.empty()) {
      jar_.Load(source);
    }
    if (options.Has("cookie") || options.Has("cookie-jar")) request.cookies = &jar_;
  }

  template <class Action>
  int Keep(Action action) {
    try {
      const int code = action();
      Save();
      return code;
    } catch (const Failure&) {
      Save();
      throw;
    }
  }

 private:
  void Save() const {
    if (!target_.empty()) jar_.Save(target_);
  }

  std::string target_;
  HttpCookieJar jar_;
};

// The file that is written; "-" is standard output.
std::string TargetFrom(const HttpRequest& request, const Options& options) {
  if (!options.Has("remote-name")) return options.Value("output", "-");
  if (options.Has("output")) throw UsageError("give either --output or --remote-name");
  const std::string name = RemoteName(ParseUrl(request.url));
  if (name.empty()) throw Failure("the URL names no file: give one with --output");
  return name;
}

// Copies what an earlier attempt left of the file to the start of the new one.
void CopyStart(const std::string& path, Output& output) { output.Write(ReadInput(path)); }

int Receive(const HttpRequest& request, const Options& options, const std::string& target) {
  HttpExchange exchange(request);
  if (request.resume_from != 0 && exchange.Status() == 416) return kSuccess;  // nothing is missing
  const bool failed = exchange.Status() >= 400;
  if (failed && !options.Has("error-body")) {
    throw Failure(request.url + ": " + exchange.StatusLine());
  }
  Output output(target);
  // A server that does not resume sends everything again.
  if (request.resume_from != 0 && exchange.Status() == 206) CopyStart(target, output);
  if (options.Has("include")) output.Write(exchange.Head());
  exchange.ReceiveBody([&output](std::string_view piece) { output.Write(piece); });
  output.Commit();
  return failed ? kFailure : kSuccess;
}

// Sends the request and writes the body of the response, unless the server says no. Attempts that
// may succeed later are repeated when asked for, after 1, 2, 4 ... seconds.
int TransferWithRetries(HttpRequest request, const Options& options) {
  const std::string target = TargetFrom(request, options);
  if (options.Has("continue")) {
    if (options.Has("compressed")) throw UsageError("give either --continue or --compressed");
    if (target == "-") throw UsageError("--continue needs a file: --output or --remote-name");
    request.resume_from = os::FileSize(target);
  }
  const long long retries = options.Number("retry", 0, 0, 20);
  for (long long attempt = 0;; ++attempt) {
    try {
      return Receive(request, options, target);
    } catch (const HttpFailure& failure) {
      if (attempt == retries || !IsTransient(failure.Code())) throw;
      PrintError(std::string(failure.what()) + "; trying again");
      std::this_thread::sleep_for(std::chrono::seconds(1LL << attempt));
    }
  }
}

int Transfer(HttpRequest request, const Options& options) {
  CookieFiles cookies(options, request);
  return cookies.Keep([&] { return TransferWithRetries(request, options); });
}

// "-C -" is how curl spells --continue.
std::vector<std::string> WithoutDash(std::span<const std::string> arguments) {
  std::vector<std::string> kept;
  for (const std::string& argument : arguments) {
    const bool behind = !kept.empty() && (kept.back() == "-C" || kept.back() == "--continue");
    if (argument != "-" || !behind) kept.push_back(argument);
  }
  return kept;
}

int RunGet(std::span<const std::string> arguments) {
  const std::vector<std::string> own = WithoutDash(arguments);
  const Options options(own, {kOutput, kRemoteName, kContinue, kInclude, kVerbose, kHeader, kUser,
                              kProxy, kTimeout, kInsecure, kMaxRedirects, kRetry, kErrorBody,
                              kRequest, kLocation, kCompressed, kCookie, kCookieJar});
  options.ExpectPositional(1, 1);
  return Transfer(RequestFrom("GET", options), options);
}

int RunHead(std::span<const std::string> arguments) {
  const Options options(arguments, {kVerbose, kHeader, kUser, kProxy, kTimeout, kInsecure,
                                    kMaxRedirects, kLocation, kCompressed, kCookie, kCookieJar});
  options.ExpectPositional(1, 1);
  HttpRequest request = RequestFrom("HEAD", options);
  CookieFiles cookies(options, request);
  return cookies.Keep([&request] {
    const HttpExchange exchange(request);
    Print(exchange.Head());
    return exchange.Status() >= 400 ? kFailure : kSuccess;
  });
}

void AddContentType(HttpRequest& request, const char* type) {
  for (const std::string& header : request.headers) {
    if (header.rfind("Content-Type:", 0) == 0 || header.rfind("content-type:", 0) == 0) return;
  }
  request.headers.push_back(std::string("Content-Type: ") + type);
}

void TakeBody(HttpRequest& request, const Options& options) {
  const bool has_file = options.Positional().size() == 2;
  if (has_file == options.Has("data")) throw UsageError("give either a FILE or --data");
  request.has_body = true;
  AddContentType(request, has_file ? kAnyData : kFormData);
  if (!has_file) {
    request.body = options.Value("data");
    return;
  }
  const std::string& path = options.Positional()[1];
  // The length of standard input and of pipes shows at their end only.
  if (path != "-" && os::FileSize(path) != 0) {
    request.body_file = path;
  } else {
    request.body = ReadInput(path);
  }
  if (request.body.size() > std::numeric_limits<unsigned int>::max()) {
    throw Failure("more than 4 GiB cannot be sent");
  }
}

int SendBody(const char* verb, std::span<const std::string> arguments) {
  const Options options(arguments, {kOutput, kInclude, kVerbose, kHeader, kUser, kProxy, kTimeout,
                                    kInsecure, kMaxRedirects, kRetry, kErrorBody, kRequest, kData,
                                    kLocation, kCompressed, kCookie, kCookieJar});
  options.ExpectPositional(1, 2);
  HttpRequest request = RequestFrom(verb, options);
  TakeBody(request, options);
  return Transfer(request, options);
}

int RunPost(std::span<const std::string> arguments) { return SendBody("POST", arguments); }

int RunPut(std::span<const std::string> arguments) { return SendBody("PUT", arguments); }

std::string_view ServiceName(DWORD service) {
  switch (service) {
    case eServiceFtp:
      return "ftp";
    case eServiceGopher:
      return "gopher";
    case eServiceHttp:
      return "http";
    case eServiceHttps:
      return "https";
    case eServiceFile:
      return "file";
    case eServiceMailto:
      return "mailto";
    case eServiceNews:
      return "news";
    default:
      return "unknown";
  }
}

void PrintPart(std::string_view name, const std::string& value) {
  if (!value.empty()) PrintLine(std::string(name) + value);
}

int RunParse(std::span<const std::string> arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 1);
  const HttpUrl url = ParseUrl(options.Positional()[0]);
  PrintLine("service   " + std::string(ServiceName(url.service)));
  PrintPart("server    ", url.server);
  PrintLine("port      " + std::to_string(url.port));
  PrintPart("object    ", url.object);
  PrintPart("user      ", url.user);
  PrintPart("password  ", url.password);
  return kSuccess;
}

constexpr Command kHttpCommands[] = {
    {"get", "Fetch a resource",
     "usage: qn http get [OPTION...] URL\n"
     "\n"
     "Fetches URL over HTTP or HTTPS and follows redirects. An error status of the server, or a\n"
     "body that breaks off, is a failure, and no file is written then. On a terminal a bar shows\n"
     "how far it is. User and password may stand in the URL, decoded there; they and the headers\n"
     "Authorization and Cookie are sent to the server of URL only.\n"
     "\n"
     "  -o, --output FILE       write the body to FILE instead of standard output\n"
     "  -O, --remote-name       write it to a file named like the last part of URL\n"
     "  -C, --continue          fetch only what is missing of that file; \"-C -\" is the same\n"
     "  -i, --include           write the head of the response in front of the body\n"
     "  -v, --verbose           show both heads on standard error\n"
     "  -X, --request VERB      send VERB instead\n"
     "  -H, --header HEADER     send \"Name: value\"; may be given again, also with the same name\n"
     "  -u, --user USER:PASSWORD\n"
     "                          send these credentials (Basic)\n"
     "  -x, --proxy HOST:PORT   go through this proxy instead of the system's\n"
     "  -L, --location          follow redirects, which is done anyway\n"
     "      --max-redirects N   follow N redirects at most (20); 0 follows none\n"
     "      --compressed        ask for gzip or deflate, and unpack the body\n"
     "  -b, --cookie FILE       send the cookies of FILE (Netscape's format), or \"NAME=VALUE\"\n"
     "  -c, --cookie-jar FILE   write those cookies, and what servers set, to FILE\n"
     "      --retry N           try again up to N times when the connection fails\n"
     "      --error-body        write the body of an error status, too (the exit code stays 1)\n"
     "  -t, --timeout SECONDS   wait so long for the connection and for data\n"
     "  -k, --insecure          accept any certificate\n",
     RunGet},
    {"head", "Show the head of a response",
     "usage: qn http head [OPTION...] URL\n"
     "\n"
     "Prints status and headers. The exit code is 1 for an error status.\n"
     "\n"
     "  -v, -H HEADER, -u USER:PASSWORD, -x HOST:PORT, -L, --max-redirects N, --compressed,\n"
     "  -b FILE, -c FILE, -t SECONDS, -k\n"
     "                          as for get\n",
     RunHead},
    {"post", "Send a body with POST",
     "usage: qn http post [OPTION...] URL FILE\n"
     "       qn http post [OPTION...] --data TEXT URL\n"
     "\n"
     "Sends FILE (\"-\": standard input), or TEXT, and writes the body of the response. A file is\n"
     "sent piece by piece. The content type is application/x-www-form-urlencoded for TEXT and\n"
     "application/octet-stream for FILE unless a header says otherwise.\n"
     "\n"
     "  -d, --data TEXT         the body to send\n"
     "  -o, -i, -v, -X, -H, -u, -x, -L, --max-redirects, --compressed, -b, -c, --retry,\n"
     "  --error-body, -t, -k\n"
     "                          as for get\n",
     RunPost},
    {"put", "Send a body with PUT",
     "usage: qn http put [OPTION...] URL FILE\n"
     "       qn http put [OPTION...] --data TEXT URL\n"
     "\n"
     "As post, with PUT.\n",
     RunPut},
    {"parse", "Split a URL into its parts",
     "usage: qn http parse URL\n"
     "\n"
     "Prints service, server, port, object, user and password, those that URL has, as get uses\n"
     "them.\n",
     RunParse}};

}  // namespace

extern const Command kHttpCommand;
const Command kHttpCommand = {"http", "Requests to web servers",
                              "usage: qn http get|head|post|put|parse [OPTION...] URL\n", nullptr,
                              kHttpCommands};

}  // namespace qn
