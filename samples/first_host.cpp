// SPDX-License-Identifier: MIT
#include <quarnfc/quarnfc.h>

#include <cstdio>

int main(int argc, char** argv) {
  unsigned __int64 error = 0;
  CMyJsonObj settings;
  if (argc == 2 && QNJsonUtils::ReadJsonFile(argv[1], settings, &error)) {
    CQNString host;
    int port = 80;
    settings.ValueEx("server\\host", host, true);
    settings.ValueEx("server\\port", port, true);
    std::printf("%s, port %d\n", static_cast<const char*>(host), port);
    return 0;
  }
  char* message = qnGetErrorA(error, nullptr);
  std::printf("%s\n", message == nullptr ? "Name a settings file." : message);
  qnFreeMem(message);
  qnCloseHandle(error);
  return 1;
}
