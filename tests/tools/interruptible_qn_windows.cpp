// SPDX-License-Identifier: MIT
#include <windows.h>

#include "tests/tools/interruptible_qn.h"

namespace {

struct HandleCloser {
  void operator()(void* handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, HandleCloser>;

// The handles of the three standard streams.
class StandardHandles {
 public:
  StandardHandles() {
    for (int i = 0; i < 3; ++i) handles_[i] = GetStdHandle(kStreams[i]);
  }
  void Restore() const {
    for (int i = 0; i < 3; ++i) SetStdHandle(kStreams[i], handles_[i]);
  }

 private:
  static constexpr DWORD kStreams[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};

  HANDLE handles_[3];
};

// A console of these two programs alone: an interrupt reaches everybody on a console. A console
// brings standard handles, and closes those that it finds when it goes: its own must be there then.
class OwnConsole {
 public:
  OwnConsole() : consoles_(Open()) { own_.Restore(); }
  ~OwnConsole() {
    consoles_.Restore();
    FreeConsole();
    AttachConsole(ATTACH_PARENT_PROCESS);
    own_.Restore();
  }
  OwnConsole(const OwnConsole&) = delete;
  OwnConsole& operator=(const OwnConsole&) = delete;

 private:
  static StandardHandles Open() {
    FreeConsole();
    AllocConsole();
    return StandardHandles();
  }

  const StandardHandles own_;
  const StandardHandles consoles_;
};

SECURITY_ATTRIBUTES Inheritable() { return {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE}; }

// This program is on the same console and lets the interrupt pass. It arrives on a thread of its
// own, and until then the handler stays.
HANDLE g_interrupted = nullptr;

BOOL WINAPI LetPass(DWORD /*event*/) {
  SetEvent(g_interrupted);
  return TRUE;
}

std::string CommandLine(const std::vector<std::string>& arguments) {
  char own[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, own, MAX_PATH);
  const std::string program(own);
  std::string line = "\"" + program.substr(0, program.find_last_of('\\') + 1) + "qn.exe\"";
  for (const std::string& argument : arguments) line += " \"" + argument + "\"";
  return line;
}

}  // namespace

struct InterruptibleQn::State {
  OwnConsole console;
  Handle process;
  Handle input;
};

InterruptibleQn::InterruptibleQn(const std::vector<std::string>& arguments)
    : state_(std::make_unique<State>()) {
  SECURITY_ATTRIBUTES inheritable = Inheritable();
  HANDLE read_end = nullptr;
  HANDLE write_end = nullptr;
  if (!CreatePipe(&read_end, &write_end, &inheritable, 0)) return;
  const Handle reader(read_end);
  state_->input.reset(write_end);
  SetHandleInformation(write_end, HANDLE_FLAG_INHERIT, 0);
  const Handle nowhere(CreateFileA("NUL", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                   &inheritable, OPEN_EXISTING, 0, nullptr));
  STARTUPINFOA start = {};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = reader.get();
  start.hStdOutput = nowhere.get();
  start.hStdError = nowhere.get();
  PROCESS_INFORMATION child = {};
  std::string line = CommandLine(arguments);
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                      &child)) {
    return;
  }
  CloseHandle(child.hThread);
  state_->process.reset(child.hProcess);
}

InterruptibleQn::~InterruptibleQn() {
  if (!Runs()) return;
  TerminateProcess(state_->process.get(), 1);
  Wait();
}

bool InterruptibleQn::Feed(std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    if (!WriteFile(state_->input.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                   nullptr)) {
      return false;
    }
    bytes.remove_prefix(written);
  }
  return true;
}

bool InterruptibleQn::Runs() const {
  return state_->process != nullptr &&
         WaitForSingleObject(state_->process.get(), 0) == WAIT_TIMEOUT;
}

void InterruptibleQn::Interrupt() {
  const Handle interrupted(CreateEventA(nullptr, TRUE, FALSE, nullptr));
  g_interrupted = interrupted.get();
  SetConsoleCtrlHandler(LetPass, TRUE);
  if (GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0)) WaitForSingleObject(g_interrupted, INFINITE);
  SetConsoleCtrlHandler(LetPass, FALSE);
}

int InterruptibleQn::Wait() {
  WaitForSingleObject(state_->process.get(), INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(state_->process.get(), &code);
  return static_cast<int>(code);
}
