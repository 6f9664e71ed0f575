"""Corrects grains on the report page as a person does, saves, runs again and compares.

correcoes.py FOLDER VORPLEX-LOTE ARGUMENTS...    FOLDER has the results of that command
"""
import json
import os
import subprocess
import sys

import pandas
from navegador import Navegador, espera

from medidas import exige

pasta, programa, *argumentos = sys.argv[1:]
n = Navegador()


def ponto(k, linha, coluna):
    """Where a place of the photograph is on the screen."""
    return n.avalia(f"""(() => {{const v = vorplex.visores[{k}], r = v.lugar.getBoundingClientRect();
      const p = v.mapa.latLngToContainerPoint([-({linha}), {coluna}]);
      return [r.left + p.x, r.top + p.y];}})()""")


def ferramenta(k, qual):
    n.avalia(f"document.querySelector('#foto-{k} [data-ferramenta=\"{qual}\"]').click()")
    n.quadros()


def arrasta(de, ate):
    n.rato("mouseMoved", *de)
    n.rato("mousePressed", *de, button="left", clickCount=1)
    for parte in (0.3, 0.7, 1):
        n.rato("mouseMoved", *(a + parte * (b - a) for a, b in zip(de, ate)), button="left")
    n.rato("mouseReleased", *ate, button="left", clickCount=1)
    n.quadros()


def abre_visor(k):
    n.avalia(f"vorplex.visores[{k}].raiz.open = true")
    espera(lambda: n.avalia(f"!!vorplex.visores[{k}].mapa"), "the viewer does not open")
    n.avalia(f"vorplex.visores[{k}].lugar.scrollIntoView({{block: 'center'}})")
    n.avalia("new Promise(f => setTimeout(f, 500)).then(() => 1)")


def quantos():
    return n.avalia("vorplex.selecao.graos.length")


def grao(js):
    return n.avalia(f"(g => ({{i: g.indice, letra: g.letra, li: g.li, ci: g.ci, d1: g.d1, d2: g.d2}}))({js})")


def livres(k, letra):
    """Grains of a family on which no other lies, in the middle of the photograph, by index."""
    return n.avalia(f"""vorplex.fotos[{k}].vivos.filter(g => g.letra === '{letra}' && !g.borda &&
      vorplex.fotos[{k}].vivos.every(h => h === g || Math.hypot(g.li - h.li, g.ci - h.ci) > (g.d1 + h.d1) * 0.7))
      .map(g => g.indice)""")


def corrige(k):
    """Rejects three, brings one back, draws one anew that was rejected. Returns its shape."""
    inicio = quantos()
    abre_visor(k)
    rodondos = livres(k, "c") + livres(k, "e")
    exige(len(rodondos) >= 3, "too few grains that stand alone", rodondos)
    ferramenta(k, "rejeita")
    for indice in rodondos[:3]:
        g = grao(f"vorplex.fotos[{k}].graos.find(g => g.indice === {indice})")
        n.clica(*ponto(k, g["li"], g["ci"]))
        n.quadros()
    exige(quantos() == inicio - 3, "three are rejected:", inicio, quantos())
    exige(contagem()[0] == inicio - 3, "the page counts", contagem())

    n.avalia(f"document.querySelector('#foto-{k} .ferramentas input').click()")
    n.quadros()
    # One that lies on no grain, so that it takes no other's place.
    candidato = n.avalia(f"""(vorplex.fotos[{k}].candidatos.findLast(c => !c.borda &&
      vorplex.fotos[{k}].vivos.every(g => vorplex.semelhanca(c, g) === 0)) ?? {{}}).indice""")
    exige(candidato is not None, "no candidate lies free")
    ferramenta(k, "")
    c = grao(f"vorplex.fotos[{k}].candidatos.find(g => g.indice === {candidato})")
    n.clica(*ponto(k, c["li"], c["ci"]))
    n.quadros()
    n.avalia(f"document.querySelector('#foto-{k} .ficha .acao').click()")
    n.quadros()
    exige(quantos() == inicio - 2, "one is brought back:", inicio, quantos())

    alvo = grao(f"vorplex.fotos[{k}].graos.find(g => g.indice === {rodondos[0]})")
    ferramenta(k, "c")
    r = (alvo["d1"] + alvo["d2"]) / 4
    arrasta(ponto(k, alvo["li"] + 0.1 * r, alvo["ci"] - 0.1 * r), ponto(k, alvo["li"] + 0.1 * r, alvo["ci"] + r))
    exige(quantos() == inicio - 1, "one is drawn:", inicio, quantos())
    # Undone and drawn once more.
    n.avalia("document.querySelector('#correcoes-desfaz').click()")
    n.quadros()
    exige(quantos() == inicio - 2, "undo:", quantos())
    arrasta(ponto(k, alvo["li"], alvo["ci"]), ponto(k, alvo["li"], alvo["ci"] + 1.1 * r))
    exige(quantos() == inicio - 1, "drawn again:", quantos())
    return alvo, c, [grao(f"vorplex.fotos[{k}].graos.find(g => g.indice === {i})") for i in rodondos[1:3]]


def contagem():
    return [int(x.replace(".", "").replace(",", "")) for x in n.texto("#contagem").split() if x[0].isdigit()]


def perto(tabela, g, tolerancia):
    """Rows of the table at the place of a shape."""
    d = ((tabela["linha_px"] - g["li"]) ** 2 + (tabela["coluna_px"] - g["ci"]) ** 2) ** 0.5
    return tabela[d < tolerancia * (g["d1"] + g["d2"]) / 2]


def confere():
    antes = pandas.read_csv(f"{pasta}/graos.csv")
    n.abre(f"{pasta}/relatorio.html")
    k = n.avalia("vorplex.fotos.reduce((m, f, k) => f.graos.length > vorplex.fotos[m].graos.length ? k : m, 0)")
    nome = n.avalia(f"vorplex.fotos[{k}].nome")
    alvo, candidato, rejeitados = corrige(k)
    dito = n.texto("#correcoes span")
    # Kept when the page is opened again.
    n.abre(f"{pasta}/relatorio.html")
    exige(n.texto("#correcoes span") == dito and quantos() == len(antes) - 1, "lost:", dito, quantos())
    n.exigeCalma()
    arquivo = os.path.join(os.path.dirname(pasta), "correcoes.json")
    with open(arquivo, "wb") as f:
        f.write(n.baixado("#correcoes-salvaCorrecoes", "correcoes.json"))
    with open(arquivo, encoding="utf-8") as f:
        gestos = [c["gesto"] for foto in json.load(f)["fotos"] for c in foto["correcoes"]]
    exige(sorted(gestos) == ["desenha", "recupera"] + 3 * ["rejeita"], "saved:", gestos)

    fala = subprocess.run([programa, "-o", pasta, "--correcoes", arquivo, *argumentos], check=False,
                          capture_output=True, text=True).stdout
    exige("rejeitados 3, trazidos de volta 1, desenhados 1, sem par 0" in fala, "the run says", fala)
    depois = pandas.read_csv(f"{pasta}/graos.csv")
    exige(len(depois) == len(antes) - 1, "grains", len(antes), len(depois))
    daqui = depois[depois["foto"] == nome]
    for g in rejeitados:
        exige(len(perto(daqui, g, 0.2)) == 0, "a rejected grain stays", g)
    exige(len(perto(daqui, candidato, 0.25)) == 1, "the candidate is not back", candidato)
    ajustado = perto(daqui, alvo, 0.2)
    exige(len(ajustado) == 1 and ajustado["apoio"].iloc[0] == 1, "the drawn one", ajustado)
    diametro = ajustado["diametro_equivalente_px"].iloc[0]
    exige(abs(diametro / (alvo["d1"] * alvo["d2"]) ** 0.5 - 1) < 0.03, "not fitted:", diametro, alvo)
    outras = antes[antes["foto"] != nome].reset_index(drop=True)
    exige(outras.equals(depois[depois["foto"] != nome].reset_index(drop=True)), "other photographs change")

    n.abre(f"{pasta}/relatorio.html")
    exige(quantos() == len(depois) and n.avalia("document.getElementById('correcoes').hidden"), "the new page")
    aplicadas = n.texto("#corrigidas")
    exige("3 grãos rejeitados, 1 trazido de volta, 1 desenhado" in aplicadas, "the page says", aplicadas)
    # What was applied goes into the next file too.
    todas = json.loads(n.avalia("vorplex.textoDasCorrecoes()"))
    exige([c["gesto"] for c in todas["fotos"][0]["correcoes"]] == gestos, "the next file", todas)
    n.exigeCalma()


try:
    confere()
    print("three rejected, one brought back, one drawn, and run again")
except AssertionError as e:
    exige(False, "corrections", e)
finally:
    n.fecha()
