#!/usr/bin/env python3
"""How well photographs are measured with nothing told of them, beside sizes and families told.

usage: nada_dito.py BIN PICTURE.png...

BIN is the folder of the programs. Beside each PICTURE.png, with dark grains, lies its truth
PICTURE.csv, and PICTURE_labels.png where there are masks (bench/avalia.py). For each picture:

nothing told  vorplex-sugere chooses kernels, polarity and smallest correlation; search and
              vorplex-apura by that choice
told          search by kernels of the families and from the least to the greatest size of the true
              grains, and vorplex-apura --familias with these families
polarity      whether the choice of the picture is dark and that of its negative bright
cost          processor time of the choice over that of the search and fit by it

The table has the means over the pictures of a kind: the name of the picture without what
begins with a number after "_", or with eight hexadecimal digits.
"""
import collections
import csv
import math
import os
import re
import resource
import subprocess
import sys
import tempfile

import cv2

import avalia


def roda(*comando):
    """(standard output, processor seconds) of a command."""
    antes = resource.getrusage(resource.RUSAGE_CHILDREN)
    saida = subprocess.run(comando, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout
    depois = resource.getrusage(resource.RUSAGE_CHILDREN)
    return saida, depois.ru_utime - antes.ru_utime


def diametros(tabela):
    """Equivalent diameters and letters of the true grains that count."""
    graos, areas, borda = avalia.leVerdade(tabela)
    quais = ~borda if (~borda).any() else borda
    return [math.sqrt(4 * a / math.pi) for a in areas[quais]], "".join(x for x in "cqre" if x in graos.letra[quais])


def kernelDito(tabela):
    """(kernel.cfg, letters) for the true sizes and families."""
    d, letras = diametros(tabela)
    menor, maior = max(min(d), 6) / 1.1, max(d) * 1.1
    base = max(min(2 * menor, maior), maior / 8)
    linhas = [f"passoang 15 escoitava 5 escala {min(menor / base, 0.5):.3g} a 1 piramide {max(1, maior / base):.3g}"]
    for letra in letras:
        nome, lado = {"c": ("circulo", 1), "q": ("quadrado", math.sqrt(math.pi / 4)),
                      "r": ("retangulo", math.sqrt(math.pi / 4)), "e": ("elipse", 1)}[letra]
        if letra in "cq":
            linhas.append(f"{nome} {base * lado:.3g}")
            continue
        for p in (1.6, 2.5):
            curto = max(base * lado / math.sqrt(p), 4.5 / min(menor / base, 0.5))
            linhas.append(f"{nome} {curto * p:.3g} {curto:.3g}")
    return "\n".join(linhas) + "\n", letras


def mede(bin, figura, kernel, minCorr, pasta, mais=()):
    """(table of the grains, processor seconds) of search and fit."""
    with open(pasta + "/kernel.cfg", "w") as f:
        f.write(kernel)
    procura = roda(bin + "/Vorplex", "correla", figura, pasta + "/kernel.cfg", pasta + "/g.ho1", minCorr)[1]
    ajuste = roda(bin + "/vorplex-apura", "-j1", "--quieto", *mais, figura, pasta + "/g.ho1", pasta + "/g.csv")[1]
    return pasta + "/g.csv", procura + ajuste


def escolha(bin, figura):
    """(kernel.cfg, whether grains are bright, smallest correlation, processor seconds)"""
    texto, segundos = roda(bin + "/vorplex-sugere", "-j1", "--idioma", "pt", figura)
    recado = re.search(r"^// vorplex-lote:(.*)$", texto, re.M).group(1).split()
    return texto, "-i" in recado, recado[recado.index("-c") + 1], segundos


def umaFigura(bin, figura, pasta):
    tabela = figura[:-4] + ".csv"
    cinza = cv2.imread(figura, cv2.IMREAD_GRAYSCALE)
    negativo = pasta + "/negativo.png"
    cv2.imwrite(negativo, 255 - cinza)
    f1 = lambda graos: avalia.avaliaArquivos(tabela, graos, mascaras=True)["F1"]

    texto, claros, minCorr, tempoDaEscolha = escolha(bin, figura)
    graos, tempo = mede(bin, negativo if claros else figura, texto, minCorr, pasta)
    nada = f1(graos)
    kernel, letras = kernelDito(tabela)
    dito = f1(mede(bin, figura, kernel, "0.02", pasta, ("--familias", letras))[0])
    certas = int(not claros) + int(escolha(bin, negativo)[1])
    return nada, dito, certas / 2, tempoDaEscolha, tempo


def tipo(figura):
    return re.sub(r"(_[0-9].*|_[0-9a-f]{8})$", "", os.path.basename(figura)[:-4])


def main(bin, figuras):
    tipos = collections.defaultdict(list)
    with tempfile.TemporaryDirectory() as pasta:
        for figura in figuras:
            tipos[tipo(figura)].append(umaFigura(bin, figura, pasta))
            print(figura, *("%.3g" % x for x in tipos[tipo(figura)][-1]), file=sys.stderr, flush=True)
    print("| kind | pictures | F1, nothing told | F1, told | polarity right | cost of the choice |")
    print("|---|---|---|---|---|---|")
    medias = []
    for nome, v in sorted(tipos.items()):
        nada, dito, certas, escolhendo, medindo = (sum(x) / len(v) for x in zip(*v))
        medias.append((nada, dito))
        print(f"| {nome} | {len(v)} | {nada:.2f} | {dito:.2f} | {certas:.2f} | {escolhendo / medindo:.2f} |")
    nada, dito = (sum(x) / len(medias) for x in zip(*medias))
    print(f"mean over {len(medias)} kinds: nothing told {nada:.3f}, told {dito:.3f}")
    return 0


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1], sys.argv[2:]))
