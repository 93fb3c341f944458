// SPDX-License-Identifier: MIT
// What people see. Text is UTF-8 inside qn, arguments and paths included; library text is 8-bit, in
// the process ANSI code page, and stands only where the library is called. A Windows console
// receives wide text, redirected output on Windows text in the code page, everything else UTF-8.
#ifndef QN_CONSOLE_H_
#define QN_CONSOLE_H_

#include <string>
#include <string_view>

namespace qn {

// To be called once, first: puts the standard streams into binary mode.
void PrepareConsole();

// Text to standard output; PrintLine adds a line end. Throws Failure when redirected output cannot
// carry a character of it. What is no UTF-8 is taken for library text.
void Print(std::string_view text);
void PrintLine(std::string_view text);

// Bytes to standard output, unconverted: documents in an encoding of their own.
void PrintBytes(std::string_view bytes);

// A line "qn: message" to standard error. Characters that it cannot carry become "?".
void PrintError(std::string_view message);

// The same for what is worth knowing and no failure: "qn: note: message".
void PrintNote(std::string_view message);

// Writes out what is buffered. False when standard output has taken an error at any time.
bool FlushOutput();

// A command-line argument as library text. Throws UsageError when it holds a character that the
// code page lacks. The library's functions take paths in this form, too.
std::string LibraryText(std::string_view argument);

// Text of the library's as UTF-8; what is no text in the code page becomes "?".
std::string FromLibrary(std::string_view text);

// A command-line argument, or any other bytes, for messages: what is no UTF-8 becomes "?".
std::string DisplayText(std::string_view argument);

// A path as the library's functions take it. Throws Failure when the code page lacks a character.
std::string PathForLibrary(const std::string& path);

// A message of the library's, which quotes the path as it was given.
std::string FileMessage(const std::string& message, const std::string& path);

// How far a long operation is, on one line of standard error that vanishes at the end. Shows
// nothing unless standard error is a terminal.
class Progress {
 public:
  explicit Progress(std::string label);
  ~Progress();

  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Without a known total (0) the amount itself is shown. The line is redrawn only when it changes.
  void Update(unsigned long long done, unsigned long long total);

  // Shows a state in the command's own words.
  void Show(std::string_view state);

 private:
  void Draw(std::string line);

  std::string label_;
  std::string shown_;
  bool visible_;
};

}  // namespace qn

#endif  // QN_CONSOLE_H_
