"""Which images are taken, and that those that fit are not copied."""

import tracemalloc

import numpy as np
import pytest

import vorplex
from conftest import grey, same, scene


def exact(found, expected):
    assert len(expected) > 20
    assert same(found, expected)


@pytest.fixture(scope="module")
def image():
    return grey(1)


@pytest.fixture(scope="module")
def expected(image, kernels):
    return vorplex.search(image, kernels, 0.03)


def room(rows, columns, dtype=np.uint8, channels=()):
    return np.full((rows, columns, *channels), 77, dtype)


def test_views_with_a_step(image, expected, kernels):
    rows, columns = image.shape
    wide = room(3 * rows, columns + 13)[::3, 5 : 5 + columns]
    wide[:] = image
    for view in (
        wide,
        np.asfortranarray(image),
        np.ascontiguousarray(image[::-1])[::-1],
        np.ascontiguousarray(image[:, ::-1])[:, ::-1],
        np.ascontiguousarray(image.T).T,
        np.repeat(image, 2, axis=1)[:, ::2],
        memoryview(image),
    ):
        exact(vorplex.search(view, kernels, 0.03), expected)


def test_read_only(image, expected, kernels):
    frozen = image.copy()
    frozen.flags.writeable = False
    exact(vorplex.search(frozen, kernels, 0.03), expected)
    assert (frozen == image).all()


def test_views_of_other_pixels(image, kernels):
    for dtype, full in ((np.uint16, 257), (np.float32, np.float32(1 / 255))):
        plain = (image * np.asarray(full, dtype)).astype(dtype)
        expected = vorplex.search(plain, kernels, 0.03)
        exact(expected, vorplex.search(image, kernels, 0.03))
        wide = room(2 * image.shape[0], image.shape[1] + 7, dtype)[::2, 3:-4]
        wide[:] = plain
        exact(vorplex.search(wide, kernels, 0.03), expected)
        exact(vorplex.search(np.asfortranarray(plain), kernels, 0.03), expected)
        exact(vorplex.search(plain.astype(plain.dtype.newbyteorder()), kernels, 0.03), expected)


def test_colour_of_one_grey(image, expected, kernels):
    colour = np.repeat(image[..., None], 3, axis=2)
    wide = room(image.shape[0] + 2, image.shape[1] + 2, channels=(3,))[1:-1, 1:-1]
    wide[:] = colour
    planes = np.moveaxis(np.stack([image] * 3), 0, 2)
    for view in (colour, wide, planes, colour[..., ::-1]):
        exact(vorplex.search(view, kernels, 0.03), expected)
    opaque = np.concatenate((colour, np.full_like(colour[..., :1], 255)), axis=2)
    exact(vorplex.search(opaque, kernels, 0.03), expected)


def test_misaligned(kernels):
    words = (scene(2).clip(0, 1) * 65535).astype(np.uint16)
    raw = np.frombuffer(b"\0" + words.tobytes(), np.uint8)[1:]
    shifted = raw.view(np.uint16).reshape(words.shape)
    assert not shifted.flags.aligned
    exact(vorplex.search(shifted, kernels, 0.03), vorplex.search(words, kernels, 0.03))


def test_floats_as_they_are(kernels):
    floats = scene(4).astype(np.float32)
    rounded = np.rint(floats.clip(0, 1) * 255).astype(np.uint8)
    eight = vorplex.search(floats, kernels, 0.03)
    exact(eight, vorplex.search(rounded, kernels, 0.03))
    unrounded = vorplex.search(floats, kernels, 0.03, as_floats=True)
    assert not same(unrounded, eight)
    greys = (rounded / np.float32(255)).astype(np.float32)
    assert len(vorplex.search(greys, kernels, 0.03, as_floats=True)) == len(eight)
    with pytest.raises(TypeError, match="float32"):
        vorplex.search(rounded, kernels, as_floats=True)


@pytest.mark.parametrize(
    "wrong",
    [
        np.zeros((5, 5)),
        np.zeros((5, 5), np.int32),
        np.zeros((5, 5), bool),
        np.zeros((5, 5), np.float16),
        np.zeros((5, 5), complex),
        np.zeros(5, np.uint8),
        np.zeros((5, 5, 1), np.uint8),
        np.zeros((5, 5, 2), np.uint8),
        np.zeros((5, 5, 5), np.uint8),
        np.zeros((2, 5, 5, 3), np.uint8),
        [[1, 2], [3, 4]],
        "foto.png",
        None,
    ],
)
def test_what_is_no_image(wrong, kernels):
    for act in (
        lambda: vorplex.search(wrong, kernels),
        lambda: vorplex.refine(wrong, np.zeros(0, vorplex.detection_dtype)),
        lambda: vorplex.draw(wrong, np.zeros(0, vorplex.detection_dtype)),
    ):
        with pytest.raises(TypeError, match=r"uint8, uint16 or float32 .*\(rows, columns, 3\)"):
            act()


def test_without_pixels(kernels):
    for sides in ((0, 0), (0, 9), (9, 0), (0, 9, 3)):
        for dtype in (np.uint8, np.uint16, np.float32):
            assert len(vorplex.search(np.zeros(sides, dtype), kernels)) == 0


def test_too_large(kernels):
    for sides in ((1, 2**20 + 1), (2**20 + 1, 1)):
        with pytest.raises(vorplex.Error, match="extent"):
            vorplex.search(np.zeros(sides, np.uint8), kernels)
        with pytest.raises(vorplex.Error, match="extent"):
            vorplex.search(np.zeros(sides, np.uint16), kernels)


def test_bytes_are_not_copied(kernels):
    large = np.zeros((2000, 3000), np.uint8)
    none = vorplex.kernels("escoitava 1 circulo 9")
    tracemalloc.start()
    try:
        for view in (large, large[100:, 200:], large[::2]):
            vorplex.search(view, none, 0.9, progress=lambda p: None)
        assert tracemalloc.get_traced_memory()[1] < large.size / 10
    finally:
        tracemalloc.stop()
