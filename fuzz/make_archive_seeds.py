#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Seeds of the archive fuzzer: make_archive_seeds.py FOLDER. Archives as other tools write them, lists of entries, and a
manifest with its signature's form."""
import io
import os
import sys
import zipfile

folder = sys.argv[1]
os.makedirs(folder, exist_ok=True)


def lay(name, data):
    with open(os.path.join(folder, name), "wb") as file:
        file.write(data)


def archive(names, packing):
    room = io.BytesIO()
    with zipfile.ZipFile(room, "w", packing) as made:
        for name in names:
            info = zipfile.ZipInfo(name)
            info.compress_type = packing
            made.writestr(info, b"[gp]\r\nnogp=1\r\n")
    return room.getvalue()


def entries(*members):
    return b"".join(bytes([kind, len(name.encode())]) + name.encode() + bytes([len(content)]) + content
                    for kind, name, content in members)


names = ["f12006.ini", "Photos/Circuits/Monaco.jpg", "Année", "../a.txt", "NUL.txt"]
for number, packing in enumerate((zipfile.ZIP_STORED, zipfile.ZIP_DEFLATED, zipfile.ZIP_BZIP2, zipfile.ZIP_LZMA)):
    for count in (1, 2, 3, 5):
        lay(f"zip-{number}-{count}", b"\0" + archive(names[:count], packing))
for mode in (1, 2):
    lay(f"data-{mode}", bytes([mode]) + entries((0, "f12006.ini", b"x"), (3, "Photos", b""), (1, "Photos/a.jpg", b"y")))
    lay(f"out-{mode}", bytes([mode]) + entries((0, "a.txt", b"x"), (0, "..\\b.txt", b"x"), (4, "l", b"/etc")))
    lay(f"names-{mode}", bytes([mode]) + entries((0, "C:a.txt", b"x"), (0, "com1.txt", b"x"), (0, "A.TXT", b"x")))
lay("manifest", b"\3# Circuidex miseajour.zip 20261123104500\n" + b"a" * 64 + b"  f12006.ini\n\0untrusted comment: x\n" +
    b"RUQ" + b"A" * 97 + b"=\ntrusted comment: y\n" + b"A" * 86 + b"==\n")
