"""Lists of detections in files."""

from __future__ import annotations

import os
from typing import Union

import numpy as np
import numpy.typing as npt

from . import _arrays, _vorplex

Path = Union[str, bytes, "os.PathLike[str]", "os.PathLike[bytes]"]


def read_ho(path: Path) -> npt.NDArray[np.void]:
    """
    Read a list of detections that the programs have written.

    Parameters
    ----------
    path : str or path
        A `.ho1` or `.ho2` file.

    Returns
    -------
    ndarray
        The detections, in the order of the file.

    Raises
    ------
    Error
        When there is no such file, or it is no such list.

    See Also
    --------
    write_ho : Write such a list.

    Examples
    --------
    >>> import vorplex
    >>> vorplex.read_ho("nothing.ho2")
    Traceback (most recent call last):
    ...
    vorplex.Error: Erro abertura arquivo nothing.ho2
    """
    return _vorplex.read_ho(os.fsencode(path))


def write_ho(path: Path, detections: _arrays.Table) -> None:
    """
    Write a list of detections for the programs.

    Such a list keeps 6 decimals of correlations and 5 of sizes; rows, columns and angles become
    whole numbers.

    Parameters
    ----------
    path : str or path
        The file to write, by custom `.ho1` for all detections and `.ho2` for those that a filter
        has kept.
    detections : ndarray, DataFrame or dict
        Detections; further columns are left out.

    Raises
    ------
    Error
        When the file can't be written, or a detection has a shape or numbers that no list can
        hold. A file that is half written is removed.

    See Also
    --------
    read_ho : Read such a list.

    Examples
    --------
    >>> import os, tempfile
    >>> import numpy as np
    >>> import vorplex
    >>> one = np.array([(0.5, "e", 12, 20, 8.5, 4.25, 30)], vorplex.detection_dtype)
    >>> with tempfile.TemporaryDirectory() as folder:
    ...     path = os.path.join(folder, "one.ho2")
    ...     vorplex.write_ho(path, one)
    ...     print(vorplex.read_ho(path)["d2"])
    [4.25]
    """
    _vorplex.write_ho(
        os.fsencode(path), _arrays.rows(detections, _vorplex.detection_dtype, "detections")
    )
