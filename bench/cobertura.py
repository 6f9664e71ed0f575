#!/usr/bin/env python3
"""How often the 95 % intervals of vorplex-lote hold the truth, and what each treatment of the border
does to the mean, on drawn scenes of discs whose population is known.

cobertura.py BIN FOLDER [SCENES]    BIN has vorplex-lote; FOLDER takes scenes and results

Diameters are lognormal (median 22 px, sigma 0.4), cut at 10 and 64 px. They are drawn first and then
all placed, the largest first, over more than the picture, so that neither room nor border changes the
population. Needs numpy and OpenCV.
"""
import csv
import math
import os
import subprocess
import sys

import cv2
import numpy

LADO = 400
MENOR, MAIOR = 10, 64
NUMEROS = ("d10", "d50", "d90", "mean")


def diametros(sorteio, n):
    v = numpy.empty(0)
    while len(v) < n:
        x = 22 * numpy.exp(0.4 * sorteio.standard_normal(2 * n))
        v = numpy.concatenate([v, x[(x >= MENOR) & (x <= MAIOR)]])
    return v[:n]


def verdade(peso):
    x = numpy.sort(diametros(numpy.random.default_rng(1), 4_000_000))
    w = x ** {"number": 0, "volume": 3}[peso]
    acumulada = (numpy.cumsum(w) - w / 2) / w.sum()
    d10, d50, d90 = numpy.interp((0.1, 0.5, 0.9), acumulada, x)
    return {"d10": d10, "d50": d50, "d90": d90, "mean": float((w * x).sum() / w.sum())}


def coloca(sorteio, tamanhos):
    """Centres of discs that keep 3 px from each other; the largest first, so that all find room."""
    postos = numpy.empty((0, 3))
    for d in sorted(tamanhos, reverse=True):
        while True:
            x, y = sorteio.uniform(-MAIOR, LADO + MAIOR, 2)
            longe = numpy.hypot(x - postos[:, 0], y - postos[:, 1]) >= (d + postos[:, 2]) / 2 + 3
            if longe.all():
                break
        postos = numpy.vstack([postos, (x, y, d)])
    return postos


def cena(semente, arquivo):
    sorteio = numpy.random.default_rng(1000 + semente)
    campo = LADO + 2 * MAIOR
    graos = coloca(sorteio, diametros(sorteio, sorteio.poisson(campo * campo * 0.00027)))
    foto = numpy.tile(165 + 20 * numpy.arange(LADO) / LADO, (LADO, 1))
    for cx, cy, d in graos:
        tom = sorteio.uniform(60, 90)
        r = math.ceil(d / 2) + 1
        l0, l1 = (max(0, min(LADO, round(cy) + k)) for k in (-r, r + 1))
        c0, c1 = (max(0, min(LADO, round(cx) + k)) for k in (-r, r + 1))
        y, x = numpy.mgrid[l0:l1, c0:c1]
        dentro = numpy.clip(d / 2 + 0.5 - numpy.hypot(x - cx, y - cy), 0, 1)
        foto[l0:l1, c0:c1] += dentro * (tom - foto[l0:l1, c0:c1])
    foto = cv2.GaussianBlur(foto, (0, 0), 0.9) + 4 * sorteio.standard_normal(foto.shape)
    cv2.imwrite(arquivo, numpy.clip(foto + 0.5, 0, 255).astype(numpy.uint8))


def resumo(programas, pasta, fotos, *opcoes):
    saida = f"{pasta}/resultado"
    subprocess.run([f"{programas}/vorplex-lote", "--idioma", "en", "--quieto", "-o", saida, *opcoes,
                    f"{pasta}/kernel.cfg", *fotos], check=True, stderr=subprocess.DEVNULL)
    with open(f"{saida}/resumo.csv", encoding="utf-8", newline="") as f:
        return list(csv.DictReader(f))


def contem(linha, certo):
    return [float(linha[f"{k}_px_low"]) <= certo[k] <= float(linha[f"{k}_px_high"]) for k in NUMEROS]


def mostra(nome, peso, certos):
    partes = numpy.mean(certos, axis=0)
    print(f"| {nome} | {peso} | {len(certos)} | " + " | ".join(f"{100 * p:.1f} %" for p in partes) + " |",
          flush=True)


def main():
    programas, pasta = sys.argv[1:3]
    quantas = int(sys.argv[3]) if len(sys.argv) > 3 else 400
    os.makedirs(f"{pasta}/fotos", exist_ok=True)
    fotos = [f"{pasta}/fotos/c{k:04d}.png" for k in range(quantas)]
    for k, arquivo in enumerate(fotos):
        if not os.path.exists(arquivo):
            cena(k, arquivo)
    with open(f"{pasta}/kernel.cfg", "w", encoding="ascii") as f:
        f.write("escoitava 5\nescala 0.12 a 1\npiramide 1\ncirculo 72\n")
    print("| photographs | weight | runs | D10 | D50 | D90 | mean |\n|---|---|---|---|---|---|---|")
    for peso in ("number", "volume"):
        certo = verdade(peso)
        linhas = resumo(programas, pasta, fotos, "-w", peso)
        mostra(1, peso, [contem(r, certo) for r in linhas[:-1]])
        for n in (4, 20):
            grupos = [fotos[i:i + n] for i in range(0, quantas - n + 1, n)]
            mostra(n, peso, [contem(resumo(programas, pasta, g, "-w", peso)[-1], certo) for g in grupos])
    print("\n| border | weight | grains | D10 | D50 | D90 | mean |\n|---|---|---|---|---|---|---|")
    for peso in ("number", "volume"):
        certo = verdade(peso)
        for borda in ("correct", "include", "exclude"):
            r = resumo(programas, pasta, fotos, "-w", peso, "--border", borda)[-1]
            desvios = [f"{100 * (float(r[f'{k}_px']) / certo[k] - 1):+.2f} %" for k in NUMEROS]
            densidade = float(r["grains_per_px2"]) / 0.00027 - 1
            print(f"| {borda} | {peso} | {r['grains']} | " + " | ".join(desvios) +
                  f" | density {100 * densidade:+.2f} %", flush=True)


main()
