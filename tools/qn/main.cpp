// qn: a command-line host of QuarnFC.

#include <string>
#include <vector>

#include "command.h"
#include "console.h"
#include "exit_code.h"

int main(int argc, char** argv) {
  qn::PrepareConsole();
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
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
