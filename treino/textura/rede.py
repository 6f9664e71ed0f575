"""The network, and the file of its weights.

Grey in, three maps out (inside of a grain, its limit, distance to the limit), each 0 to 1. The
first layer halves the picture and the last one gives four pixels at a time, so that most of the
work is done on a quarter of the pixels."""
import hashlib

import numpy as np
import torch
from torch import nn
from torch.nn import functional as F

LARGURAS = (24, 40, 64, 80)  # channels at a half, a quarter, an eighth, a sixteenth
SAIDAS = 3
PASSO = 16  # sides of what goes in are multiples of this


class Conv(nn.Module):
    """Convolution, normalisation while learning, and no more negative values."""

    def __init__(self, entra, sai, lado=3, passo=1, normaliza=True, relu=True):
        super().__init__()
        self.conv = nn.Conv2d(entra, sai, lado, passo, lado // 2)
        self.norma = nn.BatchNorm2d(sai) if normaliza else None
        self.relu = relu

    def forward(self, x):
        x = self.conv(x)
        if self.norma is not None:
            x = self.norma(x)
        return F.relu(x) if self.relu else x

    def fundida(self):
        """Weights and offsets with the normalisation multiplied in."""
        w, b = self.conv.weight, self.conv.bias
        if self.norma is None:
            return w, b
        n = self.norma
        k = n.weight / torch.sqrt(n.running_var + n.eps)
        return w * k[:, None, None, None], (b - n.running_mean) * k + n.bias


def plano():
    """The layers in order: kind, name, inputs, and of convolutions channels, side, step, relu."""
    a, b, c, d = LARGURAS
    p = [("conv", "e1", ["foto"], 1, a, 5, 2, 1), ("conv", "e1b", ["e1"], a, a, 3, 1, 1)]
    antes = "e1b"
    for i, (de, para) in enumerate(((a, b), (b, c), (c, d)), start=2):
        p.append(("conv", f"e{i}", [antes], de, para, 3, 2, 1))
        p.append(("conv", f"e{i}b", [f"e{i}"], para, para, 3, 1, 1))
        antes = f"e{i}b"
    p.append(("conv", "fundo", [antes], d, d, 3, 1, 1))
    antes = "fundo"
    for i, (de, para) in enumerate(((d, c), (c, b), (b, a))):
        lado = f"e{3 - i}b"
        p.append(("conv", f"r{i}", [antes], de, para, 1, 1, 1))
        p.append(("dobra", f"r{i}d", [f"r{i}"]))
        p.append(("junta", f"r{i}j", [f"r{i}d", lado]))
        p.append(("conv", f"r{i}b", [f"r{i}j"], 2 * para, para, 3, 1, 1))
        antes = f"r{i}b"
    p.append(("conv", "ultima", [antes], a, a, 3, 1, 1))
    p.append(("conv", "quartos", ["ultima"], a, 4 * SAIDAS, 3, 1, 0))
    return p


class Rede(nn.Module):
    def __init__(self, normaliza=True):
        super().__init__()
        self.plano = plano()
        self.camadas = nn.ModuleDict({
            t[1]: Conv(t[3], t[4], t[5], t[6], normaliza and t[7] == 1, t[7] == 1)
            for t in self.plano if t[0] == "conv"})

    def forward(self, x):
        """Maps before the sigmoid, as large as the picture."""
        v = {"foto": x}
        for t in self.plano:
            tipo, nome, entradas = t[:3]
            if tipo == "conv":
                v[nome] = self.camadas[nome](v[entradas[0]])
            elif tipo == "dobra":
                v[nome] = F.interpolate(v[entradas[0]], scale_factor=2, mode="nearest")
            else:
                v[nome] = torch.cat([v[e] for e in entradas], 1)
        return F.pixel_shuffle(v["quartos"], 2)


def grava(rede, nome, cartao):
    """Writes the weights in 16 bits: lines of text, "pesos" and their number, then the numbers.

    The lines that begin with # are the card; they say what the weights were learned on."""
    numeros, linhas = [], []
    rede.eval()
    for t in rede.plano:
        if t[0] != "conv":
            linhas.append(f"{t[0]} {t[1]} {' '.join(t[2])}")
            continue
        w, b = rede.camadas[t[1]].fundida()
        numeros += [w.detach().numpy().ravel(), b.detach().numpy().ravel()]
        linhas.append(f"conv {t[1]} {t[2][0]} " + " ".join(str(k) for k in t[3:]))
    n = np.concatenate(numeros).astype("<f2")
    if not np.isfinite(n).all():
        raise SystemExit("weights beyond 16 bits")
    texto = "vorplex-mapa 1\n" + "".join(f"# {c}\n" for c in cartao)
    texto += "\n".join(linhas) + f"\npesos {n.size}\n"
    with open(nome, "wb") as f:
        f.write(texto.encode("utf-8") + n.tobytes())
    return hashlib.sha256(n.tobytes()).hexdigest()[:12]


def le(nome):
    """The network of such a file, to be used or trained further; it has no normalisation left."""
    with open(nome, "rb") as f:
        tudo = f.read()
    inicio = tudo.index(b"\npesos ") + 1
    fim = tudo.index(b"\n", inicio) + 1
    n = np.frombuffer(tudo[fim:], "<f2").astype(np.float32)
    rede = Rede(normaliza=False)
    i = 0
    with torch.no_grad():
        for t in rede.plano:
            if t[0] != "conv":
                continue
            for p in (rede.camadas[t[1]].conv.weight, rede.camadas[t[1]].conv.bias):
                p.copy_(torch.from_numpy(n[i:i + p.numel()].reshape(p.shape).copy()))
                i += p.numel()
    if i != n.size:
        raise SystemExit(f"{nome}: made for another network")
    return rede
