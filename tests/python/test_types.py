"""The types that the module promises are those that it has, for mypy."""

import pathlib

import pytest

import vorplex

api = pytest.importorskip("mypy.api")

USE = """
import numpy as np
import numpy.typing as npt
import vorplex

image: npt.NDArray[np.uint8] = np.zeros((9, 9), np.uint8)
def progress(p: vorplex.Progress) -> bool:
    return p.groups_done < p.groups
found = vorplex.search(image, vorplex.kernels("circulo 20"), 0.1, progress)
kept: npt.NDArray[np.void] = vorplex.filter(image.shape, found, circle=(0.1, 0.2))
size: float = vorplex.distribution(vorplex.measure(kept, scale="1mm"), weight="area").d50
vorplex.write_ho("found.ho1", {name: found[name] for name in ("row", "column")})
"""

WRONG = """
import vorplex
vorplex.search([[1]], "circulo 20")
vorplex.distribution(3)
vorplex.read_ho(7)
"""


def mypy(folder, name, text):
    path = folder / name
    path.write_text(text)
    package = pathlib.Path(vorplex.__file__).parent
    out, errors, status = api.run(
        ["--strict", "--cache-dir", str(folder / "cache"), str(path), str(package)]
    )
    assert not errors
    return out, status


def test_package_and_its_use(folder):
    out, status = mypy(folder, "use.py", USE)
    assert status == 0, out
    out, status = mypy(folder, "wrong.py", WRONG)
    assert status == 1
    assert [line.split(":")[1] for line in out.splitlines()[:-1]] == ["3", "4", "5"], out


def test_stub_of_the_extension():
    """It names what is there, and nothing else."""
    from vorplex import _vorplex

    stub = pathlib.Path(vorplex.__file__).with_name("_vorplex.pyi").read_text()
    named = {line.split("(")[0].split(":")[0].split()[-1] for line in stub.splitlines()
             if line[:1].isalpha() and not line.startswith(("from", "import"))}  # fmt: skip
    assert named == {name for name in dir(_vorplex) if not name.startswith("__")}
