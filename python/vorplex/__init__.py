"""Finds circles, squares, rectangles and ellipses in photographs, and measures them.

The way from a photograph to a size distribution:

>>> import numpy as np
>>> import vorplex
>>> y, x = np.mgrid[:120, :160]
>>> image = np.full((120, 160), 200, np.uint8)
>>> image[(y - 40) ** 2 + (x - 50) ** 2 <= 13 ** 2] = 60
>>> image[(y - 80) ** 2 + (x - 110) ** 2 <= 17 ** 2] = 60
>>> kernels = vorplex.kernels("escoitava 5 escala 0.5 a 1 piramide 1 circulo 40 quadrado 40")
>>> found = vorplex.search(image, kernels, min_corr=0.1)
>>> kept = vorplex.filter(image.shape, found, min_corr=0.3, max_overlap=0.1)
>>> grains = vorplex.measure(kept, scale="0.05mm")
>>> sizes = vorplex.distribution(grains)
>>> print(len(found), len(kept), round(sizes.d50, 2))
4 2 1.53

Images are arrays of dtype uint8, uint16 or float32 (black is 0, white is 255, 65535 and 1.0) with
the shape (rows, columns) or, in colour, (rows, columns, 3) for RGB and (rows, columns, 4) for RGBA.
They are only read. An image of uint8 and two dimensions isn't copied; all others become one in the
way in which the programs read a file that holds them: 16 bits and floats are rounded to 8 bits,
transparent parts are laid over white, and colour becomes 0.299 R + 0.587 G + 0.114 B. Grains must
be darker than what surrounds them; if they are brighter, give `255 - image`.

Rows and columns count from 0 at the top left, and pixel centres have whole coordinates. Lengths are
in pixels unless a scale is given. Angles are in degrees: at 0, `d1` lies along the columns (x), and
positive angles turn clockwise as seen on the screen.

Detections, refined detections and grains are structured arrays of numpy, so that
`pandas.DataFrame(found)` is a table of them. Where a function takes such an array, a DataFrame or a
dictionary of columns will do too. Every detection has the fields

``correlation``
    The larger the better; 1 for a black shape on white.
``shape``
    ``b"c"`` circle, ``b"q"`` square, ``b"r"`` rectangle, ``b"e"`` ellipse.
``row``, ``column``
    The centre, pixels; whole numbers from a search.
``d1``, ``d2``
    The full sizes (diameters, sides, axes), pixels. Circles and squares don't use `d2`.
``angle``
    Degrees. Circles don't use it.

Functions let other threads of Python work while they do, and the same functions may be called in
several threads at once. What goes wrong raises `vorplex.Error` with the text of the programs, which
is in Portuguese, or `TypeError` for what is not of the kind described here.
"""

from ._drawing import draw, labels
from ._errors import Cancelled, Error, Kernels
from ._files import read_ho, write_ho
from ._finding import Progress, Suggestion, filter, kernels, refine, search, suggest
from ._measuring import Distribution, Intervals, distribution, intervals, measure
from ._vorplex import detection_dtype, version as __version__

__all__ = [
    "Cancelled",
    "Distribution",
    "Error",
    "Intervals",
    "Kernels",
    "Progress",
    "Suggestion",
    "__version__",
    "detection_dtype",
    "distribution",
    "draw",
    "filter",
    "intervals",
    "kernels",
    "labels",
    "measure",
    "read_ho",
    "refine",
    "search",
    "suggest",
    "write_ho",
]
