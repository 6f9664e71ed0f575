"""The learning itself: from pictures with labels to a network."""
import sys
import time

import cv2
import numpy as np
import torch
from torch.nn import functional as F

from amostras import pedaco

LADO = 128
LOTE = 8


def perda(saida, alvo):
    """Cross entropy of inside and limit (limits are rare and count more), and error of distance."""
    peso = 1 + 2 * alvo[:, 1]
    dentro = F.binary_cross_entropy_with_logits(saida[:, 0], alvo[:, 0], weight=peso)
    limite = F.binary_cross_entropy_with_logits(saida[:, 1], alvo[:, 1], weight=peso)
    dist = F.smooth_l1_loss(torch.sigmoid(saida[:, 2]), alvo[:, 2], beta=0.1)
    return dentro + limite + 4 * dist


def aprende(rede, fontes, passos, semente, taxa=3e-3, minutos=None):
    """Trains in place. `fontes` are pairs of a share of the samples and a list of pictures
    (normalised grey, labels). Ends after so many steps, or minutes of the processor if given: then
    the result depends on the machine."""
    rng = np.random.default_rng(semente)
    partes = np.array([f[0] for f in fontes], float)
    otim = torch.optim.AdamW(rede.parameters(), lr=taxa, weight_decay=1e-3)
    rede.train()
    media, inicio = None, time.process_time()
    for passo in range(passos):
        feito = passo / passos
        if minutos:
            feito = max(feito, (time.process_time() - inicio) / 60 / minutos)
        if feito >= 1:
            break
        for g in otim.param_groups:  # rises over the first steps, then falls along a cosine
            g["lr"] = taxa * min(1, (passo + 1) / 50) * (0.01 + 0.99 * 0.5 * (1 + np.cos(np.pi * feito)))
        xs, ts = [], []
        for _ in range(LOTE):
            fotos = fontes[rng.choice(len(fontes), p=partes / partes.sum())][1]
            foto, rotulos = fotos[rng.integers(len(fotos))]
            x, t = pedaco(rng, foto, rotulos, LADO)
            xs.append(x[None])
            ts.append(t)
        p = perda(rede(torch.from_numpy(np.stack(xs))), torch.from_numpy(np.stack(ts)))
        otim.zero_grad()
        p.backward()
        torch.nn.utils.clip_grad_norm_(rede.parameters(), 2.0)
        otim.step()
        media = p.item() if media is None else 0.98 * media + 0.02 * p.item()
        if passo % 50 == 0 or passo == passos - 1:
            print(f"  {passo}/{passos}  {media:.4f}  {time.process_time() - inicio:.0f} s", flush=True)
    rede.eval()
    return rede
