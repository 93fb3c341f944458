# SPDX-License-Identifier: MIT
# Turns the examples in the comments of public headers into tests of one source file.
# Usage: awk -v out=FILE -f extract_examples.awk HEADER...
#
# An example is a line "Example:" and the comment lines below it that are indented by three blanks
# more. Each becomes a test. A statement "expression;  // == value" becomes an expectation. Every
# header must have an example.

# The path as hosts write it in an #include.
function include_name(path) {
  sub(/.*\/include\//, "", path)
  return path
}

function test_name(path) {
  path = include_name(path)
  sub(/^quarnfc\//, "", path)
  sub(/\.h$/, "", path)
  gsub(/[^A-Za-z0-9]/, "_", path)
  return path
}

function end_example() {
  if (in_example) print "}\n" > out
  if (statement != "") {
    print include_name(header) ": an example ends within a statement: " statement > "/dev/stderr"
    statement = ""
    failed = 1
  }
  in_example = 0
}

function end_header() {
  end_example()
  if (header != "" && !examples) {
    print include_name(header) ": there is no \"Example:\"" > "/dev/stderr"
    failed = 1
  }
}

# Statements over several lines are put together, so that they can be turned into expectations; as
# many empty lines follow, so that compilers name the right lines.
function write_line(line,    code, expected) {
  code = line
  expected = ""
  if (match(line, / *\/\/ == .*$/)) {
    expected = substr(line, RSTART, RLENGTH)
    sub(/^ *\/\/ == /, "", expected)
    code = substr(line, 1, RSTART - 1)
  }
  statement = statement code
  if (code !~ /[;{}]$/ && code !~ /\/\//) {
    statement = statement " "
    padding = padding "\n"
    return
  }
  if (expected != "") {
    sub(/;$/, "", statement)
    statement = "EXPECT_TRUE(header_example::Same(" statement ", " expected "));"
  }
  print statement padding > out
  statement = padding = ""
}

BEGIN {
  print "// Generated from the examples in the public headers." > out
  print "#include \"tests/module/header_example.h\"\n" > out
  for (i = 1; i < ARGC; ++i) print "#include <" include_name(ARGV[i]) ">" > out
  print "\nnamespace {\n" > out
}

FNR == 1 {
  end_header()
  header = FILENAME
  examples = 0
}

/^ *(\/\/|\*) Example:$/ {
  end_example()
  in_example = 1
  ++examples
  printf "TEST(HeaderExample, %s_%d) {\n", test_name(FILENAME), FNR > out
  printf "#line %d \"%s\"\n", FNR + 1, FILENAME > out
  next
}

in_example && /^ *(\/\/|\*)   / {
  sub(/^ *(\/\/|\*)   /, "")
  write_line($0)
  next
}

{ end_example() }

END {
  end_header()
  print "}  // namespace" > out
  exit failed
}
