// SPDX-License-Identifier: MIT
// What must not compile, when REFUSED is defined: each call under a line "REFUSED what the compiler
// says about it: why". Without them the file compiles.
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
#if defined(REFUSED)
  // REFUSED deleted: a wide text
  object.AddItem("key", L"text");
  // REFUSED deleted: an object that cannot be taken over
  object.AddItem("key", &constant);
  // REFUSED deleted: a pointer to anything
  object.AddItem("key", untyped);
  // REFUSED deleted: an array without its count
  object.SetItem("key", values, true, false);
  // REFUSED deleted: bytes
  object.SetItem("key", reinterpret_cast<const unsigned char*>("text"), true, false);
  // REFUSED deleted: a pointer to a number
  value.AddToArr(&number, -1);
  // REFUSED deleted: a function
  value.AddToArr(&Use, -1);
  // REFUSED deleted: a pointer to a member
  object.AddItem("key", &Host::field);
  // REFUSED deleted: a value in a value
  { CMyJsonValue other(&value); }
  // REFUSED deleted: a wide text
  { CMyJsonValue other(L"text"); }
  // REFUSED deleted: a string instead of its text
  text.Format("%s", text);
  // REFUSED deleted: a standard string
  text.Format("%s", std::string("text"));
  // REFUSED -Werror: a text for a number
  text.Format("%d", "text");
  // REFUSED -Werror: an argument too few
  text.Format("%s %s", "text");
  // REFUSED shares its record: a copy by constructor
  { CMyJsonObj copy = object; }
  // REFUSED shares its record: a copy by assignment
  value = *values[0];
  // REFUSED no match|no matching|ambiguous|cannot convert|no viable: a pointer's address as a
  // number
  { bool flag = object.ValueEx("key", untyped, true); }
  // REFUSED could not convert|no match: a view that becomes a string unseen
  text = [](CQNString taken) { return taken; }(std::string("text"));
#endif
}
