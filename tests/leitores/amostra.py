"""What is known beforehand of the tables that script/test-readers makes of its eight grains.

amostra.py FOLDER    with graos.csv, todos.csv, resumo.csv of 0.05 mm a pixel
"""
import sys

import pandas

from medidas import comEscala, exige, leLista, leTabela, mede, perto, resumo, semIntervalos
from tabelas import comparaTabelas

pasta = sys.argv[1]
nome = 'pilha 1, "úmida".jpg'
graos = leTabela(f"{pasta}/graos.csv")
certos = comEscala(mede(leLista(f"{pasta}/grains.ho2"), 240, 320), 0.05, "mm")
comparaTabelas(graos, certos, "graos.csv")
comparaTabelas(leTabela(f"{pasta}/todos.csv"), certos.assign(foto=nome)[["foto", *certos]], "todos.csv")

area = 240 * 320 * 0.05 ** 2
linhas = [resumo(g, n, f, area, "mm", "menor", "volume", [5, 10, 20])
          for g, n, f in ((certos, nome, 1), (certos[:0], "vazia", 1), (certos, "total", 1))]
comparaTabelas(semIntervalos(leTabela(f"{pasta}/resumo.csv"), "resumo.csv"), pandas.DataFrame(linhas), "resumo.csv")

# By hand: a square of 27.85762 px, and the one circle that reaches beyond the picture.
perto(graos["area_mm2"][0], 27.85762 ** 2 * 0.0025, "area of the square")
exige(graos["toca_borda"].tolist() == [0, 0, 0, 0, 0, 0, 1, 0], "toca_borda", list(graos["toca_borda"]))
exige(graos["correlacao"][0] == 0.523733, "correlacao", graos["correlacao"][0])
print(f"3 tables, {len(graos)} grains")
