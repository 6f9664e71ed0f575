"""Labelled pictures in the form of docs/treino.md, of which the masks are used here."""
import os

import cv2
import numpy as np

from amostras import normaliza


def rotuladas(pasta):
    """Name, grey bytes and labels of every NAME.png that has a NAME_labels.png, by name."""
    v = []
    for onde, _, nomes in sorted(os.walk(pasta)):
        for nome in sorted(nomes):
            base, sufixo = os.path.splitext(nome)
            mascara = os.path.join(onde, base + "_labels.png")
            if sufixo != ".png" or not os.path.exists(mascara):
                continue
            foto = cv2.imread(os.path.join(onde, nome), cv2.IMREAD_GRAYSCALE)
            rotulos = cv2.imread(mascara, cv2.IMREAD_UNCHANGED)
            if foto is None or rotulos is None or foto.shape != rotulos.shape:
                raise SystemExit(f"{mascara}: not the labels of a picture")
            v.append((os.path.join(onde, base), foto, rotulos.astype(np.uint16)))
    return v


def paraAprender(fotos):
    return [(normaliza(f), r) for _, f, r in fotos]
