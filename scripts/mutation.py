#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Breaks one comparison or constant of the library at a time and tells which the tests notice.

Usage: mutation.py TREE BUILD [COUNT [SEED [FOLDER...]]]
TREE is a copy of the project's tree that may be changed, BUILD its build folder. A change that does
not compile is none. A test that fails, crashes or does not end notices the change. The exit code is
1 when fewer than 95 % of the changes are noticed.
"""
import random
import re
import subprocess
import sys
from pathlib import Path

FOLDERS = ("core", "json", "geo", "codec", "io")
# The last notices what is lost, which the others do not without a sanitizer.
PROGRAMS = ("quarnfc_tests", "quarnfc_internal_tests", "quarnfc_fuzz_tests",
            "quarnfc_failing_memory_tests")
# The fuzzers' functions that look at a folder.
FUZZERS = {
    "core": "code_page|format|format_item|path_join|search|split|string_edit|string_record|utf|wildcard",
    "json": "json|json_tree",
    "geo": "wkt",
    "codec": "codec",
    "io": "csv_row|date_time",
}
BAR = 95.0
SECONDS = 300

COMPARISONS = {" < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ", " == ": " != ",
               " != ": " == ", " && ": " || ", " || ": " && "}
# What a line is blanked of before it is searched: texts, characters, comments.
NO_CODE = re.compile(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])+\'|//.*')
NUMBER = re.compile(r"(?<![\w.])(?:0x[0-9A-Fa-f]+|\d+)(?![\w.'])")


def sites_of(line):
    """The changes to a line of code: (start, end, replacement)."""
    if line.lstrip().startswith(("#", "static_assert", "template")):
        return
    code = NO_CODE.sub(lambda match: " " * len(match[0]), line)
    for old, new in COMPARISONS.items():
        for match in re.finditer(re.escape(old), code):
            yield match.start(), match.end(), new
    for match in NUMBER.finditer(code):
        yield match.start(), match.end(), str(int(match[0], 0) + 1)


def all_sites(tree, folders):
    for folder in folders:
        for file in sorted((tree / folder).rglob("*")):
            if file.suffix not in (".cpp", ".h") or "data" in file.stem:
                continue
            for number, line in enumerate(file.read_text().splitlines()):
                for site in sites_of(line):
                    yield folder, file, number, site


def filter_of(tree, folder):
    """Every test of the folder's own."""
    names = set()
    for file in (tree / "tests" / folder).rglob("*_test.cpp"):
        names |= set(re.findall(r"^(?:TYPED_)?TEST(?:_[FP])?\((\w+),", file.read_text(), re.M))
    tests = [f"{name}.*" for name in names] + [f"*/{name}*" for name in names]
    tests.append("*/FailingMemory.*")
    for target in FUZZERS[folder].split("|"):
        tests += [f"*HoldsItsProperty/{target}", f"*EveryTextHoldsTheProperty/{target}_*"]
    return ":".join(sorted(tests))


def build(folder):
    command = ["ninja", "-C", str(folder), *PROGRAMS]
    return subprocess.run(command, capture_output=True, check=False).returncode == 0


def is_noticed(folder, tests):
    for program in PROGRAMS:
        command = [f"bin/{program}", f"--gtest_filter={tests}", "--gtest_fail_fast", "--gtest_brief=1"]
        try:
            result = subprocess.run(command, cwd=folder, capture_output=True, timeout=SECONDS,
                                    check=False)
        except subprocess.TimeoutExpired:
            return True
        if result.returncode != 0:
            return True
    return False


def with_change(text, number, site):
    start, end, replacement = site
    lines = text.splitlines(keepends=True)
    lines[number] = lines[number][:start] + replacement + lines[number][end:]
    return "".join(lines), lines[number].strip()


def try_change(tree, folder, tests, place):
    """The line as changed, and whether the tests notice; None for what does not compile."""
    _, file, number, site = place
    text = file.read_text()
    changed, line = with_change(text, number, site)
    file.write_text(changed)
    try:
        noticed = is_noticed(folder, tests) if build(folder) else None
    finally:
        file.write_text(text)
    return f"{file.relative_to(tree)}:{number + 1}: {line}", noticed


def main(arguments):
    tree, folder = (Path(each).resolve() for each in arguments[:2])
    count, seed = (int(each) for each in (arguments[2:4] + ["500", "1"][len(arguments[2:4]):]))
    folders = arguments[4:] or FOLDERS
    tests = {each: filter_of(tree, each) for each in folders}
    if not build(folder) or any(is_noticed(folder, each) for each in tests.values()):
        sys.exit("the tests fail before anything is changed")

    places = list(all_sites(tree, folders))
    random.Random(seed).shuffle(places)
    tried, survivors = 0, []
    for place in places:
        if tried == count:
            break
        line, noticed = try_change(tree, folder, tests[place[0]], place)
        if noticed is None:
            continue
        tried += 1
        survivors += [] if noticed else [line]
        print(f"{tried:4} {'noticed' if noticed else 'SURVIVED'}  {line}", flush=True)
    share = 100.0 * (tried - len(survivors)) / max(tried, 1)
    print("\n".join(f"survived: {line}" for line in survivors))
    print(f"{share:.1f} % of {tried} changes are noticed (bar {BAR:.0f})")
    return 0 if tried and share >= BAR else 1


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1:]))
