"""The pages of the documentation, tried as they stand."""

import contextlib
import importlib.util
import io
import pathlib
import re
import shutil
import sys
import types

import pytest

from conftest import read_ppm, run, write_png

DOCS = pathlib.Path(__file__).parents[2] / "docs"


def blocks(page):
    """The examples of a page: code, and what the page says that it prints, if anything."""
    text = (DOCS / page).read_text(encoding="utf-8")
    found = re.findall(r"^```(\w*)\n(.*?)^```$", text, re.M | re.S)
    for i, (language, code) in enumerate(found):
        if language == "python":
            said = found[i + 1] if i + 1 < len(found) else ("none", "")
            yield code, said[1] if said[0] == "" else None


def missing(code):
    """A module that the code imports and that isn't here."""
    for name in re.findall(r"^(?:import|from) (\w+)", code, re.M):
        if importlib.util.find_spec(name) is None:
            return name
    return None


def imread(name):
    """The picture as the programs read it, for where there is no imageio."""
    pathlib.Path("none.ho1").write_text("0\n")
    run("Vorplex", "traca", name, "none.ho1", "read.ppm")
    colour = read_ppm("read.ppm")
    return colour[..., 0] if (colour == colour[..., :1]).all() else colour


@pytest.fixture
def imageio(monkeypatch):
    if importlib.util.find_spec("imageio") is None:
        stand_in = types.SimpleNamespace(imread=imread, imwrite=write_png, __spec__=True)
        monkeypatch.setitem(sys.modules, "imageio", stand_in)


@pytest.mark.parametrize("page", ["python.md", "scikit-image.md"])
def test_page(folder, page, capsys, imageio):
    shutil.copy(DOCS / "graos.jpg", folder)
    space, left_out, tried = {}, [], 0
    for code, expected in blocks(page):
        absent = missing(code)
        if absent:
            left_out.append(absent)
            continue
        with contextlib.redirect_stdout(io.StringIO()) as out:
            exec(compile(code, page, "exec"), space)
        if expected is not None:
            assert out.getvalue() == expected, code
        tried += 1
    assert tried > 4
    if left_out:
        with capsys.disabled():
            print(f"\n{page}: left out what needs {', '.join(left_out)}")
