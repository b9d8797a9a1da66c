#!/usr/bin/env python3
"""Runs clang-tidy on what a build compiles, as many files at a time as there are processors. Called by
check.sh, in the root.

    scripts/tidy.py FOLDER     the build's folder, with compile_commands.json
"""

import concurrent.futures
import json
import os
import subprocess
import sys
from pathlib import Path

# By the folder of the sources. Of tests and benchmarks only the compiler's warnings count. A build may
# join files by including them.
OWN = "-bugprone-suspicious-include"
WARNINGS = "-*,clang-diagnostic-*,modernize-use-override"
CHECKS = dict.fromkeys(("PublicLib", "jsw", "common", "window", "samples", "tools"), OWN)
CHECKS |= dict.fromkeys(("tests", "bench"), WARNINGS)

build = Path(sys.argv[1]).resolve()


def folder(file):
    """The folder in the root, for generated files too; empty for what is not ours."""
    for root in (build, Path.cwd()):
        if file.is_relative_to(root) and "googletest" not in file.parts:
            return file.relative_to(root).parts[0]
    return ""


def tidy(file):
    command = ["clang-tidy", "-p", build, "--quiet", f"--checks={CHECKS[folder(file)]}", file]
    run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False)
    print(run.stdout, end="", flush=True)
    return run.returncode == 0


entries = json.loads((build / "compile_commands.json").read_text())
files = sorted({Path(entry["file"]) for entry in entries if entry["file"].endswith((".cpp", ".cxx"))})
files = [file for file in files if folder(file) in CHECKS]
with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
    clean = list(pool.map(tidy, files))
if not all(clean):
    sys.exit(1)
print(f"tidy: clean ({len(files)} files)")
