"""Opens the pages of amostra_pagina in Chromium, uses them as a reader does and compares what they
say with the tables and with src/measure.

leitor.py FOLDER [PICTURES]    with PICTURES, screenshots and prints are left in that folder
"""
import csv
import itertools
import json
import math
import os
import sys
import tempfile

from navegador import Navegador, espera

pasta = sys.argv[1]
retratos = sys.argv[2] if len(sys.argv) > 2 else None
n = Navegador()
poe, texto, baixado = n.poe, n.texto, n.baixado


def igual(a, b, onde, folga=1e-9):
    """The same to `folga`; lists and objects member by member. The page has sizes of 9 digits."""
    if isinstance(b, dict):
        for chave, valor in b.items():
            igual(a[chave], valor, f"{onde}.{chave}", folga)
    elif isinstance(b, list):
        assert len(a) == len(b), (onde, a, b)
        for k, valor in enumerate(b):
            igual(a[k], valor, f"{onde}[{k}]", folga)
    elif isinstance(b, (int, float)):
        assert isinstance(a, (int, float)), (onde, a, b)
        assert math.isclose(a, b, rel_tol=folga, abs_tol=folga / 10), (onde, a, b)
    else:
        assert a == b, (onde, a, b)


def tabela(nome):
    with open(f"{pasta}/{nome}.csv", encoding="utf-8", newline="") as f:
        return list(csv.reader(f))


def em_ordem():
    n.exigeCalma()
    assert n.avalia("document.title") != "mau"


def contados():
    """How many grains the page says it shows."""
    return int(texto("#contagem").split()[0].replace(".", "").replace(",", ""))


def confere_numeros(esperado):
    espera(lambda: n.avalia("vorplex.selecao.intervalos !== undefined"), "no intervals")
    dito = n.avalia("({graos: vorplex.selecao.graos.length, ...vorplex.selecao.distribuicao,"
                    "peneiras: vorplex.selecao.classes.map(c => [c.graos, c.retida, c.passante]),"
                    "intervalos: vorplex.selecao.intervalos})")
    # Whether a grain lies just at a percentile or beside it is a matter of its last digit.
    igual(dito.pop("intervalos"), esperado["intervalos"], "intervalos", 2e-3)
    igual(dito, {k: v for k, v in esperado.items() if k != "intervalos"}, "medida", 1e-6)
    assert contados() == esperado["graos"], (texto("#contagem"), esperado["graos"])


def confere_d50(nome, grandeza, escala, min_corr):
    """The median that the page shows, for a page that counts by number, from the table alone."""
    cabeca, *linhas = tabela(nome)
    corr, tamanho = cabeca.index("correlation"), cabeca.index(grandeza)
    x = sorted(float(r[tamanho]) for r in linhas if float(r[corr]) >= min_corr)
    assert contados() == len(x)
    lugar = len(x) / 2 - 0.5  # Hazen: (i + 1/2) / n = 1/2
    i = int(lugar)
    d50 = x[i] + (lugar - i) * (x[min(i + 1, len(x) - 1)] - x[i])
    mostrado = texto(".fichas .forte dd").split()
    assert mostrado[1] == escala and math.isclose(float(mostrado[0]), d50, rel_tol=6e-4), (mostrado, d50)
    igual(n.avalia("vorplex.selecao.distribuicao.d[50]"), d50, "D50", 1e-6)


def escolhe(seletor, valor):
    n.avalia(f"{{const e = document.querySelector('{seletor}'); e.value = '{valor}';"
             "e.dispatchEvent(new Event('change'));}")
    n.quadros()


def confere_medidas(inicial, outras):
    """Size and weight switched on the page give what src/measure gives, and back again."""
    antes = n.avalia("({...vorplex.escolhas})")
    for nome, esperado in outras.items():
        grandeza, peso = nome.split()
        escolhe("#medidas label:nth-of-type(1) select", grandeza)
        escolhe("#medidas label:nth-of-type(2) select", peso)
        confere_numeros(esperado)
        assert n.avalia("vorplex.graficos.histograma.data.datasets.length") <= 4
    escolhe("#medidas label:nth-of-type(1) select", antes["grandeza"])
    escolhe("#medidas label:nth-of-type(2) select", antes["peso"])
    confere_numeros(inicial)


def confere_paginas():
    for nome in ("cheia", "ingles", "apurada", "grupos", "area", "umgrao", "semgraos", "vazia"):
        with open(f"{pasta}/{nome}.json", encoding="utf-8") as f:
            inicial, tres, nove, outras = json.load(f)
        for largura, altura in ((400, 800), (1280, 900)):
            n.abre(f"{pasta}/{nome}.html", largura, altura)
            em_ordem()
            assert n.avalia("document.documentElement.scrollWidth") <= largura, nome
            if retratos:
                n.retrato(f"{retratos}/{nome}-{largura}.png")
        confere_numeros(inicial)
        confere_medidas(inicial, outras)
        poe("#corr-exata", 0.3)
        confere_numeros(tres)
        poe("#corr-exata", 0.9)
        confere_numeros(nove)
        assert n.avalia("document.getElementById('aviso').hidden") is (nove["graos"] > 0)
        em_ordem()


def confere_intervalos():
    """Random lists: the same intervals in the page as in src/measure, and what the reader sees."""
    with open(f"{pasta}/listas.json", encoding="utf-8") as f:
        listas = json.load(f)
    n.abre(f"{pasta}/ingles.html")
    for k, lista in enumerate(listas):
        dito = n.avalia(f"""(() => {{
          const fotos = {{}};
          const graos = {json.dumps(lista["v"])}.map(([tamanho, peso, erro, foto]) =>
            ({{tamanho, peso, erro, foto: (fotos[foto] ??= {{k: foto}})}}))
            .sort((a, b) => a.tamanho - b.tamanho || a.peso - b.peso);
          const curva = vorplex.curva(graos), aberturas = {json.dumps(lista["aberturas"])};
          return vorplex.intervalos({{curva, distribuicao: vorplex.distribui(curva),
            classes: vorplex.peneira(curva, aberturas)}}, aberturas, 120, 3);}})()""")
        igual(dito, lista["intervalos"], f"lista {k}")
    espera(lambda: n.avalia("vorplex.selecao.intervalos !== undefined"), "no intervals")
    de, ate = n.avalia("vorplex.selecao.intervalos.d[50]")
    mostrado = [float(x) for x in texto(".fichas .forte small").split(" – ")]
    assert math.isclose(mostrado[0], de, rel_tol=6e-4) and math.isclose(mostrado[1], ate, rel_tol=6e-4)
    assert "places" not in texto("#nota-intervalos") and texto("#nota-intervalos").startswith("95 %")
    pontos = n.avalia("vorplex.graficos.curva.options.plugins.faixa.pontos.length")
    assert pontos == 11, pontos
    n.avalia("vorplex.passa = (g) => g.foto.k === 1")
    n.avalia("vorplex.atualiza()")
    assert texto("#nota-intervalos").endswith("they know nothing of other places.")


def confere_rotulos():
    """Everything that can be used or seen has a name."""
    sem = n.avalia("""[...document.querySelectorAll('input, button, canvas[role], [role=region], .mapa')]
      .filter(e => !(e.labels?.[0]?.textContent || e.ariaLabel || e.textContent.trim() ||
                     e.getAttribute('aria-labelledby'))).map(e => e.outerHTML)""")
    assert sem == [], sem
    assert n.avalia("[...document.images].every(i => i.hasAttribute('alt'))")


def confere_filtro():
    n.abre(f"{pasta}/ingles.html")
    assert n.avalia("document.documentElement.lang") == "en"
    assert texto("#nome-resumo") == "Summary" and texto("#fichas dt") == "grains"
    confere_rotulos()
    confere_d50("ingles", "minor_diameter_mm", "mm", 0.1)
    poe("#corr", 0.3)
    confere_d50("ingles", "minor_diameter_mm", "mm", 0.3)
    assert n.avalia("document.getElementById('corr-exata').value") == "0.3"

    n.avalia("document.getElementById('corr').focus()")
    n.tecla("ArrowRight", 39)
    n.quadros()
    confere_d50("ingles", "minor_diameter_mm", "mm", 0.31)

    antes = contados()
    circulos = n.avalia("vorplex.selecao.graos.filter(g => g.letra === 'c').length")
    n.avalia("document.querySelector('#familias input').focus()")
    n.tecla(" ", 32)
    n.quadros()
    assert circulos > 0 and contados() == antes - circulos
    barras = n.avalia("vorplex.graficos.histograma.data.datasets"
                      ".map(s => s.data.reduce((a, p) => a + p.y, 0))")
    assert barras[0] == 0 and math.isclose(sum(barras), 100, rel_tol=1e-9), barras
    n.avalia("document.querySelector('button[type=reset]').click()")
    n.quadros()
    confere_d50("ingles", "minor_diameter_mm", "mm", 0.1)
    em_ordem()


def acima(linhas, cabeca, coluna, minimo):
    return [r for r in linhas if float(r[cabeca.index(coluna)]) >= minimo]


def confere_limiares():
    """The slider begins at the threshold of each family, moves all of them or one, and can be typed
    with a comma or a point in either language."""
    n.abre(f"{pasta}/area.html")
    cabeca, *linhas = tabela("area")
    em_vigor = {"c": 0.2345, "q": 0.3, "r": 0.3, "e": 0.25}
    passam = [r for r in linhas
              if float(r[cabeca.index("correlacao")]) >= em_vigor[r[cabeca.index("letra")]]]
    assert 0 < contados() == len(passam) < len(linhas)
    assert texto("#filtro-papel") == ("Filtro: correlação ≥ 0,2345 (círculos), ≥ 0,3 (quadrados, "
                                      "retângulos), ≥ 0,25 (elipses)."), texto("#filtro-papel")
    assert n.avalia("document.getElementById('corr-exata').value") == "0,2345"
    escolhe("#alvo", "q")
    assert n.avalia("document.getElementById('corr-exata').value") == "0,3"
    em_vigor["q"] = 0.6
    for escrito in ("'0,6'", "'0.6'", "' 6e-1 '"):
        poe("#corr-exata", "'9'")
        poe("#corr-exata", escrito)
        assert contados() == sum(float(r[cabeca.index("correlacao")]) >= em_vigor[r[cabeca.index("letra")]]
                                 for r in linhas)
    antes = contados()
    poe("#corr-exata", "'0,6x'")
    assert contados() == antes and n.avalia("document.querySelector('#corr-exata.errada') !== null")
    escolhe("#alvo", "")
    poe("#corr", 0.5)
    assert contados() == len(acima(linhas, cabeca, "correlacao", 0.5))
    n.abre(f"{pasta}/ingles.html")
    cabeca, *linhas = tabela("ingles")
    poe("#corr-exata", "'0,45'")
    assert contados() == len(acima(linhas, cabeca, "correlation", 0.45))
    em_ordem()


def confere_apurada():
    """The slider of fitted grains goes over their support, or over correlation."""
    n.abre(f"{pasta}/apurada.html")
    confere_rotulos()
    cabeca, *linhas = tabela("apurada")
    # Those that the border cuts are in the table, but not in the numbers.
    inteiros = [r for r in linhas if r[cabeca.index("touches_border")] == "0"]
    assert len(inteiros) < len(linhas)
    assert n.avalia("document.getElementById('corr-exata').value") == "0.33"
    opcoes = n.avalia("[...document.querySelectorAll('#criterio option')].map(e => e.textContent)")
    assert opcoes == ["Minimum support", "Minimum correlation"], opcoes
    assert n.avalia("document.getElementById('nome-corr').hidden")
    assert n.avalia("document.getElementById('corr').ariaLabel") == "Minimum support"
    for criterio, coluna in (("apoio", "support"), ("correl", "correlation")):
        n.avalia(f"{{const e = document.getElementById('criterio'); e.value = '{criterio}';"
                 "e.dispatchEvent(new Event('change'));}")
        n.quadros()
        assert contados() == len(inteiros)
        poe("#corr", 0.6)
        esperadas = [r for r in linhas if float(r[cabeca.index(coluna)]) >= 0.6]
        assert 0 < contados() == sum(r in esperadas for r in inteiros) < len(inteiros)
        dito = baixado("#baixa-csv", "graos.csv").decode("utf-8")
        assert list(csv.reader(dito.splitlines(keepends=True))) == [cabeca, *esperadas]
        assert texto("#filtro-papel").startswith(f"Filter: {coluna} ≥ 0.6; circles")
    n.avalia("document.querySelector('button[type=reset]').click()")
    n.quadros()
    assert contados() == len(inteiros)
    assert n.avalia("document.getElementById('criterio').value") == "apoio"
    n.avalia("vorplex.visores[0].raiz.open = true")
    espera(lambda: n.avalia("!!vorplex.visores[0].mapa"), "the viewer does not open")
    n.avalia("vorplex.escolheGrao(0, vorplex.fotos[0].graos.find(g => g.letra === 'r'))")
    n.quadros()
    ficha = n.avalia("[...document.querySelectorAll('#foto-0 .ficha dd')].map(e => e.textContent)")
    assert len(ficha) == 15, ficha
    for k, vezes in ((1, 1), (2, 1), (3, 2), (4, 1)):  # row, column, sizes, angle
        assert ficha[k].count(" ± ") == vezes, ficha
    if retratos:
        n.avalia("vorplex.visores[0].raiz.scrollIntoView()")
        n.avalia("new Promise(f => setTimeout(f, 400)).then(() => 1)")
        n.retrato(f"{retratos}/apurada-visor.png")
    em_ordem()


def confere_barras():
    """A bar of sieves has its share as its surface; one that is clicked shows its grains. No value of
    the aspect ratio falls into two classes."""
    n.abre(f"{pasta}/cheia.html")
    partes = "vorplex.graficos.histograma.data.datasets.map(s => s.data.map(p => p.y))"
    escolhe("#medidas label:nth-of-type(3) select", "peneiras")
    limites = n.avalia("vorplex.graficos.histograma.options.plugins.barras.limites")
    densas = [sum(y) for y in zip(*n.avalia(partes))]
    largas = [math.log2(b / a) for a, b in zip(limites, limites[1:])]
    retidas = n.avalia("vorplex.selecao.classes.map(c => 100 * c.retida)")
    igual([d * x for d, x in zip(densas, largas)], retidas, "densities")
    assert "por φ" in n.avalia("vorplex.graficos.histograma.options.scales.y.title.text")
    escolhe("#medidas label:nth-of-type(3) select", "proprias")
    passos = n.avalia("vorplex.graficos.histograma.options.plugins.barras.limites")
    igual([b / a for a, b in zip(passos, passos[1:])], [passos[1] / passos[0]] * (len(passos) - 1), "own classes")

    n.avalia("document.querySelector('#grafico-histograma').scrollIntoView({block: 'center'})")
    n.quadros()
    x, y, k = n.avalia("""(() => {const c = vorplex.graficos.histograma, metas = c.getSortedVisibleDatasetMetas();
      const k = metas[0].data.findIndex((b, i) => c.data.datasets[0].data[i].y > 1), b = metas[0].data[k];
      const r = c.canvas.getBoundingClientRect();
      return [r.left + b.x, r.top + (b.y + b.base) / 2, k];})()""")
    n.clica(x, y)
    n.quadros()
    na_barra = n.avalia(f"vorplex.selecao.graos.filter(g => g.tamanho >= {passos[k]} && g.tamanho < {passos[k + 1]}).length")
    assert texto("#galeria h3").endswith(f": {na_barra} grãos"), (texto("#galeria h3"), na_barra)
    assert n.avalia("document.querySelectorAll('#galeria canvas').length") == min(na_barra, 60)
    n.avalia("document.querySelector('#galeria .pecas button').click()")
    espera(lambda: n.avalia("vorplex.visores.some(v => v.mapa && v.escolhido)"), "no grain is shown")

    classes = n.avalia("""(() => {const limites = vorplex.graficos.alongamento.options.plugins.barras.limites;
      return limites.slice(1, -1).map(x => [1 - 4e-6, 1, 1 + 4e-6].map(f =>
        vorplex.classe(x * f, limites, vorplex.folgaDoAlongamento)));})()""")
    assert classes and all(len(set(c)) == 1 for c in classes), classes
    # The curve ends where the marks of the sieves do.
    curva, marcas = n.avalia("vorplex.graficos.curva.data.datasets.map(s => s.data)")
    assert curva[0]["y"] == 0 and curva[-1]["y"] == 100
    assert curva[0]["x"] <= marcas[0]["x"] and marcas[-1]["x"] <= curva[-1]["x"]
    em_ordem()


def distancia(a, b):
    """Of Kolmogorov and Smirnov, between lists of (size, weight)."""
    tudo = sorted([(x, w / sum(v for _, v in a)) for x, w in a] + [(x, -w / sum(v for _, v in b)) for x, w in b])
    soma = maior = 0
    for k, (x, w) in enumerate(tudo):
        soma += w
        if k + 1 == len(tudo) or tudo[k + 1][0] != x:
            maior = max(maior, abs(soma))
    return maior


def confere_grupos():
    """The curves, percentiles and test of two groups, from the table."""
    n.abre(f"{pasta}/grupos.html")
    cabeca, *linhas = tabela("grupos")
    foto, tamanho = cabeca.index("photograph"), cabeca.index("equivalent_diameter_mm")
    apoio = cabeca.index("support")
    fotos = [[(float(r[tamanho]), 1) for r in linhas if r[foto] == f"{k}.jpg" and float(r[apoio]) >= 0.33]
             for k in range(8)]
    norte, sul = fotos[::2], fotos[1::2]
    dito = n.avalia("vorplex.grupos.map(g => [g.nome, g.graos.length, g.distribuicao.d[50]])")
    for (nome, quantos, d50), grupo, certo in zip(dito, (norte, sul), ("north", "south <b>")):
        x = sorted(v for f in grupo for v, _ in f)
        assert (nome, quantos) == (certo, len(x)), dito
        lugar = len(x) / 2 - 0.5
        i = int(lugar)
        igual(d50, x[i] + (lugar - i) * (x[min(i + 1, len(x) - 1)] - x[i]), "D50 of a group", 1e-7)
    espera(lambda: n.avalia("vorplex.testes?.length") == 1, "no test")
    teste = n.avalia("vorplex.testes[0]")
    igual(teste["d"], distancia(sum(norte, []), sum(sul, [])), "distance")
    ks = []
    for escolha in itertools.combinations(range(8), 4):
        ks.append(distancia(*(sum((f for k, f in enumerate(norte + sul) if (k in escolha) is sim), [])
                              for sim in (True, False))))
    igual(teste["p"], sum(k >= teste["d"] * (1 - 1e-12) for k in ks) / len(ks), "p")
    assert teste["modos"] == 70 and teste["p"] < 0.05, teste
    assert n.avalia("vorplex.compara([[{tamanho: 1, peso: 1}]], [[{tamanho: 2, peso: 1}]]).p") is None
    # Two halves of the same grains are told apart about as often as p says.
    mesmo = n.avalia("vorplex.compara(vorplex.grupos[0].fotos.slice(0, 2).map(f => f.graos),"
                     "vorplex.grupos[0].fotos.slice(2).map(f => f.graos))")
    assert mesmo["p"] > 0.1 and mesmo["modos"] == 6, mesmo
    # Many photographs: dealings are drawn, the same ones every time.
    muitas = ("vorplex.compara(...[0, 1].map(s => Array.from({length: 12}, (_, k) => Array.from({length: 9}, (_, i) =>"
              "({tamanho: 1 + (i * 7 + k * 3 + s) % 10, peso: 1})))))")
    um, outro = n.avalia(muitas), n.avalia(muitas)
    assert um == outro and um["modos"] == 1000 and 0.001 <= um["p"] <= 1, (um, outro)
    assert texto("#corrigidas").startswith("Corrected by hand: 2 grains rejected, 1 brought back. Without")
    n.abre(f"{pasta}/ingles.html")
    assert n.avalia("document.getElementById('bloco-grupos').hidden")
    em_ordem()


def confere_desenhados():
    """Shapes drawn on the page have the measures that src/measure gives."""
    n.abre(f"{pasta}/grupos.html")
    campos = ["letra", "li", "ci", "d1", "d2", "ang", "area", "equivalente", "perimetro", "menor", "maior",
              "alongamento", "borda"]
    pares = n.avalia(f"""vorplex.fotos.flatMap(f => f.graos.map(g => [g, vorplex.graoDesenhado(
      {{letra: g.letra, li: g.li, ci: g.ci, d1: g.d1, d2: g.d2, ang: g.ang}}, f, 0)]
      .map(x => {json.dumps(campos)}.map(c => x[c]))))""")
    assert len(pares) == 480
    for medido, desenhado in pares:
        if medido[0] == "q":
            medido[5] %= 90  # the usual way of writing it
        igual(desenhado, medido, "drawn", 1e-7)
    iou = n.avalia("""(() => {const f = vorplex.fotos[0], c = (ci, d) => vorplex.graoDesenhado(
      {letra: 'c', li: 100, ci, d1: d, d2: d, ang: 0}, f, 0);
      return [[c(50, 20), c(50, 20)], [c(50, 20), c(50, 10)], [c(50, 20), c(90, 20)]].map(p => vorplex.semelhanca(...p));})()""")
    assert iou[0] == 1 and abs(iou[1] - 0.25) < 0.02 and iou[2] == 0, iou
    em_ordem()


def confere_downloads():
    n.abre(f"{pasta}/cheia.html")
    poe("#corr", 0.3)
    cabeca, *linhas = tabela("cheia")
    esperadas = [r for r in linhas if float(r[cabeca.index("correlacao")]) >= 0.3]
    dito = baixado("#baixa-csv", "graos.csv").decode("utf-8")
    lidas = list(csv.reader(dito.splitlines(keepends=True)))
    assert lidas[0] == cabeca and 0 < len(esperadas) < len(linhas)
    assert lidas[1:] == esperadas, [x for x in zip(lidas[1:], esperadas) if x[0] != x[1]][:3]
    for k, nome in enumerate(("histograma", "curva", "rosa", "alongamento")):
        png = baixado(f".grafico:nth-child({k + 1}) button", f"{nome}.png")
        assert png[:8] == b"\x89PNG\r\n\x1a\n" and len(png) > 5000, nome
        if retratos:
            with open(f"{retratos}/{nome}.png", "wb") as f:
                f.write(png)


def lugar_na_tela(k, grao):
    return n.avalia(f"""(() => {{const v = vorplex.visores[{k}], g = v.foto.graos[{grao}];
      const p = v.mapa.latLngToContainerPoint([-g.li, g.ci]), r = v.lugar.getBoundingClientRect();
      return [r.left + p.x, r.top + p.y];}})()""")


def confere_contornos():
    """Corners and areas of the outlines, from the table."""
    cabeca, *linhas = tabela("cheia")
    coluna = {nome: k for k, nome in enumerate(cabeca)}
    contornos = n.avalia("vorplex.fotos.flatMap(f => f.graos.map(g => vorplex.contorno(g)))")
    assert len(contornos) == len(linhas)
    for r, pontos in zip(linhas, contornos):
        v = {c: float(r[k]) for c, k in coluna.items() if c.endswith(("px", "px2", "graus"))}
        pares = list(zip(pontos, pontos[1:] + pontos[:1]))
        area = sum(a[0] * b[1] - b[0] * a[1] for a, b in pares) / 2
        assert 0.995 < area / v["area_px2"] < 1 + 1e-7, r
        if r[coluna["letra"]] in "qr":
            ang = math.radians(v["angulo_graus"])
            a, b = v["d1_px"] / 2, v["d2_px"] / 2
            x = v["coluna_px"] + a * math.cos(ang) - b * math.sin(ang)
            y = v["linha_px"] + a * math.sin(ang) + b * math.cos(ang)
            assert any(math.dist((x, y), p) < 1e-6 for p in pontos), r


def confere_visores():
    n.abre(f"{pasta}/cheia.html")
    assert n.avalia("vorplex.visores.every(v => !v.mapa) && "
                    "document.querySelectorAll('.leaflet-image-layer').length === 0")
    confere_contornos()
    x, y = n.avalia("""(() => {const a = document.querySelectorAll('#tabela-fotos a')[1];
      a.scrollIntoView({block: 'center'}); const r = a.getBoundingClientRect();
      return [r.left + 10, r.top + r.height / 2];})()""")
    n.clica(x, y)
    espera(lambda: n.avalia("!!vorplex.visores[1].mapa"), "the viewer does not open")
    espera(lambda: n.avalia("vorplex.visores[1].fundo.getElement().naturalWidth") == 1200, "no picture")
    n.avalia("new Promise(f => setTimeout(f, 400)).then(() => 1)")
    quantos = n.avalia("vorplex.fotos[1].graos.length")
    na_tela = "[...vorplex.visores[1].camadas.values()].filter(c => c._map).length"
    assert n.avalia(na_tela) == quantos
    inteira = n.avalia("vorplex.visores[1].mapa.getBounds().contains([[-899.4, -0.4], [0.4, 1199.4]])")
    assert inteira, "the whole picture is not in view at first"
    tinta = """(() => {const c = document.querySelector('#foto-1 canvas.leaflet-zoom-animated');
      const copia = new OffscreenCanvas(c.width, c.height).getContext('2d');
      copia.drawImage(c, 0, 0);
      return copia.getImageData(0, 0, c.width, c.height).data
        .filter((v, i) => i % 4 === 3 && v > 0).length;})()"""
    todos = n.avalia(tinta)
    poe("#corr", 0.7)
    n.quadros()
    assert 0 < n.avalia(tinta) < todos / 2, "the outlines of refused grains stay"
    poe("#corr", 0.1)

    n.avalia("vorplex.visores[1].raiz.scrollIntoView()")
    n.quadros()
    # The last one of the list lies on top.
    grao = n.avalia("vorplex.fotos[1].graos.findLastIndex("
                    "g => g.li > 100 && g.li < 800 && g.ci > 200 && g.ci < 1000)")
    x, y = lugar_na_tela(1, grao)
    n.rato("mouseMoved", x - 1, y)
    n.rato("mouseMoved", x, y)
    espera(lambda: n.avalia("!!document.querySelector('.leaflet-tooltip')"), "no record at the mouse")
    assert texto(".leaflet-tooltip").startswith(f"{grao}: "), texto(".leaflet-tooltip")
    n.clica(x, y)
    n.quadros()
    indice = "#foto-1 .ficha .indice"
    assert texto(indice) == f"grão {grao}", texto(indice)
    assert len(n.avalia("[...document.querySelectorAll('#foto-1 .ficha dd')].map(e => e.textContent)")) == 12
    n.avalia("document.querySelectorAll('#foto-1 .passos button')[1].click()")
    assert texto(indice) == f"grão {(grao + 1) % quantos}"
    n.avalia("document.querySelectorAll('#foto-1 .passos button')[0].click()")
    if retratos:
        n.avalia("new Promise(f => setTimeout(f, 400)).then(() => 1)")
        n.retrato(f"{retratos}/visor-1280.png")

    zoom = n.avalia("vorplex.visores[1].mapa.getZoom()")
    n.avalia("document.querySelector('#foto-1 .leaflet-control-zoom-in').click()")
    espera(lambda: n.avalia("vorplex.visores[1].mapa.getZoom()") > zoom, "no zoom")
    poe("#corr", 0.3)
    acima = n.avalia("vorplex.fotos[1].graos.filter(g => g.correl >= 0.3).length")
    assert 0 < acima < quantos and n.avalia(na_tela) == acima
    assert texto("#foto-1 .quantos") == f"{acima} grãos"
    n.avalia("vorplex.visores[1].raiz.open = false")
    espera(lambda: not n.avalia("!!vorplex.visores[1].mapa"), "the viewer stays")

    # The photograph with the hostile name, and that without grains.
    for k in (3, 4):
        n.avalia(f"vorplex.visores[{k}].raiz.open = true")
        espera(lambda: n.avalia(f"!!vorplex.visores[{k}].mapa"), "the viewer does not open")
    nome = n.avalia("vorplex.visores[3].raiz.querySelector('summary bdi').textContent")
    assert nome.startswith("<img src=x") and nome.endswith("</script>&amp;'\ufffd.jpg"), nome
    em_ordem()


def confere_papel():
    n.abre(f"{pasta}/cheia.html")
    figuras = "[...document.querySelectorAll('#papel img')]"
    espera(lambda: n.avalia(f"{figuras}.every(i => i.complete && i.naturalWidth > 0)"), "no pictures for paper")
    with tempfile.TemporaryDirectory() as destino:
        arquivo = f"{retratos or destino}/cheia.pdf"
        n.imprime(arquivo)
        with open(arquivo, "rb") as f:
            assert f.read(5) == b"%PDF-"
    tracados = n.avalia("[...document.querySelectorAll('#papel figure')].map(f => "
                        "[...f.querySelectorAll('path')].reduce((s, p) => s + p.getAttribute('d').split('M').length - 1, 0))")
    graos = n.avalia("vorplex.fotos.map(f => 2 * f.graos.length)")  # each with its rim
    assert tracados == graos and sum(graos) > 0, (tracados, graos)
    n.chama("Emulation.setEmulatedMedia", media="print")
    mostra = "getComputedStyle(document.querySelector('{}')).display"
    assert n.avalia(mostra.format(".filtro")) == "none"
    assert n.avalia(mostra.format("#filtro-papel")) == "block"
    assert texto("#filtro-papel").startswith("Filtro: correlação ≥ 0,1; círculos")
    n.chama("Emulation.setEmulatedMedia", media="")
    em_ordem()


def confere_faltas():
    """What is missing is told on screen and paper, and nothing when all went well."""
    mostra = "getComputedStyle(document.querySelector('#falharam')).display"
    n.abre(f"{pasta}/cheia.html")
    dito = texto("#falharam")
    assert dito.startswith("2 de 7 fotografias falharam e não estão nos números"), dito
    nomes = n.avalia("[...document.querySelectorAll('#falharam bdi')].map(e => e.textContent)")
    assert nomes[0] == "queimada" and nomes[1].startswith("<img src=x onerror"), nomes
    n.chama("Emulation.setEmulatedMedia", media="print")
    assert n.avalia(mostra) == "block"
    n.chama("Emulation.setEmulatedMedia", media="")
    alto = n.avalia("document.querySelector('#falharam').getBoundingClientRect().bottom")
    assert alto < 900, f"told only at {alto} px"
    em_ordem()
    n.abre(f"{pasta}/ingles.html")
    assert n.avalia("document.querySelector('#falharam')") is None

    # A picture that was lost: its grains are shown on plain grey.
    n.abre(f"{pasta}/area.html")
    assert texto("#foto-4 summary").endswith("imagem perdida")
    assert n.avalia("vorplex.visores.filter(v => /perdida/.test(v.raiz.textContent)).length") == 1
    n.avalia("vorplex.visores[4].raiz.open = true")
    espera(lambda: n.avalia("vorplex.visores[4].fundo?.getElement().naturalWidth") == 640, "no grey")
    em_ordem()


def confere_barra():
    """The bar covers nothing that the reader has gone to, and is one line on a usual screen."""
    for largura, linhas in ((1280, 1), (1100, 2), (400, 4)):
        for nome in ("cheia", "ingles", "apurada"):
            n.abre(f"{pasta}/{nome}.html", largura, 800)
            n.avalia("document.querySelectorAll('#tabela-fotos a')[1].click()")
            espera(lambda: n.avalia("!!vorplex.visores[1].mapa"), "the viewer does not open")
            n.avalia("vorplex.visores[1].raiz.scrollIntoView()")
            n.avalia("new Promise(f => setTimeout(f, 300)).then(() => 1)")
            barra, controle, visor = n.avalia(
                "[document.querySelector('#filtro').getBoundingClientRect().bottom,"
                "Math.max(...[...document.querySelector('#filtro').children]"
                ".map(e => e.getBoundingClientRect().height)),"
                "vorplex.visores[1].raiz.getBoundingClientRect().top]")
            assert barra <= visor <= barra + 40, (nome, largura, barra, visor)
            assert barra < (linhas + 0.8) * controle, (nome, largura, "lines", barra, controle)
            if retratos:
                n.retrato(f"{retratos}/barra-{nome}-{largura}.png")


def confere_grande():
    """Seconds to open a page of a usual batch, and its size."""
    arquivo = f"{pasta}/grande.html"
    segundos = n.abre(arquivo)
    em_ordem()
    fotos, graos = n.avalia("[vorplex.fotos.length, vorplex.graos.length]")
    troca = n.avalia("(() => {const t = performance.now(); vorplex.atualiza(); "
                     "return performance.now() - t;})()")
    print(f"{fotos} photographs, {graos} grains: {os.path.getsize(arquivo) / 1e6:.1f} MB, "
          f"{segundos:.2f} s to open, {troca:.0f} ms for a change of the filter")


try:
    if os.path.exists(f"{pasta}/grande.html"):
        confere_grande()
    else:
        confere_paginas()
        confere_intervalos()
        confere_filtro()
        confere_limiares()
        confere_apurada()
        confere_barras()
        confere_grupos()
        confere_desenhados()
        confere_downloads()
        confere_visores()
        confere_papel()
        confere_faltas()
        confere_barra()
        print("8 pages")
finally:
    n.fecha()
