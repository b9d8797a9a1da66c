"""Holds the tables of docs/settings.md and the lists of tools/jswctl/check/SettingLists.h to the headers
that name the registry values, in both directions. Imported by check_documents.py.
"""

import re

HEADERS = ("jsw/settings/SettingNames.h", "PublicLib/logging/LogSwitches.h",
           "PublicLib/printer/PrinterSettings.h")


def header_rows(header):
    """constant: (key, name, type, default), as the page writes them."""
    header = re.sub(r"//.*", "", header)
    keys = dict(re.findall(r'inline constexpr char (k\w+Key)\[\] = "([^"]*)";', header))
    rows = {}
    constant = r'inline constexpr (Text|Number) (k\w+)\{\s*("[^"]*"|k\w+),\s*"([^"]*)",\s*([^}]*?)\s*\}'
    for kind, constant, key, name, default in re.findall(constant, header):
        number = str(int(default, 0)) if kind == "Number" else default.strip('"')
        key = keys[key] if key in keys else key.strip('"')
        rows[constant] = (key, name, {"Text": "text", "Number": "number"}[kind], number)
    return rows, keys


def page_rows(page):
    """The rows whose third column is a type."""
    cells = re.findall(r"^\|([^|\n]*)\|([^|\n]*)\| (text|number) \|([^|\n]*)\|", page, re.M)
    return {tuple(cell.strip().strip("`") for cell in row) for row in cells}


def faults(root):
    def read(path):
        return (root / path).read_text().replace("\\\\", "\\").replace("\r", "")

    page, lists = read("docs/settings.md"), read("tools/jswctl/check/SettingLists.h")
    rows, keys = header_rows("".join(read(path) for path in HEADERS))
    if len(rows) < 40:
        return [f"only {len(rows)} settings were found: the check itself is broken"]
    known, told = set(rows.values()), page_rows(page)
    result = [f"docs/settings.md: no row {row}" for row in sorted(known - told)]
    result += [f"docs/settings.md: no such setting {row}" for row in sorted(told - known)]
    result += [f"SettingLists.h: {name} is missing" for name in rows
               if not re.search(rf"&{name}\b", lists)]
    result += [f"docs/settings.md: no key {key}" for key in keys.values() if f"`{key}`" not in page]
    lines = re.findall(r'X\("(..)", "(\w+)"', read("include/jsw/product_lines.h"))
    result += [f"docs/settings.md: no product line {prefix}" for prefix, key in lines
               if f"`{prefix}` | `{key}`" not in page]
    return result + ([] if len(lines) == 16 else ["the product lines were not found"])
