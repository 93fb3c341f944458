#include "console.h"

#include <cstdio>
#include <optional>
#include <utility>

#include "errors.h"
#include "os.h"

namespace qn {

void PrepareConsole() { os::PrepareStreams(); }

void Print(std::string_view text) { os::WriteText(stdout, text); }

void PrintLine(std::string_view text) { Print(std::string(text) + "\n"); }

void PrintBytes(std::string_view bytes) { std::fwrite(bytes.data(), 1, bytes.size(), stdout); }

void PrintError(std::string_view message) {
  std::fflush(stdout);
  os::WriteText(stderr, "qn: " + std::string(message) + "\n");
}

bool FlushOutput() { return std::fflush(stdout) == 0 && std::ferror(stdout) == 0; }

std::string LibraryText(std::string_view argument) {
  std::optional<std::string> text = os::AnsiFromArgument(argument, false);
  if (!text) {
    throw UsageError("'" + DisplayText(argument) + "' holds characters that the code page lacks");
  }
  return *std::move(text);
}

std::string DisplayText(std::string_view argument) {
  return os::AnsiFromArgument(argument, true).value_or("?");
}

std::string FileMessage(std::string_view message, std::string_view path) {
  std::string text(message);
  const std::size_t quoted = text.find(path);
  if (quoted != std::string::npos) text.replace(quoted, path.size(), DisplayText(path));
  return text;
}

Progress::Progress(std::string label)
    : label_(std::move(label)), visible_(os::IsTerminal(stderr)) {}

Progress::~Progress() {
  if (!shown_.empty()) Draw("");
}

void Progress::Update(unsigned long long done, unsigned long long total) {
  if (!visible_) return;
  const std::string amount =
      total == 0 ? std::to_string(done)
                 : std::to_string(static_cast<int>(100.0 * static_cast<double>(done) /
                                                   static_cast<double>(total))) +
                       " %";
  Show(amount);
}

void Progress::Show(std::string_view state) {
  if (visible_) Draw(label_ + ": " + std::string(state));
}

void Progress::Draw(std::string line) {
  if (line == shown_) return;
  const std::size_t blanks = shown_.size() > line.size() ? shown_.size() - line.size() : 0;
  std::string drawn = "\r" + line;
  drawn.append(blanks, ' ').append(blanks, '\b');
  if (line.empty()) drawn += '\r';
  os::WriteText(stderr, drawn);
  std::fflush(stderr);
  shown_ = std::move(line);
}

}  // namespace qn
