"""Drives a headless Chromium over its debugging protocol."""
import base64
import json
import os
import pathlib
import subprocess
import tempfile
import time
import urllib.request

import websocket


def espera(condicao, que):
    for _ in range(200):
        if condicao():
            return
        time.sleep(0.05)
    raise AssertionError(que)


class Navegador:
    """A browser with one tab. Keeps every request, console message and exception of it."""

    def __init__(self):
        self.pasta = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        # The sandbox refuses to run as root and in most containers; the pages are our own.
        self.processo = subprocess.Popen(
            ["chromium", "--headless=new", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
             "--remote-debugging-port=0", "--remote-allow-origins=*", "--no-first-run",
             "--disable-dev-shm-usage", "--disable-background-networking",
             "--disable-component-update", f"--user-data-dir={self.pasta.name}", "about:blank"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            self._liga()
        except BaseException:
            self._encerra()
            raise

    def _liga(self):
        porta = self._porta()
        with urllib.request.urlopen(f"http://127.0.0.1:{porta}/json") as resposta:
            abas = json.load(resposta)
        endereco = next(a["webSocketDebuggerUrl"] for a in abas if a["type"] == "page")
        self.ws = websocket.create_connection(endereco, timeout=60)
        self.numero = 0
        self.esquece()
        for dominio in ("Page", "Runtime", "Network", "Log"):
            self.chama(f"{dominio}.enable")

    def _porta(self):
        arquivo = os.path.join(self.pasta.name, "DevToolsActivePort")
        for _ in range(300):
            try:
                with open(arquivo, encoding="ascii") as f:
                    linhas = f.read().split()
                if linhas:
                    return linhas[0]
            except FileNotFoundError:
                pass
            time.sleep(0.1)
        raise RuntimeError("chromium does not start")

    def esquece(self):
        self.pedidos, self.queixas, self.eventos = [], [], []

    def _guarda(self, evento):
        nome, dados = evento["method"], evento["params"]
        self.eventos.append(nome)
        if nome == "Network.requestWillBeSent":
            self.pedidos.append(dados["request"]["url"])
        elif nome == "Runtime.exceptionThrown":
            self.queixas.append(dados["exceptionDetails"])
        elif nome == "Runtime.consoleAPICalled":
            self.queixas.append(dados["args"])
        elif nome == "Log.entryAdded":
            self.queixas.append(dados["entry"]["text"])

    def chama(self, metodo, **dados):
        self.numero += 1
        self.ws.send(json.dumps({"id": self.numero, "method": metodo, "params": dados}))
        while True:
            resposta = json.loads(self.ws.recv())
            if "id" not in resposta:
                self._guarda(resposta)
            elif resposta["id"] == self.numero:
                if "error" in resposta:
                    raise RuntimeError(f"{metodo}: {resposta['error']}")
                return resposta["result"]

    def avalia(self, expressao):
        """The value of a JavaScript expression; of a promise, what it comes to."""
        r = self.chama("Runtime.evaluate", expression=expressao, awaitPromise=True,
                       returnByValue=True)
        if "exceptionDetails" in r:
            raise RuntimeError(f"{expressao}: {r['exceptionDetails']}")
        return r["result"].get("value")

    def abre(self, caminho, largura=1280, altura=900):
        """Opens a file; returns the seconds until it had loaded and drawn a frame."""
        self.chama("Emulation.setDeviceMetricsOverride", width=largura, height=altura,
                   deviceScaleFactor=1, mobile=largura < 600)
        self.chama("Page.navigate", url="about:blank")
        self.quadros()
        self.esquece()
        inicio = time.monotonic()
        self.endereco = pathlib.Path(caminho).resolve().as_uri()
        self.chama("Page.navigate", url=self.endereco)
        while "Page.loadEventFired" not in self.eventos:
            self._guarda(json.loads(self.ws.recv()))
        self.quadros()
        return time.monotonic() - inicio

    def exigeCalma(self):
        """No complaint of the page, and no request but for itself."""
        assert self.queixas == [], f"the page complains: {self.queixas}"
        alheios = [p for p in self.pedidos if not p.startswith(("data:", "blob:"))]
        assert alheios == [self.endereco], f"the page asks for more than itself: {alheios}"

    def texto(self, seletor):
        return self.avalia(f"document.querySelector('{seletor}').textContent")

    def poe(self, seletor, valor):
        """Moves the slider, or types into the field."""
        self.avalia(f"{{const e = document.querySelector('{seletor}'); e.value = {valor};"
                    "e.dispatchEvent(new Event('input', {bubbles: true}));}")
        self.quadros()

    def baixado(self, botao, nome):
        """The bytes that a button downloads under this name."""
        with tempfile.TemporaryDirectory() as destino:
            self.chama("Browser.setDownloadBehavior", behavior="allow", downloadPath=destino)
            self.avalia(f"document.querySelector('{botao}').click()")
            espera(lambda: os.listdir(destino) == [nome], f"{nome} is not downloaded")
            with open(os.path.join(destino, nome), "rb") as f:
                return f.read()

    def quadros(self):
        """Waits until what was asked of the page is on the screen."""
        self.avalia("new Promise(f => requestAnimationFrame(() => requestAnimationFrame(f)))"
                    ".then(() => true)")

    def tecla(self, nome, codigo):
        for tipo in ("keyDown", "keyUp"):
            self.chama("Input.dispatchKeyEvent", type=tipo, key=nome, code=nome,
                       windowsVirtualKeyCode=codigo, text=" " if nome == " " else "")

    def rato(self, tipo, x, y, **dados):
        self.chama("Input.dispatchMouseEvent", type=tipo, x=x, y=y, **dados)

    def clica(self, x, y):
        self.rato("mouseMoved", x, y)
        self.rato("mousePressed", x, y, button="left", clickCount=1)
        self.rato("mouseReleased", x, y, button="left", clickCount=1)

    def retrato(self, arquivo, inteiro=False):
        r = self.chama("Page.captureScreenshot", format="png", captureBeyondViewport=inteiro)
        with open(arquivo, "wb") as f:
            f.write(base64.b64decode(r["data"]))

    def imprime(self, arquivo):
        r = self.chama("Page.printToPDF", printBackground=True, paperWidth=8.27, paperHeight=11.69,
                       preferCSSPageSize=True)
        with open(arquivo, "wb") as f:
            f.write(base64.b64decode(r["data"]))

    def _encerra(self):
        self.processo.terminate()
        try:
            self.processo.wait(10)
        except subprocess.TimeoutExpired:
            self.processo.kill()
            self.processo.wait()
        self.pasta.cleanup()

    def fecha(self):
        self.ws.close()
        self._encerra()
