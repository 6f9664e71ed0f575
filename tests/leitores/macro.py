"""The macro for ImageJ: what it puts into the ROI Manager are the grains of vorplex-lote.

macro.py MACRO KERNEL.CFG PICTURE FOLDER    the folder has graos.csv of the same picture
"""
import os
import sys
import tempfile

import numpy

from medidas import exige, leTabela
from rois import executa

# What the macro does is seen only from within: its regions go with it when it is run without windows.
ANTES = 'open("%s");\n'
DEPOIS = """
for (i = 0; i < roiManager("count"); i++) {
  roiManager("select", i);
  List.setMeasurements;
  print(List.getValue("X") + "\\t" + List.getValue("Y"));
}
print("rows\\t" + Table.size("graos.csv"));
"""


def confere(macro, configuracao, figura, pasta):
    with tempfile.TemporaryDirectory() as aqui:
        prova = os.path.join(aqui, "prova.ijm")
        with open(macro, encoding="ascii") as original, open(prova, "w", encoding="ascii") as f:
            f.write(ANTES % os.path.abspath(figura) + original.read() + DEPOIS)
        *centros, linhas = executa(prova, os.path.abspath(configuracao))
    graos = leTabela(f"{pasta}/graos.csv")
    exige(linhas == ["rows", str(len(graos))], "the table has", linhas, "of", len(graos))
    exige(len(centros) == len(graos), f"{len(centros)} regions, {len(graos)} grains")
    lidos = numpy.array(centros, float)
    certos = graos[["coluna_px", "linha_px"]].to_numpy() + 0.5
    exige(abs(lidos - certos).max() < 0.05, "regions lie elsewhere by", abs(lidos - certos).max())
    return len(graos)


if __name__ == "__main__":
    print(confere(*sys.argv[1:]), "regions")
