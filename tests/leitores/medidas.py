"""What Vorplex measures, computed again with numpy from lists of detections and from tables."""
import math
import re

import numpy
import pandas

MILIMETROS = {"px": 1, "um": 1e-3, "mm": 1, "cm": 10, "m": 1000, "in": 25.4}
FORMAS = {"c": "circulo", "q": "quadrado", "r": "retangulo", "e": "elipse"}
PERCENTIS = (5, 10, 16, 25, 30, 50, 60, 75, 84, 90, 95)
COMPRIMENTOS = ("linha", "coluna", "d1", "d2", "diametro_equivalente", "perimetro",
                "diametro_menor", "diametro_maior")

# Columns of graos.csv in their order.
COLUNAS = ("indice", "letra", "forma", "linha_px", "coluna_px", "d1_px", "d2_px", "angulo_graus",
           "correlacao", "area_px2", "diametro_equivalente_px", "perimetro_px", "diametro_menor_px",
           "diametro_maior_px", "alongamento", "toca_borda")

# Columns that follow for fitted grains.
DOS_APURADOS = ("apoio", "contraste", "erro_linha_px", "erro_coluna_px", "erro_d1_px", "erro_d2_px",
                "erro_angulo_graus")

# Words of the English tables, taken back to those of the Portuguese ones.
INGLES = {
    "photograph": "foto", "index": "indice", "letter": "letra", "shape": "forma", "row": "linha",
    "column": "coluna", "angle_deg": "angulo_graus", "correlation": "correlacao",
    "equivalent_diameter": "diametro_equivalente", "perimeter": "perimetro",
    "minor_diameter": "diametro_menor", "major_diameter": "diametro_maior",
    "aspect_ratio": "alongamento", "touches_border": "toca_borda", "photographs": "fotos",
    "grains": "graos", "circles": "circulos", "squares": "quadrados", "rectangles": "retangulos",
    "ellipses": "elipses", "touching_border": "na_borda", "photograph_area": "area_da_foto",
    "grains_per": "graos_por", "size": "tamanho", "weight": "peso", "mean": "media",
    "standard_deviation": "desvio_padrao", "fw_mean": "media_fw", "fw_sorting": "selecao_fw",
    "fw_skewness": "assimetria_fw", "fw_kurtosis": "curtose_fw", "retained": "retida",
    "passing": "passante", "support": "apoio", "contrast": "contraste", "error_row": "erro_linha",
    "error_column": "erro_coluna", "error_d1": "erro_d1", "error_d2": "erro_d2",
    "error_angle_deg": "erro_angulo_graus", "pan": "fundo", "circle": "circulo", "square": "quadrado",
    "rectangle": "retangulo", "ellipse": "elipse", "number": "numero", "area": "area",
    "volume": "volume", "total": "total", "remark": "reparo", "coverage": "cobertura",
}

NOS_DOIS = re.compile(r"d\d+_\w+|area_(px|um|mm|cm|m|in)2|cu|cc")  # columns of the same name in both


def exige(condicao, *porque):
    """Ends the reader with status 1 and says why, unless the condition holds."""
    if not condicao:
        raise SystemExit("disagreement: " + ": ".join(str(p).strip() for p in porque))


def perto(lido, esperado, *onde, relativo=2e-6, absoluto=1e-12):
    """Demands the same number; none on both sides is the same too."""
    if esperado is None or esperado != esperado:
        exige(lido is None or lido != lido, *onde, f"{lido} is read, nothing is expected")
    else:
        exige(lido is not None and math.isclose(lido, esperado, rel_tol=relativo, abs_tol=absoluto),
              *onde, f"{lido} is read, {esperado} is expected")


def emPortugues(nome):
    """A column or word of the English tables; the longest word that begins it is replaced."""
    for fim, nosso in (("_low", "_de"), ("_high", "_ate")):
        if nome.endswith(fim):
            return emPortugues(nome.removesuffix(fim)) + nosso
    for palavra in sorted(INGLES, key=len, reverse=True):
        if nome == palavra or nome.startswith(palavra + "_"):
            resto = nome[len(palavra):]
            return INGLES[palavra] + ("_fundo" if resto == "_pan" else resto)
    return nome


def leTabela(arquivo, ingles=False):
    """A table as pandas reads it; an English one takes the Portuguese names."""
    tabela = pandas.read_csv(arquivo, float_precision="round_trip")
    if ingles:
        alheias = [c for c in tabela if c not in INGLES and emPortugues(c) == c
                   and not NOS_DOIS.fullmatch(c)]
        exige(not alheias, arquivo, f"columns that are not English: {alheias}")
        tabela = tabela.rename(columns=emPortugues)
        for coluna in ("forma", "tamanho", "peso"):
            if coluna in tabela:
                tabela[coluna] = tabela[coluna].map(emPortugues)
    return tabela


def semIntervalos(tabela, onde):
    """A summary without its intervals and remarks, when every number lies in its interval."""
    exige("reparo" in tabela, onde, "no remarks")
    limites = [c for c in tabela if c.endswith(("_de", "_ate"))]
    exige(len(limites) >= 38, onde, f"{len(limites)} ends of intervals")
    for nome in limites[::2]:
        coluna = nome.removesuffix("_de")
        for k, (de, x, ate) in enumerate(zip(tabela[nome], tabela[coluna], tabela[coluna + "_ate"])):
            exige(math.isnan(de) == math.isnan(ate) and not de > x and not x > ate, onde,
                  f"row {k}", coluna, f"{x} is not in {de} to {ate}")
    exige((tabela["cobertura"].dropna() >= 0).all(), onde, "coverage below 0")
    return tabela.drop(columns=[*limites, "cobertura", "reparo"])


def leLista(arquivo):
    """The rows of a .ho2 file."""
    with open(arquivo, encoding="ascii") as f:
        linhas = f.read().splitlines()
    quantas = int(linhas[0])
    registros = [linha.split() for linha in linhas[1:] if linha and not linha.startswith("//")]
    exige(len(registros) == quantas, arquivo, f"{quantas} announced, {len(registros)} there")
    nomes = ("correl", "letra", "li", "ci", "d1", "d2", "ang")
    lista = pandas.DataFrame(registros, columns=nomes)
    return lista.astype({n: float for n in nomes if n != "letra"})


def contorno(letra, linha, coluna, d1, d2, graus, pontos=2000):
    """Points of the outline: x the column, y the row, in px; corners of squares and rectangles."""
    if letra in "qr":
        u, v = numpy.array([-1, 1, 1, -1]), numpy.array([-1, -1, 1, 1])
    else:
        t = numpy.arange(pontos) * (2 * numpy.pi / pontos)
        u, v = numpy.cos(t), numpy.sin(t)
    if letra in "cq":
        d2 = d1
    ang = 0 if letra == "c" else math.radians(graus)
    x = coluna + d1 / 2 * u * math.cos(ang) - d2 / 2 * v * math.sin(ang)
    y = linha + d1 / 2 * u * math.sin(ang) + d2 / 2 * v * math.cos(ang)
    return numpy.column_stack([x, y])


def areaComSinal(pontos):
    """Positive where the points run counter-clockwise with y pointing up."""
    x, y = numpy.asarray(pontos, dtype=float).T
    return float(numpy.sum(x * numpy.roll(y, -1) - numpy.roll(x, -1) * y)) / 2


def mede(lista, linhas, colunas):
    """The columns in px of graos.csv for a list of detections."""
    graos = []
    for i, m in enumerate(lista.itertuples()):
        redonda = m.letra in "ce"
        d2 = m.d1 if m.letra in "cq" else m.d2
        area = m.d1 * d2 * (math.pi / 4 if redonda else 1)
        p = contorno(m.letra, m.li, m.ci, m.d1, m.d2, m.ang)
        if redonda:  # the trapezoid rule for the arc length; converges fast on a closed curve
            t = numpy.arange(2000) * (2 * numpy.pi / 2000)
            perimetro = numpy.mean(numpy.hypot(m.d1 * numpy.sin(t), d2 * numpy.cos(t))) * math.pi
        else:
            perimetro = numpy.sum(numpy.hypot(*(p - numpy.roll(p, 1, axis=0)).T))
        folga = 1e-9  # a shape may end exactly at the border; rounding must not push it over
        borda = (p.min() < -0.5 - folga or p[:, 0].max() > colunas - 0.5 + folga
                 or p[:, 1].max() > linhas - 0.5 + folga)
        menor, maior = sorted((m.d1, d2))
        graos.append((i, m.letra, FORMAS[m.letra], m.li, m.ci, m.d1, d2, m.ang, m.correl, area,
                      math.sqrt(4 * area / math.pi), perimetro, menor, maior, maior / menor,
                      int(borda)))
    return pandas.DataFrame(graos, columns=COLUNAS)


def comEscala(graos, lado, unidade):
    """The table with the columns in the unit of the scale."""
    if unidade == "px":
        return graos
    graos = graos.copy()
    for coluna in COLUNAS:
        nome, _, px = coluna.rpartition("_")
        if px in ("px", "px2"):
            fator = lado if nome in COMPRIMENTOS else lado * lado
            graos[f"{nome}_{unidade}{px[2:]}"] = graos[coluna] * fator
    return graos


def comErros(graos, apurados, lado, unidade):
    """The table with what a table of vorplex-apura says of the same grains beyond their shape."""
    graos = graos.copy()
    for coluna in DOS_APURADOS:
        graos[coluna] = apurados[coluna]
    for coluna in DOS_APURADOS if unidade != "px" else ():
        if coluna.endswith("_px"):
            graos[f"{coluna[:-3]}_{unidade}"] = apurados[coluna] * lado
    return graos


def distribuicao(graos, unidade, grandeza, peso, aberturas):
    """Percentiles, moments, graphic measures and sieves of a table of grains, by the columns of
    resumo.csv. Nothing is said without grains."""
    tamanho = graos[f"diametro_{grandeza}_{unidade}"].to_numpy(dtype=float)
    equivalente = graos[f"diametro_equivalente_{unidade}"].to_numpy(dtype=float)
    w = {"numero": numpy.ones_like(tamanho), "area": graos[f"area_{unidade}2"].to_numpy(dtype=float),
         "volume": numpy.pi / 6 * equivalente ** 3}[peso]
    ordem = numpy.lexsort((w, tamanho))
    tamanho, w = tamanho[ordem], w[ordem]
    total = w.sum()
    vazia = len(tamanho) == 0
    r = {}
    # Half its own weight counts below a grain; straight lines between grains, flat beyond them.
    abaixo = (numpy.cumsum(w) - w / 2) / total if not vazia else w
    d = {p: numpy.nan if vazia else numpy.interp(p / 100, abaixo, tamanho) for p in PERCENTIS}
    if peso == "numero" and not vazia:
        for p in PERCENTIS:
            perto(d[p], numpy.quantile(tamanho, p / 100, method="hazen"), "numpy", f"D{p}")
    r.update({f"d{p}_{unidade}": d[p] for p in PERCENTIS})
    media = numpy.nan if vazia else numpy.average(tamanho, weights=w)
    r[f"media_{unidade}"] = media
    r[f"desvio_padrao_{unidade}"] = (
        numpy.nan if vazia else math.sqrt(numpy.average((tamanho - media) ** 2, weights=w)))
    r.update(folkWard(d, unidade))
    r["cu"] = d[60] / d[10]
    r["cc"] = d[30] ** 2 / (d[10] * d[60])
    r.update(peneiras(tamanho, w, aberturas, unidade))
    return r


def folkWard(d, unidade):
    phi = {100 - p: -math.log2(x * MILIMETROS[unidade]) for p, x in d.items()}
    meio, todo, quartis = phi[84] - phi[16], phi[95] - phi[5], phi[75] - phi[25]
    assimetria = curtose = numpy.nan
    if meio > 0 and todo > 0:
        assimetria = ((phi[16] + phi[84] - 2 * phi[50]) / (2 * meio)
                      + (phi[5] + phi[95] - 2 * phi[50]) / (2 * todo))
    if quartis > 0:
        curtose = todo / (2.44 * quartis)
    sufixo = "phi_px" if unidade == "px" else "phi"
    return {f"media_fw_{sufixo}": (phi[16] + phi[50] + phi[84]) / 3,
            f"selecao_fw_{sufixo}": meio / 4 + todo / 6.6,
            "assimetria_fw": assimetria, "curtose_fw": curtose}


def peneiras(tamanho, w, aberturas, unidade):
    """Shares by sieve: a grain as large as an aperture stays on it."""
    if not aberturas:
        return {}
    retida = numpy.full(len(aberturas) + 1, numpy.nan)
    if len(tamanho) > 0:
        retida, _ = numpy.histogram(tamanho, [0, *aberturas, numpy.inf], weights=w / w.sum())
    r = {"retida_fundo": retida[0]}
    for k, abertura in enumerate(aberturas):
        r[f"retida_{abertura:g}_{unidade}"] = retida[k + 1]
        r[f"passante_{abertura:g}_{unidade}"] = retida[:k + 1].sum()
    return r


def resumo(graos, nome, fotos, area, unidade, grandeza, peso, aberturas):
    """A row of resumo.csv."""
    r = {"foto": nome, "fotos": fotos, "graos": len(graos)}
    for letra, forma in FORMAS.items():
        r[f"{forma}s"] = int((graos["letra"] == letra).sum())
    r["na_borda"] = int(graos["toca_borda"].sum())
    r[f"area_da_foto_{unidade}2"] = area
    r[f"graos_por_{unidade}2"] = len(graos) / area
    r["tamanho"] = f"diametro_{grandeza}"
    r["peso"] = peso
    r.update(distribuicao(graos, unidade, grandeza, peso, aberturas))
    return r
