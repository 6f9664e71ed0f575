"""From a picture to detections."""

from __future__ import annotations

import os
import threading
from typing import Any, Callable, NamedTuple, Optional, Sequence, Tuple, Union

import numpy as np
import numpy.typing as npt

from . import _arrays, _vorplex
from ._errors import Kernels
from ._files import Path

Pair = Tuple[float, float]


class Progress(NamedTuple):
    """How far a search has come: so many groups of kernels out of all, and what they found."""

    groups_done: int
    groups: int
    found: int


def kernels(text_or_path: Path) -> Kernels:
    """
    Describe the shapes that a search looks for.

    Parameters
    ----------
    text_or_path : str or path
        A `kernel.cfg` file, or what would stand in one: for instance ``"circulo 32"`` for circles
        of 32 pixels and less, or ``"passoang 10 escoitava 5 retangulo 48 20"`` for rectangles in
        steps of 10 degrees and five sizes an octave. A text of one word, or one that is the name
        of a file, is taken for a name.

    Returns
    -------
    Kernels
        The set of kernels. ``len`` tells how many there are; its `table` lists them.

    Raises
    ------
    Error
        When the file can't be read, or something is wrong with the text.

    See Also
    --------
    search : Look for them.

    Examples
    --------
    >>> import vorplex
    >>> shapes = vorplex.kernels("escoitava 2 escala 0.5 a 1 piramide 1 circulo 32")
    >>> len(shapes)
    3
    >>> shapes.table["d1"].round(2)
    array([32.  , 22.63, 16.  ])
    >>> vorplex.kernels("triangulo 20")
    Traceback (most recent call last):
    ...
    vorplex.Error: Erro: Palavra desconhecida triangulo
    """
    if isinstance(text_or_path, str):
        words = text_or_path.split()
        if len(words) != 1 and not os.path.isfile(text_or_path):
            return _vorplex.kernels_from_text(text_or_path)
    return _vorplex.kernels_from_file(os.fsencode(text_or_path))


def _processors(threads: Optional[int]) -> int:
    return len(os.sched_getaffinity(0)) if threads is None else threads


def _main_thread() -> bool:
    return threading.current_thread() is threading.main_thread()


def _counted(
    progress: Callable[[Progress], Optional[bool]]
) -> Callable[[int, int, int], bool]:
    """`progress` as the extension calls it: it returns False to end the search, and nothing else."""

    def call(groups_done: int, groups: int, found: int) -> bool:
        answer: Any = progress(Progress(groups_done, groups, found))
        return not isinstance(answer, (bool, np.bool_)) or bool(answer)

    return call


def search(
    image: npt.ArrayLike,
    kernels: Kernels,
    min_corr: float = 0.001,
    progress: Optional[Callable[[Progress], Optional[bool]]] = None,
    *,
    as_floats: bool = False,
) -> npt.NDArray[np.void]:
    """
    Find the shapes of a set of kernels in an image.

    Finds the places where the correlation of the image with a kernel is at its highest, without
    those that have a better one of the same shape within 2 pixels: what ``Vorplex correla`` finds.
    There are many more of them than there are grains, since each grain is found as several shapes
    and in parts; `filter` or `refine` chooses among them.

    It takes one thread and about 18 bytes of memory a pixel. Ctrl-C ends it.

    Parameters
    ----------
    image : array_like
        Of uint8, uint16 or float32; grey, RGB or RGBA. Grains are darker than their ground.
    kernels : Kernels
        What to look for.
    min_corr : float, default 0.001
        The smallest correlation that is kept. 0.1 means a tenth of the step from black to white
        and is a good beginning for `filter`; `refine` asks for some 0.02.
    progress : callable, optional
        Called some twenty times a second, and at the end, with a `Progress`: `groups_done`,
        `groups` and `found`. When it returns False, the search is cancelled.
    as_floats : bool, default False
        Search a grey image of float32 as it is, without a copy, instead of rounded to the 256 greys
        that the programs see.

    Returns
    -------
    ndarray
        The detections, best first, with the fields `correlation`, `shape`, `row`, `column`
        (pixels), `d1`, `d2` (pixels) and `angle` (degrees); empty when there are none.

    Raises
    ------
    Cancelled
        When `progress` returned False.
    Error
        When the image is too large, or `min_corr` is not finite.
    TypeError
        When the image is of another kind.

    See Also
    --------
    filter : Keep those that don't overlap better ones.
    refine : Fit them to the edges of the image.

    Examples
    --------
    >>> import numpy as np
    >>> import vorplex
    >>> image = np.full((60, 80), 200, np.uint8)
    >>> image[20:41, 30:51] = 60
    >>> squares = vorplex.kernels("escoitava 1 piramide 1 passoang 90 quadrado 21")
    >>> found = vorplex.search(image, squares, min_corr=0.3)
    >>> len(found), found["row"][0], found["column"][0], found["d1"][0]
    (1, 30.0, 40.0, 21.0)
    """
    call = None if progress is None else _counted(progress)
    # Python sees to signals in its first thread alone.
    watched = call is not None or _main_thread()
    if as_floats:
        floats = _arrays.picture(image)
        if floats.dtype != np.float32 or floats.ndim != 2:
            raise TypeError("as_floats is for grey images of dtype float32")
        return _vorplex.search_floats(floats, kernels, min_corr, call, watched)
    return _vorplex.search(_arrays.grey(image), kernels, min_corr, call, watched)


def _sides(image_shape: Sequence[int]) -> Tuple[int, int]:
    if len(image_shape) not in (2, 3):
        raise TypeError("image_shape is the shape of an image: rows, columns, and perhaps channels")
    return int(image_shape[0]), int(image_shape[1])


def filter(
    image_shape: Sequence[int],
    detections: _arrays.Table,
    min_corr: float = 0.1,
    max_overlap: float = 0.3,
    *,
    circle: Optional[Pair] = None,
    square: Optional[Pair] = None,
    rectangle: Optional[Pair] = None,
    ellipse: Optional[Pair] = None,
) -> npt.NDArray[np.void]:
    """
    Keep the detections that don't overlap better ones.

    Goes through the detections in their order and keeps those of at least `min_corr` that share at
    most `max_overlap` of their pixels with those kept before or with the outside of the image: what
    ``Vorplex filtra`` keeps.

    Parameters
    ----------
    image_shape : tuple of int
        The ``shape`` of the image that they were found in.
    detections : ndarray, DataFrame or dict
        Detections, best first, as `search` returns them.
    min_corr : float, default 0.1
        The smallest correlation that is kept.
    max_overlap : float, default 0.3
        The largest share of its pixels, 0 to 1, that a detection may have in common with others.
    circle, square, rectangle, ellipse : (float, float), optional
        Other `min_corr` and `max_overlap` for a shape.

    Returns
    -------
    ndarray
        The detections that are kept, in the same order, with the same fields as those of `search`.

    Raises
    ------
    Error
        When a shape is larger than 16383 pixels.

    See Also
    --------
    refine : Choose by the edges of the image instead.

    Examples
    --------
    >>> import numpy as np
    >>> import vorplex
    >>> two = np.array([(0.5, "c", 20, 20, 15, 15, 0), (0.4, "c", 22, 20, 15, 15, 0)],
    ...                vorplex.detection_dtype)
    >>> len(vorplex.filter((60, 80), two))
    1
    >>> len(vorplex.filter((60, 80), two, circle=(0.1, 0.9)))
    2
    """
    both = (min_corr, max_overlap)
    thresholds = [pair or both for pair in (circle, square, rectangle, ellipse)]
    given = _arrays.rows(detections, _vorplex.detection_dtype, "detections")
    return _vorplex.filter(*_sides(image_shape), given, thresholds)


def refine(
    image: npt.ArrayLike,
    detections: _arrays.Table,
    *,
    shapes: str = "cqre",
    min_size: float = 0,
    max_size: float = float("inf"),
    max_overlap: float = 0.3,
    sensitivity: float = 0.5,
    keep_shapes: bool = False,
    threads: Optional[int] = None,
) -> npt.NDArray[np.void]:
    """
    Fit detections to the edges of the image, and keep those that are grains.

    What ``vorplex-apura`` does: each detection is fitted to the edges, judged by what is seen along
    its outline, and measured to fractions of a pixel, with standard errors. Ctrl-C ends it.

    Parameters
    ----------
    image : array_like
        Of uint8, uint16 or float32; grey, RGB or RGBA. Grains are darker than their ground.
    detections : ndarray, DataFrame or dict
        Detections as they come from `search`, not filtered. Those that are no shapes of at least 1
        pixel with their centre in the image are left out.
    shapes : str, default "cqre"
        The shapes that a grain may get: circle, square, rectangle, ellipse.
    min_size, max_size : float
        The diameters of equal area that a grain may have, pixels.
    max_overlap : float, default 0.3
        The largest share of its area, 0 to 1, that a grain may have in common with others.
    sensitivity : float, default 0.5
        0 for few grains, and sure ones; 1 for many.
    keep_shapes : bool, default False
        Grains keep the shapes of their detections.
    threads : int, optional
        How many threads to use, as many as there are processors if not given. The result doesn't
        depend on it.

    Returns
    -------
    ndarray
        The grains, by decreasing support, with the fields of detections, where `d1` is at least
        `d2` and `angle` goes from 0 to 180 (of squares to 90), and

        - `support`: estimated probability that it is a grain;
        - `contrast`: mean grey around it less mean grey inside, 0 to 1;
        - `row_error`, `column_error`, `d1_error`, `d2_error` (pixels) and `angle_error` (degrees):
          standard errors, 0 for what a shape doesn't have.

    Raises
    ------
    Error
        When an option is out of range.
    TypeError
        When the image is of another kind.

    See Also
    --------
    filter : Choose by overlap alone.
    measure : Areas and diameters of grains.

    Examples
    --------
    >>> import numpy as np
    >>> import vorplex
    >>> y, x = np.mgrid[:120, :160]
    >>> distance = np.hypot(y - 60.25, x - 80.5)
    >>> image = (200 - 140 * np.clip(20.3 - distance, 0, 1)).astype(np.uint8)
    >>> kernels = vorplex.kernels("escoitava 5 escala 0.5 a 1 piramide 1 circulo 60")
    >>> grains = vorplex.refine(image, vorplex.search(image, kernels, 0.02))
    >>> len(grains), abs(grains["d1"][0] - 2 * 19.8) < 0.1
    (1, True)
    """
    options = _vorplex.RefineOptions()
    options.shapes = shapes
    options.min_size = min_size
    options.max_size = max_size
    options.max_overlap = max_overlap
    options.sensitivity = sensitivity
    options.keep_shapes = keep_shapes
    options.threads = _processors(threads)
    given = _arrays.rows(detections, _vorplex.detection_dtype, "detections")
    return _vorplex.refine(_arrays.grey(image), given, options, _main_thread())


class Suggestion(NamedTuple):
    """What to search for, and what was seen; sizes are diameters of equal area in pixels."""

    kernels: Kernels
    text: str
    bright: bool
    min_corr: float
    shapes: str
    min_size: float
    max_size: float
    share: float
    both: bool
    found: bool


def suggest(
    images: Union[npt.ArrayLike, Sequence[npt.ArrayLike]],
    *,
    bright: Optional[bool] = None,
    shapes: str = "cqre",
    sample: int = 8,
    threads: Optional[int] = None,
) -> Suggestion:
    """
    Choose what to search for in images of which nothing is known.

    Looks at parts of some of the images, about as many pixels as one photograph has.

    Parameters
    ----------
    images : array_like or sequence of array_like
        An image, or several of one kind: uint8, uint16 or float32; grey, RGB or RGBA.
    bright : bool, optional
        Whether grains are brighter than their ground, if that is known beforehand.
    shapes : str, default "cqre"
        The shapes that a grain may have: circle, square, rectangle, ellipse.
    sample : int, default 8
        How many images are looked at.
    threads : int, optional
        How many threads to use, as many as there are processors if not given. The result doesn't
        depend on it.

    Returns
    -------
    Suggestion
        A named tuple of

        - `kernels`: for `search`;
        - `text`: what they were made of, a `kernel.cfg` with comments;
        - `bright`: grains are brighter than their ground; search ``255 - image``;
        - `min_corr`: for `search`;
        - `shapes`: those of the kernels;
        - `min_size`, `max_size`: diameters of equal area of the grains that were seen, pixels;
        - `share`: of this polarity in all that was seen, 0 to 1;
        - `both`: many grains are of the other polarity;
        - `found`: any grain was seen; if not, the kernels are of general use.

    Raises
    ------
    Error
        When an option is out of range.
    TypeError
        When an image is of another kind.

    See Also
    --------
    kernels : Say by yourself what to search for.

    Examples
    --------
    >>> import numpy as np
    >>> import vorplex
    >>> image = np.full((200, 240), 40, np.uint8)
    >>> for row in range(30, 190, 45):
    ...     for column in range(30, 220, 45):
    ...         image[row - 9 : row + 10, column - 9 : column + 10] = 170
    >>> chosen = vorplex.suggest(image)
    >>> chosen.found, chosen.bright
    (True, True)
    >>> found = vorplex.search(255 - image, chosen.kernels, chosen.min_corr)
    >>> len(vorplex.refine(255 - image, found))
    20
    """
    one = hasattr(images, "__array__") or hasattr(images, "__array_interface__")
    greys = [_arrays.grey(image) for image in ([images] if one else images)]  # type: ignore
    said = _vorplex.suggest(greys, bright, shapes, sample, _processors(threads))
    return Suggestion(kernels=_vorplex.kernels_from_text(said["text"]), **said)
