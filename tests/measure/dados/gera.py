#!/usr/bin/env python3
"""Prints referencia.inc: grains and their distributions, computed with numpy by other means than the
program's. Run it as `python3 gera.py > referencia.inc`; the tests only read the result."""

import numpy as np

LADO_MM = 0.04
ABERTURAS = [0.5, 0.71, 1.0, 1.4, 2.0]
PERCENTIS = [5, 10, 16, 25, 30, 50, 60, 75, 84, 90, 95]


def sorteia():
    rng = np.random.default_rng(1957)
    graos = []
    for i in range(60):
        d1, d2 = np.round(np.exp(rng.normal(3.2, 0.4, 2)), 5)
        forma = "cqre"[i % 4]
        graos.append((forma, d1, d1 if forma in "cq" else d2))
    graos += graos[5:9]  # ties
    return [graos[i] for i in rng.permutation(len(graos))]


def perimetro(forma, d1, d2):
    if forma in "qr":
        return 2 * d1 + 2 * d2
    # The trapezoid rule on a periodic integrand converges faster than any power.
    t = np.arange(20000) * (2 * np.pi / 20000)
    return np.hypot(d1 / 2 * np.sin(t), d2 / 2 * np.cos(t)).mean() * 2 * np.pi


def distribui(x, w):
    ordem = np.lexsort((w, x))
    x, w = x[ordem], w[ordem]
    meio = (np.cumsum(w) - w / 2) / w.sum()
    d = np.interp(np.array(PERCENTIS) / 100, meio, x)
    if np.ptp(w) == 0:
        assert np.allclose(d, np.percentile(x, PERCENTIS, method="hazen"), rtol=1e-12)
    media = np.average(x, weights=w)
    desvio = np.sqrt(np.average((x - media) ** 2, weights=w))
    f = {p: -np.log2(d[PERCENTIS.index(100 - p)]) for p in (5, 16, 25, 50, 75, 84, 95)}
    phi = [
        (f[16] + f[50] + f[84]) / 3,
        (f[84] - f[16]) / 4 + (f[95] - f[5]) / 6.6,
        (f[16] + f[84] - 2 * f[50]) / (2 * (f[84] - f[16]))
        + (f[5] + f[95] - 2 * f[50]) / (2 * (f[95] - f[5])),
        (f[95] - f[5]) / (2.44 * (f[75] - f[25])),
    ]
    d10, d30, d60 = (d[PERCENTIS.index(p)] for p in (10, 30, 60))
    classes = np.histogram(x, [0, *ABERTURAS, np.inf], weights=w)[0] / w.sum()
    return [*d, media, desvio, *phi, d60 / d10, d30 * d30 / (d10 * d60)], classes


def lista(v):
    return "{" + ", ".join(repr(float(x)) for x in v) + "}"


def main():
    graos = sorteia()
    forma = np.array([g[0] for g in graos])
    d1 = np.array([g[1] for g in graos])
    d2 = np.array([g[2] for g in graos])
    area = np.where(np.isin(forma, ["c", "e"]), np.pi / 4, 1) * d1 * d2
    equivalente = 2 * np.sqrt(area / np.pi)
    tamanhos = [equivalente, np.minimum(d1, d2), np.maximum(d1, d2)]
    pesos = [np.ones(len(graos)), area, equivalente**3]
    print("// Printed by gera.py.")
    print("const std::vector<REFERENCIA_GRAO> referenciaGraos = {")
    for k, g in enumerate(graos):
        numeros = [g[1], g[2], area[k], equivalente[k], perimetro(*g)]
        print(f"    {{'{g[0]}', " + ", ".join(repr(float(x)) for x in numeros) + "},")
    print("};")
    print(f"const double referenciaLado = {LADO_MM};")
    print(f"const std::vector<double> referenciaAberturas = {lista(ABERTURAS)};")
    print("const std::vector<REFERENCIA_DISTRIBUICAO> referencias = {")
    for i, grandeza in enumerate(["equivalente", "menor", "maior"]):
        for j, peso in enumerate(["numero", "area", "volume"]):
            numeros, classes = distribui(tamanhos[i] * LADO_MM, pesos[j])
            print(f"    {{GRANDEZA::{grandeza}, PESO::{peso},")
            print(f"     {lista(numeros)},")
            print(f"     {lista(classes)}}},")
    print("};")


main()
