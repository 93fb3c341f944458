// SPDX-License-Identifier: MIT
// The program qn, run beside the tests with its standard input held open, and interrupted as Ctrl-C
// does it.
#ifndef QUARNFC_TESTS_TOOLS_INTERRUPTIBLE_QN_H_
#define QUARNFC_TESTS_TOOLS_INTERRUPTIBLE_QN_H_

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class InterruptibleQn {
 public:
  // Starts the program that stands beside that of the tests.
  explicit InterruptibleQn(const std::vector<std::string>& arguments);
  // Ends it if it still runs.
  ~InterruptibleQn();
  InterruptibleQn(const InterruptibleQn&) = delete;
  InterruptibleQn& operator=(const InterruptibleQn&) = delete;

  // Writes to standard input, which stays open. False when the program has gone. More than a
  // megabyte does not fit into any pipe: what returns true has been read in part.
  bool Feed(std::string_view bytes);

  bool Runs() const;

  void Interrupt();

  // Waits for the end. The exit code as a shell tells it: 130 when the interrupt ended the program.
  int Wait();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

#endif  // QUARNFC_TESTS_TOOLS_INTERRUPTIBLE_QN_H_
