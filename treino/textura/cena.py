"""A photograph of a gravel wall or a river bed, rendered with its true grains.

The scene is a field of heights: sand, then pebbles laid from the large to the small where there is
room, each sunk into what lies below. Whoever stands highest is seen. Light, shadow, water, lens and
sensor follow from the heights."""
import cv2
import numpy as np

from graos import altura, contorno, refletancia
from ruido import fractal, ruido

MENOR_AREA = 30  # pixels: what is smaller counts as sand


def _diametros(rng, lado):
    """Largest first. Mixed sizes, between well sorted and badly sorted."""
    mediana = np.exp(rng.uniform(np.log(8), np.log(36)))
    desvio = rng.uniform(0.35, 1.0)
    cobertura = rng.uniform(0.35, 1.9)  # of all footprints, in pictures
    maior = rng.uniform(0.25, 0.5) * lado
    v, soma = [], 0.0
    while soma < cobertura * lado * lado and len(v) < 1500:
        d = float(np.clip(np.exp(rng.normal(np.log(mediana), desvio)), 4, maior))
        v.append(d)
        soma += 0.6 * d * d
    return sorted(v, reverse=True)


def _areia(rng, forma):
    """Heights and reflectance of what lies between the pebbles."""
    h = rng.uniform(1, 8) * fractal(rng, forma, rng.uniform(20, 70), 4)
    graos = np.zeros(forma, np.float32)
    for sigma in (0.6, 1.1, 2.0):
        graos += rng.uniform(0.1, 1.0) * sigma * np.abs(ruido(rng, forma, sigma))
    h += rng.uniform(0.2, 1.6) * graos
    a = rng.uniform(0.2, 0.65) * (1 + rng.uniform(0.03, 0.12) * fractal(rng, forma, 30, 4))
    for sigma in (0.6, 1.3, 2.2):
        a += rng.uniform(0.0, 0.09) * ruido(rng, forma, sigma) * (ruido(rng, forma, 8) > -0.8)
    if rng.random() < 0.3:  # clay with cracks
        a *= 1 - 0.4 * np.exp(-(ruido(rng, forma, 12) / 0.05) ** 2)
    return h.astype(np.float32), np.clip(a, 0.03, 0.95).astype(np.float32)


class Leito:
    """Heights, reflectance and owner of every pixel, of a scene under construction."""

    def __init__(self, rng, forma):
        self.rng = rng
        self.alt, self.refl = _areia(rng, forma)
        self.tom = self.refl.mean()
        self.dono = np.zeros(forma, np.int32)
        self.lisura = np.zeros(forma, np.float32)
        self.quantos = 0
        self.espalha = rng.uniform(0.2, 1.0)
        self.afunda = rng.uniform(0.0, 0.8)
        self.poeira = rng.uniform(0, 0.85) * rng.uniform(0, 1)  # makes all of one grey
        self.eixo = rng.uniform(-0.5, 0.5)  # pebbles lie roughly along a direction
        self.alinhado = rng.uniform(0.2, 1.5)

    def _recorte(self, l, c, caixa):
        """What of a box centred on (l, c) lies inside: slices of the scene and of the box."""
        m = caixa // 2
        r0, r1 = max(0, l - m), min(self.alt.shape[0], l + m + 1)
        c0, c1 = max(0, c - m), min(self.alt.shape[1], c + m + 1)
        return (slice(r0, r1), slice(c0, c1)), (slice(r0 - l + m, r1 - l + m),
                                                slice(c0 - c + m, c1 - c + m))

    def _lugar(self, d):
        """Anywhere, or of some places the lowest: as if it had rolled there."""
        rng = self.rng
        tentativas = 2 if rng.random() < self.espalha else 12
        l = rng.integers(0, self.alt.shape[0], tentativas)
        c = rng.integers(0, self.alt.shape[1], tentativas)
        k = int(np.argmin(self.alt[l, c] + 0.3 * d * (self.dono[l, c] > 0) * rng.uniform(0, 3)))
        return int(l[k]), int(c[k])

    def poe(self, d):
        rng = self.rng
        razao = rng.uniform(0.45, 1.0)
        d1, d2 = d / np.sqrt(razao), d * np.sqrt(razao)
        ang = self.eixo + rng.normal(0, self.alinhado)
        l, c = self._lugar(d)
        rho = contorno(rng, d1, d2, ang)
        cena, caixa = self._recorte(l, c, rho.shape[0])
        h = altura(rng, rho, d2)
        sob = self.alt[cena][rho[caixa] < 0.8]
        if sob.size == 0:
            return
        chao = np.percentile(sob, rng.uniform(20, 80))
        h = h + chao - np.float32(self.afunda * rng.uniform(0, 1) * 0.4 * d2)
        visivel = h[caixa] > self.alt[cena]
        if not visivel.any():
            return
        self.quantos += 1
        self.alt[cena][visivel] = h[caixa][visivel]
        p = np.float32(np.clip(self.poeira * rng.uniform(0.6, 1.2), 0, 0.95))
        rocha = refletancia(rng, rho.shape, d, ang)[caixa]
        self.refl[cena][visivel] = ((1 - p) * rocha + p * self.tom)[visivel]
        self.lisura[cena][visivel] = rng.uniform(0, 1) ** 2
        self.dono[cena][visivel] = self.quantos


def _ilumina(rng, leito):
    """Direct light with cast shadows, light of the sky, and gloss."""
    h = cv2.GaussianBlur(leito.alt, (0, 0), 0.7)
    gy, gx = np.gradient(h)
    norma = np.sqrt(gx * gx + gy * gy + 1)
    az = -np.pi / 2 + rng.normal(0, 0.9)  # mostly from above in the picture
    elev = rng.uniform(0.4, 1.3)
    luz = np.array([np.cos(az) * np.cos(elev), np.sin(az) * np.cos(elev), np.sin(elev)])
    direta = np.clip((-gx * luz[0] - gy * luz[1] + luz[2]) / norma, 0, None)
    sombra = np.zeros_like(h)
    sobe = np.tan(elev)
    for passo in (1, 2, 3, 5, 7, 10, 14, 19, 25, 33):
        m = np.float32([[1, 0, -luz[0] / np.cos(elev) * passo], [0, 1, -luz[1] / np.cos(elev) * passo]])
        fonte = cv2.warpAffine(h, m, (h.shape[1], h.shape[0]), borderMode=cv2.BORDER_REPLICATE)
        sombra = np.maximum(sombra, np.clip((fonte - passo * sobe - h) / (0.5 + 0.1 * passo), 0, 1))
    sombra = cv2.GaussianBlur(sombra, (0, 0), rng.uniform(0.5, 2.5))
    ceu = np.ones_like(h)  # corners between pebbles see less of the sky
    for sigma in (2, 5, 12, 30):
        fundo = cv2.GaussianBlur(h, (0, 0), sigma) - h
        ceu *= np.clip(1 - rng.uniform(0.5, 1.2) * np.clip(fundo, 0, None) / (1.2 * sigma), 0.2, 1)
    parte = rng.uniform(0.0, 0.75) if rng.random() < 0.8 else 0.0  # of the sun; none when overcast
    total = parte * direta * (1 - sombra) + (1 - parte) * ceu * (0.75 + 0.25 / norma)
    meio = np.array([luz[0], luz[1], luz[2] + 1])
    meio /= np.linalg.norm(meio)
    brilho = np.clip((-gx * meio[0] - gy * meio[1] + meio[2]) / norma, 0, 1) ** 40
    return total.astype(np.float32), (brilho * (1 - sombra) * parte).astype(np.float32)


def _molha(rng, leito):
    """Wet parts are darker and shine."""
    if rng.random() < 0.6:
        return
    molhado = 1 / (1 + np.exp(-6 * (ruido(rng, leito.alt.shape, 60) - rng.uniform(-1.5, 1.5))))
    leito.refl *= 1 - rng.uniform(0.2, 0.5) * molhado
    leito.lisura += rng.uniform(0, 1) * molhado


def _regua(rng, img, dono):
    """A ruler: a bright bar with ticks and figures, and its shadow."""
    lado = img.shape[0]
    l, w = rng.uniform(0.4, 1.6) * lado, rng.uniform(0.05, 0.18) * lado
    barra = np.full((max(8, int(w)), max(20, int(l))), rng.uniform(0.6, 1.0), np.float32)
    passo = rng.uniform(4, 20)
    for k in range(int(barra.shape[1] / passo)):
        alto = barra.shape[0] * (0.45 if k % 10 == 0 else 0.3 if k % 5 == 0 else 0.15)
        cv2.line(barra, (int(k * passo), 0), (int(k * passo), int(alto)), rng.uniform(0, 0.3), 1)
        if k % 10 == 0:
            cv2.putText(barra, str(k // 10), (int(k * passo) + 2, int(0.85 * barra.shape[0])),
                        cv2.FONT_HERSHEY_SIMPLEX, max(0.2, w / 70), 0.1, 1, cv2.LINE_AA)
    ang = rng.choice([0, 90]) + rng.normal(0, 12)
    _cola(rng, img, dono, barra, np.ones_like(barra), ang)


def _sapato(rng, img, dono):
    """The tip of a shoe, a lens cap, a finger: smooth and round, and no grain."""
    lado = img.shape[0]
    w, l = rng.uniform(0.12, 0.3) * lado, rng.uniform(0.2, 0.6) * lado
    y, x = np.mgrid[0:int(w), 0:int(l)].astype(np.float32)
    u, v = 2 * x / l - 1, 2 * y / w - 1
    forma = (np.abs(u) ** 4 + np.abs(v) ** 2.5 < 1).astype(np.float32)
    tom = rng.uniform(0.05, 0.9) * (0.9 + 0.15 * np.sin(rng.uniform(5, 40) * u + rng.uniform(0, 6)))
    _cola(rng, img, dono, (tom * (1 - 0.3 * v * v)).astype(np.float32), forma, rng.uniform(0, 360))


def _cola(rng, img, dono, objeto, forma, ang):
    lado = img.shape[0]
    m = cv2.getRotationMatrix2D((objeto.shape[1] / 2, objeto.shape[0] / 2), ang, 1)
    m[:, 2] += rng.uniform(0, 1, 2) * lado - np.array(objeto.shape[::-1]) / 2
    tam = (img.shape[1], img.shape[0])
    alfa = cv2.warpAffine(forma, m, tam, flags=cv2.INTER_LINEAR)
    cor = cv2.warpAffine(objeto, m, tam, flags=cv2.INTER_LINEAR, borderMode=cv2.BORDER_REPLICATE)
    desvio = np.float32([[1, 0, rng.uniform(-4, 4)], [0, 1, rng.uniform(1, 8)]])
    som = cv2.GaussianBlur(cv2.warpAffine(alfa, desvio, tam), (0, 0), rng.uniform(1, 5))
    img *= 1 - 0.5 * som
    img[:] = img * (1 - alfa) + cor * alfa
    dono[alfa > 0.5] = 0


def _fotografa(rng, img):
    """Uneven light, focus, exposure, noise and compression; bytes come out."""
    img = img * (1 + rng.uniform(0, 0.15) * ruido(rng, img.shape, 80))
    foco = abs(rng.normal(0.5, 0.4))
    if foco > 0.3:
        img = cv2.GaussianBlur(img, (0, 0), foco)
    if rng.random() < 0.3:  # sharpened by the camera
        img = img + rng.uniform(0.3, 1.2) * (img - cv2.GaussianBlur(img, (0, 0), 1.2))
    a, b = np.percentile(img, [rng.uniform(0, 1.5), rng.uniform(97.5, 100)])
    escuro, claro = rng.uniform(5, 50), rng.uniform(170, 270)
    img = np.clip((img - a) / (b - a + 1e-6), 0, None) ** rng.uniform(0.6, 1.1)
    img = escuro + (claro - escuro) * img
    img = img + rng.uniform(0.5, 5) * rng.standard_normal(img.shape)
    oito = np.clip(img, 0, 255).astype(np.uint8)
    if rng.random() < 0.5:
        _, bytes_ = cv2.imencode(".jpg", oito, [cv2.IMWRITE_JPEG_QUALITY, int(rng.integers(50, 96))])
        oito = cv2.imdecode(bytes_, cv2.IMREAD_GRAYSCALE)
    return oito


def numera(dono):
    """The largest visible piece of each owner, numbered from 1; pieces too small are 0."""
    plano = dono.ravel()
    ordem = np.argsort(plano, kind="stable")  # the pixels of each owner together
    cortes = np.searchsorted(plano[ordem], np.arange(1, plano.max() + 2))
    rotulos = np.zeros(dono.shape, np.uint16)
    n = 0
    for i, j in zip(cortes[:-1], cortes[1:]):
        if j - i < MENOR_AREA:
            continue
        l, c = np.unravel_index(ordem[i:j], dono.shape)
        mascara = np.zeros((l.max() - l.min() + 1, c.max() - c.min() + 1), np.uint8)
        mascara[l - l.min(), c - c.min()] = 1
        _, pecas, dados, _ = cv2.connectedComponentsWithStats(mascara, connectivity=4)
        maior = 1 + int(np.argmax(dados[1:, cv2.CC_STAT_AREA]))
        if dados[maior, cv2.CC_STAT_AREA] >= MENOR_AREA:
            n += 1
            y, x = np.nonzero(pecas == maior)
            rotulos[y + l.min(), x + c.min()] = n
    return rotulos


def cena(semente, lado=384):
    """A picture (bytes) and its labels (0: no grain), the same for the same seed."""
    rng = np.random.default_rng([7, semente])
    margem = 40
    forma = (lado + 2 * margem, lado + 2 * margem)
    leito = Leito(rng, forma)
    for d in _diametros(rng, lado):
        leito.poe(d)
    _molha(rng, leito)
    luz, brilho = _ilumina(rng, leito)
    img = leito.refl * luz + rng.uniform(0, 0.5) * np.clip(leito.lisura, 0, 1) * brilho
    dono = leito.dono
    if rng.random() < 0.22:
        _regua(rng, img, dono)
    if rng.random() < 0.12:
        _sapato(rng, img, dono)
    dentro = (slice(margem, margem + lado), slice(margem, margem + lado))
    return _fotografa(rng, img[dentro].astype(np.float32)), numera(dono[dentro].copy())
