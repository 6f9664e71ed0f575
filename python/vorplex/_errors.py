"""Errors of the module, and its types, as users see them."""

from ._vorplex import Cancelled, Error, Kernels

Error.__doc__ = """What the module can't do, and why, in the words of the programs."""
Cancelled.__doc__ = """A search that its `progress` function ended."""
for _seen in (Cancelled, Error, Kernels):
    _seen.__module__ = "vorplex"

__all__ = ["Cancelled", "Error", "Kernels"]
