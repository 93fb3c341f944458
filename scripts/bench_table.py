#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints the table of a run of the benchmarks.

Usage: bench_table.py [--markdown] [--save FILE] [--compare FILE] TARGETS.txt TITLE=FOLDER...

Each FOLDER holds what the programs of one target wrote in Google Benchmark's JSON format. A row is
named "work|input|who"; who is QuarnFC, a peer, or "limit: WHAT" for what the bytes alone cost on the
machine. The medians count. --save keeps our times, and --compare shows how they changed against
times that were kept.
"""
import argparse
import json
import pathlib
import re

OURS = "QuarnFC"
LIMIT = "limit: "


def read_targets(path):
    """Lines "work|input|ratio" in the order of the table; an empty input stands for all others."""
    targets = {}
    for line in pathlib.Path(path).read_text().splitlines():
        if line and not line.startswith("#"):
            work, inputs, ratio = line.split("|")
            targets[work, inputs] = ratio
    return targets


def read_run(folder):
    """{(work, input): {who: nanoseconds, or bytes of a row about memory}} of one target."""
    scale = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
    run = {}
    for path in sorted(pathlib.Path(folder).glob("*.json")):
        for entry in json.loads(path.read_text())["benchmarks"]:
            if entry.get("aggregate_name", "median") != "median":
                continue
            name = re.sub(r"/(threads|iterations|repeats):\d+$", "", entry["run_name"])
            work, inputs, who = split_name(name)
            time = entry["real_time"] * scale[entry["time_unit"]]
            run.setdefault((work, inputs), {})[who] = entry.get("bytes", time)
    return {row: times for row, times in run.items() if not row[0].startswith("growth ")}


def split_name(name):
    """The parts of "work|input|who"; the input itself may hold bars."""
    work, rest = name.split("|", 1)
    return work, *rest.rsplit("|", 1)


def nice(ns, work):
    if " memory " in work:
        return f"{ns:.0f} B"
    for limit, unit, text in ((1e4, 1, "ns"), (1e7, 1e3, "us"), (float("inf"), 1e6, "ms")):
        if ns < limit:
            return f"{ns / unit:.1f} {text}"


def target_of(targets, row):
    return targets.get(row, targets.get((row[0], ""), ""))


def row_order(targets, rows):
    works = list(dict.fromkeys(work for work, _ in targets))
    place = {work: i for i, work in enumerate(works)}
    return sorted(rows, key=lambda row: (place.get(row[0], len(works)), row[0]))


def misses(ours, peers, target):
    """Whether ours is above the target: "1.0" times the best peer, "0.8 of PEER", or "64 B"."""
    if not target:
        return False
    number, _, whose = target.partition(" ")
    if whose == "B":
        return ours > float(number)
    return ours / peers.get(whose.removeprefix("of "), min(peers.values())) > float(number)


def cells(work, times, target):
    """Ours, the best peer and who that is, the ratio; a star where it misses the target; the limit."""
    limits = [who for who in times if who.startswith(LIMIT)]
    limit = f"{limits[0].removeprefix(LIMIT)} {nice(times[limits[0]], work)}" if limits else "-"
    peers = {who: times[who] for who in times if who != OURS and who not in limits}
    if OURS not in times:
        return ["-", "-", "-", limit]
    if not peers:
        return [nice(times[OURS], work), "-", "-", limit]
    who = min(peers, key=peers.get)
    missed = " *" if misses(times[OURS], peers, target) else ""
    ratio = f"{times[OURS] / peers[who]:.2f}{missed}"
    return [nice(times[OURS], work), f"{who} {nice(peers[who], work)}", ratio, limit]


def table(targets, runs):
    head = ["work", "input", "aim"]
    for title in runs:
        head += [f"{title}: ours", "best peer", "ratio", "limit"]
    rows = dict.fromkeys(row for run in runs.values() for row in run)
    lines = [head]
    for row in row_order(targets, rows):
        target = target_of(targets, row)
        line = [row[0], row[1], f"<= {target}" if target else ""]
        for run in runs.values():
            line += cells(row[0], run.get(row, {}), target)
        lines.append(line)
    return lines


def print_plain(lines):
    widths = [max(len(cell) for cell in column) for column in zip(*lines)]
    for line in lines:
        print("  ".join(cell.ljust(width) for cell, width in zip(line, widths)).rstrip())


def print_markdown(lines):
    def show(line):
        print("| " + " | ".join(cell.replace("|", "\\|") for cell in line) + " |")

    show(lines[0])
    print("|" + "---|" * len(lines[0]))
    for line in lines[1:]:
        show(line)


def our_times(runs):
    return {
        f"{title}|{work}|{inputs}": times[OURS]
        for title, run in runs.items()
        for (work, inputs), times in run.items()
        if OURS in times
    }


def print_changes(now, before):
    print("\nours against the kept run (below 1: faster now)")
    for name, time in now.items():
        change = f"{time / before[name]:.2f}" if name in before else "new"
        print(f"{change:>6}  {name}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--markdown", action="store_true")
    parser.add_argument("--save")
    parser.add_argument("--compare")
    parser.add_argument("targets")
    parser.add_argument("runs", nargs="+", metavar="TITLE=FOLDER")
    options = parser.parse_args()
    runs = {title: read_run(folder) for title, folder in (run.split("=", 1) for run in options.runs)}
    lines = table(read_targets(options.targets), runs)
    (print_markdown if options.markdown else print_plain)(lines)
    if options.compare:
        print_changes(our_times(runs), json.loads(pathlib.Path(options.compare).read_text()))
    if options.save:
        pathlib.Path(options.save).write_text(json.dumps(our_times(runs), indent=1) + "\n")


if __name__ == "__main__":
    main()
