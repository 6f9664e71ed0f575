"""coco.json by the rules of those who read it, numpy and OpenCV: what is in it is where graos.csv says.

coco.py LANGUAGE FOLDER PHOTOGRAPHS|-    the folder has coco.json and graos.csv; - without the files
"""
import collections
import json
import sys

import cv2
import numpy

from formas import confereForma
from medidas import areaComSinal, emPortugues, exige, leTabela


FINURA = 16  # parts of a pixel's side


def areaPintada(pontos):
    """Area in pixels of the polygon as OpenCV fills it, drawn FINURA times as large."""
    cantos = (pontos - pontos.min(0) + 1) * FINURA
    largura, altura = numpy.ceil(cantos.max(0)).astype(int) + FINURA
    m = numpy.zeros((altura, largura), numpy.uint8)
    cv2.fillPoly(m, [numpy.round((cantos - 0.5) * 256).astype(numpy.int32)], 1, lineType=8, shift=8)
    return m.sum(dtype=int) / FINURA**2


def confereAnotacao(a, grao, imagem, onde):
    exige(a["iscrowd"] == 0 and len(a["segmentation"]) == 1, onde, "not one polygon")
    pontos = numpy.reshape(a["segmentation"][0], (-1, 2))
    exige(len(pontos) >= 3, onde, "no polygon")
    x, y, largura, altura = a["bbox"]
    caixa = numpy.array([x, y, x + largura, y + altura])
    limites = numpy.concatenate([pontos.min(0), pontos.max(0)])
    exige(abs(caixa - limites).max() < 1e-6, onde, f"bbox {a['bbox']}, polygon {limites}")
    limite = (imagem["width"] + 1e-6, imagem["height"] + 1e-6)  # bounds have ten digits
    exige(caixa.min() >= 0 and caixa[2] <= limite[0] and caixa[3] <= limite[1], onde,
          "reaches beyond the picture")
    area = abs(areaComSinal(pontos))
    exige(abs(area - a["area"]) < 1e-5 * max(1, area), onde, f"area {a['area']}, polygon {area}")
    # What the edge crosses counts whole: half of it too much.
    contorno = numpy.hypot(*(pontos - numpy.roll(pontos, 1, 0)).T).sum()
    pintada = areaPintada(pontos)
    exige(abs(pintada - area) <= contorno / FINURA + 0.5, onde, f"painted {pintada}, area {area}")
    if not grao.toca_borda:
        confereForma(pontos - 0.5, grao, onde)


def confereImagem(imagem, fotos, onde):
    if fotos == "-":
        return
    lida = cv2.imread(f"{fotos}/{imagem['file_name']}", cv2.IMREAD_GRAYSCALE)
    exige(lida is not None, onde, f"no picture {imagem['file_name']}")
    exige(lida.shape == (imagem["height"], imagem["width"]), onde, f"{imagem}, file {lida.shape}")


def porId(coisas, onde):
    exige([c["id"] for c in coisas] == list(range(1, len(coisas) + 1)), onde, "ids")
    return {c["id"]: c for c in coisas}


def confere(ingles, pasta, fotos):
    arquivo = f"{pasta}/coco.json"
    with open(arquivo, encoding="utf-8") as f:
        tudo = json.load(f)
    imagens = porId(tudo["images"], arquivo)
    categorias = porId(tudo["categories"], arquivo)
    porId(tudo["annotations"], arquivo)
    for imagem in imagens.values():
        confereImagem(imagem, fotos, arquivo)
    tabela = leTabela(f"{pasta}/graos.csv", ingles)
    fotosDaTabela = list(dict.fromkeys(tabela["foto"])) if "foto" in tabela else [None]
    anotadas = collections.defaultdict(dict)
    for a in tudo["annotations"]:
        exige(a["grain"] not in anotadas[a["image_id"]], arquivo, "a grain twice")
        anotadas[a["image_id"]][a["grain"]] = a
    comGraos = [i for i in imagens if anotadas[i]]
    exige(len(comGraos) == len(fotosDaTabela), arquivo, f"{len(comGraos)} photographs with grains")
    for numero, foto in zip(comGraos, fotosDaTabela):
        linhas = tabela if foto is None else tabela[tabela["foto"] == foto]
        exige(foto is None or imagens[numero]["file_name"].startswith(foto), arquivo, foto)
        exige(len(linhas) == len(anotadas[numero]), arquivo, f"{len(anotadas[numero])} of {foto}")
        for grao in linhas.itertuples():
            a = anotadas[numero][grao.indice]
            onde = f"{arquivo} {a['id']}"
            nome = categorias[a["category_id"]]["name"]
            nome = emPortugues(nome) if ingles else nome
            exige(nome == grao.forma, onde, f"category {nome}, in the table {grao.forma}")
            confereAnotacao(a, grao, imagens[numero], onde)
    return len(imagens), len(tudo["annotations"])


if __name__ == "__main__":
    idioma, pasta, fotos = sys.argv[1:]
    print("%d pictures, %d annotations" % confere(idioma == "en", pasta, fotos))
