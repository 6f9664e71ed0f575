"""The colours of the families as readers with every kind of colour vision see them, and in grey.

paleta.py CORES.js ESTILO.css    status 0 when any two are told apart, and each stands out from its ground
"""
import itertools
import re
import sys

import numpy

# Machado, Oliveira and Fernandes (2009), "A physiologically-based model for simulation of color
# vision deficiency", severity 1, on linear light.
VISOES = {
    "usual": numpy.eye(3),
    "protanopia": [[0.152286, 1.052583, -0.204868], [0.114503, 0.786281, 0.099216], [-0.003882, -0.048116, 1.051998]],
    "deuteranopia": [[0.367322, 0.860646, -0.227968], [0.280085, 0.672501, 0.047413], [-0.011820, 0.042940, 0.968881]],
    "tritanopia": [[1.255528, -0.076749, -0.178779], [-0.078411, 0.930809, 0.147602], [0.004733, 0.691367, 0.303900]],
    "grey": numpy.tile([0.2126, 0.7152, 0.0722], (3, 1)),
}
MENOR_DISTANCIA = 10  # CIE 1976, where about 2 is seen side by side
MENOR_CONTRASTE = 3   # WCAG 2.1, 1.4.11, between a graphical object and its ground


def linear(cor):
    s = numpy.array([int(cor[k:k + 2], 16) for k in (1, 3, 5)]) / 255
    return numpy.where(s <= 0.04045, s / 12.92, ((s + 0.055) / 1.055) ** 2.4)


def luminancia(cor):
    return float(linear(cor) @ [0.2126, 0.7152, 0.0722])


def contraste(a, b):
    claro, escuro = sorted((luminancia(a), luminancia(b)), reverse=True)
    return (claro + 0.05) / (escuro + 0.05)


def lab(rgb):
    para_xyz = numpy.array([[0.4124564, 0.3575761, 0.1804375], [0.2126729, 0.7151522, 0.0721750],
                            [0.0193339, 0.1191920, 0.9503041]])
    xyz = para_xyz @ numpy.clip(rgb, 0, 1) / [0.95047, 1, 1.08883]
    f = numpy.where(xyz > (6 / 29) ** 3, numpy.cbrt(xyz), xyz / (3 * (6 / 29) ** 2) + 4 / 29)
    return numpy.array([116 * f[1] - 16, 500 * (f[0] - f[1]), 200 * (f[1] - f[2])])


def distancia(a, b, visao):
    m = numpy.array(visao)
    return float(numpy.linalg.norm(lab(m @ linear(a)) - lab(m @ linear(b))))


def paletas(texto):
    """{'claro': {'c': '#rrggbb', ...}, 'escuro': {...}}"""
    return {nome: dict(re.findall(r"(\w): '(#[0-9a-f]{6})'", corpo))
            for nome, corpo in re.findall(r"(claro|escuro): \{(c: '#[^}]*)\}", texto)}


def fundos(texto):
    """The ground of plots, as the style has it in light and in the dark."""
    return dict(zip(("claro", "escuro"), re.findall(r"--cartao: (#[0-9a-f]{6})", texto)))


def confere(cores, fundo, nome):
    pior = {}
    for visao, m in VISOES.items():
        d, par = min((distancia(cores[a], cores[b], m), a + b) for a, b in itertools.combinations(cores, 2))
        assert d >= MENOR_DISTANCIA, f"{nome}, {visao}: {par} differ by {d:.1f}"
        pior[visao] = d
    for letra, cor in cores.items():
        assert contraste(cor, fundo) >= MENOR_CONTRASTE, f"{nome}: {letra} on its ground {contraste(cor, fundo):.2f}"
    return ", ".join(f"{visao} {d:.0f}" for visao, d in pior.items())


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8") as f:
        todas = paletas(f.read())
    with open(sys.argv[2], encoding="utf-8") as f:
        chao = fundos(f.read())
    assert set(todas) == set(chao) == {"claro", "escuro"}, (todas, chao)
    assert all(set(cores) == set("cqre") for cores in todas.values()), todas
    for nome, cores in todas.items():
        print(f"{nome}: least distance {confere(cores, chao[nome], nome)}")
