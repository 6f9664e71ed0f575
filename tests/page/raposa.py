"""Opens the pages of amostra_pagina in Firefox and compares what they say with src/measure.

raposa.py FOLDER [PICTURES]    with PICTURES, screenshots are left in that folder
"""
import base64
import json
import math
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

import websocket

from navegador import espera


class Raposa:
    """A headless Firefox with one tab, driven over WebDriver BiDi. Keeps what the page complains of."""

    def __init__(self):
        self.pasta = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        ambiente = {**os.environ, "HOME": self.pasta.name, "MOZ_HEADLESS": "1"}
        self.processo = subprocess.Popen(
            ["firefox-esr", "--headless", "--no-remote", "--profile", self.pasta.name,
             "--remote-debugging-port", "0", "about:blank"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, env=ambiente)
        try:
            self._liga()
        except BaseException:
            self.fecha()
            raise

    def _liga(self):
        for linha in self.processo.stderr:
            achado = re.search(r"WebDriver BiDi listening on (ws://\S+)", linha)
            if achado:
                break
        else:
            raise RuntimeError("firefox does not start")
        self.ws = websocket.create_connection(f"{achado.group(1)}/session", timeout=90, suppress_origin=True)
        self.numero = 0
        self.queixas = []
        self.chama("session.new", capabilities={})
        self.chama("session.subscribe", events=["log.entryAdded"])
        self.aba = self.chama("browsingContext.getTree")["contexts"][0]["context"]

    def chama(self, metodo, **dados):
        self.numero += 1
        self.ws.send(json.dumps({"id": self.numero, "method": metodo, "params": dados}))
        while True:
            resposta = json.loads(self.ws.recv())
            if resposta.get("id") == self.numero:
                if resposta["type"] == "error":
                    raise RuntimeError(f"{metodo}: {resposta['message']}")
                return resposta["result"]
            if resposta.get("method") == "log.entryAdded" and resposta["params"]["level"] in ("error", "warn"):
                self.queixas.append(resposta["params"]["text"])

    def abre(self, caminho, largura=1280, altura=900):
        """Opens a file; returns the seconds until it had loaded."""
        self.chama("browsingContext.setViewport", context=self.aba, viewport={"width": largura, "height": altura})
        inicio = time.monotonic()
        self.chama("browsingContext.navigate", context=self.aba, url=pathlib.Path(caminho).resolve().as_uri(),
                   wait="complete")
        self.avalia("new Promise(f => requestAnimationFrame(() => requestAnimationFrame(f))).then(() => 1)")
        return time.monotonic() - inicio

    def avalia(self, expressao):
        r = self.chama("script.evaluate", expression=f"Promise.resolve({expressao}).then(x => JSON.stringify(x) ?? 'null')",
                       target={"context": self.aba}, awaitPromise=True)
        if r["type"] == "exception":
            raise RuntimeError(f"{expressao}: {r['exceptionDetails']['text']}")
        return json.loads(r["result"]["value"])

    def retrato(self, arquivo):
        r = self.chama("browsingContext.captureScreenshot", context=self.aba)
        with open(arquivo, "wb") as f:
            f.write(base64.b64decode(r["data"]))

    def fecha(self):
        self.processo.terminate()
        try:
            self.processo.wait(15)
        except subprocess.TimeoutExpired:
            self.processo.kill()
            self.processo.wait()
        self.pasta.cleanup()


def confere(n, pasta, nome, retratos):
    with open(f"{pasta}/{nome}.json", encoding="utf-8") as f:
        inicial = json.load(f)[0]
    for largura in (400, 1280):
        n.abre(f"{pasta}/{nome}.html", largura)
        assert n.avalia("document.documentElement.scrollWidth") <= largura, (nome, largura)
        if retratos:
            n.retrato(f"{retratos}/firefox-{nome}-{largura}.png")
    dito = n.avalia("({graos: vorplex.selecao.graos.length, d: vorplex.selecao.distribuicao.d})")
    assert dito["graos"] == inicial["graos"], (nome, dito["graos"])
    for p, valor in inicial["d"].items():
        assert (dito["d"][p] is None) == (valor is None), (nome, p)
        assert valor is None or math.isclose(dito["d"][p], valor, rel_tol=1e-8), (nome, p, dito["d"][p], valor)
    if inicial["graos"] > 0:
        n.avalia("(() => {vorplex.visores[0].raiz.open = true;})()")
        espera(lambda: n.avalia("!!vorplex.visores[0].mapa"), "the viewer does not open")
        vistos = n.avalia("[...vorplex.visores[0].camadas.values()].filter(c => c._map).length")
        assert vistos == n.avalia("vorplex.daFoto(vorplex.fotos[0]).filter(vorplex.passa).length"), (nome, vistos)
    assert n.queixas == [], (nome, n.queixas)


if __name__ == "__main__":
    n = Raposa()
    try:
        nomes = ("cheia", "ingles", "apurada", "grupos", "area", "umgrao", "semgraos", "vazia")
        for nome in nomes:
            confere(n, sys.argv[1], nome, sys.argv[2] if len(sys.argv) > 2 else None)
        print(f"{len(nomes)} pages")
    finally:
        n.fecha()
