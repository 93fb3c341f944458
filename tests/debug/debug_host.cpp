// SPDX-License-Identifier: MIT
// A host with something of everything, for the debugger: it stops in Stop.
#include <quarnfc/quarnfc.h>

#include <cstdio>

#if defined(_WIN32)
__declspec(noinline)
#else
__attribute__((noinline))
#endif
    void Stop(int count) {
  std::printf("%d\n", count);
}

int main() {
  CQNString text("G-49 \xB3\xA4\xC9\xB3 \"map\"");  // two characters of code page 936
  CQNString empty;
  CMyJsonObj document;
  document.Load(
      "{\"server\":{\"host\":\"map.example\",\"ports\":[80,8080.5]},\"on\":true,\"none\":null}");
  CMyJsonValue number(42.25);
  CQNObject object;
  object.SetError(CQNObject::eErrInvalidData, "bad sheet");
  CQNCollection numbers;
  numbers.Add(7);
  CQNStringCollection sheets;
  sheets.CloneAdd("G-49");
  CQNObjectCollection objects;
  objects.Add(new CQNObject);
  CQNGeoCoordinateSystem china = CQNGeoCoordinateSystem::CGCS2000;
  CQNProCoordinateSystem zone(china, 114, 500000, 0, 1);
  Stop(numbers.Count() + sheets.Count() + objects.Count());
  return text.IsEmpty() + empty.GetLength() + (number.IsNumber() ? 0 : 1) +
         (zone.GetCentralMeridian() == 114 ? 0 : 1);
}
