// qn http: requests to web servers, on Windows.
#include <quarnfc/url.h>

#include <limits>

#include "command.h"
#include "console.h"
#include "errors.h"
#include "exit_code.h"
#include "http_client.h"
#include "input_file.h"
#include "options.h"
#include "output.h"

namespace qn {
namespace {

constexpr OptionSpec kOutput = {"output", 'o', Takes::kValue};
constexpr OptionSpec kHeader = {"header", 'H', Takes::kValues};
constexpr OptionSpec kTimeout = {"timeout", 't', Takes::kValue};
constexpr OptionSpec kInsecure = {"insecure", 'k'};
constexpr OptionSpec kData = {"data", 'd', Takes::kValue};

HttpRequest RequestFrom(const char* verb, const Options& options) {
  HttpRequest request;
  request.verb = verb;
  request.url = LibraryText(options.Positional()[0]);
  for (const std::string& header : options.Values("header")) {
    request.headers.push_back(LibraryText(header));
  }
  request.timeout_seconds = static_cast<unsigned long>(options.Number("timeout", 0, 1, 1'000'000));
  request.insecure = options.Has("insecure");
  return request;
}

// Sends the request and writes the body of the response, unless the server says no.
int Transfer(const HttpRequest& request, const Options& options) {
  HttpExchange exchange(request);
  if (exchange.Status() >= 400) throw Failure(request.url + ": " + exchange.StatusLine());
  Output output(options.Value("output", "-"));
  exchange.ReceiveBody([&output](std::string_view piece) { output.Write(piece); });
  output.Commit();
  return kSuccess;
}

int RunGet(std::span<const std::string> arguments) {
  const Options options(arguments, {kOutput, kHeader, kTimeout, kInsecure});
  options.ExpectPositional(1, 1);
  return Transfer(RequestFrom("GET", options), options);
}

int RunHead(std::span<const std::string> arguments) {
  const Options options(arguments, {kHeader, kTimeout, kInsecure});
  options.ExpectPositional(1, 1);
  const HttpRequest request = RequestFrom("HEAD", options);
  const HttpExchange exchange(request);
  Print(exchange.Head());
  return exchange.Status() >= 400 ? kFailure : kSuccess;
}

std::string BodyFrom(const Options& options) {
  const bool has_file = options.Positional().size() == 2;
  if (has_file == options.Has("data")) throw UsageError("give either a FILE or --data");
  std::string body = has_file ? ReadInput(options.Positional()[1]) : options.Value("data");
  if (body.size() > std::numeric_limits<unsigned int>::max()) {
    throw Failure("more than 4 GiB cannot be sent");
  }
  return body;
}

int SendBody(const char* verb, std::span<const std::string> arguments) {
  const Options options(arguments, {kOutput, kHeader, kTimeout, kInsecure, kData});
  options.ExpectPositional(1, 2);
  HttpRequest request = RequestFrom(verb, options);
  request.body = BodyFrom(options);
  return Transfer(request, options);
}

int RunPost(std::span<const std::string> arguments) { return SendBody("POST", arguments); }

int RunPut(std::span<const std::string> arguments) { return SendBody("PUT", arguments); }

std::string_view ServiceName(unsigned long service) {
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

void PrintPart(std::string_view name, const CQNString& value) {
  if (!value.IsEmpty()) PrintLine(std::string(name) + static_cast<const char*>(value));
}

int RunParse(std::span<const std::string> arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 1);
  const UrlParts url = ParseUrl(LibraryText(options.Positional()[0]));
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
     "Fetches URL over HTTP or HTTPS. An error status of the server, or a body that breaks off, "
     "is\n"
     "a failure, and no file is written then. On a terminal a bar shows how far it is.\n"
     "\n"
     "  -o, --output FILE     write the body to FILE instead of standard output\n"
     "  -H, --header HEADER   send \"Name: value\"; may be given again\n"
     "  -t, --timeout SECONDS wait so long for the connection and for data\n"
     "  -k, --insecure        accept any certificate\n",
     RunGet},
    {"head", "Show the head of a response",
     "usage: qn http head [OPTION...] URL\n"
     "\n"
     "Prints status and headers. The exit code is 1 for an error status.\n"
     "\n"
     "  -H, --header HEADER, -t, --timeout SECONDS, -k, --insecure   as for get\n",
     RunHead},
    {"post", "Send a body with POST",
     "usage: qn http post [OPTION...] URL FILE\n"
     "       qn http post [OPTION...] --data TEXT URL\n"
     "\n"
     "Sends FILE (\"-\": standard input), or TEXT, and writes the body of the response.\n"
     "\n"
     "  -d, --data TEXT       the body to send\n"
     "  -o, --output FILE, -H, --header HEADER, -t, --timeout SECONDS, -k, --insecure\n"
     "                        as for get\n",
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
     "Prints service, server, port, object, user and password, those that URL has.\n",
     RunParse}};

}  // namespace

extern const Command kHttpCommand;
const Command kHttpCommand = {"http", "Requests to web servers",
                              "usage: qn http get|head|post|put|parse [OPTION...] URL\n", nullptr,
                              kHttpCommands};

}  // namespace qn
