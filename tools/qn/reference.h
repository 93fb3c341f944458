// SPDX-License-Identifier: MIT
// What is written about the commands for other programs, all of it from their help.
#ifndef QN_REFERENCE_H_
#define QN_REFERENCE_H_

#include <span>
#include <string>
#include <string_view>

#include "qn/command.h"

namespace qn {

// A manual page in the language of man(7): usage of qn itself, then of every command.
std::string ManualPage(std::span<const Command> commands, std::string_view usage);

// A script that completes commands, subcommands and their options when bash reads it; what is no
// option of a command is completed as a file.
std::string BashCompletion(std::span<const Command> commands);

// The options that a usage text names, "--name", each once and in its order.
std::string OptionsIn(std::string_view usage);

}  // namespace qn

#endif  // QN_REFERENCE_H_
