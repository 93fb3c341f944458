#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Breaks one comparison or constant of the library at a time and tells which the tests notice.

Usage: mutation.py copy TREE
       mutation.py TREE BUILD RESULTS [COUNT [SEED [FOLDER...]]]
       mutation.py TREE BUILD RESULTS survivors
The first brings a copy of the project's tree up to date, writing only what differs. TREE is that copy,
which is changed, BUILD its build folder. RESULTS keeps what became of every change, so that the next
run goes on where this one ends; "survivors" tries once more those that no test noticed. A change that
does not compile is none, and neither is one of mutation_equal.txt. A test that fails, crashes or does
not end notices the change. The exit code is 1 when fewer than 95 % of the changes are noticed.
"""
import filecmp
import random
import re
import shutil
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path

FOLDERS = ("core", "json", "geo", "codec", "io")
# The fuzzers' functions that look at a folder.
FUZZERS = {
    "core": "code_page|format|format_item|path_join|search|split|string_edit|string_record|utf|wildcard",
    "json": "json|json_tree",
    "geo": "wkt",
    "codec": "codec",
    "io": "csv_row|date_time",
}
# Tests that take minutes with little optimisation: they look last.
SLOW = {
    "core": "CodePage*.Every*:TranscodeLarge.*",
    "json": "*DeepJson*:LargeObject.*:NumberText.*EveryExponent*",
    "geo": "",
    "codec": "HmacSha256.DataSizeIsTakenAsUnsigned",
    "io": "CsvRow.EveryShortLineSplitsByThePlainRules",
}
BAR = 95.0
PROJECT = Path(__file__).resolve().parent.parent
EQUAL = PROJECT / "scripts/mutation_equal.txt"
# A test that takes so many times as long as before does not end.
PATIENCE = 10

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


def copy_project(tree):
    files = subprocess.run(["git", "ls-files", "-z"], cwd=PROJECT, capture_output=True, check=True)
    for name in files.stdout.decode().rstrip("\0").split("\0"):
        target = tree / name
        if not target.exists() or not filecmp.cmp(PROJECT / name, target, shallow=False):
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(PROJECT / name, target)


@dataclass(frozen=True)
class Change:
    folder: str
    file: str
    number: int  # of the line, from 0
    start: int
    end: int
    replacement: str

    def apply(self, text):
        lines = text.splitlines(keepends=True)
        line = lines[self.number]
        lines[self.number] = line[: self.start] + self.replacement + line[self.end :]
        return "".join(lines), lines[self.number].strip()


def all_changes(tree, folders):
    for folder in folders:
        for file in sorted((tree / folder).rglob("*")):
            if file.suffix not in (".cpp", ".h") or "data" in file.stem:
                continue
            name = str(file.relative_to(tree))
            for number, line in enumerate(file.read_text().splitlines()):
                for site in sites_of(line):
                    yield Change(folder, name, number, *site)


def own_tests(tree, folder):
    names = set()
    for file in (tree / "tests" / folder).rglob("*_test.cpp"):
        names |= set(re.findall(r"^(?:TYPED_)?TEST(?:_[FP])?\((\w+),", file.read_text(), re.M))
    # A test of types is called NAME/TYPE, one of parameters INSTANCE/NAME.
    return ":".join(sorted(f"{place}{name}{rest}" for name in names
                           for place, rest in (("", ".*"), ("", "/*"), ("*/", "*"))))


class Tests:
    """What looks at a folder, the quick first: a program is only linked when those before it have
    noticed nothing. Failing memory notices what is lost, which the others do not without a
    sanitizer."""

    def __init__(self, build, tree, folder):
        self.build = build
        slow = SLOW[folder]
        own = own_tests(tree, folder) + "-" + slow
        targets = FUZZERS[folder].split("|")
        self.steps = [
            ("quarnfc_tests", own),
            ("quarnfc_internal_tests", own),
            ("quarnfc_fuzz_tests", ":".join(f"*HoldsItsProperty/{each}" for each in targets)),
            ("quarnfc_fuzz_tests", ":".join(f"*HoldsTheProperty/{each}_*" for each in targets)),
            ("quarnfc_failing_memory_tests", "*/FailingMemory.*"),
        ]
        if slow:
            self.steps += [("quarnfc_tests", slow), ("quarnfc_internal_tests", slow)]
        self.seconds = {}

    def make(self, program):
        command = ["ninja", "-C", str(self.build), program]
        return subprocess.run(command, capture_output=True, check=False).returncode == 0

    def passes(self, program, tests, seconds=None):
        command = [f"bin/{program}", f"--gtest_filter={tests}", "--gtest_fail_fast", "--gtest_brief=1"]
        try:
            return subprocess.run(command, cwd=self.build, capture_output=True, timeout=seconds,
                                  check=False).returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def measure(self):
        for program, tests in self.steps:
            made = self.make(program)
            start = time.monotonic()
            if not made or not self.passes(program, tests):
                sys.exit(f"{program} fails before anything is changed")
            self.seconds[program, tests] = 10 + PATIENCE * (time.monotonic() - start)

    def verdict(self):
        for index, (program, tests) in enumerate(self.steps):
            if not self.make(program):
                return "no change" if index == 0 else "noticed"
            if not self.passes(program, tests, self.seconds[program, tests]):
                return "noticed"
        return "SURVIVED"


class Results:
    """What became of the changes: a line of the file for each, the last one counts."""

    def __init__(self, file):
        self.file = file
        self.known = {}
        if file.exists():
            for line in file.read_text().splitlines():
                verdict, *key = line.split("\t")
                self.known[tuple(key)] = verdict

    @staticmethod
    def key(change, line):
        """Lines move, so it is their text that counts."""
        return change.file, str(change.start), line

    def add(self, key, verdict):
        self.known[key] = verdict
        with self.file.open("a") as file:
            print(verdict, *key, sep="\t", file=file)


def read_equal():
    """{(file, the line as changed)}"""
    entries = [line.split(" | ", 1) for line in EQUAL.read_text().splitlines() if line[:1] != "#"]
    return {(file, rest.rsplit(" | ", 1)[0]) for file, rest in entries}


def try_change(tree, change, tests):
    file = tree / change.file
    text = file.read_text()
    file.write_text(change.apply(text)[0])
    try:
        return tests.verdict()
    finally:
        file.write_text(text)


def try_changes(tree, build, results, changes, count, again):
    """How many changes, up to a count, and the survivors. What is known is not tried; again tries
    known survivors and nothing new."""
    tests, survivors, tried, equal = {}, [], 0, read_equal()
    for change in changes:
        if tried == count:
            break
        line = change.apply((tree / change.file).read_text())[1]
        if (change.file, line) in equal:
            continue
        key = results.key(change, line)
        verdict = results.known.get(key)
        if again and verdict is None:
            continue
        if verdict is None or (again and verdict == "SURVIVED"):
            if change.folder not in tests:
                tests[change.folder] = Tests(build, tree, change.folder)
                tests[change.folder].measure()
            verdict = try_change(tree, change, tests[change.folder])
            results.add(key, verdict)
            print(f"{verdict:9} {change.file}:{change.number + 1}: {line}", flush=True)
        if verdict == "no change":
            continue
        tried += 1
        if verdict == "SURVIVED":
            survivors.append(f"{change.file}:{change.number + 1}: {line}")
    return tried, survivors


def main(arguments):
    if arguments[0] == "copy":
        return copy_project(Path(arguments[1]))
    tree, build, results = (Path(each).resolve() for each in arguments[:3])
    rest = arguments[3:]
    again = rest == ["survivors"]
    count, seed = (int(each) for each in (["500", "1"] if again else rest[:2] + ["500", "1"][len(rest):]))
    changes = list(all_changes(tree, rest[2:] or FOLDERS))
    random.Random(seed).shuffle(changes)
    tried, survivors = try_changes(tree, build, Results(results), changes,
                                   -1 if again else count, again)
    share = 100.0 * (tried - len(survivors)) / max(tried, 1)
    print("\n".join(f"survived: {line}" for line in survivors))
    print(f"{share:.1f} % of {tried} changes are noticed (bar {BAR:.0f})")
    return 0 if tried and share >= BAR else 1


if __name__ == "__main__":
    if len(sys.argv) < 4 and sys.argv[1:2] != ["copy"]:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1:]))
