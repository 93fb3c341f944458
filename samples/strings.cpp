// SPDX-License-Identifier: MIT
// Strings: formatting, sharing, editing by characters, conversion, splitting.
#include <quarnfc/quarnfc.h>

#include <cstdio>
#include <vector>

int main() {
  CQNString path;
  path.Format("%s\\sheet %03d.map", "D:\\maps", 7);
  const CQNString before = path;  // shares the characters
  path.Replace("maps", "archive");
  path.MakeUpper();
  std::printf("%s, was %s\n", static_cast<const char*>(path), static_cast<const char*>(before));

  // Two Chinese characters in code page 936. The second byte of one is a backslash, which is no
  // character of its own.
  const CQNString chinese("\x95\x5C\x8E\xA7");
  const int separator = chinese.Find('\\');
  wchar_t wide[3 + 1];  // one element more than the capacity
  const int count = QNStringUtils::Ansi2Unicode(chinese, wide, 3);
  std::printf("%d bytes, %d characters, separator at %d\n", chinese.GetLength(), count - 1,
              separator);

  std::vector<char*> pieces;
  QNStringUtils::SplitStr("roads; rivers ;;names", ';', pieces);
  QNStringUtils::AdjustStrArr(pieces, true, true);
  const std::size_t kept = pieces.size();
  for (const char* piece : pieces) std::printf("[%s] ", piece);
  std::printf("\n");
  QNStringUtils::FreeStrArr(pieces);

  char* const joined = qnUnionPath("D:\\maps\\2024", "../styles/roads.json");
  std::printf("%s\n", joined);
  qnFreeMem(joined);
  return kept == 3 && path == "D:\\ARCHIVE\\SHEET 007.MAP" ? 0 : 1;
}
