"""Detections on pictures."""

from __future__ import annotations

from typing import Optional, Sequence

import numpy as np
import numpy.typing as npt

from . import _arrays, _vorplex
from ._finding import _sides
from ._measuring import _member


def draw(
    image: npt.ArrayLike,
    detections: _arrays.Table,
    *,
    outline: str = "exact",
    indices: bool = False,
    centre: Optional[str] = None,
) -> npt.NDArray[np.uint8]:
    """
    Draw detections over an image.

    Parameters
    ----------
    image : array_like
        Of uint8, uint16 or float32; grey, RGB or RGBA.
    detections : ndarray, DataFrame or dict
        Detections, filtered or refined, or grains.
    outline : {"exact", "thin", "bold"}
        ``"exact"`` is a smoothed line through fractions of a pixel, in a colour for each shape
        (circles blue, squares orange, rectangles green, ellipses pink), as ``vorplex-apura`` draws
        it; the others are red and go through whole pixels, as ``Vorplex traca`` draws them.
    indices : bool, default False
        Write the place of each in the list, from 0.
    centre : {"thin", "bold"}, optional
        Mark the centres in green: a pixel, or a block of 3 by 3.

    Returns
    -------
    ndarray
        A picture in RGB, uint8, of the shape (rows, columns, 3).

    Raises
    ------
    Error
        When a shape is too large to draw or has no size.

    See Also
    --------
    labels : The pixels of each detection.

    Examples
    --------
    >>> import numpy as np
    >>> import vorplex
    >>> one = np.array([(0.5, "q", 10, 10, 8, 8, 0)], vorplex.detection_dtype)
    >>> picture = vorplex.draw(np.full((20, 30), 200, np.uint8), one, outline="thin")
    >>> picture.shape, picture[6, 10], picture[10, 10]
    ((20, 30, 3), array([255,   0,   0], dtype=uint8), array([200, 200, 200], dtype=uint8))
    """
    return _vorplex.draw(
        _arrays.picture(image),
        _arrays.rows(detections, _vorplex.detection_dtype, "detections"),
        _member(_vorplex.Outline.__members__, outline, "outline"),
        indices,
        _member(_vorplex.Centre.__members__, centre or "none", "centre"),
    )


def labels(image_shape: Sequence[int], detections: _arrays.Table) -> npt.NDArray[np.int32]:
    """
    Tell which pixels belong to which detection.

    Parameters
    ----------
    image_shape : tuple of int
        The ``shape`` of the image.
    detections : ndarray, DataFrame or dict
        Detections, filtered or refined, or grains.

    Returns
    -------
    ndarray
        An image of int32 with 0 for the ground and 1 for the first detection, 2 for the second and
        so on. A pixel belongs to the detection that holds its centre, by its sizes and with
        fractions of a pixel; where several do, to the first of them.

    Raises
    ------
    Error
        When a detection has no size.

    See Also
    --------
    draw : Outlines over the image.

    Examples
    --------
    >>> import numpy as np
    >>> import vorplex
    >>> two = np.array([(0.5, "q", 1, 1, 2, 2, 0), (0.4, "c", 2, 4, 3, 3, 0)],
    ...                vorplex.detection_dtype)
    >>> vorplex.labels((4, 6), two)
    array([[1, 1, 0, 0, 0, 0],
           [1, 1, 0, 2, 2, 2],
           [0, 0, 0, 2, 2, 2],
           [0, 0, 0, 2, 2, 2]], dtype=int32)
    """
    given = _arrays.rows(detections, _vorplex.detection_dtype, "detections")
    return _vorplex.labels(*_sides(image_shape), given)
