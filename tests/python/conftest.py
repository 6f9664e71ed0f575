"""What the tests of the Python module share: the programs, pictures, files of them."""

import os
import pathlib
import struct
import subprocess
import zlib

import numpy as np
import pytest

import vorplex

PROGRAMS = pathlib.Path(os.environ["VORPLEX_BIN"])
TEXT = "passoang 45 escoitava 2 circulo 21 quadrado 19 retangulo 24 11 elipse 26 13"


def run(*words):
    """Runs a program and returns what it says; it must end well."""
    words = [PROGRAMS / words[0], *words[1:]]
    return subprocess.run(words, check=True, capture_output=True, text=True).stdout


def scene(seed, rows=70, columns=90):
    """Dark shapes on noisy ground, in floats from 0 to 1."""
    draw = np.random.default_rng(seed)
    y, x = np.mgrid[:rows, :columns]
    picture = 0.75 + 0.04 * draw.standard_normal((rows, columns))
    for _ in range(6):
        row, column = draw.uniform(0, rows), draw.uniform(0, columns)
        angle, d1, d2 = draw.uniform(0, np.pi), draw.uniform(9, 26), draw.uniform(9, 16)
        u = (x - column) * np.cos(angle) + (y - row) * np.sin(angle)
        v = (y - row) * np.cos(angle) - (x - column) * np.sin(angle)
        box = np.maximum(abs(u) / d1, abs(v) / d2) <= 0.5
        disc = (u / d1) ** 2 + (v / d2) ** 2 <= 0.25
        picture[disc if draw.random() < 0.5 else box] -= draw.uniform(0.2, 0.6)
    return picture


def grey(seed, **sides):
    return np.clip(np.rint(255 * scene(seed, **sides)), 0, 255).astype(np.uint8)


def same(a, b):
    """Whether two tables are the same, field by field."""
    return a.dtype == b.dtype and a.shape == b.shape and bool((a == b).all())


def write_png(path, pixels):
    """8 or 16 bits; grey, RGB or RGBA."""
    rows, columns = pixels.shape[:2]
    channels = 1 if pixels.ndim == 2 else pixels.shape[2]
    lines = pixels.astype(pixels.dtype.newbyteorder(">")).reshape(rows, -1)
    data = b"".join(b"\0" + line.tobytes() for line in lines)
    head = struct.pack(
        ">IIBBBBB", columns, rows, 8 * pixels.itemsize, {1: 0, 3: 2, 4: 6}[channels], 0, 0, 0
    )
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n")
        for kind, text in ((b"IHDR", head), (b"IDAT", zlib.compress(data)), (b"IEND", b"")):
            check = zlib.crc32(kind + text)
            file.write(struct.pack(">I", len(text)) + kind + text + struct.pack(">I", check))


def write_tiff(path, pixels):
    """Floats; grey or RGB."""
    rows, columns = pixels.shape[:2]
    channels = 1 if pixels.ndim == 2 else pixels.shape[2]
    data = np.ascontiguousarray(pixels, "<f4").tobytes()
    after = 8 + 12 * 11 + 6  # the lists of numbers follow the table of entries
    short = struct.pack("<3H", 32, 32, 32), struct.pack("<3H", 3, 3, 3)
    entries = [(256, 4, 1, columns), (257, 4, 1, rows)]
    entries += [(258, 3, channels, 32 if channels == 1 else after), (259, 3, 1, 1)]
    entries += [(262, 3, 1, 1 if channels == 1 else 2), (273, 4, 1, after + 12)]
    entries += [(277, 3, 1, channels), (278, 4, 1, rows), (279, 4, 1, len(data)), (284, 3, 1, 1)]
    entries += [(339, 3, channels, 3 if channels == 1 else after + 6)]
    with open(path, "wb") as file:
        file.write(b"II*\0" + struct.pack("<IH", 8, len(entries)))
        for entry in entries:
            file.write(struct.pack("<HHII", *entry))
        file.write(struct.pack("<I", 0) + short[0] + short[1] + data)


def read_ppm(path):
    with open(path, "rb") as file:
        assert file.readline() == b"P6\n"
        columns, rows = map(int, file.readline().split())
        assert file.readline() == b"255\n"
        return np.frombuffer(file.read(), np.uint8).reshape(rows, columns, 3)


def write(path, pixels):
    (write_tiff if pixels.dtype == np.float32 else write_png)(path, pixels)


@pytest.fixture(scope="session")
def kernels():
    return vorplex.kernels(TEXT)


@pytest.fixture
def folder(tmp_path, monkeypatch):
    """An empty current directory with the kernels in k.cfg."""
    monkeypatch.chdir(tmp_path)
    (tmp_path / "k.cfg").write_text(TEXT)
    return tmp_path
