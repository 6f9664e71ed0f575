"""What the module finds is what the programs find, to the last bit."""

import csv
import math

import numpy as np
import pytest

import vorplex
from conftest import TEXT, grey, read_ppm, run, scene, write


def kinds(seed):
    """The scene in every kind of pixels, with noise of each in colour and transparency."""
    draw = np.random.default_rng(seed)
    dark = scene(seed)
    tint = np.clip(dark[..., None] * draw.uniform(0.6, 1.3, (1, 1, 3)), 0, 1)
    alpha = np.clip(draw.uniform(0.3, 1.6, dark.shape), 0, 1)[..., None]
    both = np.concatenate((tint, alpha), axis=2)
    for full, dtype in ((255, np.uint8), (65535, np.uint16)):
        for picture in (np.clip(dark, 0, 1), tint, both):
            yield np.rint(full * picture).astype(dtype)
    yield (1.4 * dark - 0.2).astype(np.float32)
    yield (1.4 * tint - 0.2).astype(np.float32)


@pytest.mark.parametrize("which", range(8))
def test_search_of_every_kind_of_pixels(folder, kernels, which):
    image = list(kinds(which))[which]
    write("foto.png", image)
    run("Vorplex", "correla", "foto.png", "k.cfg", "foto.ho1", "0.03")
    found = vorplex.search(image, kernels, 0.03)
    assert len(found) > 20
    vorplex.write_ho("python.ho1", found)
    assert (folder / "python.ho1").read_bytes() == (folder / "foto.ho1").read_bytes()


@pytest.mark.parametrize("seed", range(3))
def test_filter(folder, kernels, seed):
    image = grey(seed)
    write("foto.png", image)
    vorplex.write_ho("foto.ho1", vorplex.search(image, kernels, 0.03))
    found = vorplex.read_ho("foto.ho1")
    words = "default 0.05 0.4 circulo 0.1 0.2 quadrado 0.2 0 retangulo 0.08 0.3 elipse 0.06 0.1"
    run("Vorplex", "filtra", "foto.png", "foto.ho1", "foto.ho2", *words.split())
    kept = vorplex.filter(
        image.shape,
        found,
        circle=(0.1, 0.2),
        square=(0.2, 0),
        rectangle=(0.08, 0.3),
        ellipse=(0.06, 0.1),
    )
    vorplex.write_ho("python.ho2", kept)
    assert 0 < len(kept) < len(found)
    assert (folder / "python.ho2").read_bytes() == (folder / "foto.ho2").read_bytes()


# Columns of the table that vorplex-apura writes, and the fields that they are.
COLUMNS = {
    "linha_px": "row", "coluna_px": "column", "d1_px": "d1", "d2_px": "d2",
    "angulo_graus": "angle", "area_px2": "area", "diametro_equivalente_px": "equivalent",
    "perimetro_px": "perimeter", "diametro_menor_px": "lesser", "diametro_maior_px": "greater",
    "alongamento": "elongation", "toca_borda": "touches_border", "apoio": "support",
    "contraste": "contrast", "erro_linha_px": "row_error", "erro_coluna_px": "column_error",
    "erro_d1_px": "d1_error", "erro_d2_px": "d2_error", "erro_angulo_graus": "angle_error",
}  # fmt: skip


def digits(field):
    """Significant digits that tables have of a field."""
    return {"support": 4, "contrast": 4}.get(field, 3 if field.endswith("_error") else 9)


@pytest.mark.parametrize("seed", range(3))
def test_refine_and_measure(folder, kernels, seed):
    image = grey(seed + 10, rows=120, columns=150)
    write("foto.png", image)
    vorplex.write_ho("foto.ho1", vorplex.search(image, kernels, 0.02))
    run("vorplex-apura", "--sensibilidade", "0.9", "foto.png", "foto.ho1", "foto.csv")
    with open("foto.csv", newline="", encoding="utf-8") as file:
        told = list(csv.DictReader(file))
    refined = vorplex.refine(image, vorplex.read_ho("foto.ho1"), sensitivity=0.9)
    grains = vorplex.measure(refined, image_shape=image.shape)
    assert len(grains) == len(told) > 0
    assert [g.decode() for g in grains["shape"]] == [row["letra"] for row in told]
    assert grains["correlation"].tolist() == [np.float32(row["correlacao"]) for row in told]
    for column, field in COLUMNS.items():
        said = [float(f"{float(x):.{digits(field)}g}") for x in grains[field]]
        assert said == [float(row[column]) for row in told], field


def summary(folder):
    with open(folder / "resultado" / "resumo.csv", newline="", encoding="utf-8") as file:
        return list(csv.DictReader(file))[-1]


@pytest.mark.parametrize(
    "weight, peso, size, grandeza",
    [("number", "numero", "lesser", "menor"), ("volume", "volume", "equivalent", "equivalente")],
)
def test_distribution(folder, weight, peso, size, grandeza):
    (folder / "k.cfg").write_text(TEXT.replace("45", "90"))
    image = grey(3, rows=150, columns=180)
    write("foto.png", image)
    words = f"-e 0.05mm -w {peso} -g {grandeza} --borda inclui -j 1 --quieto k.cfg foto.png"
    run("vorplex-lote", *words.split())
    told = summary(folder)
    found = vorplex.read_ho("resultado/foto/foto.ho1")
    grains = vorplex.measure(vorplex.refine(image, found), scale="0.05mm")
    said = vorplex.distribution(grains, size=size, weight=weight)
    assert said.grains == len(grains) > 2
    band = vorplex.intervals(grains, size=size, weight=weight)
    assert band.pictures == 1
    for name in ("d5", "d10", "d50", "d90"):
        columns = [c for c in told if c.lower().startswith(name + "_")]
        values = (said, band.low, band.high)
        for value, column in zip(values, columns):
            decimals = len(told[column].partition(".")[2])
            assert round(getattr(value, name), decimals) == float(told[column]), column
    assert math.isfinite(said.sorting)


@pytest.mark.parametrize(
    "words, options",
    [
        ("", {"outline": "thin"}),
        ("C i", {"outline": "bold", "indices": True}),
        ("i p", {"outline": "thin", "indices": True, "centre": "thin"}),
        ("P", {"outline": "thin", "centre": "bold"}),
    ],
)
def test_draw_as_traca(folder, kernels, words, options):
    image = list(kinds(6))[len(words)]
    write("foto.png", image)
    found = vorplex.search(image, kernels, 0.1)
    vorplex.write_ho("foto.ho1", found)
    run("Vorplex", "traca", "foto.png", "foto.ho1", "formas.ppm", *words.split())
    assert (vorplex.draw(image, found, **options) == read_ppm("formas.ppm")).all()


@pytest.mark.parametrize("indices", [False, True])
def test_draw_as_apura(folder, kernels, indices):
    image = grey(12)
    write("foto.png", image)
    vorplex.write_ho("foto.ho1", vorplex.search(image, kernels, 0.02))
    words = ["--indices"] if indices else []
    run("vorplex-apura", *words, "foto.png", "foto.ho1", "formas.ppm")
    grains = vorplex.refine(image, vorplex.read_ho("foto.ho1"))
    assert len(grains) > 0
    assert (vorplex.draw(image, grains, indices=indices) == read_ppm("formas.ppm")).all()


def test_kernels_of_a_file_are_those_of_its_text(folder):
    text = vorplex.kernels(TEXT)
    assert (vorplex.kernels("k.cfg").table == text.table).all()
    assert (vorplex.kernels(folder / "k.cfg").table == text.table).all()
    assert len(text) == len(text.table) == run("Vorplex", "kernel", "k.cfg", "k.png").count("esc=")
