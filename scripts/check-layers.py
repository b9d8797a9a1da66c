#!/usr/bin/env python3
"""Checks that the product's libraries include only the libraries below them.

A library's sources may include, directly or through headers, the headers of its own and of the
libraries that its LINK in CMake leads to. A header belongs to the library of the .cpp beside it; one
without a .cpp goes wherever its own includes may go. Nothing of PublicLib/ may include jsw/, and the
public headers are included as <jsw/name.h> and nothing else is.
"""
import functools
import pathlib
import re
import sys

root = pathlib.Path(__file__).resolve().parent.parent
libraries = {}  # name: the libraries that it links
owner = {}  # source file: its library
for lists in sorted([*root.glob("jsw/**/CMakeLists.txt"), *root.glob("PublicLib/**/CMakeLists.txt")]):
    text = re.sub(r"#.*", "", lists.read_text())
    for name, words in re.findall(r"jsw_library\(\s*(\w+)([^)]*)\)", text):
        sources, _, links = words.partition("LINK")
        libraries[name] = links.split()
        for source in re.findall(r"\S+\.cpp", sources):
            owner[(lists.parent / source).relative_to(root)] = name


@functools.cache
def stands_on(library):
    below = {library}
    for name in libraries[library]:
        if name in libraries:
            below |= stands_on(name)
    return below


@functools.cache
def includes(file):
    return re.findall(r'^#include (["<])([^">]+)', (root / file).read_text(), re.MULTILINE)


faults = []


def check(library, source, file, seen):
    """Follows the includes of a file for one source of a library."""
    for _, name in includes(file):
        header = pathlib.Path(name)
        if header in seen or not (root / header).is_file():
            continue
        seen.add(header)
        room = owner.get(header.with_suffix(".cpp"))
        if room and room not in stands_on(library):
            faults.append(f"{source} of {library} includes {header} of {room} (in {file})")
        elif not room or room == library:
            check(library, source, header, seen)


for source, library in owner.items():
    check(library, source, source, set())
public = {path.name for path in (root / "include/jsw").glob("*.h")}
for folder in ("include", "jsw", "PublicLib", "common", "window", "samples", "tools", "tests", "bench"):
    for path in sorted((root / folder).rglob("*.[ch]*")):
        if path.suffix not in (".c", ".cpp", ".h"):
            continue
        file = path.relative_to(root)
        for mark, name in includes(file):
            is_public = name.startswith("jsw/") and name[4:] in public
            if folder == "PublicLib" and name.startswith("jsw/") and not is_public:
                faults.append(f"{file} includes {name}, which stands above it")
            if is_public != (mark == "<" and name.startswith("jsw/")):
                faults.append(f"{file}: <> for public headers, quotes for others: {name}")
if faults:
    sys.exit("\n".join(sorted(set(faults))))
print(f"layers: clean ({len(libraries)} libraries, {len(owner)} sources)")
