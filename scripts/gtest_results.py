#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What a run of a GoogleTest program came to.

Usage: gtest_results.py RUN STATUS
Reads RUN.xml (the report of --gtest_output) and RUN.log (what was printed) of a program that ended
with the exit code STATUS. Standard output gets a line for each test: "passed", "failed NAME" or
"skipped NAME: REASON"; standard error gets what the failures say. A program that ended before it
wrote its report failed in the test that was running.
"""
import sys
import xml.etree.ElementTree as xml
from pathlib import Path


def one_line(text):
    return " ".join(text.split())


def report_test(test):
    """Prints the line of one test; true when it failed."""
    name = f"{test.get('classname')}.{test.get('name')}"
    failures = test.findall("failure")
    skip = test.find("skipped")
    if failures:
        print("failed", name)
        for failure in failures:
            print(f"{name}: {failure.text}"[:4000], file=sys.stderr)
    elif skip is not None:
        print(f"skipped {name}: {one_line(skip.get('message', ''))}")
    elif test.get("result") == "completed":
        print("passed")
    return bool(failures)


def running_test(log):
    """The test that a broken-off log ends in."""
    started = [line for line in log.splitlines() if line.startswith("[ RUN      ] ")]
    return started[-1].split()[-1] if started else "(none)"


def main(run, status):
    log = Path(run + ".log").read_text(errors="replace") if Path(run + ".log").exists() else ""
    try:
        tests = list(xml.parse(run + ".xml").iter("testcase"))
    except (OSError, xml.ParseError):
        print("failed the program ended early, exit code", status, "in", running_test(log))
        print(log[-4000:], file=sys.stderr)
        return
    failed = [report_test(test) for test in tests]
    if status != "0" and not any(failed):
        print("failed the program exited with", status)
        print(log[-4000:], file=sys.stderr)


main(sys.argv[1], sys.argv[2])
