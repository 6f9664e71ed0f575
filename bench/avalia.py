#!/usr/bin/python3
"""Scores measured grains against the truth.

usage: avalia.py [options] VERDADE DETECCOES [VERDADE DETECCOES ...]

VERDADE     CSV, one grain a line: letter,row,col,d1,d2,ang,edge (rendered scenes), or
            row,col,area_px,...,letter,d1,d2,ang,...,edge (photographs).
DETECCOES   a CSV of the program (its columns in Portuguese or English), a CSV
            letter,row,col,d1,d2,ang[,score], or a .ho1 or .ho2.

--mascaras    match against the instances of NAME_labels.png beside NAME.csv, where there is one
              (row k of the truth is label k)
--borda       count grains with edge=1 too; else they count neither as missed nor as found
--minimo X    drop detections whose score is below X
--iou X       what a match needs, 0.5 by default
--json        one JSON object a pair, instead of the table

A true grain and a detection match one to one, best first, when the area that they share is at least
half of what they cover together (counted on 72 x 72 points, or on the pixels of an instance).

Columns: P, R, F1; melhorF1, F1 at the best minimum score; erro and vies, median of the relative
error of the equivalent diameter sqrt(4 area / pi), absolute and signed, in %; letra, share of the
matches with the true letter; s1 and s2, share of the true sizes within 1 and 2 stated errors, among
matches of the right letter; raio and viesr, median error of the equivalent radius, absolute and
signed, in pixels; centro, median distance of the centres, in pixels.

Centres are 0-based, pixel centres at whole numbers; d1 and d2 are full sizes in pixels. Inside, and
in truth tables, angles are in degrees counter-clockwise as displayed, from the columns to d1; the
program's own lists turn clockwise and are turned round on reading.

Needs Debian's python3-numpy; --mascaras needs python3-opencv.
"""
import argparse
import csv
import json
import math
import os
import sys

import numpy as np

PONTOS = 72  # a side of the grid on which two shapes are held against each other
LOTE = 256   # pairs held against each other at once

# The columns of the program, in its two languages.
COLUNAS = (("letra", "letter"), ("linha_px", "row_px"), ("coluna_px", "column_px"), ("d1_px",) * 2,
           ("d2_px",) * 2, ("angulo_graus", "angle_deg"))
NOTAS = ("apoio", "support", "correlacao", "correlation")
ERROS = (("erro_d1_px", "error_d1_px", "d1_error_px"), ("erro_d2_px", "error_d2_px", "d2_error_px"))


class Graos:
    """Shapes as columns: letra, forma (n x 5: row, col, d1, d2, ang), nota, erros (n x 2)."""

    def __init__(self, letras, formas, notas=None, erros=None):
        n = len(letras)
        self.letra = np.array(letras, dtype="U1")
        self.forma = np.array(formas, dtype=float).reshape(n, 5)
        self.nota = np.ones(n) if notas is None else np.array(notas, dtype=float)
        self.erros = np.full((n, 2), np.nan) if erros is None else np.array(erros, dtype=float).reshape(n, 2)
        redonda = self.letra == "c"
        igual = redonda | (self.letra == "q")
        self.forma[igual, 3] = self.forma[igual, 2]
        self.forma[redonda, 4] = 0
        self.reta = (self.letra == "q") | (self.letra == "r")

    def __len__(self):
        return len(self.letra)

    def area(self):
        return self.forma[:, 2] * self.forma[:, 3] * np.where(self.reta, 1, math.pi / 4)

    def alcance(self):
        """Half height and half width of the boxes about the shapes."""
        a = np.radians(self.forma[:, 4])
        c, s = np.abs(np.cos(a)), np.abs(np.sin(a))
        d1, d2 = self.forma[:, 2] / 2, self.forma[:, 3] / 2
        altura = np.where(self.reta, s * d1 + c * d2, np.hypot(s * d1, c * d2))
        largura = np.where(self.reta, c * d1 + s * d2, np.hypot(c * d1, s * d2))
        return altura, largura


def dentro(forma, reta, linhas, colunas):
    """Whether points lie in shapes; the arrays are broadcast, shapes along the first axis."""
    row, col, d1, d2, ang = (forma[:, k, None, None] for k in range(5))
    a = np.radians(ang)
    x, y = colunas - col, row - linhas
    u = np.abs(x * np.cos(a) + y * np.sin(a)) / (np.maximum(d1, 1e-6) / 2)
    v = np.abs(y * np.cos(a) - x * np.sin(a)) / (np.maximum(d2, 1e-6) / 2)
    return np.where(reta[:, None, None], np.maximum(u, v), u * u + v * v) <= 1


def iouFormas(a, b, i, j):
    """IoU of the shapes i of a with the shapes j of b, pair by pair."""
    if len(i) == 0:
        return np.zeros(0)
    (ya, xa), (yb, xb) = a.alcance(), b.alcance()
    saida = []
    grade = (np.arange(PONTOS) + 0.5) / PONTOS
    for k in range(0, len(i), LOTE):
        p, q = i[k:k + LOTE], j[k:k + LOTE]
        fa, fb = a.forma[p], b.forma[q]
        topo = np.minimum(fa[:, 0] - ya[p], fb[:, 0] - yb[q])[:, None]
        base = np.maximum(fa[:, 0] + ya[p], fb[:, 0] + yb[q])[:, None]
        esquerda = np.minimum(fa[:, 1] - xa[p], fb[:, 1] - xb[q])[:, None]
        direita = np.maximum(fa[:, 1] + xa[p], fb[:, 1] + xb[q])[:, None]
        linhas = (topo + grade * (base - topo))[:, :, None]
        colunas = (esquerda + grade * (direita - esquerda))[:, None, :]
        na = dentro(fa, a.reta[p], linhas, colunas)
        nb = dentro(fb, b.reta[q], linhas, colunas)
        algum = (na | nb).sum((1, 2))
        saida.append((na & nb).sum((1, 2)) / np.maximum(algum, 1))
    return np.concatenate(saida)


def paresDeFormas(verdade, det, minimo):
    """(IoU, true grain, detection) of all pairs that reach `minimo`."""
    if len(verdade) == 0 or len(det) == 0:
        return []
    rv, rd = np.max(verdade.alcance(), 0), np.max(det.alcance(), 0)
    av, ad = verdade.area(), det.area()
    perto_i, perto_j = [], []
    for t in range(len(verdade)):
        longe = np.hypot(det.forma[:, 0] - verdade.forma[t, 0], det.forma[:, 1] - verdade.forma[t, 1])
        razao = np.minimum(ad, av[t]) / np.maximum(np.maximum(ad, av[t]), 1e-9)
        j = np.nonzero((longe < rv[t] + rd) & (razao >= 0.95 * minimo))[0]
        perto_i.append(np.full(len(j), t))
        perto_j.append(j)
    i, j = np.concatenate(perto_i), np.concatenate(perto_j)
    x = iouFormas(verdade, det, i, j)
    return [(x[k], int(i[k]), int(j[k])) for k in np.nonzero(x >= minimo)[0]]


def paresDeMascara(rotulos, n, det, minimo):
    """The same against the instances of a label image; label k is true grain k - 1."""
    areas = np.bincount(rotulos.ravel(), minlength=n + 1)
    altura, largura = det.alcance()
    pares = []
    for d in range(len(det)):
        row, col = det.forma[d, :2]
        r0, r1 = max(0, math.floor(row - altura[d])), min(rotulos.shape[0], math.ceil(row + altura[d]) + 1)
        c0, c1 = max(0, math.floor(col - largura[d])), min(rotulos.shape[1], math.ceil(col + largura[d]) + 1)
        if r0 >= r1 or c0 >= c1:
            continue
        m = dentro(det.forma[d:d + 1], det.reta[d:d + 1], np.arange(r0, r1, dtype=float)[None, :, None],
                   np.arange(c0, c1, dtype=float)[None, None, :])[0]
        conta = np.bincount(rotulos[r0:r1, c0:c1][m], minlength=n + 1)
        x = conta / np.maximum(max(m.sum(), 1) + areas[:len(conta)] - conta, 1)
        x[0] = 0
        pares += [(x[t], int(t) - 1, d) for t in np.nonzero(x >= minimo)[0] if t <= n]
    return pares


def casa(pares):
    """Best first, each grain and each detection once."""
    usados, usadas, saida = set(), set(), []
    for x, t, d in sorted(pares, key=lambda p: -p[0]):
        if t in usados or d in usadas:
            continue
        usados.add(t)
        usadas.add(d)
        saida.append((t, d, x))
    return saida


def leVerdade(nome):
    """(grains, area of each, whether the border cuts it)"""
    letras, formas, areas, borda = [], [], [], []
    with open(nome, newline="") as arquivo:
        for r in csv.DictReader(arquivo):
            letras.append(r["letter"].strip().lower()[:1])
            formas.append([float(r[k]) for k in ("row", "col", "d1", "d2", "ang")])
            areas.append(float(r["area_px"]) if r.get("area_px") else np.nan)
            borda.append(bool(int(float(r.get("edge") or 0))))
    graos = Graos(letras, formas)
    areas = np.array(areas, dtype=float)
    return graos, np.where(np.isnan(areas), graos.area(), areas), np.array(borda, dtype=bool)


def primeiro(linha, nomes, falta=np.nan):
    for nome in nomes:
        if linha.get(nome) not in (None, ""):
            return float(linha[nome])
    return falta


def leCSV(nome):
    letras, formas, notas, erros = [], [], [], []
    with open(nome, newline="", encoding="utf-8-sig") as arquivo:
        leitor = csv.DictReader(arquivo)
        campos = leitor.fieldnames or []
        if "row" in campos:
            colunas, sinal = ["letter", "row", "col", "d1", "d2", "ang"], 1
        else:
            idioma = 0 if "letra" in campos else 1
            colunas, sinal = [c[idioma] for c in COLUNAS], -1
        for r in leitor:
            letras.append(r[colunas[0]].strip().lower()[:1])
            f = [float(r[k] or "nan") for k in colunas[1:]]
            f[3] = f[2] if math.isnan(f[3]) else f[3]
            f[4] = 0.0 if math.isnan(f[4]) else sinal * f[4]
            formas.append(f)
            notas.append(primeiro(r, ("score",) + NOTAS, 1.0))
            erros.append([primeiro(r, e) for e in ERROS])
    return Graos(letras, formas, notas, erros)


def leHo(nome):
    letras, formas, notas = [], [], []
    with open(nome, errors="replace") as arquivo:
        next(arquivo, "")
        for linha in arquivo:
            t = linha.split()
            if not t or t[0].startswith("//"):
                continue
            v = [float(x) for x in t[2:7]]
            letras.append(t[1].lower()[:1])
            formas.append(v[:4] + [-v[4]])
            notas.append(float(t[0]))
    return Graos(letras, formas, notas)


def leDeteccoes(nome, minimo=-math.inf):
    det = leHo(nome) if nome.lower().endswith((".ho1", ".ho2")) else leCSV(nome)
    fica = det.nota >= minimo
    return Graos(det.letra[fica], det.forma[fica], det.nota[fica], det.erros[fica])


def razao(a, b):
    return a / b if b else 0.0


def f1(acertos, deteccoes, verdade):
    return razao(2 * acertos, deteccoes + verdade)


def melhorCorte(det, pares, naoConta):
    """F1 of the list cut at the score that makes it best; the matches stay as they are."""
    estado = {d: (-1 if naoConta[t] else 1) for t, d, _ in pares}
    ordem = np.argsort(-det.nota, kind="stable")
    valor = np.array([estado.get(int(d), 0) for d in ordem])
    if len(valor) == 0:
        return 0.0
    acertos, deteccoes = np.cumsum(valor == 1), np.cumsum(valor >= 0)
    nota = det.nota[ordem]
    ultimo = np.append(nota[1:] != nota[:-1], True)  # a cut takes equal scores together
    total = int((~naoConta).sum())
    return float(np.max(np.where(ultimo, 2 * acertos / np.maximum(deteccoes + total, 1), 0)))


def medidasJuntas(verdade, det, t, d):
    """True sizes, stated sizes and stated errors, each on its own axis, of pairs of one letter."""
    vd, dd, e = verdade.forma[t, 2:4], det.forma[d, 2:4].copy(), det.erros[d].copy()
    longo = np.isin(verdade.letra[t], ("r", "e"))
    giro = np.abs((verdade.forma[t, 4] - det.forma[d, 4] + 90) % 180 - 90)
    troca = longo & (giro > 45)
    dd[troca], e[troca] = dd[troca][:, ::-1], e[troca][:, ::-1]
    conta = np.stack([np.ones(len(t), bool), longo], 1) & np.isfinite(e)
    return vd[conta], dd[conta], e[conta]


def mediana(v):
    return float(np.median(v)) if len(v) else math.nan


def media(v):
    return float(np.mean(v)) if len(v) else math.nan


def avalia(verdade, areas, borda, det, rotulos=None, contaBorda=False, iou=0.5):
    """All figures of one picture, as a dictionary."""
    naoConta = borda & (not contaBorda)
    pares = casa(paresDeFormas(verdade, det, iou) if rotulos is None else
                 paresDeMascara(rotulos, len(verdade), det, iou))
    certos = [p for p in pares if not naoConta[p[0]]]
    t = np.array([p[0] for p in certos], dtype=int)
    d = np.array([p[1] for p in certos], dtype=int)
    nv, nd = int((~naoConta).sum()), len(det) - (len(pares) - len(certos))
    alvo = areas if rotulos is not None else verdade.area()
    rv, rd = np.sqrt(alvo[t] / math.pi), np.sqrt(det.area()[d] / math.pi)
    mesma = verdade.letra[t] == det.letra[d]
    tv, td, e = medidasJuntas(verdade, det, t[mesma], d[mesma])
    longe = np.hypot(*(verdade.forma[t, :2] - det.forma[d, :2]).T)
    return {
        "verdade": nv, "det": nd, "certos": len(certos), "P": razao(len(certos), nd),
        "R": razao(len(certos), nv), "F1": f1(len(certos), nd, nv),
        "melhorF1": melhorCorte(det, pares, naoConta),
        "erro": 100 * mediana(np.abs(rd / rv - 1)), "vies": 100 * mediana(rd / rv - 1),
        "letra": media(mesma), "s1": media(np.abs(tv - td) <= e), "s2": media(np.abs(tv - td) <= 2 * e),
        "raio": mediana(np.abs(rd - rv)), "viesr": mediana(rd - rv), "centro": mediana(longe),
    }


def avaliaArquivos(verdade, deteccoes, mascaras=False, minimo=-math.inf, **opcoes):
    graos, areas, borda = leVerdade(verdade)
    rotulos = None
    nome = os.path.splitext(verdade)[0] + "_labels.png"
    if mascaras and os.path.exists(nome):
        import cv2
        rotulos = cv2.imread(nome, cv2.IMREAD_UNCHANGED).astype(np.int64)
    return avalia(graos, areas, borda, leDeteccoes(deteccoes, minimo), rotulos, **opcoes)


def mediaDe(tabela):
    """The plain mean of every column; figures that are missing are left out."""
    linha = {}
    for k in tabela[0]:
        v = [r[k] for r in tabela if not (isinstance(r[k], float) and math.isnan(r[k]))]
        linha[k] = sum(v) / len(v) if v else math.nan
    return linha


def mostra(nome, r):
    print("%-28s %5.0f %5.0f %6.3f %6.3f %6.3f %8.3f %7.2f %+7.2f %6.3f %6.3f %6.3f %6.2f %+6.2f %6.2f" %
          ((nome[:28],) + tuple(r[k] for k in ("verdade", "det", "P", "R", "F1", "melhorF1", "erro", "vies",
                                               "letra", "s1", "s2", "raio", "viesr", "centro"))))


def leArgumentos(argumentos):
    p = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    p.add_argument("--mascaras", action="store_true")
    p.add_argument("--borda", action="store_true")
    p.add_argument("--minimo", type=float, default=-math.inf)
    p.add_argument("--iou", type=float, default=0.5)
    p.add_argument("--json", action="store_true")
    p.add_argument("arquivos", nargs="+", metavar="VERDADE DETECCOES")
    a = p.parse_args(argumentos)
    if len(a.arquivos) % 2:
        p.error("files come in pairs: VERDADE DETECCOES")
    return a


def main(argumentos):
    a = leArgumentos(argumentos)
    tabela = []
    for verdade, deteccoes in zip(a.arquivos[::2], a.arquivos[1::2]):
        r = avaliaArquivos(verdade, deteccoes, a.mascaras, a.minimo, contaBorda=a.borda, iou=a.iou)
        if a.json:
            print(json.dumps(dict(verdade_csv=verdade, deteccoes_csv=deteccoes, **r)))
            continue
        if not tabela:
            print("%-28s %5s %5s %6s %6s %6s %8s %7s %7s %6s %6s %6s %6s %6s %6s" % (
                "", "verd", "det", "P", "R", "F1", "melhorF1", "erro%", "vies%", "letra", "s1", "s2",
                "raio", "viesr", "centro"))
        tabela.append(r)
        mostra(os.path.splitext(os.path.basename(verdade))[0], r)
    if len(tabela) > 1:
        mostra("media", mediaDe(tabela))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
