"""Learns the weights of the map: docs/textura.md.

  treina.py WORK OUTPUT [--fotos FOLDER] [--de WEIGHTS] [--passos N] [--ajuste N] [--semente N]

WORK keeps rendered scenes and networks between runs. OUTPUT gets cenas.pesos (rendered scenes
alone) and, with labelled photographs, fotos.pesos; WORK gets fora-NAME.pesos, learned without the
photograph NAME, for the table of scores that avalia.py makes."""
import argparse
import copy
import datetime
import os
import sys

import cv2
import numpy as np
import torch

from amostras import normaliza
from aprende import aprende
from cena import cena
from fotos import paraAprender, rotuladas
from rede import Rede, grava, le

NOSSA = "Apache-2.0, as the program"
CENAS = 240
LADO_DA_CENA = 384


def cenas(trabalho, quantas):
    """Normalised pictures and labels of rendered scenes; each is kept as a file."""
    v = []
    for k in range(quantas):
        nome = os.path.join(trabalho, f"cena{k}.npz")
        if not os.path.exists(nome):
            foto, rotulos = cena(k, LADO_DA_CENA)
            np.savez_compressed(nome, foto=foto, rotulos=rotulos)
        with np.load(nome) as f:
            v.append((normaliza(f["foto"]), f["rotulos"]))
    print(f"{quantas} scenes", flush=True)
    return v


def cartao(dados, licenca, pedido, passos):
    return ["Map of textured grains: weights of a network in 16 bits",
            f"Data: {dados}",
            f"Licence: {licenca}",
            f"Learned on {datetime.date.today()}: {passos} steps, seed {pedido.semente}, "
            "script/treina-textura",
            "Limits: grains of stone on stone, light from above, 8 px across and more. "
            "Scores, and where it fails: docs/textura.md"]


def base(pedido, fontes):
    """The network learned on scenes alone, or the one to go on from."""
    if pedido.de:
        return le(pedido.de)
    guardada = os.path.join(pedido.trabalho, "base.pt")
    rede = Rede()
    if os.path.exists(guardada):
        rede.load_state_dict(torch.load(guardada))
        return rede
    print("Rendered scenes:", flush=True)
    aprende(rede, [(1, fontes)], pedido.passos, pedido.semente)
    torch.save(rede.state_dict(), guardada)
    dados = f"{len(fontes)} rendered scenes (treino/textura), no photograph"
    grava(rede, os.path.join(pedido.saida, "cenas.pesos"),
          cartao(dados, NOSSA, pedido, pedido.passos))
    return rede


def ajusta(pedido, inicial, deCenas, fotos, dados, licenca, nome):
    """Goes on from `inicial` with photographs, two samples in three from them, and writes it."""
    rede = copy.deepcopy(inicial)
    torch.manual_seed(pedido.semente)
    aprende(rede, [(1, deCenas), (2, paraAprender(fotos))], pedido.ajuste, pedido.semente + 1,
            taxa=1.5e-3 if not pedido.de else 5e-4)
    grava(rede, nome, cartao(dados, licenca, pedido, pedido.ajuste))


def leFotos(pedido):
    """The photographs, and what their folder says of the licence in LICENCE.txt."""
    fotos = rotuladas(pedido.fotos)
    licenca = os.path.join(pedido.fotos, "LICENCE.txt")
    texto = "that of the photographs, which their folder does not tell"
    if os.path.exists(licenca):
        with open(licenca, encoding="utf-8") as f:
            texto = " ".join(f.read().split())
    nomes = ", ".join(os.path.basename(n) for n, _, _ in fotos[:5])
    return fotos, f"{len(fotos)} labelled photographs ({nomes}), and rendered scenes", texto


def main():
    p = argparse.ArgumentParser()
    p.add_argument("trabalho")
    p.add_argument("saida")
    p.add_argument("--fotos")
    p.add_argument("--de")
    p.add_argument("--passos", type=int, default=900)
    p.add_argument("--ajuste", type=int, default=200)
    p.add_argument("--semente", type=int, default=1)
    p.add_argument("--cenas", type=int, default=CENAS)
    p.add_argument("--sem-tabela", action="store_true")
    pedido = p.parse_args()
    os.makedirs(pedido.trabalho, exist_ok=True)
    os.makedirs(pedido.saida, exist_ok=True)
    cv2.setNumThreads(1)
    torch.set_num_threads(1)  # the same sums in the same order on every run
    torch.use_deterministic_algorithms(True)
    torch.manual_seed(pedido.semente)
    deCenas = cenas(pedido.trabalho, pedido.cenas)
    inicial = base(pedido, deCenas)
    if not pedido.fotos:
        return
    fotos, dados, licenca = leFotos(pedido)
    if not fotos:
        sys.exit(f"{pedido.fotos}: no NAME.png with NAME_labels.png")
    if not pedido.sem_tabela:
        for i, (nome, _, _) in enumerate(fotos):
            nome = os.path.basename(nome)
            print(f"Without {nome}:", flush=True)
            ajusta(pedido, inicial, deCenas, fotos[:i] + fotos[i + 1:], f"without {nome}", licenca,
                   os.path.join(pedido.trabalho, f"fora-{nome}.pesos"))
    print("All photographs:", flush=True)
    ajusta(pedido, inicial, deCenas, fotos, dados, licenca,
           os.path.join(pedido.saida, "fotos.pesos"))


if __name__ == "__main__":
    main()
