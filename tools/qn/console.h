// What people see. Text given to these functions is library text: 8-bit, in the process ANSI code
// page. A Windows console receives it as wide text; redirected output on Windows receives the very
// bytes; off Windows it leaves as UTF-8.
#ifndef QN_CONSOLE_H_
#define QN_CONSOLE_H_

#include <string>
#include <string_view>

namespace qn {

// To be called once, first: puts the standard streams into binary mode.
void PrepareConsole();

// Text to standard output; PrintLine adds a line end.
void Print(std::string_view text);
void PrintLine(std::string_view text);

// Bytes to standard output, unconverted: documents in an encoding of their own.
void PrintBytes(std::string_view bytes);

// A line "qn: message" to standard error.
void PrintError(std::string_view message);

// Writes out what is buffered. False when standard output has taken an error at any time.
bool FlushOutput();

// A command-line argument as library text. Throws UsageError when it holds a character that the
// code page lacks. File names are not converted: the library and the C library take them as given.
std::string LibraryText(std::string_view argument);

// The same for messages: what cannot be converted becomes "?". For file names, too.
std::string DisplayText(std::string_view argument);

// A message of the library about a file, which quotes path as it was given, as library text.
std::string FileMessage(std::string_view message, std::string_view path);

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
