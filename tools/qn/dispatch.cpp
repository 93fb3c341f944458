// SPDX-License-Identifier: MIT
#include <algorithm>
#include <exception>
#include <new>
#include <vector>

#include "qn/command.h"
#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/reference.h"

namespace qn {
namespace {

constexpr std::string_view kUsage =
    "usage: qn COMMAND [SUBCOMMAND] [OPTION...] [ARGUMENT...]\n"
    "       qn help [COMMAND [SUBCOMMAND]]\n"
    "       qn help --man | --bash-completion\n"
    "       qn --version\n"
    "\n"
    "Exit codes: 0 success, 1 the operation failed or the data says no, 2 usage error.\n";

bool AsksForHelp(const std::string& argument) { return argument == "--help" || argument == "-h"; }

void PrintList(std::span<const Command> commands) {
  std::size_t width = 0;
  for (const Command& command : commands) width = std::max(width, command.name.size());
  Print(commands.empty() ? "" : "\nCommands:\n");
  for (const Command& command : commands) {
    std::string line = "  " + std::string(command.name);
    line.resize(width + 4, ' ');
    PrintLine(line + std::string(command.summary));
  }
}

int Help(std::string_view usage, std::span<const Command> commands) {
  Print(usage);
  PrintList(commands);
  return kSuccess;
}

int ReportUsageError(std::string_view path, std::string_view message) {
  PrintError(message);
  PrintError("try '" + std::string(path) + " --help'");
  return kUsageError;
}

// How many letters have to be added, removed or exchanged to make one word of the other.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j < row.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t corner = row[0];
    row[0] = i;
    for (std::size_t j = 1; j < row.size(); ++j) {
      const std::size_t above = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, corner + (a[i - 1] == b[j - 1] ? 0 : 1)});
      corner = above;
    }
  }
  return row.back();
}

// The command that was probably meant, as a question; "" when none is near.
std::string Suggestion(std::span<const Command> commands, std::string_view typed) {
  constexpr std::size_t kNear = 2;
  std::string_view nearest;
  std::size_t least = kNear + 1;
  for (const Command& command : commands) {
    const bool begun = typed.size() > 1 && command.name.starts_with(typed);
    const std::size_t distance = begun ? 0 : Distance(command.name, typed);
    if (distance >= least || distance >= command.name.size()) continue;
    nearest = command.name;
    least = distance;
  }
  return nearest.empty() ? "" : "; did you mean '" + std::string(nearest) + "'?";
}

// Whether the arguments of a command hold --help before a "--".
bool HoldHelp(std::span<const std::string> arguments) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  return std::any_of(arguments.begin(), end, AsksForHelp);
}

int RunLeaf(const Command& command, const std::string& path,
            std::span<const std::string> arguments) {
  if (HoldHelp(arguments)) return Help(command.usage, {});
  try {
    return command.run(arguments);
  } catch (const UsageError& error) {
    return ReportUsageError(path, error.what());
  } catch (const std::bad_alloc&) {
    PrintError("out of memory");
  } catch (const std::exception& error) {
    PrintError(error.what());
  }
  return kFailure;
}

int DispatchIn(std::span<const Command> commands, const std::string& path, std::string_view usage,
               std::span<const std::string> arguments) {
  if (arguments.empty()) return ReportUsageError(path, "a command is missing");
  if (AsksForHelp(arguments[0])) return Help(usage, commands);
  const auto command =
      std::find_if(commands.begin(), commands.end(),
                   [&](const Command& candidate) { return candidate.name == arguments[0]; });
  if (command == commands.end()) {
    return ReportUsageError(path, "there is no command '" + DisplayText(arguments[0]) + "'" +
                                      Suggestion(commands, arguments[0]));
  }
  const std::string inner = path + " " + arguments[0];
  if (command->run != nullptr) return RunLeaf(*command, inner, arguments.subspan(1));
  return DispatchIn(command->subcommands, inner, command->usage, arguments.subspan(1));
}

}  // namespace

int Dispatch(std::span<const Command> commands, std::span<const std::string> arguments) {
  if (arguments.empty() || arguments[0] != "help") {
    return DispatchIn(commands, "qn", kUsage, arguments);
  }
  const std::string_view form = arguments.size() == 2 ? arguments[1] : std::string_view();
  if (form == "--man") return Help(ManualPage(commands, kUsage), {});
  if (form == "--bash-completion") return Help(BashCompletion(commands), {});
  std::vector<std::string> asked(arguments.begin() + 1, arguments.end());
  asked.emplace_back("--help");
  return DispatchIn(commands, "qn", kUsage, asked);
}

}  // namespace qn
