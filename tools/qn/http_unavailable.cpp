// SPDX-License-Identifier: MIT
// qn http where the library has no HTTP client.
#include "qn/command.h"
#include "qn/errors.h"

namespace qn {
namespace {

int RunHttp(std::span<const std::string> /*arguments*/) {
  throw Failure("this build of the library has no HTTP client");
}

}  // namespace

extern const Command kHttpCommand;
const Command kHttpCommand = {"http", "Requests to web servers (not in this build)",
                              "usage: qn http ...\n"
                              "\n"
                              "This build of the library has no HTTP client.\n",
                              RunHttp};

}  // namespace qn
