#!/usr/bin/env python3
"""Runs clang-tidy on files, as many at a time as there are processors. Called by check.sh, in the root.

    scripts/tidy.py [--joined] CHECKS FILE...     CHECKS as for clang-tidy, "" for those of .clang-tidy

With --joined it reads up to nine files as one, which takes a quarter of the time, because most of it goes
into the system's headers. A missing include may then go unnoticed.
"""

import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys
from pathlib import Path

DATABASE = Path("build/tidy/compile_commands.json")
JOINED = Path("build/tidy/joined")
MOST = 9


def own_names(text):
    """Names that one file may give to something of its own, and another file, too."""
    names = set(re.findall(r"^#define (\w+)", text, re.M))
    for block in re.findall(r"^namespace \{\n(.*?)^\}  // namespace\n", text, re.M | re.S):
        # What begins at the start of a line: the last word before a bracket, a value or the end.
        for line in re.findall(r"^[A-Za-z][^({=;:\[\n]*", block.replace("::", "__"), re.M):
            names.update(re.findall(r"\w+", line.split("//")[0])[-1:])
    return names | set(re.findall(r"^static [^({=;\n]*?(\w+)\s*[({=;]", text, re.M))


def groups(files, commands):
    """Lists of files with the same options and no common names of their own."""
    result = []
    for file in files:
        names = own_names(Path(file).read_text())
        options = [option for option in commands[file] if option.startswith(("-D", "-I", "-std"))]
        for group in result:
            if len(group["files"]) < MOST and group["options"] == options and not group["names"] & names:
                break
        else:
            group = {"files": [], "options": options, "names": set()}
            result.append(group)
        group["files"].append(file)
        group["names"] |= names
    return [group["files"] for group in result]


def tidy(checks, database, file):
    return subprocess.run(["clang-tidy", "-p", database, "--quiet", f"--checks={checks}", file],
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False)


def main():
    arguments = sys.argv[1:]
    joined = arguments[0] == "--joined"
    checks, *files = arguments[joined:]
    entries = {os.path.relpath(entry["file"]): entry for entry in json.loads(DATABASE.read_text())}
    commands = {file: shlex.split(entry["command"]) for file, entry in entries.items()}
    files = [file for file in files if file in commands]  # others belong to programs of their own

    def single(file):
        run = tidy(checks, DATABASE.parent, file)
        print(run.stdout, end="", flush=True)
        return run.returncode == 0

    def together(group):
        if len(group) == 1:
            return single(group[0])
        place = JOINED / re.sub(r"\W", "_", group[0])
        place.mkdir(parents=True, exist_ok=True)
        source = place / "joined.cpp"
        source.write_text("".join(f'#include "{Path(file).resolve()}"\n' for file in group))
        first = entries[group[0]]
        command = commands[group[0]][:-1] + [str(source.resolve())]
        entry = {"directory": first["directory"], "file": str(source.resolve()), "arguments": command}
        (place / "compile_commands.json").write_text(json.dumps([entry]))
        # Joining includes them, which is no fault here.
        if tidy(checks + ",-bugprone-suspicious-include", place, source).returncode == 0:
            return True
        return all([single(file) for file in group])  # says which, or that only the joining failed

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        clean = list(pool.map(together, groups(files, commands)) if joined else pool.map(single, files))
    sys.exit(not all(clean))


main()
