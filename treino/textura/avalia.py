"""Scores of vorplex-mapa on labelled pictures, as a table.

  avalia.py PROGRAM WORK [--fotos FOLDER] [--cenas N] [--pesos WEIGHTS] [-- further options]

Photographs are mapped with fora-NAME.pesos of WORK (learned without them) unless --pesos says
otherwise; --cenas renders N scenes that none was learned on. An ellipse counts as found when it
shares more than half of its union with a true grain not yet found, those of most support first.
Grains at the border, and what matches them, count neither way."""
import argparse
import csv
import os
import subprocess
import tempfile

import cv2
import numpy as np

from cena import cena
from fotos import rotuladas

COLUNAS = ("row_px", "column_px", "d1_px", "d2_px", "angle_deg", "support")
PRIMEIRA_RESERVADA = 100000
CLASSES = ((0, 12), (12, 18), (18, 30), (30, 60), (60, 1e9))


def procura(programa, pesos, foto, outras):
    """Ellipses that the program finds, by decreasing support: row, col, d1, d2, angle, support."""
    with tempfile.TemporaryDirectory() as pasta:
        entrada, saida = os.path.join(pasta, "f.png"), os.path.join(pasta, "f.csv")
        cv2.imwrite(entrada, foto)
        subprocess.run([programa, entrada, saida, "--rede", pesos, "--idioma", "en", "--quieto",
                        *outras], check=True)
        with open(saida, encoding="utf-8-sig") as f:
            return [[float(r[k]) for k in COLUNAS]
                    for r in csv.DictReader(f)]


def mascara(e, forma):
    """Pixels of an ellipse: a box of the picture and what of it lies inside."""
    l, c, d1, d2, ang = e[:5]
    raio = int(max(d1, d2) / 2) + 2
    l0, l1 = max(0, int(l) - raio), min(forma[0], int(l) + raio + 2)
    c0, c1 = max(0, int(c) - raio), min(forma[1], int(c) + raio + 2)
    y, x = np.mgrid[l0:l1, c0:c1]
    a = np.deg2rad(ang)
    u = ((x - c) * np.cos(a) + (y - l) * np.sin(a)) / (d1 / 2)
    v = (-(x - c) * np.sin(a) + (y - l) * np.cos(a)) / (d2 / 2)
    return (slice(l0, l1), slice(c0, c1)), u * u + v * v <= 1


def compara(rotulos, achados):
    """For each found ellipse the true grain that it matches, 0 for none; and which are free: at the
    border or too small to be asked for."""
    n = int(rotulos.max())
    areas = np.bincount(rotulos.ravel(), minlength=n + 1)
    livre = np.zeros(n + 1, bool)
    for borda in (rotulos[0], rotulos[-1], rotulos[:, 0], rotulos[:, -1]):
        livre[np.unique(borda)] = True
    livre |= areas < 30
    usados, pares = set(), []
    for e in achados:
        caixa, dentro = mascara(e, rotulos.shape)
        comuns = np.bincount(rotulos[caixa][dentro], minlength=n + 1)
        iou = comuns / (areas + dentro.sum() - comuns)
        iou[0] = 0
        iou[list(usados)] = 0
        k = int(np.argmax(iou))
        if iou[k] >= 0.5:
            usados.add(k)
            pares.append(k)
        else:
            # What lies mostly on a free grain is not held against the program either.
            dono = int(np.argmax(comuns))
            pares.append(dono if dono and livre[dono] and comuns[dono] > dentro.sum() / 2 else 0)
    return areas, livre, pares


def conta(rotulos, achados):
    areas, livre, pares = compara(rotulos, achados)
    reais = [k for k in range(1, len(areas)) if areas[k] > 0 and not livre[k]]
    certos = [(k, e) for k, e in zip(pares, achados) if k and not livre[k]]
    falsos = sum(1 for k in pares if k == 0)
    diam = lambda k: np.sqrt(4 * areas[k] / np.pi)
    achou = {k for k, _ in certos}
    razoes = [np.sqrt(e[2] * e[3]) / diam(k) for k, e in certos]
    classes = []
    for de, ate in CLASSES:
        da = [k for k in reais if de <= diam(k) < ate]
        classes.append((sum(k in achou for k in da), len(da)))
    # Sizes of all grains of 8 px and more, those at the border too, as a user sees them.
    todos = [diam(k) for k in range(1, len(areas)) if areas[k] >= 50]
    vistos = [np.sqrt(e[2] * e[3]) for e in achados if np.sqrt(e[2] * e[3]) >= 8]
    return dict(vp=len(certos), fp=falsos, fn=len(reais) - len(certos), razoes=razoes,
                classes=classes, todos=todos, vistos=vistos)


def linha(nome, r):
    p, q = r["vp"] / max(1, r["vp"] + r["fp"]), r["vp"] / max(1, r["vp"] + r["fn"])
    f1 = 2 * p * q / max(1e-9, p + q)
    x = np.array(r["razoes"] or [np.nan])
    texto = f"| {nome} | {f1:.2f} | {p:.2f} / {q:.2f} | {np.median(np.abs(x - 1)):.3f} | "
    texto += f"{np.median(x) - 1:+.3f} | "
    texto += " ".join(f"{a / b:.2f}" if b else "-" for a, b in r["classes"]) + " | "
    if r["todos"] and r["vistos"]:
        a, b = (np.percentile(r[k], [16, 50, 84]) for k in ("vistos", "todos"))
        texto += " ".join(f"{d:+.0%}" for d in a / b - 1)
    return texto + " |", f1


def soma(rs):
    r = {k: sum(x[k] for x in rs) for k in ("vp", "fp", "fn")}
    for k in ("razoes", "todos", "vistos"):
        r[k] = [v for x in rs for v in x[k]]
    r["classes"] = [tuple(sum(x["classes"][i][j] for x in rs) for j in (0, 1))
                    for i in range(len(CLASSES))]
    return r


def main():
    p = argparse.ArgumentParser()
    p.add_argument("programa")
    p.add_argument("trabalho")
    p.add_argument("--fotos")
    p.add_argument("--cenas", type=int, default=0)
    p.add_argument("--pesos")
    p.add_argument("outras", nargs="*")
    pedido = p.parse_args()
    print("| picture | F1 | precision / recall | size error | bias | recall "
          + " ".join(f"<{ate:g}" for _, ate in CLASSES[:-1]) + " above | D16 D50 D84 |\n"
          "|---|---|---|---|---|---|---|", flush=True)
    lidas = [(os.path.basename(n), f, r) for n, f, r in rotuladas(pedido.fotos)] if pedido.fotos else []
    lidas += [(f"cena{k}", *cena(PRIMEIRA_RESERVADA + k)) for k in range(pedido.cenas)]
    rs, f1s = [], []
    for nome, foto, rotulos in lidas:
        pesos = pedido.pesos or os.path.join(pedido.trabalho, f"fora-{nome}.pesos")
        r = conta(rotulos, procura(pedido.programa, pesos, foto, pedido.outras))
        texto, f1 = linha(nome, r)
        print(texto, flush=True)
        rs.append(r)
        f1s.append(f1)
    if len(rs) > 1:
        print(linha(f"all (mean F1 {np.mean(f1s):.3f})", soma(rs))[0])


if __name__ == "__main__":
    main()
