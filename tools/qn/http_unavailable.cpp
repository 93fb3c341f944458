// qn http where the library has no HTTP client.
#include "command.h"
#include "errors.h"

namespace qn {
namespace {

int RunHttp(std::span<const std::string> /*arguments*/) {
  throw Failure("this build of the library has no HTTP client");
}

}  // namespace

extern const Command kHttpCommand;
const Command kHttpCommand = {"http", "Requests to web servers (on Windows)",
                              "usage: qn http ...\n"
                              "\n"
                              "The library has its HTTP client on Windows only.\n",
                              RunHttp};

}  // namespace qn
