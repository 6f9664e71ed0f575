"""pandas reads the tables of a run of vorplex-lote; numpy measures again what they say.

tabelas.py RESULTS PHOTOGRAPHS LANGUAGE SCALE SIZE WEIGHT SIEVES all|inside [FITTED]
    PHOTOGRAPHS  their folder; those that can't be read must be missing in the tables
    SCALE        as 0.05mm, or px;  SIEVES  as 0.5,1 or empty;  inside  without grains at the border
    FITTED       a folder with what vorplex-apura makes of each list, NAME.csv, in Portuguese
"""
import os
import re
import sys

import pandas
from osgeo import gdal

from medidas import comErros, comEscala, exige, leLista, leTabela, mede, perto, resumo, semIntervalos

gdal.UseExceptions()
gdal.SetConfigOption("GDAL_ERROR_ON_LIBJPEG_WARNING", "TRUE")  # half a photograph is none
gdal.PushErrorHandler("CPLQuietErrorHandler")


def tamanhoDaFoto(arquivo):
    """Rows and columns as GDAL reads them; none when it is no whole picture."""
    try:
        foto = gdal.Open(arquivo)
        foto.ReadAsArray()
        return foto.RasterYSize, foto.RasterXSize
    except RuntimeError:
        return None


def comparaTabelas(lida, esperada, onde):
    exige(list(lida) == list(esperada), onde, f"columns {list(lida)}, expected {list(esperada)}")
    exige(len(lida) == len(esperada), onde, f"{len(lida)} rows, expected {len(esperada)}")
    for coluna in esperada:
        for k, (a, b) in enumerate(zip(lida[coluna], esperada[coluna])):
            lugar = (onde, f"row {k}", coluna)
            if isinstance(b, str):
                exige(a == b, *lugar, f"{a} is read, {b} is expected")
            else:
                perto(a, b, *lugar)


def graosEsperados(pasta, nome, apurados, tamanho, lado, unidade):
    """Measured again: by the list of the results, or by what vorplex-apura says."""
    if apurados is None:
        return comEscala(mede(leLista(f"{pasta}/{nome}/{nome}.ho2"), *tamanho), lado, unidade)
    tabela = leTabela(f"{apurados}/{nome}.csv")
    lista = tabela.rename(columns={"correlacao": "correl", "linha_px": "li", "coluna_px": "ci",
                                   "d1_px": "d1", "d2_px": "d2", "angulo_graus": "ang"})
    return comErros(comEscala(mede(lista, *tamanho), lado, unidade), tabela, lado, unidade)


def confereLote(pasta, fotos, idioma, escala, grandeza, peso, aberturas, quais, apurados=None):
    ingles = idioma == "en"
    lado, unidade = re.fullmatch(r"([\d.]*)([a-z]+)", escala).groups()
    lado = float(lado or 1)
    todos, linhas, areaTotal, naBorda = [], [], 0, 0
    for arquivo in sorted(os.listdir(fotos)):
        nome = os.path.splitext(arquivo)[0]
        tamanho = tamanhoDaFoto(f"{fotos}/{arquivo}")
        if tamanho is None:
            exige(not os.path.exists(f"{pasta}/{nome}/graos.csv"), nome, "broken, but has a table")
            exige(os.path.exists(f"{pasta}/{nome}/mensagens.txt"), nome, "its failure is not told")
            continue
        graos = graosEsperados(pasta, nome, apurados, tamanho, lado, unidade)
        naBorda += graos["toca_borda"].sum()
        if quais == "inside":
            graos = graos[graos["toca_borda"] == 0].reset_index(drop=True)
        comparaTabelas(leTabela(f"{pasta}/{nome}/graos.csv", ingles), graos, f"{nome}/graos.csv")
        area = tamanho[0] * tamanho[1] * lado ** 2
        areaTotal += area
        linhas.append(resumo(graos, nome, 1, area, unidade, grandeza, peso, aberturas))
        todos.append(graos.assign(foto=nome)[["foto", *graos.columns]])
    juntos = pandas.concat([t for t in todos if len(t)], ignore_index=True)
    comparaTabelas(leTabela(f"{pasta}/graos.csv", ingles), juntos, "graos.csv")
    linhas.append(resumo(juntos, "total", len(todos), areaTotal, unidade, grandeza, peso, aberturas))
    lido = leTabela(f"{pasta}/resumo.csv", ingles)
    esperadas = pandas.DataFrame(linhas)
    if quais == "inside":
        # Whole grains stand for cut ones too.
        densidade = f"graos_por_{unidade}2"
        exige((lido[densidade] >= esperadas[densidade] * (1 - 1e-6)).all(), "resumo.csv", densidade)
        esperadas[densidade] = lido[densidade]
    comparaTabelas(semIntervalos(lido, "resumo.csv"), esperadas, "resumo.csv")
    for coluna in (c for c in lido if c.startswith(("retida_", "passante_"))):
        exige(lido[coluna].dropna().between(0, 1).all(), "resumo.csv", coluna, "not a share")
    exige(naBorda > 0, "no grain lies at a border")
    return len(todos), len(juntos), naBorda


if __name__ == "__main__":
    pasta, fotos, idioma, escala, grandeza, peso, malhas, quais, *apurados = sys.argv[1:]
    malhas = [float(m) for m in malhas.split(",") if m]
    n, graos, naBorda = confereLote(pasta, fotos, idioma, escala, grandeza, peso, malhas, quais,
                                    *apurados)
    exige(n > 1 and graos > 10, f"{n} photographs and {graos} grains are too few to show anything")
    print(f"{n} photographs, {graos} grains, {naBorda} at a border" +
          (" left out" if quais == "inside" else ""))
