"""Pictures and tables as the extension wants them."""

from __future__ import annotations

from typing import Any, Mapping, Sequence, Union

import numpy as np
import numpy.typing as npt

from . import _vorplex

#: Rows with named columns: a structured array, a pandas.DataFrame, a dictionary of columns.
Table = Union["npt.NDArray[np.void]", Mapping[str, Any]]

ACCEPTED = (
    "an image is an array of dtype uint8, uint16 or float32 with the shape (rows, columns) or, "
    "in colour, (rows, columns, 3) for RGB and (rows, columns, 4) for RGBA"
)


def _stands_well(array: npt.NDArray[Any]) -> bool:
    """Whether pixels stand side by side, and rows below each other, some bytes apart."""
    step = array.itemsize
    for length, stride in zip(array.shape[:0:-1], array.strides[:0:-1]):
        if length > 1 and stride != step:
            return False
        step *= length
    return array.flags.aligned and (array.shape[0] <= 1 or array.strides[0] >= max(step, 1))


def picture(image: npt.ArrayLike) -> npt.NDArray[Any]:
    """The image as an array that the extension can look at, a copy only if it must be one."""
    array = np.asarray(image)
    dtype = array.dtype.newbyteorder("=")
    known = dtype in (np.uint8, np.uint16, np.float32)
    flat = array.ndim == 2 or (array.ndim == 3 and array.shape[2] in (3, 4))
    if not known or not flat:
        raise TypeError(f"{ACCEPTED}; not of dtype {array.dtype} with the shape {array.shape}")
    array = array.astype(dtype, copy=False)
    return array if _stands_well(array) else np.ascontiguousarray(array)


def grey(image: npt.ArrayLike) -> npt.NDArray[np.uint8]:
    """The image in grey bytes; itself if it is so already."""
    array = picture(image)
    return array if array.dtype == np.uint8 and array.ndim == 2 else _vorplex.grey(array)


def _letters(column: npt.ArrayLike) -> npt.NDArray[np.bytes_]:
    letters = np.asarray(column).astype("S")
    if letters.size and np.char.str_len(letters).max() > 1:
        raise TypeError("a shape is one letter: c, q, r or e")
    return letters


def rows(
    table: Table, dtype: np.dtype[np.void], what: str, needed: Sequence[str] = ()
) -> npt.NDArray[np.void]:
    """The columns of `table` that `dtype` names, as an array of it; `table` itself if it is one.

    When some columns are `needed`, the others need not be there.
    """
    if isinstance(table, (np.ndarray, np.void)):
        table = np.atleast_1d(np.asarray(table))
        if table.ndim == 1 and table.dtype == dtype:
            return np.ascontiguousarray(table)
    names = needed or dtype.names or ()
    try:
        columns = {name: np.asarray(table[name]) for name in names}
    except (KeyError, IndexError, ValueError, TypeError) as error:
        raise TypeError(f"{what} are rows with the columns {', '.join(names)}") from error
    lengths = {column.shape for column in columns.values()}
    if len(lengths) != 1 or len(next(iter(lengths))) != 1:
        raise TypeError(f"columns of {what} have one dimension and the same length")
    array = np.zeros(lengths.pop(), dtype)
    for name, column in columns.items():
        array[name] = _letters(column) if name == "shape" else column
    return array


def join(
    first: npt.NDArray[np.void], without: Sequence[str], others: Table
) -> npt.NDArray[np.void]:
    """`first` without some of its fields, and with those of `others` that it doesn't have."""
    names = [name for name in first.dtype.names or () if name not in without]
    fields = [(name, first.dtype[name]) for name in names]
    more = others if isinstance(others, np.ndarray) else first
    further = [name for name in more.dtype.names or () if name not in (first.dtype.names or ())]
    fields += [(name, more.dtype[name]) for name in further]
    array = np.zeros(first.shape, np.dtype(fields, align=True))
    for name in names:
        array[name] = first[name]
    for name in further:
        array[name] = more[name]
    return array
