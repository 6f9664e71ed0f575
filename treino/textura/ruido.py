"""Random fields of which rocks, sand and light are made. All arrays are float32."""
import cv2
import numpy as np


def ruido(rng, forma, sigma):
    """Smooth noise of mean 0 and deviation 1; `sigma` is its grain in pixels."""
    passo = max(1, int(sigma / 2))
    l, c = forma
    fino = rng.standard_normal((l // passo + 9, c // passo + 9)).astype(np.float32)
    if sigma / passo > 0.3:
        fino = cv2.GaussianBlur(fino, (0, 0), sigma / passo)
    fino = (fino - fino.mean()) / (fino.std() + 1e-6)
    if passo > 1:
        fino = cv2.resize(fino, (fino.shape[1] * passo, fino.shape[0] * passo),
                          interpolation=cv2.INTER_CUBIC)
    return fino[:l, :c]


def fractal(rng, forma, maior, oitavas=4, queda=0.55):
    """Noise of several grains, from `maior` pixels down, each half as large as the one before."""
    soma = np.zeros(forma, np.float32)
    peso = 1.0
    for k in range(oitavas):
        sigma = maior / 2 ** k
        if sigma < 0.4:
            break
        soma += peso * ruido(rng, forma, sigma)
        peso *= queda
    return soma / (soma.std() + 1e-6)
