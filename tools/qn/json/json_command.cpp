// SPDX-License-Identifier: MIT
// qn json: checks, shows and edits JSON files. Here are the commands' names and help.
#include "qn/command.h"
#include "qn/json/commands.h"

namespace qn {
namespace {

#define QN_JSON_PATH_HELP \
  "  -p, --path PATH           look there in every FILE; of several, the name goes first\n"

#define QN_JSON_ENCODING_HELP \
  "      --encoding NAME       the file's encoding, when it is not to be found out\n"

constexpr std::string_view kGroupUsage =
    "usage: qn json COMMAND [OPTION...] FILE [ARGUMENT...]\n"
    "\n"
    "Reads strict JSON (RFC 8259). A FILE is \"-\" for standard input. Its encoding is found out:\n"
    "UTF-8 or UTF-16 with or without mark, else the process code page. Encodings have the names\n"
    "utf-8, utf-8-mark, utf-16le, utf-16be and code-page. Edits keep it; characters that it lacks\n"
    "are refused without --lossy.\n"
    "\n"
    "A PATH is the keys from the outermost object on, separated by backslashes, with elements in\n"
    "brackets: server\\ports[0]. What starts with \"/\", or is empty, is a pointer (RFC 6901):\n"
    "/server/ports/0. \"[-]\", in a pointer \"-\", is the element behind the last.\n"
    "\n"
    "Exit code 1: a file is missing or broken (the message says where), or has no such value. Of\n"
    "several files the others are read and written all the same.\n";

constexpr std::string_view kCheckUsage =
    "usage: qn json check [--json] FILE...\n"
    "       qn json check --lenient [--json [--utf8]] FILE...\n"
    "\n"
    "Reads files. For a broken one the message says line, column and reason. Keys that occur "
    "twice\n"
    "in an object are noted.\n"
    "\n"
    "      --json                print a line of JSON for each file; with --lenient the error\n"
    "                            document of the library, where code 0 is no error\n"
    "      --lenient             read as the library does, which accepts more: 11 to 52,428,800\n"
    "                            bytes, in the code page or in UTF-8 with mark\n"
    "      --utf8                print the error document in UTF-8\n" QN_JSON_ENCODING_HELP;

constexpr std::string_view kDeleteUsage =
    "usage: qn json del [OPTION...] FILE PATH...\n"
    "       qn json del [OPTION...] --path PATH... FILE...\n"
    "\n"
    "Removes members and elements. All else stays as it is, byte for byte. A file that lacks one "
    "of\n"
    "them is left alone.\n"
    "\n"
    "  -p, --path PATH           remove that from every FILE; may be given again\n"
    "  -i, --ignore-case         a key that differs in case is as good when there is no equal one\n"
    "  -o, --output OUTPUT       write there and leave FILE alone; either is whole or not there\n"
    "      --to NAME             write in this encoding\n"
    "      --lossy               write \"?\" for characters that the encoding "
    "lacks\n" QN_JSON_ENCODING_HELP;

constexpr std::string_view kFormatUsage =
    "usage: qn json format [OPTION...] FILE\n"
    "       qn json format --in-place [OPTION...] FILE...\n"
    "\n"
    "Writes the document with new blanks, as the library lays it out: tabs, CR LF, the scalars of\n"
    "an array on one line. Numbers and strings keep their spelling. What lies deeper than 100\n"
    "levels stands on one line.\n"
    "\n"
    "  -c, --compact             everything on one line\n"
    "      --indent N            N blanks for each level, LF, each item on its line\n"
    "      --in-place            write every FILE where it is, in its own encoding without --to\n"
    "      --to NAME             write in this encoding\n"
    "      --utf8                the same as --to utf-8-mark\n"
    "      --lossy               write \"?\" for characters that the encoding lacks\n"
    "  -o, --output OUTPUT       write to a file; it is whole or not there\n" QN_JSON_ENCODING_HELP;

constexpr std::string_view kGetUsage =
    "usage: qn json get [OPTION...] FILE PATH\n"
    "       qn json get [OPTION...] --path PATH FILE...\n"
    "\n"
    "Prints a value: a string as it is, everything else as JSON. Numbers lose the zeros and the\n"
    "exponent that they can do without, no digit that counts: 1.50 is 1.5, 1e2 is 100.\n"
    "\n"
    "  -i, --ignore-case         a key that differs in case is as good when there is no equal one\n"
    "      --json                print strings as JSON, too\n"
    "  -c, --compact             everything on one line\n"
    "      --indent N            N blanks for each level, each item on its "
    "line\n" QN_JSON_PATH_HELP QN_JSON_ENCODING_HELP
    "\n"
    "Example: qn json get settings.json /server/ports/0\n";

constexpr std::string_view kKeysUsage =
    "usage: qn json keys [--json] [-i] FILE [PATH]\n"
    "       qn json keys [--json] [-i] --path PATH FILE...\n"
    "\n"
    "Prints the keys of an object, one on each line.\n"
    "\n"
    "      --json                print them as an array\n"
    "  -i, --ignore-case         a key that differs in case is as good when there is no equal "
    "one\n" QN_JSON_PATH_HELP QN_JSON_ENCODING_HELP;

constexpr std::string_view kLengthUsage =
    "usage: qn json length [-i] FILE [PATH]\n"
    "       qn json length [-i] --path PATH FILE...\n"
    "\n"
    "Prints the number of members of an object, elements of an array or characters of a string.\n"
    "\n"
    "  -i, --ignore-case         a key that differs in case is as good when there is no equal "
    "one\n" QN_JSON_PATH_HELP QN_JSON_ENCODING_HELP;

constexpr std::string_view kMergeUsage =
    "usage: qn json merge [OPTION...] FILE PATCH...\n"
    "\n"
    "Applies merge patches (RFC 7396): members of PATCH replace those of FILE or are added, "
    "objects\n"
    "are merged member by member, and null removes a member. All else stays as it is.\n"
    "\n"
    "  -o, --output OUTPUT       write there and leave FILE alone; either is whole or not there\n"
    "      --to NAME             write in this encoding\n"
    "      --lossy               write \"?\" for characters that the encoding "
    "lacks\n" QN_JSON_ENCODING_HELP;

constexpr std::string_view kSetUsage =
    "usage: qn json set [OPTION...] FILE PATH VALUE\n"
    "       qn json set [OPTION...] --path PATH --value VALUE FILE...\n"
    "\n"
    "Sets a value; a missing one is added, with the objects on the way. All else stays as it is,\n"
    "byte for byte. VALUE is one whole JSON value, and anything that is none is a string. What\n"
    "begins with a quote, a brace or a bracket and is no JSON is refused.\n"
    "\n"
    "  -p, --path PATH           set the value there in every FILE\n"
    "      --value VALUE         the value\n"
    "  -s, --string              VALUE is a string, whatever it looks like\n"
    "      --only-existing       do not add members\n"
    "  -i, --ignore-case         a key that differs in case is as good when there is no equal one\n"
    "  -o, --output OUTPUT       write there and leave FILE alone; either is whole or not there\n"
    "      --to NAME             write in this encoding\n"
    "      --lossy               write \"?\" for characters that the encoding "
    "lacks\n" QN_JSON_ENCODING_HELP;

constexpr std::string_view kShapeUsage =
    "usage: qn json shape FILE...\n"
    "\n"
    "Shows how many values of which type there are, how deep they nest, the longest arrays and "
    "the\n"
    "keys of the outer levels.\n"
    "\n" QN_JSON_ENCODING_HELP;

constexpr Command kCommands[] = {
    {"check", "Say whether files can be read, or where they are broken", kCheckUsage,
     json::RunCheck},
    {"del", "Remove values", kDeleteUsage, json::RunDelete},
    {"format", "Write a file in another layout or encoding", kFormatUsage, json::RunFormat},
    {"get", "Print a value", kGetUsage, json::RunGet},
    {"keys", "Print the keys of an object", kKeysUsage, json::RunKeys},
    {"length", "Count members, elements or characters", kLengthUsage, json::RunLength},
    {"merge", "Apply merge patches", kMergeUsage, json::RunMerge},
    {"set", "Set a value", kSetUsage, json::RunSet},
    {"shape", "Show what a document is made of", kShapeUsage, json::RunShape},
};

}  // namespace

extern const Command kJsonCommand;
const Command kJsonCommand = {"json", "JSON files", kGroupUsage, nullptr, kCommands};

}  // namespace qn
