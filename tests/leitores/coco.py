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


def mascara(pontos, imagem):
    """The polygon drawn where a pixel covers 0 to 1, its corners to 1/256 px."""
    m = numpy.zeros((imagem["height"], imagem["width"]), numpy.uint8)
    inteiros = numpy.round((pontos - 0.5) * 256).astype(numpy.int32)
    cv2.fillPoly(m, [inteiros], 1, lineType=8, shift=8)
    return m


def confereAnotacao(a, grao, imagem, onde):
    exige(a["iscrowd"] == 0 and len(a["segmentation"]) == 1, onde, "not one polygon")
    pontos = numpy.reshape(a["segmentation"][0], (-1, 2))
    exige(len(pontos) >= 3, onde, "no polygon")
    x, y, largura, altura = a["bbox"]
    caixa = numpy.array([x, y, x + largura, y + altura])
    limites = numpy.concatenate([pontos.min(0), pontos.max(0)])
    exige(abs(caixa - limites).max() < 1e-6, onde, f"bbox {a['bbox']}, polygon {limites}")
    exige(caixa.min() >= 0 and caixa[2] <= imagem["width"] and caixa[3] <= imagem["height"], onde,
          "reaches beyond the picture")
    area = abs(areaComSinal(pontos))
    exige(abs(area - a["area"]) < 1e-5 * max(1, area), onde, f"area {a['area']}, polygon {area}")
    # Pixels that the edge crosses count whole: half of them too many.
    contorno = numpy.hypot(*(pontos - numpy.roll(pontos, 1, 0)).T).sum()
    exige(abs(int(mascara(pontos, imagem).sum()) - area) <= 0.75 * contorno + 4, onde,
          f"{mascara(pontos, imagem).sum()} pixels, area {area}")
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
