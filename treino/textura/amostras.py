"""Pieces of labelled pictures to learn from, and what is to be learned of each pixel."""
import cv2
import numpy as np

from rede import PASSO


def alvos(rotulos):
    """Inside, limit and distance to the limit (1 in the middle of each grain): 3 x rows x cols."""
    n = int(rotulos.max())
    r = np.pad(rotulos, 1, mode="edge").astype(np.int32)
    meio = r[1:-1, 1:-1]
    borda = np.zeros(meio.shape, bool)
    for dl, dc in ((0, 1), (2, 1), (1, 0), (1, 2)):
        borda |= r[dl:dl + meio.shape[0], dc:dc + meio.shape[1]] != meio
    dentro = meio > 0
    dist = cv2.distanceTransform((dentro & ~borda).astype(np.uint8), cv2.DIST_L2, 5)
    maior = np.zeros(n + 1, np.float32)
    np.maximum.at(maior, meio.ravel(), dist.ravel())
    dist = dist / np.maximum(maior, 1)[meio]
    return np.stack([dentro, borda, np.where(dentro, dist, 0)]).astype(np.float32)


def normaliza(foto):
    """Grey of mean 0 and deviation 1 over the whole picture."""
    x = foto.astype(np.float32)
    return (x - x.mean()) / max(float(x.std()), 1.0)


def _aumenta(rng, x):
    """Another exposure, light from elsewhere, another camera."""
    x = x * np.float32(np.exp(rng.normal(0, 0.25))) + np.float32(rng.normal(0, 0.25))
    if rng.random() < 0.3:
        y, c = np.mgrid[-1:1:x.shape[0] * 1j, -1:1:x.shape[1] * 1j].astype(np.float32)
        x = x + np.float32(rng.normal(0, 0.3)) * y + np.float32(rng.normal(0, 0.3)) * c
    if rng.random() < 0.25:
        x = cv2.GaussianBlur(x, (0, 0), rng.uniform(0.4, 1.3))
    if rng.random() < 0.3:
        x = x + rng.uniform(0.02, 0.2) * rng.standard_normal(x.shape).astype(np.float32)
    if rng.random() < 0.3:  # another tone curve
        x = np.sign(x) * np.abs(x) ** np.float32(np.exp(rng.normal(0, 0.2)))
    return x.astype(np.float32)


def pedaco(rng, foto, rotulos, lado, escalas=(0.6, 1.6)):
    """A square of the normalised photograph at some scale, perhaps mirrored left to right (light
    comes from above, so never upside down), a little turned; and its targets."""
    assert lado % PASSO == 0
    esc = np.exp(rng.uniform(np.log(escalas[0]), np.log(escalas[1])))
    esc = max(esc, lado / min(foto.shape) + 0.02)
    ang = rng.normal(0, 8) if rng.random() < 0.5 else 0.0
    m = cv2.getRotationMatrix2D((0, 0), ang, esc)
    if rng.random() < 0.5:
        m[:, 0] *= -1  # mirrored
    vista = lado / esc
    centro = np.array([rng.uniform(vista / 2, max(vista / 2, s - vista / 2) + 1e-3)
                       for s in foto.shape[::-1]])
    m[:, 2] = lado / 2 - m[:, :2] @ centro
    if esc < 0.9:
        foto = cv2.GaussianBlur(foto, (0, 0), 0.35 / esc)
    x = cv2.warpAffine(foto, m, (lado, lado), flags=cv2.INTER_LINEAR,
                       borderMode=cv2.BORDER_REFLECT_101)
    r = cv2.warpAffine(rotulos, m, (lado, lado), flags=cv2.INTER_NEAREST,
                       borderMode=cv2.BORDER_REFLECT_101)
    areas = np.bincount(r.ravel())
    r = np.where(areas[r] >= 20, r, 0)  # what has become too small is sand
    return _aumenta(rng, x), alvos(r)
