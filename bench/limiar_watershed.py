#!/usr/bin/python3
"""What thresholding and watershed make of photographs: the plain way, to hold results against.

usage: limiar_watershed.py FOTO SAIDA.csv [FOTO SAIDA.csv ...]

Dark grains on a brighter ground, one setting for all photographs:
    ground flattened    divided by a closing of 151 pixels, smoothed
    threshold           Otsu's, after a blur of deviation 1
    cleaned             opening of 3 pixels, holes filled
    cut apart           watershed of the distance to the ground, from its maxima that stand out by
                        half a pixel and a twentieth of their height: the steps that did best on
                        the rendered kinds to learn from, among twelve
    measured            ellipse of the region's second moments and area; a rectangle when the
                        smallest one about the region, shrunk to its area, covers it better; sizes
                        within 8 % make a circle or a square

Regions below 30 pixels are dropped. SAIDA: letter,row,col,d1,d2,ang,score as avalia.py reads it;
angles counter-clockwise as displayed; score is the share of the region that its shape covers.

Needs Debian's python3-numpy and python3-opencv.
"""
import csv
import math
import sys

import cv2
import numpy as np

MENOR = 30     # pixels of a region
DEGRAU = 0.5   # what a maximum stands out by, pixels
PARTE = 0.05   # and as a share of its height


def aplaina(foto):
    """The photograph with its ground at 1."""
    n = cv2.getStructuringElement(cv2.MORPH_ELLIPSE, (31, 31))
    pequena = cv2.resize(cv2.GaussianBlur(foto, (0, 0), 2), None, fx=0.2, fy=0.2, interpolation=cv2.INTER_AREA)
    chao = cv2.GaussianBlur(cv2.morphologyEx(pequena, cv2.MORPH_CLOSE, n), (0, 0), 8)
    chao = cv2.resize(chao, foto.shape[::-1], interpolation=cv2.INTER_LINEAR)
    return foto / np.maximum(chao, 1)


def separa(foto):
    """The pixels of grains, as 0 and 255."""
    plana = np.clip(200 * aplaina(foto.astype(np.float32)), 0, 255).astype(np.uint8)
    _, mascara = cv2.threshold(cv2.GaussianBlur(plana, (0, 0), 1), 0, 255, cv2.THRESH_BINARY_INV | cv2.THRESH_OTSU)
    mascara = cv2.morphologyEx(mascara, cv2.MORPH_OPEN, cv2.getStructuringElement(cv2.MORPH_ELLIPSE, (3, 3)))
    contornos, _ = cv2.findContours(mascara, cv2.RETR_EXTERNAL, cv2.CHAIN_APPROX_NONE)
    return cv2.drawContours(np.zeros_like(mascara), contornos, -1, 255, cv2.FILLED)


def reconstroi(semente, teto):
    """`semente` spread below `teto` until nothing changes."""
    n = np.ones((3, 3), np.uint8)
    while True:
        nova = np.minimum(cv2.dilate(semente, n), teto)
        if np.array_equal(nova, semente):
            return nova
        semente = nova


def inunda(marcas, altura, passo=0.25):
    """Watershed: the marks spread from the heights down, never to ground, whose height is 0."""
    n = np.ones((3, 3), np.uint8)
    rotulos = marcas.astype(np.float32)
    for nivel in np.arange(float(altura.max()), -passo, -passo):
        aberto = (altura > 0) & (altura >= nivel)
        while True:
            novo = aberto & (rotulos == 0) & (cv2.dilate(rotulos, n) > 0)
            if not novo.any():
                break
            rotulos[novo] = cv2.dilate(rotulos, n)[novo]
    return rotulos.astype(np.int32)


def regioes(mascara):
    """Label of every pixel, 0 for the ground; one label a grain."""
    longe = cv2.distanceTransform(mascara, cv2.DIST_L2, 5)
    suave = cv2.GaussianBlur(longe, (0, 0), 1) * (mascara > 0)
    altura = reconstroi(np.maximum((1 - PARTE) * suave - DEGRAU, 0), suave)
    picos = (altura > reconstroi(np.maximum(altura - 0.01, 0), altura) + 0.005).astype(np.uint8)
    n, marcas = cv2.connectedComponents(picos)
    return inunda(marcas, suave), n


def coberto(pontos, letra, row, col, d1, d2, ang):
    """The share of the pixels (rows of row, col) that the shape covers."""
    a = math.radians(ang)
    x, y = pontos[:, 1] - col, row - pontos[:, 0]
    u = np.abs(x * math.cos(a) + y * math.sin(a)) / (d1 / 2)
    v = np.abs(y * math.cos(a) - x * math.sin(a)) / (d2 / 2)
    return float(np.mean((np.maximum(u, v) if letra in "qr" else u * u + v * v) <= 1))


def elipse(pontos):
    row, col = pontos.mean(0)
    y, x = row - pontos[:, 0], pontos[:, 1] - col
    cov = np.array([[np.mean(x * x), np.mean(x * y)], [np.mean(x * y), np.mean(y * y)]]) + np.eye(2) / 12
    valores, eixos = np.linalg.eigh(cov)
    razao = math.sqrt(valores[1] / valores[0])
    d = 2 * math.sqrt(len(pontos) / math.pi)
    ang = math.degrees(math.atan2(eixos[1, 1], eixos[0, 1])) % 180
    if razao < 1.08:
        return ("c", row, col, d, d, 0.0)
    return ("e", row, col, d * math.sqrt(razao), d / math.sqrt(razao), ang)


def retangulo(pontos):
    (col, row), (w, h), ang = cv2.minAreaRect(pontos[:, ::-1].astype(np.float32))
    w, h = w + 1, h + 1  # from pixel centres to their far sides
    f = math.sqrt(len(pontos) / (w * h))
    if max(w, h) / min(w, h) < 1.08:
        lado = math.sqrt(len(pontos))
        return ("q", row, col, lado, lado, -ang % 90)
    return ("r", row, col, w * f, h * f, -ang % 180)


def mede(foto):
    """Shapes with their scores, as rows of the output."""
    rotulos, n = regioes(separa(foto))
    linhas, colunas = np.nonzero(rotulos)
    quais = rotulos[linhas, colunas]
    ordem = np.argsort(quais, kind="stable")
    pontos = np.stack([linhas, colunas], 1)[ordem].astype(float)
    limites = np.searchsorted(quais[ordem], np.arange(1, n + 1))
    saida = []
    for de, ate in zip(limites[:-1], limites[1:]):
        p = pontos[de:ate]
        if len(p) < MENOR:
            continue
        formas = [(coberto(p, *f), f) for f in (elipse(p), retangulo(p))]
        nota, forma = max(formas, key=lambda x: x[0])
        saida.append(forma + (nota,))
    return saida


def main(arquivos):
    if not arquivos or len(arquivos) % 2 or arquivos[0].startswith("-"):
        print(__doc__)
        return 2
    for nome, destino in zip(arquivos[::2], arquivos[1::2]):
        foto = cv2.imread(nome, cv2.IMREAD_GRAYSCALE)
        if foto is None:
            print("Erro: Imagem ilegivel " + nome, file=sys.stderr)
            return 1
        with open(destino, "w", newline="") as arquivo:
            escritor = csv.writer(arquivo, lineterminator="\n")
            escritor.writerow(["letter", "row", "col", "d1", "d2", "ang", "score"])
            for f in mede(foto):
                escritor.writerow([f[0]] + ["%.3f" % x for x in f[1:]])
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
