"""Measures of grains, and their distribution."""

from __future__ import annotations

from typing import Any, NamedTuple, Optional, Sequence, TypeVar, Union

import numpy as np
import numpy.typing as npt

from . import _arrays, _vorplex
from ._finding import _sides

Member = TypeVar("Member")


def measure(
    detections: _arrays.Table,
    scale: Optional[str] = None,
    image_shape: Optional[Sequence[int]] = None,
) -> npt.NDArray[np.void]:
    """
    Measure detections: areas, diameters, perimeters.

    Measures come from the sizes of the shapes, not from the pixels that they cover.

    Parameters
    ----------
    detections : ndarray, DataFrame or dict
        Detections, filtered or refined.
    scale : str, optional
        The side of a pixel with its unit: ``"0.05mm"``, ``"12.5 um"``; one of um, mm, cm, m and in.
        Without it measures are in pixels.
    image_shape : tuple of int, optional
        The ``shape`` of the image, to tell which grains reach beyond it.

    Returns
    -------
    ndarray
        The grains, in the order of the detections, with the fields of detections (in pixels) and

        - `area`: in square units of the scale, or square pixels;
        - `equivalent`: diameter of the circle of equal area, in units of the scale, or pixels, as
          are the next three;
        - `perimeter`;
        - `lesser`: the lesser side or axis, the size that a sieve sees;
        - `greater`: the greater side or axis;
        - `elongation`: greater / lesser;
        - `scale` and `unit`: the side of a pixel, and its unit; 1 and ``b"px"`` without a scale;
        - `touches_border`: whether the outline reaches beyond the image, if `image_shape` is given;
        - such further fields as an array of `detections` has: support and standard errors.

    Raises
    ------
    Error
        When the scale is none, or a detection has no measure.

    See Also
    --------
    distribution : What the grains have in common.

    Examples
    --------
    >>> import numpy as np
    >>> import vorplex
    >>> one = np.array([(0.5, "r", 12, 20, 8, 4, 30)], vorplex.detection_dtype)
    >>> grain = vorplex.measure(one, scale="0.5mm")[0]
    >>> grain["area"], grain["lesser"], grain["elongation"], grain["unit"]
    (8.0, 2.0, 2.0, b'mm')
    """
    given = _arrays.rows(detections, _vorplex.detection_dtype, "detections")
    rows, columns = (0, 0) if image_shape is None else _sides(image_shape)
    if scale is not None and not scale.strip():
        raise ValueError("a scale is the side of a pixel with its unit, as in 0.05mm")
    grains = _vorplex.measure(given, rows, columns, scale or "")
    unknown = ("touches_border",) if image_shape is None else ()
    return _arrays.join(grains, unknown, detections)


class Distribution(NamedTuple):
    """What is said of the sizes of grains; nan where it can't be said, as without grains."""

    grains: int
    d5: float
    d10: float
    d16: float
    d25: float
    d30: float
    d50: float
    d60: float
    d75: float
    d84: float
    d90: float
    d95: float
    mean: float
    deviation: float
    phi_mean: float
    sorting: float
    skewness: float
    kurtosis: float
    uniformity: float
    curvature: float

    @property
    def percentiles(self) -> "dict[int, float]":
        """The sizes `d5` to `d95` by their percentages."""
        return {int(name[1:]): getattr(self, name) for name in self._fields if name[1:].isdigit()}


class Intervals(NamedTuple):
    """The ends of 95 % intervals for each number of a distribution, and how many pictures say so."""

    low: Distribution
    high: Distribution
    pictures: int


def _said(values: "dict[str, Any]") -> Distribution:
    return Distribution(**{k: float("nan") if v is None else v for k, v in values.items()})


def _member(members: "dict[str, Member]", name: str, what: str) -> Member:
    if name not in members:
        raise ValueError(f"{what} is one of {', '.join(members)}; not {name!r}")
    return members[name]


def distribution(
    grains: _arrays.Table, size: str = "equivalent", weight: str = "number"
) -> Distribution:
    """
    Describe the sizes of grains.

    Parameters
    ----------
    grains : ndarray, DataFrame or dict
        Grains as `measure` returns them, or several arrays of them put together; all in one unit.
    size : {"equivalent", "lesser", "greater"}
        Which diameter is the size of a grain.
    weight : {"number", "area", "volume"}
        How much a grain counts: 1, its area, or the volume of a sphere of its equivalent diameter.

    Returns
    -------
    Distribution
        A named tuple of

        - `grains`: how many there are;
        - `d5`, `d10`, `d16`, `d25`, `d30`, `d50`, `d60`, `d75`, `d84`, `d90`, `d95`: the size that
          so many percent of the weight lie below, in the unit of the grains, linear between them;
        - `mean` and `deviation`: weighted;
        - `phi_mean`, `sorting`, `skewness`, `kurtosis`: the graphic measures of Folk and Ward (1957),
          in phi = -log2(size in mm, or in pixels without a unit);
        - `uniformity` d60 / d10 and `curvature` d30^2 / (d10 d60).

        What can't be said is nan: all of it without grains, ratios where they would divide by zero.

    Raises
    ------
    Error
        When grains are of different units, or a grain has no size.

    See Also
    --------
    measure : Measure the grains.
    intervals : How sure the numbers are.

    Examples
    --------
    >>> import numpy as np
    >>> import vorplex
    >>> circles = np.zeros(5, vorplex.detection_dtype)
    >>> circles["shape"] = "c"
    >>> circles["d1"] = [10, 12, 14, 16, 30]
    >>> sizes = vorplex.distribution(vorplex.measure(circles))
    >>> sizes.grains, sizes.d50
    (5, 14.0)
    >>> round(vorplex.distribution(vorplex.measure(circles), weight="volume").d50, 1)
    25.7
    """
    needed = ("area", "equivalent", "lesser", "greater", "unit")
    given = _arrays.rows(grains, _vorplex.grain_dtype, "grains", needed)
    return _said(
        _vorplex.distribution(
            given,
            _member(_vorplex.Size.__members__, size, "size"),
            _member(_vorplex.Weight.__members__, weight, "weight"),
        )
    )


def _sample(grains: _arrays.Table) -> npt.NDArray[np.void]:
    dtype = _vorplex.sample_dtype
    names = getattr(getattr(grains, "dtype", None), "names", None) or grains
    errors = ("d1_error", "d2_error")
    known = all(error in names for error in errors)
    needed = [name for name in dtype.names or () if known or name not in errors]
    return _arrays.rows(grains, dtype, "grains", needed)


def intervals(
    grains: Union[_arrays.Table, Sequence[_arrays.Table]],
    size: str = "equivalent",
    weight: str = "number",
) -> Intervals:
    """
    Tell how sure the numbers of a distribution are.

    Grains and pictures are drawn again, some hundred times, from those that there are (bootstrap),
    and sizes within their standard errors, where `refine` has given them. Intervals know of chance
    alone: of nothing that would make all sizes wrong alike, such as a wrong scale. The same grains
    have the same intervals.

    Parameters
    ----------
    grains : ndarray, DataFrame or dict, or a list of them
        Grains as `measure` returns them; a list has those of several pictures, which tells how
        places differ.
    size : {"equivalent", "lesser", "greater"}
        Which diameter is the size of a grain.
    weight : {"number", "area", "volume"}
        How much a grain counts.

    Returns
    -------
    Intervals
        A named tuple of `low` and `high`, each with the same fields as the `Distribution` of all
        grains together, nan where nothing can be said, as of fewer than two grains; and `pictures`,
        the number of those with grains.

    Raises
    ------
    Error
        When grains are of different units, or those of a picture of different scales.

    See Also
    --------
    distribution : The numbers themselves.

    Examples
    --------
    >>> import numpy as np
    >>> import vorplex
    >>> circles = np.zeros(40, vorplex.detection_dtype)
    >>> circles["shape"] = "c"
    >>> circles["d1"] = np.linspace(10, 20, 40)
    >>> grains = vorplex.measure(circles)
    >>> band = vorplex.intervals(grains)
    >>> band.low.d50 < vorplex.distribution(grains).d50 < band.high.d50
    True
    """
    one = hasattr(grains, "dtype") or hasattr(grains, "keys")
    pictures: Any = [grains] if one else grains
    said = _vorplex.intervals(
        [_sample(picture) for picture in pictures],
        _member(_vorplex.Size.__members__, size, "size"),
        _member(_vorplex.Weight.__members__, weight, "weight"),
    )
    return Intervals(_said(said["low"]), _said(said["high"]), said["pictures"])
