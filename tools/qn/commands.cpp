// SPDX-License-Identifier: MIT
#include "qn/command.h"

namespace qn {

// One line for each family here, and one in the list.

extern const Command kBase32Command;
extern const Command kBase64Command;
extern const Command kCsvCommand;
extern const Command kGeoCommand;
extern const Command kHashCommand;
extern const Command kHttpCommand;
extern const Command kJsonCommand;
extern const Command kTimeCommand;

std::span<const Command> Commands() {
  static const Command kAll[] = {
      kBase32Command, kBase64Command, kCsvCommand,  kGeoCommand,
      kHashCommand,   kHttpCommand,   kJsonCommand, kTimeCommand,
  };
  return kAll;
}

}  // namespace qn
