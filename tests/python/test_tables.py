"""Tables of detections and grains, and what is wrong with some."""

import math
import os

import numpy as np
import pytest

import vorplex
from conftest import grey, same

FIELDS = ("correlation", "shape", "row", "column", "d1", "d2", "angle")


@pytest.fixture(scope="module")
def image():
    return grey(5)


@pytest.fixture(scope="module")
def found(image, kernels):
    return vorplex.search(image, kernels, 0.05)


def test_fields(found):
    assert found.dtype == vorplex.detection_dtype
    assert found.dtype.names == FIELDS
    assert found["shape"].dtype == "S1"
    assert set(found["shape"]) <= {b"c", b"q", b"r", b"e"}
    assert (np.diff(found["correlation"]) <= 0).all()


def test_results_may_be_written(found):
    for array in (found, vorplex.measure(found), vorplex.filter((70, 90), found)):
        array["row"] += 1


def test_columns_by_name(image, found):
    kept = vorplex.filter(image.shape, found)
    columns = {name: found[name] for name in reversed(FIELDS)}
    assert same(vorplex.filter(image.shape, columns), kept)
    lists = {name: column.tolist() for name, column in columns.items()}
    lists["shape"] = [letter.decode() for letter in lists["shape"]]
    assert same(vorplex.filter(image.shape, lists), kept)
    other = np.zeros(len(found), [(n, "f8" if n != "shape" else "U3") for n in sorted(FIELDS)])
    for name in FIELDS:
        other[name] = found[name]
    assert same(vorplex.filter(image.shape, other), kept)
    wide = np.repeat(found, 2)[::2]
    assert same(vorplex.filter(image.shape, wide), kept)


def test_pandas_and_back(image, found):
    pandas = pytest.importorskip("pandas")
    frame = pandas.DataFrame(found)
    assert list(frame.columns) == list(FIELDS) and len(frame) == len(found)
    kept = vorplex.filter(image.shape, found)
    assert same(vorplex.filter(image.shape, frame), kept)
    grains = pandas.DataFrame(vorplex.measure(kept, "0.05mm"))
    assert vorplex.distribution(grains) == vorplex.distribution(vorplex.measure(kept, "0.05mm"))


def test_one_record(found):
    assert same(vorplex.measure(found[0]), vorplex.measure(found[:1]))


def test_nothing_found(image, kernels):
    empty = vorplex.search(image, kernels, 2)
    assert empty.shape == (0,) and empty.dtype == vorplex.detection_dtype
    assert len(vorplex.filter(image.shape, empty)) == 0
    assert len(vorplex.refine(image, empty)) == 0
    assert (vorplex.draw(image, empty) == image[..., None]).all()
    assert not vorplex.labels(image.shape, empty).any()
    assert len(vorplex.measure(empty, "1mm", image.shape)) == 0
    said = vorplex.distribution(vorplex.measure(empty))
    assert said.grains == 0 and all(math.isnan(x) for x in said[1:])


def test_empty_list_in_a_file(folder, image, kernels):
    vorplex.write_ho("empty.ho2", vorplex.search(image, kernels, 2))
    assert vorplex.read_ho("empty.ho2").shape == (0,)


@pytest.mark.parametrize(
    "wrong",
    [
        [1, 2, 3],
        np.zeros(3),
        np.zeros(3, [("row", "f8")]),
        {name: [0] for name in FIELDS[1:]},
        {name: [0] * (1 + (name == "row")) for name in FIELDS},
        np.zeros((2, 2), vorplex.detection_dtype),
        {**{name: [1.0] for name in FIELDS}, "shape": ["circle"]},
        None,
    ],
)
def test_what_is_no_table(wrong, image):
    for act in (
        lambda: vorplex.filter(image.shape, wrong),
        lambda: vorplex.refine(image, wrong),
        lambda: vorplex.measure(wrong),
        lambda: vorplex.draw(image, wrong),
        lambda: vorplex.labels(image.shape, wrong),
        lambda: vorplex.write_ho("never.ho1", wrong),
    ):
        with pytest.raises(TypeError, match="columns|letter"):
            act()


def test_grains_in_units(found):
    pixels, mm = vorplex.measure(found), vorplex.measure(found, scale="0.5 mm")
    assert "touches_border" not in pixels.dtype.names
    assert set(pixels["unit"]) == {b"px"} and set(mm["unit"]) == {b"mm"}
    for name in ("equivalent", "perimeter", "lesser", "greater"):
        assert (mm[name] == pixels[name] * 0.5).all()
    assert (mm["area"] == pixels["area"] * 0.25).all()
    with pytest.raises(vorplex.Error, match="units"):
        vorplex.distribution(np.concatenate((pixels, mm)))


def test_grains_beyond_the_image(found):
    grains = vorplex.measure(found, image_shape=(70, 90, 3))
    reach = np.hypot(grains["greater"], grains["lesser"]) / 2 + 1
    inside = (grains["row"] >= reach) & (grains["row"] + reach <= 70)
    inside &= (grains["column"] >= reach) & (grains["column"] + reach <= 90)
    assert inside.any()
    assert not grains["touches_border"][inside].any()
    assert grains["touches_border"].any()


def test_intervals(found):
    grains = vorplex.measure(found, "0.5 mm")
    one = vorplex.intervals(grains, weight="area")
    said = vorplex.distribution(grains, weight="area")
    assert one.pictures == 1
    for low, value, high in zip(*(x.percentiles.values() for x in (one.low, said, one.high))):
        assert low <= value <= high
    half = [grains[::2], grains[1::2], grains[:0]]
    assert vorplex.intervals(half).pictures == 2
    columns = {name: grains[name] for name in grains.dtype.names}
    assert str(vorplex.intervals([columns], weight="area")) == str(one)
    assert all(math.isnan(x) for x in vorplex.intervals([]).low[1:])
    with_errors = vorplex.measure(vorplex.refine(grey(5), found, sensitivity=1), "0.5 mm")
    assert "d1_error" in with_errors.dtype.names
    wide = with_errors.copy()
    wide["d1_error"] = wide["d2_error"] = 3
    narrow = vorplex.intervals(with_errors)
    wider = vorplex.intervals(wide)
    assert wider.high.mean - wider.low.mean > narrow.high.mean - narrow.low.mean
    with pytest.raises(vorplex.Error, match="units"):
        vorplex.intervals([grains, vorplex.measure(found)])
    with pytest.raises(vorplex.Error, match="scales"):
        vorplex.intervals(np.concatenate((grains, vorplex.measure(found, "1 mm"))))
    for wrong in (3, [1, 2], {"row": [1]}):
        with pytest.raises(TypeError):
            vorplex.intervals(wrong)


def test_distribution_words(found):
    grains = vorplex.measure(found)
    for wrong in ({"size": "radius"}, {"weight": "mass"}):
        with pytest.raises(ValueError, match="one of"):
            vorplex.distribution(grains, **wrong)


def test_errors_of_the_programs(folder, found):
    for text, what in (
        ("triangulo 20", "Erro: Palavra desconhecida triangulo"),
        ("circulo vinte", "vinte"),
        ("missing.cfg", "missing.cfg"),
    ):
        with pytest.raises(vorplex.Error, match=what):
            vorplex.kernels(text)
    with pytest.raises(vorplex.Error, match="Erro abertura arquivo missing.ho2"):
        vorplex.read_ho("missing.ho2")
    with pytest.raises(vorplex.Error, match="Escala invalida"):
        vorplex.measure(found, scale="0.05")
    bad = found[:1].copy()
    bad["row"] = np.nan
    with pytest.raises(vorplex.Error, match="not finite"):
        vorplex.write_ho("bad.ho1", bad)
    assert not os.path.exists("bad.ho1")
    with pytest.raises(vorplex.Error, match="threads"):
        vorplex.refine(grey(5), found, threads=0)
    assert issubclass(vorplex.Cancelled, vorplex.Error)
    assert vorplex.Error.__module__ == "vorplex"


def test_names_that_are_no_text(folder, found):
    name = b"caf\xe9 \xff.ho1"
    with pytest.raises(vorplex.Error) as error:
        vorplex.read_ho(name)
    assert os.fsdecode(name) in str(error.value)
    for path in (name, os.fsdecode(name), folder / "other one.ho1"):
        vorplex.write_ho(path, found[:3])
        assert len(vorplex.read_ho(path)) == 3


def test_kernels_in_a_file_with_spaces(folder):
    (folder / "two words.cfg").write_text("circulo 20")
    assert len(vorplex.kernels("two words.cfg")) == len(vorplex.kernels("circulo 20"))
    assert repr(vorplex.kernels("escoitava 1 circulo 20")) == "<vorplex.Kernels: 2>"
