// SPDX-License-Identifier: MIT
// The commands of qn. A family of commands lives in one file, <family>_command.cpp, which defines
// one Command; commands.cpp lists the families.
//
//   namespace {
//   int RunCheck(std::span<const std::string> arguments) {
//     const Options options(arguments, {{"quiet", 'q'}});
//     options.ExpectPositional(1, 1);
//     ...
//     return kSuccess;
//   }
//   constexpr Command kCommands[] = {{"check", "Check a file", kCheckUsage, RunCheck}};
//   }  // namespace
//   const Command kJsonCommand = {"json", "JSON files", kJsonUsage, nullptr, kCommands};
#ifndef QN_COMMAND_H_
#define QN_COMMAND_H_

#include <span>
#include <string>
#include <string_view>

namespace qn {

struct Command {
  std::string_view name;

  // One line for the list of commands.
  std::string_view summary;

  // What --help prints: a line "usage: qn ...", then options, exit codes where they say more than
  // exit_code.h, examples. Ends with a line end. The subcommands of a group are listed after it.
  std::string_view usage;

  // Carries the command out with the arguments that follow its name and returns an ExitCode. May
  // throw Failure or UsageError (errors.h). Null in a group.
  int (*run)(std::span<const std::string> arguments) = nullptr;

  // The commands of a group: `qn NAME SUBCOMMAND ...`.
  std::span<const Command> subcommands = {};
};

// The families that this build of qn has.
std::span<const Command> Commands();

// Finds the command that the arguments name and runs it. Prints help, and every error, for it.
int Dispatch(std::span<const Command> commands, std::span<const std::string> arguments);

}  // namespace qn

#endif  // QN_COMMAND_H_
