"""Holds README.md, CONTRIBUTING.md and docs/ to the code: every file, command, option, registry value,
function and log text that they set in `code` must be there, and the tables of settings are complete.

    python3 tests/docs/check_documents.py

Names that are not of this project (Windows' own, made-up examples) are listed in foreign-names.txt.
"""

import os
import re
import sys
from pathlib import Path

sys.dont_write_bytecode = True  # the source folder stays as it is
import check_settings  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]
FOLDERS = "jsw PublicLib include common window samples tools scripts cmake bench tests".split()
PROGRAM = r"(jswctl|qldemo|qlupdater)(\.exe)?"
FILE = r"\.(dll|exe|h|cpp|sh|xml|txt|loc|jbb|jobscript|md|cmake|png)$"


def read(path):
    # The documents write paths with single backslashes.
    return path.read_text(errors="replace").replace("\\\\", "\\").replace("\r", "")


def tree():
    """Every path below the root but what was built; folders without a final slash."""
    for folder, folders, files in os.walk(ROOT):
        folders[:] = [name for name in folders if name not in ("build", ".git")]
        for name in folders + files:
            yield os.path.relpath(os.path.join(folder, name), ROOT)


class Code:
    """What the documents may name."""

    def __init__(self):
        sources = [ROOT / "CMakeLists.txt", ROOT / "CMakePresets.json"]
        for folder in FOLDERS:
            sources += sorted(path for path in (ROOT / folder).rglob("*") if path.is_file())
        no_code = ("tests/docs", "tests/fuzz/corpus")
        self.text = "".join(read(path) for path in sources if path.suffix not in (".png", ".bmp")
                            and not path.relative_to(ROOT).as_posix().startswith(no_code))
        self.files = set(tree())
        for target in re.findall(r"^ *(?:jsw_module|add_executable|add_library)\(\s*([a-z_]+)",
                                 self.text, re.M):
            self.files |= {target + ".dll", target + ".exe"}
        self.names = {os.path.basename(path) for path in self.files}
        lines = (ROOT / "tests/docs/foreign-names.txt").read_text().splitlines()
        self.foreign = {re.sub(r" *#.*", "", line) for line in lines}

    def has_file(self, path):
        """A file or folder of the tree, by its path, by the end of it, or by its name alone."""
        path = path.rstrip("/")
        return path in self.files or path in self.names or any(
            file.endswith("/" + path) for file in self.files)


class Document:
    """One page; what it says wrongly goes into faults."""

    def __init__(self, code, path):
        self.code, self.path = code, path
        self.faults, self.links, self.names, self.commands = [], 0, 0, 0
        in_block = False
        for self.number, line in enumerate(path.read_text().splitlines(), 1):
            if line.startswith("```"):
                in_block = not in_block
                continue
            if in_block or re.match(r"    [^ ]", line):
                self.check_block_line(line.strip())
            if not in_block:
                self.check_links(line)
                for span in re.findall(r"`([^`]+)`", line):
                    self.check_span(span.replace(r"\|", "|"))

    def fail(self, what):
        self.faults.append(f"{self.path.relative_to(ROOT)}:{self.number}: {what}")

    def check_links(self, line):
        for link in re.findall(r"\]\(([^)]+)\)", line):
            link = link.split("#")[0]
            if not link or re.match("https?:", link):
                continue
            self.links += 1
            target = os.path.relpath(self.path.parent / link, ROOT)
            if target not in self.code.files:
                self.fail("no such file: " + link)

    def check_block_line(self, line):
        if re.match(PROGRAM + r"\b|scripts/", line):
            self.check_command(line)
        elif line.startswith("reg "):
            for part in re.split(r"[ \t\\]+", line)[2:]:
                if not part.startswith("/"):
                    self.check_word(part)

    def check_command(self, command):
        """A command of this project: its name and every option must be known."""
        words = re.split(r"[ \t]+", command.split(" #")[0])
        for word in words:
            word = re.sub(r"[\[\]\"',;]", "", word)
            if re.match("--[a-z]", word):
                option = word.split("=")[0]
                if option not in self.code.foreign and option not in self.code.text:
                    self.fail(f"no option {option} in: {command}")
            elif re.match(r"(\./)?scripts/", word) and not self.code.has_file(word.removeprefix("./")):
                self.fail("no script " + word)
        if re.fullmatch(PROGRAM, words[0]):
            self.commands += 1
        if words[0] == "jswctl" and len(words) > 1 and re.match("[a-z]", words[1]):
            if f'"{words[1]}"' not in self.code.text:
                self.fail("no command jswctl " + words[1])

    def check_span(self, span):
        span = re.sub("<[^<>]*>", "", span)  # <id>jswv.dll
        if re.match(PROGRAM + r"( |$)|(scripts/[a-z-]+\.sh|cmake)( |$)", span):
            self.check_command(span)
        elif span in self.code.foreign:
            return
        elif span in self.code.text:  # a text of the log, or a whole name: as it is written
            self.names += 1
        elif re.match("[A-Z].* .* ", span) and not re.search(r"[\\<=(%]", span):
            self.fail("not a text of the code: " + span)
        else:
            for word in re.split(r"[\\ |]+", span):
                self.check_word(word)

    def check_word(self, word):
        """One word that could be somebody's: a path, or a name with a capital or an underscore."""
        word = re.sub(r"""^[("'=]+|[)"',;:.=]+$""", "", word)
        if not word or word in self.code.foreign or re.match(r"%[A-Z]+%|[0-9]", word) or "…" in word:
            return
        if re.match("(" + "|".join(FOLDERS + ["docs"]) + ")/", word):
            path = re.sub(r"/\*.*$", "/", word)
            if not re.search("[{*]", path) and not self.code.has_file(path):
                self.fail("no such file: " + word)
        elif re.search(FILE, word):
            if not self.code.has_file(word) and word not in self.code.text:
                self.fail("no such file: " + word)
        elif re.fullmatch("[A-Za-z_][A-Za-z0-9_]*", word) and re.search("[A-Z_]", word):
            self.names += 1
            if word not in self.code.text:
                self.fail("not in the code: " + word)


def main():
    code = Code()
    paths = [ROOT / "README.md", ROOT / "CONTRIBUTING.md", *sorted((ROOT / "docs").glob("*.md"))]
    documents = [Document(code, path) for path in paths]
    faults = [fault for document in documents for fault in document.faults]
    faults += check_settings.faults(ROOT)
    links, names, commands = (sum(getattr(document, what) for document in documents)
                              for what in ("links", "names", "commands"))
    print(*faults, f"{links} links, {names} names and texts, {commands} commands", sep="\n")
    if links < 20 or names < 100 or commands < 3:
        sys.exit("the documents hardly name anything: the check itself is broken")
    sys.exit(bool(faults))


main()
