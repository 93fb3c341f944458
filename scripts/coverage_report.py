#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What the tests reach, from what gcovr counted.

Usage: coverage_report.py folders GCOVR.json
       coverage_report.py corpus TARGET GCOVR.json FILE...

The first prints lines and branches of each folder of the library, and every line that was not
reached with its explanation from coverage_explained.txt. (Of a line that was reached an explanation
is one of branches that were not taken, which then do not count. Neither does what is not reached of a
file that is explained as a whole, with "*" for its lines.) The second prints how many lines of a
parser's files its corpus reaches, and those it does not. Branches of exceptions do not count. The
exit code is 1 below a bar, on a line without an explanation, and on an explanation without a line.
"""
import functools
import json
import sys
from pathlib import Path

FOLDERS = ("core", "json", "io", "codec", "geo", "net", "platform")
LINES_BAR = 99.0
BRANCHES_BAR = 97.0
CORPUS_BAR = 95.0
ROOT = Path(__file__).resolve().parent.parent
EXPLAINED = Path(__file__).with_name("coverage_explained.txt")


def counted_branches(file, line):
    """How often each branch of a line was taken. Which exceptions a handler takes is no branch of the
    program's own."""
    if text_of(file, line["line_number"]).startswith("} catch ("):
        return []
    return [branch["count"] for branch in line["branches"] if not branch["throw"]]


def read_lines(report):
    """The lines that hold code: {file: {number: gcovr's record}}; a line counted for several
    instances of a template is one."""
    files = {}
    for file in json.loads(Path(report).read_text())["files"]:
        lines = files.setdefault(file["file"], {})
        for line in file["lines"]:
            if line.get("gcovr/noncode"):
                continue
            known = lines.setdefault(line["line_number"], {"count": 0, "branches": []})
            known["count"] += line["count"]
            known["branches"] += counted_branches(file["file"], line)
    return files


def percent(part, whole):
    return 100.0 * part / whole if whole else 100.0


def missed(lines):
    return sorted(number for number, line in lines.items() if line["count"] == 0)


@functools.cache
def source_of(file):
    return (ROOT / file).read_text(errors="replace").splitlines()


def text_of(file, number):
    return source_of(file)[number - 1].strip()


def print_missed(file, numbers):
    for number in numbers:
        print(f"      {file}:{number}: {text_of(file, number)}")


def read_explanations():
    """{(file, text of the line): reason}"""
    explained = {}
    for entry in EXPLAINED.read_text().splitlines():
        if entry and not entry.startswith("#"):
            file, rest = entry.split(" | ", 1)
            text, reason = rest.rsplit(" | ", 1)
            explained[file, text] = reason
    return explained


def reason_of(explained, file, number):
    """Why a line is not reached, or some branches of it are not; None without an explanation."""
    return explained.get((file, text_of(file, number)), explained.get((file, "*")))


def report_corpus(target, report, wanted):
    files = read_lines(report)
    lines = {(file, number): line for file in wanted for number, line in files.get(file, {}).items()}
    reached = sum(line["count"] > 0 for line in lines.values())
    share = percent(reached, len(lines))
    good = bool(lines) and share >= CORPUS_BAR
    print(f"   {target:<14} {share:6.1f} % of {len(lines):4} lines   bar {CORPUS_BAR:.0f}"
          + ("" if good else ": TOO LITTLE"))
    for file in wanted:
        if not good:
            print_missed(file, missed(files.get(file, {})))
    return good


def report_folder(folder, files, explained):
    numbered = [(file, number, line) for file, each in files.items()
                if file.startswith(folder + "/") for number, line in each.items()]
    lines = [line for file, _, line in numbered if line["count"] > 0 or (file, "*") not in explained]
    branches = [count for file, number, line in numbered for count in line["branches"]
                if count > 0 or reason_of(explained, file, number) is None]
    line_share = percent(sum(line["count"] > 0 for line in lines), len(lines))
    branch_share = percent(sum(count > 0 for count in branches), len(branches))
    good = bool(lines) and line_share >= LINES_BAR and branch_share >= BRANCHES_BAR
    print(f"   {folder:<10} lines {line_share:6.2f} % of {len(lines):5}   branches {branch_share:6.2f} %"
          f" of {len(branches):5}   bars {LINES_BAR:.0f}, {BRANCHES_BAR:.0f}"
          + ("" if good else ": TOO LITTLE"))
    return good


def needed(files):
    """The lines that were not reached, or whose branches were not all taken."""
    return {(file, text_of(file, number)) for file, lines in files.items() if file.startswith(FOLDERS)
            for number, line in lines.items() if line["count"] == 0 or 0 in line["branches"]}


def report_missed(files, explained):
    """Every line that was not reached. True when each has an explanation and none is left over."""
    good = True
    for file in sorted(files):
        if not file.startswith(FOLDERS):
            continue
        for number in missed(files[file]):
            reason = reason_of(explained, file, number)
            print(f"      {file}:{number}: {text_of(file, number)}   [{reason or 'NOT EXPLAINED'}]")
            good = good and reason is not None
    certain = {line for line, reason in explained.items() if not reason.startswith("by luck")}
    for file, text in sorted(certain - needed(files)):
        print(f"      {file}: {text}   [EXPLAINED, BUT REACHED]")
        good = False
    return good


def main(arguments):
    match arguments:
        case ["folders", report]:
            files = read_lines(report)
            explained = read_explanations()
            results = [report_folder(folder, files, explained) for folder in FOLDERS]
            good = all([*results, report_missed(files, explained)])
        case ["corpus", target, report, *wanted] if wanted:
            good = report_corpus(target, report, wanted)
        case _:
            sys.exit(__doc__)
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
