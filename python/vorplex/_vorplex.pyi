from typing import Any, Callable, Optional

import numpy as np
import numpy.typing as npt

version: str
detection_dtype: np.dtype[np.void]
refined_dtype: np.dtype[np.void]
grain_dtype: np.dtype[np.void]
sample_dtype: np.dtype[np.void]

class Error(RuntimeError): ...
class Cancelled(Error): ...

class Kernels:
    def __len__(self) -> int: ...
    @property
    def table(self) -> npt.NDArray[np.void]: ...

class RefineOptions:
    shapes: str
    min_size: float
    max_size: float
    max_overlap: float
    sensitivity: float
    keep_shapes: bool
    threads: int
    def __init__(self) -> None: ...

class Size:
    equivalent: Size
    lesser: Size
    greater: Size
    __members__: dict[str, Size]

class Weight:
    number: Weight
    area: Weight
    volume: Weight
    __members__: dict[str, Weight]

class Outline:
    exact: Outline
    thin: Outline
    bold: Outline
    __members__: dict[str, Outline]

class Centre:
    none: Centre
    thin: Centre
    bold: Centre
    __members__: dict[str, Centre]

def draw(
    image: npt.NDArray[Any],
    detections: npt.NDArray[np.void],
    outline: Outline,
    indices: bool,
    centre: Centre,
) -> npt.NDArray[np.uint8]: ...
def labels(
    rows: int, columns: int, detections: npt.NDArray[np.void]
) -> npt.NDArray[np.int32]: ...
def kernels_from_text(text: str) -> Kernels: ...
def kernels_from_file(path: bytes) -> Kernels: ...
def read_ho(path: bytes) -> npt.NDArray[np.void]: ...
def write_ho(path: bytes, detections: npt.NDArray[np.void]) -> None: ...
def grey(image: npt.NDArray[Any]) -> npt.NDArray[np.uint8]: ...
def search(
    image: npt.NDArray[np.uint8],
    kernels: Kernels,
    min_corr: float,
    progress: Optional[Callable[[int, int, int], bool]],
    watched: bool,
) -> npt.NDArray[np.void]: ...
def search_floats(
    image: npt.NDArray[np.float32],
    kernels: Kernels,
    min_corr: float,
    progress: Optional[Callable[[int, int, int], bool]],
    watched: bool,
) -> npt.NDArray[np.void]: ...
def suggest(
    images: list[npt.NDArray[np.uint8]],
    bright: Optional[bool],
    shapes: str,
    sample: int,
    threads: int,
) -> dict[str, Any]: ...
def filter(
    rows: int,
    columns: int,
    detections: npt.NDArray[np.void],
    thresholds: list[tuple[float, float]],
) -> npt.NDArray[np.void]: ...
def refine(
    image: npt.NDArray[np.uint8],
    detections: npt.NDArray[np.void],
    options: RefineOptions,
    watched: bool,
) -> npt.NDArray[np.void]: ...
def measure(
    detections: npt.NDArray[np.void], rows: int, columns: int, scale: str
) -> npt.NDArray[np.void]: ...
def distribution(
    grains: npt.NDArray[np.void], size: Size, weight: Weight
) -> dict[str, Any]: ...
def intervals(
    pictures: list[npt.NDArray[np.void]], size: Size, weight: Weight
) -> dict[str, Any]: ...
