"""Chromium opens relatorio.html, uses it as a reader does, and shows what the tables say.

relatorio.py RESULTS LANGUAGE SCALE SIZE WEIGHT SIEVES [PICTURES]    arguments as of tabelas.py
    with PICTURES, screenshots are left in that folder
"""
import io
import math
import re
import sys

import numpy
import pandas
from navegador import Navegador, espera

from formas import confereForma
from medidas import FORMAS, distribuicao, emPortugues, exige, leTabela, perto

CAMPOS = {"media": "media", "desvio_padrao": "desvio", "media_fw": "mediaPhi",
          "selecao_fw": "selecao", "assimetria_fw": "assimetria", "curtose_fw": "curtose",
          "cu": "uniformidade", "cc": "curvatura"}


class Relatorio:
    def __init__(self, navegador, pasta, idioma, escala, grandeza, peso, aberturas):
        self.n, self.pasta, self.ingles = navegador, pasta, idioma == "en"
        lado, self.unidade = re.fullmatch(r"([\d.]*)([a-z]+)", escala).groups()
        self.lado = float(lado or 1)
        self.grandeza, self.peso, self.aberturas = grandeza, peso, aberturas
        self.graos = leTabela(f"{pasta}/graos.csv", self.ingles)
        self.resumo = leTabela(f"{pasta}/resumo.csv", self.ingles).set_index("foto")

    def inteiro(self, texto):
        return int(re.sub(r"[.,\s]", "", texto))

    def confereSelecao(self, graos, onde):
        """Count, distribution and sieves that the page shows, for these rows of the table."""
        escrito = self.n.texto("#contagem")
        contados = [self.inteiro(x) for x in re.findall(r"\d[\d.,]*", escrito)]
        exige(contados == [len(graos), len(self.graos)], onde,
              f"'{escrito}', the table has {len(graos)} of {len(self.graos)}")
        dito = self.n.avalia("({...vorplex.selecao.distribuicao,"
                             "classes: vorplex.selecao.classes.map(c => [c.retida, c.passante])})")
        exige(dito["graos"] == len(graos), onde, f"{dito['graos']} grains")
        esperado = distribuicao(graos, self.unidade, self.grandeza, self.peso, self.aberturas)
        retidas = [c[0] for c in dito["classes"]]
        passantes = [c[1] for c in dito["classes"][1:]]
        for nome, valor in esperado.items():
            base = re.sub(r"_(phi_px|phi|px|um|mm|cm|m|in)$", "", nome)
            if re.fullmatch(r"d\d+", base):
                lido = dito["d"][base[1:]]
            elif nome.startswith("retida_"):
                lido = retidas.pop(0)
            elif nome.startswith("passante_"):
                lido = passantes.pop(0)
            else:
                lido = dito[CAMPOS[base]]
            # Shapes of a distribution are differences, which may come near 0.
            perto(lido, valor, onde, nome, absoluto=1e-6 if nome.endswith("_fw") else 1e-12)
        exige(retidas == [] and passantes == [], onde, "more sieves than expected")

    def confereEscrito(self):
        """What stands on the page at first, against the last row of resumo.csv, to its digits."""
        fichas = self.n.avalia("[...document.querySelectorAll('#fichas div')].map(e => "
                               "[e.querySelector('dt').textContent, e.querySelector('dd').textContent])")
        total = self.resumo.loc["total"]
        exige(self.inteiro(fichas[0][1]) == total["graos"], "page", fichas[0])
        exige(self.inteiro(fichas[1][1]) == total["fotos"] == len(self.resumo) - 1, "page", fichas[1])
        for (nome, texto), coluna in zip(fichas[2:], ("d10", "d50", "d90", "media", "desvio_padrao")):
            numero, unidade = texto.split()[:2]  # the interval follows
            if not self.ingles:
                numero = numero.replace(".", "").replace(",", ".")
            exige(unidade == self.unidade, "page", nome, texto)
            perto(float(numero.replace(",", "")), total[f"{coluna}_{unidade}"], "page", nome,
                  relativo=6e-4)

    def confereFotos(self):
        """The table of the photographs, and the outlines of the viewers."""
        linhas = self.n.avalia("vorplex.fotos.map(f => ({nome: f.nome, rows: f.rows, cols: f.cols, "
                               "contornos: f.graos.map(g => vorplex.contorno(g))}))")
        exige([f["nome"] for f in linhas] == list(self.resumo.index[:-1]), "page", "photographs",
              [f["nome"] for f in linhas])
        for foto in linhas:
            graos = self.graos[self.graos["foto"] == foto["nome"]]
            area = foto["rows"] * foto["cols"] * self.lado ** 2
            perto(area, self.resumo.loc[foto["nome"], f"area_da_foto_{self.unidade}2"], "page", foto["nome"])
            exige(len(foto["contornos"]) == len(graos), "page", foto["nome"], "number of outlines")
            for pontos, grao in zip(foto["contornos"], graos.itertuples()):
                confereForma(densa(pontos, grao), grao, f"page {foto['nome']} {grao.indice}")

    def confereVisores(self, retratos):
        """Each photograph opens and shows its picture and as many outlines as it has grains."""
        n = self.n
        for k, nome in enumerate(self.resumo.index[:-1]):
            n.avalia(f"vorplex.visores[{k}].raiz.open = true")
            espera(lambda: n.avalia(f"!!vorplex.visores[{k}].mapa"), "the viewer does not open")
            espera(lambda: n.avalia(f"vorplex.visores[{k}].fundo.getElement().naturalWidth > 0"),
                   f"no picture of {nome}")
            lado = n.avalia(f"(() => {{const i = vorplex.visores[{k}].fundo.getElement();"
                            f"return [i.naturalHeight, i.naturalWidth, vorplex.fotos[{k}].rows,"
                            f"vorplex.fotos[{k}].cols]}})()")
            exige(lado[:2] == lado[2:], "page", nome, "size of the picture", lado)
            vistos = n.avalia(f"[...vorplex.visores[{k}].camadas.values()].filter(c => c._map).length")
            exige(vistos == self.resumo.loc[nome, "graos"], "page", nome, f"{vistos} outlines")
            if retratos:
                n.avalia(f"vorplex.visores[{k}].raiz.scrollIntoView()")
                n.avalia("new Promise(f => setTimeout(f, 400)).then(() => 1)")
                n.retrato(f"{retratos}/foto-{k}.png")
            n.avalia(f"vorplex.visores[{k}].raiz.open = false")

    def confereFiltro(self):
        """Slider, switches and the table to download, against the same filter by pandas."""
        apurado = "apoio" in self.graos
        exige(self.n.avalia("document.getElementById('criterio').hidden") is not apurado, "selector")
        self.confereCursor(*("apoio", self.centesimo("apoio")) if apurado else ("correlacao", 0.3))
        if apurado:
            self.confereCriterio("correl")
            self.confereCursor("correlacao", self.centesimo("correlacao"))

    def centesimo(self, coluna):
        """About a fifth of the grains lie below it; the slider stands at hundredths."""
        return math.floor(self.graos[coluna].quantile(0.2) * 100) / 100

    def confereCriterio(self, criterio):
        self.n.avalia(f"{{const e = document.getElementById('criterio'); e.value = '{criterio}';"
                      "e.dispatchEvent(new Event('change'));}")
        self.n.quadros()
        self.confereSelecao(self.graos, f"slider for {criterio}")

    def confereCursor(self, coluna, limite):
        fortes = self.graos[self.graos[coluna] >= limite]
        exige(0 < len(fortes) < len(self.graos), f"nothing to filter at {limite}")
        self.n.poe("#corr", limite)
        self.confereSelecao(fortes, f"{coluna} from {limite} up")
        self.confereBaixado(fortes)
        for letra, forma in FORMAS.items():
            caixa = f"#familias input[value={letra}]"
            self.troca(caixa)
            sem = fortes[fortes["letra"] != letra]
            exige(len(sem) < len(fortes), f"no {forma} to switch off")
            self.confereSelecao(sem, f"without {forma}s")
            if letra == "q":
                self.confereBaixado(sem)
            self.troca(caixa)
        # Exactly at the value of a grain: the table and the page must agree on >=.
        limite = float(fortes[coluna].median())
        limite = float(fortes[coluna][(fortes[coluna] - limite).abs().idxmin()])
        self.n.poe("#corr-exata", limite)
        self.confereSelecao(self.graos[self.graos[coluna] >= limite], f"from {limite} up")
        self.n.poe("#corr-exata", 1.5)
        self.confereSelecao(self.graos[:0], "no grain")
        self.n.avalia("document.querySelector('button[type=reset]').click()")
        self.n.quadros()
        self.confereSelecao(self.graos, "after a reset")

    def troca(self, seletor):
        self.n.avalia(f"document.querySelector('{seletor}').click()")
        self.n.quadros()

    def confereBaixado(self, graos):
        dito = self.n.baixado("#baixa-csv", "graos.csv")
        lido = pandas.read_csv(io.BytesIO(dito), float_precision="round_trip")
        if self.ingles:
            lido = lido.rename(columns=emPortugues)
            lido["forma"] = lido["forma"].map(emPortugues)
        certo = graos.reset_index(drop=True)
        exige(list(lido) == list(certo), "downloaded table", "columns", list(lido))
        if not lido.equals(certo):
            exige(len(lido) == len(certo), "downloaded table", f"{len(lido)} rows, not {len(certo)}")
            outras = [c for c in certo if not lido[c].equals(certo[c])]
            exige(False, "downloaded table", outras, lido[outras], certo[outras])


def densa(pontos, grao):
    """The page draws curves with 40 points; as many of the true curve stand between them here when
    each of these lies on it."""
    if grao.letra in "qr":
        return pontos
    p = numpy.array(pontos) - [grao.coluna_px, grao.linha_px]
    ang = numpy.radians(0 if grao.letra == "c" else grao.angulo_graus)
    u = (p[:, 0] * numpy.cos(ang) + p[:, 1] * numpy.sin(ang)) / (grao.d1_px / 2)
    v = (p[:, 1] * numpy.cos(ang) - p[:, 0] * numpy.sin(ang)) / (grao.d2_px / 2)
    t = numpy.unwrap(numpy.arctan2(v, u))
    exige(len(p) >= 40 and numpy.abs(numpy.hypot(u, v) - 1).max() < 1e-9, "page", "not on the curve")
    t = numpy.interp(numpy.arange(len(t) * 10) / 10, numpy.arange(len(t) + 1), [*t, t[0] + 2 * numpy.pi])
    u, v = grao.d1_px / 2 * numpy.cos(t), grao.d2_px / 2 * numpy.sin(t)
    return numpy.column_stack([grao.coluna_px + u * numpy.cos(ang) - v * numpy.sin(ang),
                               grao.linha_px + u * numpy.sin(ang) + v * numpy.cos(ang)])


def confere(r, retratos):
    n = r.n
    for largura, altura in ((400, 800), (1280, 900)):
        n.abre(f"{r.pasta}/relatorio.html", largura, altura)
        n.exigeCalma()
        exige(n.avalia("document.documentElement.scrollWidth") <= largura, f"wider than {largura} px")
        if retratos:
            n.retrato(f"{retratos}/relatorio-{largura}.png", inteiro=True)
    exige(n.avalia("document.documentElement.lang") == ("en" if r.ingles else "pt-BR"), "language")
    r.confereEscrito()
    falharam = n.texto("#falharam")  # the broken photograph, which is in no number
    exige(re.match(r"1 .*: estragada\W*$", falharam), "page", "failures:", falharam)
    r.confereSelecao(r.graos, "at first")
    r.confereFotos()
    r.confereFiltro()
    r.confereVisores(retratos)
    n.exigeCalma()


if __name__ == "__main__":
    pasta, idioma, escala, grandeza, peso, malhas = sys.argv[1:7]
    malhas = [float(m) for m in malhas.split(",") if m]
    navegador = Navegador()
    try:
        confere(Relatorio(navegador, pasta, idioma, escala, grandeza, peso, malhas),
                sys.argv[7] if len(sys.argv) > 7 else None)
    except AssertionError as e:
        exige(False, "page", e)
    finally:
        navegador.fecha()
    print("the page shows what the tables say")
