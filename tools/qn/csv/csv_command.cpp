// SPDX-License-Identifier: MIT
// qn csv: looks into CSV files, cuts them down and turns them into JSON. Here are the commands'
// names and help.
#include "qn/command.h"
#include "qn/csv/commands.h"

namespace qn {
namespace {

#define QN_CSV_HELP                                          \
  "  -d, --delimiter CHAR   between fields; tab for a tab\n" \
  "      --encoding NAME    the file's encoding, when it is not to be found out\n"

constexpr Command kCsvCommands[] = {
    {"head", "Print the header and the first rows",
     "usage: qn csv head [-n ROWS] [FILE]\n"
     "\n"
     "Prints the header and the first rows of FILE.\n"
     "\n"
     "  -n, --rows ROWS        how many rows; 10 when it is not given\n" QN_CSV_HELP,
     csv::RunHead},
    {"columns", "Print the names of the columns",
     "usage: qn csv columns [FILE]\n"
     "\n"
     "Prints the fields of the header row, each on its line.\n"
     "\n" QN_CSV_HELP,
     csv::RunColumns},
    {"count", "Count the rows",
     "usage: qn csv count [FILE]\n"
     "\n"
     "Prints the number of rows behind the header.\n"
     "\n" QN_CSV_HELP,
     csv::RunCount},
    {"select", "Print some of the columns",
     "usage: qn csv select -c COLUMN... [FILE]\n"
     "\n"
     "Prints columns in the order in which they are named, by name or by number from 1.\n"
     "\n"
     "  -c, --column COLUMN    a column; to be given again for more\n"
     "  -o, --output OUTPUT    write UTF-8 to a file; it is whole or not there\n" QN_CSV_HELP,
     csv::RunSelect},
    {"filter", "Print some of the rows",
     "usage: qn csv filter -w CONDITION... [FILE]\n"
     "\n"
     "Prints the header and the rows that meet every condition. A CONDITION is COLUMN=VALUE,\n"
     "COLUMN!=VALUE, COLUMN~PART (the field holds it) or, with numbers, <, <=, > or >=.\n"
     "\n"
     "  -w, --where CONDITION  a condition; to be given again for more\n"
     "  -o, --output OUTPUT    write UTF-8 to a file; it is whole or not there\n" QN_CSV_HELP "\n"
     "Example: qn csv filter -w 'province=Hunan' -w 'longitude>=112' districts.csv\n",
     csv::RunFilter},
    {"stats", "Describe what is in the columns",
     "usage: qn csv stats [--json] [FILE]\n"
     "\n"
     "Prints for each column how many numbers, texts and empty fields it has, and the least, the\n"
     "greatest and the mean of the numbers.\n"
     "\n"
     "      --json             print a line of JSON for each column\n" QN_CSV_HELP,
     csv::RunStats},
    {"to-json", "Turn rows into JSON",
     "usage: qn csv to-json [-o OUTPUT] [FILE]\n"
     "\n"
     "Writes a JSON array in UTF-8 with an object for each row, whose keys are the names of the\n"
     "columns. Fields beyond the header have their column number as key.\n"
     "\n"
     "      --ansi             write in the process code page instead\n"
     "      --lossy            write \"?\" for characters that the code page lacks\n"
     "  -o, --output OUTPUT    write to a file; it is whole or not there\n" QN_CSV_HELP "\n"
     "Exit code 1: the file cannot be read, or a column name occurs twice.\n",
     csv::RunToJson}};

}  // namespace

extern const Command kCsvCommand;
const Command kCsvCommand = {
    "csv", "CSV files",
    "usage: qn csv COMMAND [OPTION...] [FILE]\n"
    "\n"
    "Reads FILE, or standard input, of any size in the same memory. The first row is the header.\n"
    "Quoted fields may hold line ends. The encoding is found out: UTF-8 or UTF-16 with or without\n"
    "mark, else the process code page.\n",
    nullptr, kCsvCommands};

}  // namespace qn
