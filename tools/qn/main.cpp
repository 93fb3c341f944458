// SPDX-License-Identifier: MIT
// qn: a command-line host of QuarnFC.

#include <string>
#include <vector>

#include "qn/command.h"
#include "qn/console.h"
#include "qn/exit_code.h"
#include "qn/os.h"

int main(int argc, char** argv) {
  qn::PrepareConsole();
  const std::vector<std::string> arguments = qn::os::Arguments(argc, argv);
  int code = qn::kSuccess;
  if (arguments.size() == 1 && arguments[0] == "--version") {
    qn::PrintLine("qn " QN_VERSION);
  } else {
    code = qn::Dispatch(qn::Commands(), arguments);
  }
  if (!qn::FlushOutput() && code == qn::kSuccess) {
    qn::PrintError("the output could not be written");
    code = qn::kFailure;
  }
  return code;
}
