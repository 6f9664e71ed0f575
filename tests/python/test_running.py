"""Progress, Ctrl-C, threads and memory."""

import concurrent.futures
import os
import signal
import subprocess
import sys
import threading
import time

import numpy as np
import pytest

import vorplex
from conftest import grey, same

# A search of many seconds, in short groups.
LONG = "passoang 2 escoitava 8 retangulo 60 24 elipse 60 24"


def ground(rows=1500, columns=1500):
    return np.random.default_rng(7).integers(100, 200, (rows, columns), np.uint8)


def test_progress(kernels):
    seen = []
    image = grey(6)
    found = vorplex.search(image, kernels, 0.05, progress=seen.append)
    assert all(isinstance(p, vorplex.Progress) for p in seen)
    assert sorted(p.groups_done for p in seen) == [p.groups_done for p in seen]
    assert seen[-1].groups_done == seen[-1].groups > 0
    assert seen[-1].found >= len(found) > 0
    assert same(vorplex.search(image, kernels, 0.05), found)


def test_cancelled():
    for no in (False, np.False_):
        with pytest.raises(vorplex.Cancelled):
            vorplex.search(ground(), vorplex.kernels(LONG), progress=lambda p: no)
    kernels = vorplex.kernels("circulo 9")
    for yes in (None, True, 0, "", np.True_):
        vorplex.search(grey(1), kernels, progress=lambda p: yes)


def test_what_progress_raises_arrives():
    class Mine(Exception):
        pass

    def progress(p):
        raise Mine("mine")

    with pytest.raises(Mine, match="mine"):
        vorplex.search(grey(1), vorplex.kernels("circulo 9"), progress=progress)


INTERRUPTED = """
import time, sys, numpy as np, vorplex
image = np.random.default_rng(7).integers(100, 200, (1500, 1500), np.uint8)
kernels = vorplex.kernels({text!r})
found = np.zeros(200000, vorplex.detection_dtype)
found["shape"], found["d1"], found["d2"], found["correlation"] = b"e", 60, 30, 0.5
found["row"], found["column"] = np.random.default_rng(8).integers(50, 1450, (2, len(found)))
print("ready", flush=True)
try:
    {work}
    print("found")
except KeyboardInterrupt:
    print("interrupted", time.clock_gettime(time.CLOCK_MONOTONIC))
"""


@pytest.mark.parametrize(
    "work",
    [
        "vorplex.search(image, kernels, 0.5)",
        "vorplex.search(image, kernels, 0.5, progress=lambda p: True)",
        "vorplex.refine(image, found)",
    ],
)
def test_ctrl_c(work):
    program = INTERRUPTED.format(text=LONG, work=work)
    with subprocess.Popen([sys.executable, "-c", program], stdout=subprocess.PIPE) as child:
        assert child.stdout.readline() == b"ready\n"
        time.sleep(0.3)
        child.send_signal(signal.SIGINT)
        assert child.stdout.readline().startswith(b"interrupted")
    assert child.returncode == 0


def test_threads_find_the_same(kernels):
    images = [grey(seed) for seed in range(4)]
    alone = [vorplex.search(image, kernels, 0.03) for image in images]
    with concurrent.futures.ThreadPoolExecutor(4) as pool:
        found = pool.map(lambda image: vorplex.search(image, kernels, 0.03), images * 3)
        assert all(map(same, found, alone * 3))


def test_others_run_while_one_searches():
    """Two searches wait for each other, which they can't if one holds the interpreter."""
    both = threading.Barrier(2, timeout=60)

    def search(seed):
        met = []

        def progress(p):
            if not met:
                met.append(both.wait())

        return vorplex.search(grey(seed), vorplex.kernels("circulo 21"), progress=progress)

    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        assert all(len(found) for found in pool.map(search, (1, 2)))


def test_python_goes_on_while_one_searches():
    done = threading.Event()
    kernels = vorplex.kernels("passoang 10 retangulo 40 16")

    def search():
        try:
            vorplex.search(ground(1000, 1000), kernels, 0.5)
        finally:
            done.set()

    thread = threading.Thread(target=search)
    thread.start()
    steps = 0
    while not done.is_set():
        steps += 1
        time.sleep(0.001)
    thread.join()
    assert steps > 20


def test_refine_with_any_number_of_threads(kernels):
    image = grey(8)
    found = vorplex.search(image, kernels, 0.02)
    one = vorplex.refine(image, found, threads=1, sensitivity=1)
    assert len(one) > 0
    for threads in (None, 2, 3):
        many = vorplex.refine(image, found, threads=threads, sensitivity=1)
        assert same(many, one)


def test_suggestion():
    image = grey(11, rows=240, columns=320)
    one = vorplex.suggest(image, threads=1)
    assert one.found and not one.bright
    assert same(one.kernels.table, vorplex.kernels(one.text).table)
    assert len(one.kernels) > 0 and 0 < one.min_size <= one.max_size
    for images in ([image], (image,), (i for i in [image]), image[..., None].repeat(3, axis=2)):
        assert vorplex.suggest(images, threads=2)[1:] == one[1:]
    assert vorplex.suggest(255 - image).bright
    assert not vorplex.suggest(np.full((50, 50), 128, np.uint8)).found
    assert set(vorplex.suggest([image, image[::-1]], shapes="cq", bright=False).shapes) <= set("cq")
    with pytest.raises(TypeError, match="uint8, uint16 or float32"):
        vorplex.suggest([image, [[1.0]]])
    with pytest.raises(vorplex.Error):
        vorplex.suggest(image, sample=0)


def resident():
    with open("/proc/self/statm", encoding="ascii") as file:
        return int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE")


def test_memory_does_not_grow():
    image = grey(9, rows=120, columns=160)
    words = image.astype(np.uint16) * 257
    text = "escoitava 1 circulo 15"

    def work():
        kernels = vorplex.kernels(text)
        found = vorplex.search(words, kernels, 0.03, progress=lambda p: None)
        vorplex.distribution(vorplex.measure(vorplex.filter(image.shape, found)))
        with pytest.raises(vorplex.Cancelled):
            vorplex.search(image, kernels, progress=lambda p: False)

    for _ in range(50):
        work()
    before = resident()
    for _ in range(200):
        work()
    # One picture lost in each would be four times as much.
    assert resident() - before < 200 * image.size / 4
