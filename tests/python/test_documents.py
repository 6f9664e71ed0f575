"""What the documentation shows."""

import doctest
import inspect
import pkgutil

import pytest

import vorplex


def modules():
    yield vorplex
    for module in pkgutil.iter_modules(vorplex.__path__, "vorplex."):
        yield __import__(module.name, fromlist=["_"])


def test_examples_in_docstrings(folder):
    tried = 0
    for module in modules():
        result = doctest.testmod(module)
        assert result.failed == 0
        tried += result.attempted
    assert tried > 30


def test_everything_is_documented():
    for name in vorplex.__all__:
        if name.startswith("__") or name.endswith("_dtype"):
            continue
        thing = getattr(vorplex, name)
        text = inspect.getdoc(thing) or ""
        assert text, name
        if not inspect.isfunction(thing):
            continue
        for section in ("Parameters\n---", "Examples\n---", "See Also\n---"):
            assert section in text, (name, section)
        for parameter in inspect.signature(thing).parameters:
            assert parameter in text.split("Parameters\n")[1], (name, parameter)


def test_form_of_docstrings():
    """That of numpydoc, where it is installed; a longer summary is asked of none."""
    validate = pytest.importorskip("numpydoc.validate").validate
    for name in vorplex.__all__:
        if inspect.isfunction(getattr(vorplex, name)):
            errors = validate("vorplex." + name)["errors"]
            assert [error for error in errors if error[0] != "ES01"] == [], name
