# SPDX-License-Identifier: MIT
"""Compares the headers of the flat C interface with its declarations in other languages: the same
functions, each with as many arguments. Usage: check_declarations.py PROJECT_FOLDER"""

import pathlib
import re
import sys

project = pathlib.Path(sys.argv[1])
sys.path.insert(0, str(project / "samples" / "python"))
from quarnfc import FUNCTIONS  # noqa: E402


def argument_count(text):
    text = text.strip()
    return 0 if text in ("", "void") else text.count(",") + 1


def declared(paths, pattern):
    found = {}
    for path in paths:
        for name, arguments in re.findall(pattern, path.read_text(encoding="utf-8")):
            found[name] = argument_count(arguments)
    return found


c = declared((project / "include/quarnfc/c").glob("*.h"), r"QN_PLAIN_API[^;(]*?\b(qnc\w+)\(([^)]*)\)")
csharp = declared((project / "samples/csharp").glob("*.cs"), r"extern \w+\*? (qnc\w+)\(([^)]*)\)")
python = {name: len(arguments) for name, (_, arguments) in FUNCTIONS.items()}

failed = len(c) < 50
for language, functions in (("C#", csharp), ("Python", python)):
    for name in sorted(c.keys() | functions.keys()):
        if c.get(name) != functions.get(name):
            print(f"{name}: {c.get(name)} arguments in C, {functions.get(name)} in {language}")
            failed = True
print(f"{len(c)} functions")
sys.exit(failed)
