// SPDX-License-Identifier: MIT
// Documents that the JSON scenarios share.
#ifndef QUARNFC_TESTS_FAILING_MEMORY_JSON_SCENARIOS_H_
#define QUARNFC_TESTS_FAILING_MEMORY_JSON_SCENARIOS_H_

#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include <memory>
#include <string>

namespace failing {

struct JsonText {
  std::string name;
  std::string text;
};

inline std::string Wide(int members) {
  std::string text = "{";
  for (int i = 0; i < members; ++i) {
    text += "\"member " + std::to_string(i) + "\":" + std::to_string(i) + ",";
  }
  return text + "\"last\":null}";
}

inline std::string Chinese(int characters) {
  std::string text;
  for (int i = 0; i < characters; ++i) text += "\xD6\xD0";
  return text;
}

// What every object document of the scenarios looks like.
inline const JsonText kObjectTexts[] = {
    {"an empty object", "{}"},
    {"one member", R"({"a":1})"},
    {"all types",
     R"({"a":{"b":{"c":[1,2,3]}},"s":"text","n":-1.5e10,"t":true,"f":false,"z":null})"},
    {"long texts", "{\"" + std::string(100, 'k') + "\":\"" + std::string(300, 'v') + "\",\"a\":\"" +
                       std::string(700, 'w') + "\"}"},
    {"an array of objects",
     R"({"a":[{"id":1,"name":"x"},{"id":2,"name":"y"},{"id":3,"name":"z"}]})"},
    {"many members", Wide(40)},
    {"many members, one of them twice", Wide(40).insert(1, "\"member 7\":77,")},
    {"Chinese", "{\"\xC3\xFB\xB3\xC6\":\"\xB3\xA4\xC9\xB3\",\"a\":[\"\xD6\xD0\"]}"},
    {"much Chinese", "{\"\xC3\xFB\xB3\xC6\":\"" + Chinese(600) + "\"}"},
    {"deep", R"({"a":{"a":{"a":{"a":{"a":{"a":{"a":[[[[[["x"]]]]]]}}}}}}})"},
};

inline const JsonText kValueTexts[] = {
    {"a number", "12.5 "},
    {"a text", R"("text \n \"quoted\"" )"},
    {"a flag", "true "},
    {"an empty array", "[]"},
    {"numbers", "[1,2,3,4,5,6,7,8,9]"},
    {"texts", R"(["a","bb","ccc"])"},
    {"arrays", "[[1],[2,3],[[4]]]"},
    {"objects", R"([{"a":1},{"b":[1,2]}])"},
    {"an object", R"({"a":{"b":"c"},"d":[true]})"},
};

inline const JsonText kBrokenTexts[] = {
    {"nothing", ""},
    {"half an object", R"({"a":[1,{"b":"c")"},
    {"half a text", R"({"a":"b)"},
    {"half an array", R"([1,2,["x")"},
    {"no colon", R"({"a" 1, "b":"a text that is long enough for a message of its own"})"},
};

}  // namespace failing

#endif  // QUARNFC_TESTS_FAILING_MEMORY_JSON_SCENARIOS_H_
