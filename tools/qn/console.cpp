// SPDX-License-Identifier: MIT
#include "qn/console.h"

#include <quarnfc/ext/text_conversion.h>
#include <quarnfc/ext/utf8_text.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

#include "qn/errors.h"
#include "qn/os.h"

namespace qn {

namespace {

std::string ShownText(std::string_view text) {
  return quarnfc::ext::IsUtf8(text) ? std::string(text) : FromLibrary(text);
}

}  // namespace

void PrepareConsole() { os::PrepareStreams(); }

void Print(std::string_view text) {
  if (!os::WriteText(stdout, ShownText(text), false)) {
    throw Failure(
        "the output holds a character that the code page lacks; -o or a console takes it");
  }
}

void PrintLine(std::string_view text) { Print(std::string(text) + "\n"); }

void PrintBytes(std::string_view bytes) { std::fwrite(bytes.data(), 1, bytes.size(), stdout); }

void PrintError(std::string_view message) {
  std::fflush(stdout);
  const bool colour = os::IsTerminal(stderr) && std::getenv("NO_COLOR") == nullptr;
  const std::string name = colour ? "\x1B[31mqn:\x1B[0m " : "qn: ";
  os::WriteText(stderr, name + ShownText(message) + "\n", true);
}

void PrintNote(std::string_view message) {
  std::fflush(stdout);
  os::WriteText(stderr, "qn: note: " + ShownText(message) + "\n", true);
}

bool FlushOutput() { return std::fflush(stdout) == 0 && std::ferror(stdout) == 0; }

std::string LibraryText(std::string_view argument) {
  std::optional<std::string> text = quarnfc::ext::StrictAnsiFromUtf8(argument);
  if (!text) {
    throw UsageError("'" + DisplayText(argument) + "' holds characters that the code page lacks");
  }
  return *std::move(text);
}

std::string FromLibrary(std::string_view text) {
  // The library reads every byte, and puts "?" where there is no character.
  return quarnfc::ext::Utf8FromAnsi(text);
}

std::string PathForLibrary(const std::string& path) {
  const std::optional<std::string> converted = os::LibraryPath(path);
  if (!converted)
    throw Failure(DisplayText(path) + ": the code page lacks a character of the name");
  return *converted;
}

std::string FileMessage(const std::string& message, const std::string& path) {
  const std::size_t quoted = message.find(path);
  if (quoted == std::string::npos) return FromLibrary(message);
  return FromLibrary(message.substr(0, quoted)) + DisplayText(path) +
         FromLibrary(message.substr(quoted + path.size()));
}

std::string DisplayText(std::string_view argument) {
  std::string shown;
  for (std::size_t i = 0; i < argument.size();) {
    const std::size_t length = quarnfc::ext::Utf8CharLength(argument, i);
    shown += length == 0 ? "?" : argument.substr(i, length);
    i += length == 0 ? 1 : length;
  }
  return shown;
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
  os::WriteText(stderr, drawn, true);
  std::fflush(stderr);
  shown_ = std::move(line);
}

}  // namespace qn
