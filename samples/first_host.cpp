#include <quarnfc/quarnfc.h>

#include <cstdio>

int main() {
  CQNString text;
  text.Format("%d sheets at 1:%d", 12, 50000);
  char* path = qnUnionPath("D:\\maps\\north", "..\\index.json");
  std::printf("%s, listed in %s\n", static_cast<const char*>(text), path);
  qnFreeMem(path);
}
