#!/usr/bin/env python3
"""Writes the seeds of CacheRecordFuzz: each record, and cartridges with counts at 0 and at their
maximum; the test cuts them at every length. Run it in this folder after adding a record."""
import pathlib
import struct

HEADER = b"\0\0"
NUMBER = struct.pack(">I", 1000)


def record(identifier, data):
    return struct.pack(">HB", identifier, len(data)) + data


RECORDS = {0x0016: b"99Z000000000123", 0x0515: b"\x01", 0x0523: b"\x01"}
for block, kind in ((0x0110, b"Q"), (0x0120, b"1")):
    RECORDS |= {block: kind, block + 3: NUMBER, block + 7: b"\x01", block + 8: NUMBER,
                block + 10: b"\x01"}
RECORDS |= {identifier: NUMBER for identifier in
            [*range(0x0400, 0x0407), 0x0414, 0x0415, 0x0417]}

seeds = {}  # content by name


def add(name, content):
    seeds[name] = content


for identifier, data in RECORDS.items():
    add(f"{identifier:04x}", HEADER + record(identifier, data))

for name, value in (("zero", 0), ("max", 0xFFFFFFFF)):
    counts = b"".join(record(identifier, struct.pack(">I", value))
                      for identifier, data in RECORDS.items() if data == NUMBER)
    for kind in b"0Pp":
        cartridges = record(0x0110, bytes([kind])) + record(0x0120, bytes([kind]))
        add(f"{name}-{kind:02x}", HEADER + cartridges + counts)
add("everything", HEADER + b"".join(record(*item) for item in RECORDS.items()))
add("length-beyond-end", HEADER + struct.pack(">HB", 0x0016, 255) + b"short")

folder = pathlib.Path(__file__).parent / "corpus" / "cache"
folder.mkdir(parents=True, exist_ok=True)
for old in folder.iterdir():
    old.unlink()
for name, content in seeds.items():
    (folder / name).write_bytes(content)
