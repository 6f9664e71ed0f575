"""ImageJ opens rois.zip, and sees the grains of graos.csv where they are.

rois.py LANGUAGE (ROWS COLUMNS FOLDER)...    folders with graos.csv and rois.zip
"""
import contextlib
import os
import subprocess
import sys
import tempfile

import numpy

from formas import confereForma
from medidas import exige, leTabela

RETANGULO, OVAL, POLIGONO = 0, 1, 2
MACRO = os.path.join(os.path.dirname(os.path.abspath(__file__)), "rois.ijm")


@contextlib.contextmanager
def tela():
    """The ROI Manager is a window, so it needs a display; gives the display's name."""
    ler, escrever = os.pipe()
    servidor = subprocess.Popen(
        ["Xvfb", "-displayfd", str(escrever), "-screen", "0", "800x600x24", "-nolisten", "tcp"],
        pass_fds=[escrever], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(escrever)
    try:
        with open(ler, encoding="ascii") as f:
            numero = f.readline().strip()
        exige(numero, "Xvfb does not start")
        yield ":" + numero
    finally:
        servidor.terminate()
        servidor.wait(20)


def executa(macro, argumento):
    """What a macro prints, the words of each line. An error in it opens a window that waits: hence the
    time limit."""
    with tela() as display, tempfile.TemporaryDirectory() as casa:
        # File names come out right only in a UTF-8 locale. -port0: no other ImageJ is asked to do it.
        ambiente = {**os.environ, "DISPLAY": display, "LC_ALL": "C.UTF-8"}
        try:
            r = subprocess.run(
                ["java", f"-Duser.home={casa}", f"-Djava.io.tmpdir={casa}", "-jar",
                 "/usr/share/java/ij.jar", "-port0", "-batch", macro, argumento], env=ambiente,
                timeout=60, text=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                stderr=subprocess.STDOUT)
        except subprocess.TimeoutExpired as e:
            exige(False, "ImageJ does not finish; it said at last", (e.stdout or b"").decode()[-300:])
    exige(r.returncode == 0, "ImageJ ends with an error", r.stdout[-2000:])
    return [linha.split("\t") for linha in r.stdout.splitlines() if linha]


def imagej(conjuntos):
    ditas = executa(MACRO, "\n".join("\t".join(map(str, c)) for c in conjuntos))
    exige(all(len(d) > 7 for d in ditas), "ImageJ says something else", ditas)
    return ditas


def tipoEsperado(grao):
    """Ovals and rectangles only where the bounds are whole pixels, a pixel covering 0 to 1."""
    redonda = grao.letra in "ce"
    if grao.letra != "c" and grao.angulo_graus % 90 != 0:
        return POLIGONO
    d = (grao.d1_px, grao.d2_px) if grao.angulo_graus % 180 == 0 else (grao.d2_px, grao.d1_px)
    limites = (*d, grao.coluna_px + 0.5 - d[0] / 2, grao.linha_px + 0.5 - d[1] / 2)
    if any(x != int(x) for x in limites):
        return POLIGONO
    return OVAL if redonda else RETANGULO


def pixelsDentro(grao, folga):
    """How many pixel centres lie in the shape, made larger by `folga` px all around."""
    lado = int(grao.diametro_maior_px) + 3
    y, x = numpy.mgrid[-lado:lado + 1, -lado:lado + 1].astype(float)
    y -= grao.linha_px - round(grao.linha_px)
    x -= grao.coluna_px - round(grao.coluna_px)
    ang = numpy.radians(0 if grao.letra == "c" else grao.angulo_graus)
    u = numpy.abs(x * numpy.cos(ang) + y * numpy.sin(ang)) / (grao.d1_px / 2 + folga)
    v = numpy.abs(y * numpy.cos(ang) - x * numpy.sin(ang)) / (grao.d2_px / 2 + folga)
    return int(((u * u + v * v if grao.letra in "ce" else numpy.maximum(u, v)) <= 1).sum())


def confereRegiao(linha, grao, onde):
    exige(linha[1] == f"{grao.indice:04d}", onde, f"its name is {linha[1]}")
    tipo, (area, x, y, perimetro) = int(linha[2]), map(float, linha[3:7])
    exige(tipo == tipoEsperado(grao), onde, f"type {tipo}, expected {tipoEsperado(grao)}")
    pontos = numpy.array(linha[7:], dtype=float).reshape(-1, 2) - 0.5
    if tipo == POLIGONO:
        confereForma(pontos, grao, onde)
    else:
        meia = numpy.array([grao.d1_px, grao.d2_px] if grao.angulo_graus % 180 == 0
                           else [grao.d2_px, grao.d1_px]) / 2
        centro = numpy.array([grao.coluna_px, grao.linha_px])
        exige(numpy.abs(pontos - [centro - meia, centro + meia]).max() < 1e-6, onde, "bounds", pontos)
    exige(abs(perimetro / grao.perimetro_px - 1) < 0.002, onde, f"perimeter {perimetro}")
    if not grao.toca_borda:  # what lies beyond the picture is not measured there
        menos, mais = (pixelsDentro(grao, folga) for folga in (-0.03, 0.03))
        exige(menos <= area <= mais, onde, f"area {area}, expected {menos} to {mais} pixels")
        longe = max(abs(x - grao.coluna_px - 0.5), abs(y - grao.linha_px - 0.5))
        exige(longe < 0.1 + 1.2 / grao.diametro_menor_px, onde,  # whole pixels have that centre
              f"centre {x} {y}")


def confereConjuntos(conjuntos, ingles):
    tabelas = [leTabela(f"{pasta}/graos.csv", ingles) for _, _, pasta in conjuntos]
    cheios = []
    for (linhas, colunas, pasta), graos in zip(conjuntos, tabelas):
        if len(graos) > 0:
            cheios.append((linhas, colunas, pasta, graos))
            continue
        # ImageJ takes an archive without regions for an error and says so in a window.
        exige(not os.path.exists(f"{pasta}/rois.zip"), pasta, "regions without grains")
    ditas = imagej([(li, co, f"{pasta}/rois.zip") for li, co, pasta, _ in cheios])
    for k, (_, _, pasta, graos) in enumerate(cheios):
        regioes = [d for d in ditas if d[0] == str(k)]
        exige(len(regioes) == len(graos), f"{pasta}/rois.zip",
              f"ImageJ reads {len(regioes)} regions, graos.csv has {len(graos)} rows")
        for regiao, grao in zip(regioes, graos.itertuples()):
            confereRegiao(regiao, grao, f"{pasta}/rois.zip {grao.indice}")
    return len(cheios), len(ditas)


if __name__ == "__main__":
    idioma, *resto = sys.argv[1:]
    grupos = [(int(a), int(b), c) for a, b, c in zip(resto[::3], resto[1::3], resto[2::3])]
    arquivos, regioes = confereConjuntos(grupos, idioma == "en")
    exige(regioes > 0, "no region in any file")
    print(f"{arquivos} files, {regioes} regions")
