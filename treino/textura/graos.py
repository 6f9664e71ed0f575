"""One pebble: its outline, how high it stands, and the rock that it is made of."""
import numpy as np

from ruido import fractal, ruido

# Share of each rock, mean reflectance and its spread, and what is seen in it.
ROCHAS = [
    ("calcario", 0.36, 0.50, 0.10),
    ("arenito", 0.20, 0.42, 0.09),
    ("xisto", 0.15, 0.28, 0.07),
    ("basalto", 0.12, 0.22, 0.06),
    ("quartzo", 0.10, 0.85, 0.08),
    ("granito", 0.07, 0.52, 0.10),
]


def contorno(rng, d1, d2, ang):
    """Distance from the centre in units of the outline's (1 on it), over the box that holds it."""
    raio = int(0.75 * d1) + 3
    y, x = np.mgrid[-raio:raio + 1, -raio:raio + 1].astype(np.float32)
    y += rng.uniform(-0.5, 0.5)
    x += rng.uniform(-0.5, 0.5)
    u = (x * np.cos(ang) + y * np.sin(ang)) / (d1 / 2)
    v = (-x * np.sin(ang) + y * np.cos(ang)) / (d2 / 2)
    expoente = rng.uniform(1.8, 3.2)
    rho = (np.abs(u) ** expoente + np.abs(v) ** expoente) ** (1 / expoente)
    theta = np.arctan2(v, u)
    rugas = np.zeros_like(theta)
    for k in range(1, 7):
        rugas += rng.normal(0, 0.10 / k) * np.cos(k * theta + rng.uniform(0, 2 * np.pi))
    rho /= 1 + rugas
    for _ in range(rng.poisson(0.9)):  # broken or worn flat sides
        a = rng.uniform(0, 2 * np.pi)
        corte = (u * np.cos(a) + v * np.sin(a)) / rng.uniform(0.55, 0.95)
        rho = np.maximum(rho, corte + 0.03 * np.maximum(rho - 1, 0))
    return rho


def altura(rng, rho, d2):
    """Height above the widest section in pixels; what lies outside of the outline is negative."""
    gordura = rng.uniform(0.25, 0.6) * d2
    topo = rng.uniform(1.6, 4.0)  # 2: an ellipsoid; more: flat on top
    dentro = np.clip(rho, 0, 1)
    h = gordura * (1 - dentro ** topo) ** rng.uniform(0.4, 0.7)
    h += 0.02 * d2 * fractal(rng, rho.shape, max(1.0, d2 / 4), 3)
    return np.where(rho < 1, h, -1e3).astype(np.float32)


def _veios(rng, forma, d):
    """Bright or dark veins: level lines of smooth noise, broken off by other noise."""
    campo = ruido(rng, forma, max(2.0, d / rng.uniform(1.0, 3.0)))
    largura = rng.uniform(0.02, 0.10)
    veio = np.exp(-(campo / largura) ** 2)
    return veio * (ruido(rng, forma, max(1.0, d / 3)) > -0.3)


def refletancia(rng, forma, d, ang):
    """Share of the light that the surface of a pebble of diameter d throws back."""
    sorte = rng.choice(len(ROCHAS), p=np.array([r[1] for r in ROCHAS]))
    nome, _, media, desvio = ROCHAS[sorte]
    a = np.full(forma, np.clip(rng.normal(media, desvio), 0.1, 0.98), np.float32)
    a *= 1 + rng.uniform(0.03, 0.16) * fractal(rng, forma, max(2.0, d / 3), 6, 0.7)
    if nome == "granito" or rng.random() < 0.06:  # crystals
        g = rng.uniform(0.6, max(0.7, min(3.0, d / 15)))
        a += rng.uniform(0.04, 0.16) * np.clip(ruido(rng, forma, g), -1.5, 1.5)
    if nome in ("xisto", "arenito") and rng.random() < 0.3:  # layers
        y, x = np.mgrid[0:forma[0], 0:forma[1]].astype(np.float32)
        t = ang + rng.normal(0, 0.3)
        onda = (-x * np.sin(t) + y * np.cos(t)) / max(2.0, d / rng.uniform(3, 10))
        onda += 0.7 * ruido(rng, forma, max(2.0, d / 3))
        a *= 1 + rng.uniform(0.03, 0.15) * np.sin(2 * np.pi * onda)
    if rng.random() < 0.22:
        a += rng.choice([0.3, 0.2, -0.15]) * _veios(rng, forma, d)
    if rng.random() < 0.30:  # stains, lichen and dirt that sticks
        mancha = np.clip(fractal(rng, forma, max(2.0, d / 3), 4) - rng.uniform(0.3, 1.2), 0, 1)
        a += rng.uniform(-0.2, 0.2) * mancha
    return np.clip(a, 0.03, 1.0)
