// SPDX-License-Identifier: MIT
// What must not compile: each CASE is one such call, and CASE 0 is none of them.
#include <quarnfc/quarnfc.h>

#include <string>

struct Host {
  int field;
};

inline void Use(CMyJsonObj& object, CMyJsonValue& value, CQNString& text) {
  const CMyJsonObj& constant = object;
  [[maybe_unused]] int number = 0;
  [[maybe_unused]] void* untyped = &number;
  [[maybe_unused]] CMyJsonValue* values[] = {&value};
  (void)constant;
  (void)text;
#if CASE == 1  // deleted: a wide text
  object.AddItem("key", L"text");
#elif CASE == 2   // deleted: an object that cannot be taken over
  object.AddItem("key", &constant);
#elif CASE == 3   // deleted: a pointer to anything
  object.AddItem("key", untyped);
#elif CASE == 4   // deleted: an array without its count
  object.SetItem("key", values, true, false);
#elif CASE == 5   // deleted: bytes
  object.SetItem("key", reinterpret_cast<const unsigned char*>("text"), true, false);
#elif CASE == 6   // deleted: a pointer to a number
  value.AddToArr(&number, -1);
#elif CASE == 7   // deleted: a function
  value.AddToArr(&Use, -1);
#elif CASE == 8   // deleted: a pointer to a member
  object.AddItem("key", &Host::field);
#elif CASE == 9   // deleted: a value in a value
  CMyJsonValue other(&value);
#elif CASE == 10  // deleted: a wide text
  CMyJsonValue other(L"text");
#elif CASE == 11  // deleted: a string instead of its text
  text.Format("%s", text);
#elif CASE == 12  // deleted: a standard string
  text.Format("%s", std::string("text"));
#elif CASE == 13  // -Werror: a text for a number
  text.Format("%d", "text");
#elif CASE == 14  // -Werror: an argument too few
  text.Format("%s %s", "text");
#elif CASE == 15  // shares its record: a copy by constructor
  CMyJsonObj copy = object;
#elif CASE == 16  // shares its record: a copy by assignment
  value = *values[0];
#elif CASE == 17  // no match|no matching|ambiguous|cannot convert|no viable: a pointer's address as
                  // a number
  bool flag = object.ValueEx("key", untyped, true);
#elif CASE == 18  // could not convert|conversion|no viable: a view that becomes a string unseen
  text = [](CQNString taken) { return taken; }(std::string("text"));
#endif
}
