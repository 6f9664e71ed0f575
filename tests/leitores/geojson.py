"""GDAL reads graos.geojson, and sees the grains of graos.csv where they are.

geojson.py SIDE_OF_A_PIXEL LANGUAGE FOLDER...    folders with graos.csv and graos.geojson
"""
import subprocess
import sys

from osgeo import ogr

from formas import confereForma, emPixels
from medidas import areaComSinal, emPortugues, exige, leTabela, perto


def semAvisos(arquivo):
    """ogrinfo reads all of it, and says nothing but what it reads."""
    r = subprocess.run(["ogrinfo", "-ro", "-al", arquivo], capture_output=True, text=True, timeout=60)
    exige(r.returncode == 0 and r.stderr == "", arquivo, "ogrinfo", r.stderr or r.stdout)
    return r.stdout


def confereFeicao(feicao, grao, lado, ingles, onde):
    exige(feicao.GetFID() == grao.indice, onde, f"its id is {feicao.GetFID()}")
    propriedades = feicao.items()
    if ingles:
        propriedades = {emPortugues(nome): valor for nome, valor in propriedades.items()}
        propriedades["forma"] = emPortugues(propriedades["forma"])
    exige(set(propriedades) == set(grao._fields[1:]), onde, f"properties {sorted(propriedades)}")
    for nome, valor in propriedades.items():
        esperado = getattr(grao, nome)
        if isinstance(esperado, str):
            exige(valor == esperado, onde, nome, f"{valor}, in the table {esperado}")
        else:
            perto(valor, esperado, onde, nome, relativo=1e-15)
    pontos = emPixels(feicao.GetGeometryRef(), lado)
    exige(areaComSinal(pontos) > 0, onde, "the ring runs clockwise")
    confereForma(pontos, grao, onde)


def confereArquivo(pasta, lado, ingles):
    arquivo = f"{pasta}/graos.geojson"
    graos = leTabela(f"{pasta}/graos.csv", ingles)
    dito = semAvisos(arquivo)
    fonte = ogr.Open(arquivo)
    exige(fonte.GetLayerCount() == 1, arquivo, f"{fonte.GetLayerCount()} layers")
    camada = fonte.GetLayer(0)
    quantas = camada.GetFeatureCount()
    exige(quantas == len(graos), arquivo, f"{quantas} features, {len(graos)} rows in graos.csv")
    exige(f"Feature Count: {quantas}\n" in dito, arquivo, "ogrinfo counts otherwise")
    exige(quantas == 0 or "\nGeometry: Polygon\n" in dito, arquivo, "ogrinfo sees no polygons")
    for feicao, grao in zip(camada, graos.itertuples()):
        confereFeicao(feicao, grao, lado, ingles, f"{arquivo} {grao.indice}")
    return quantas


if __name__ == "__main__":
    lado, idioma, *pastas = sys.argv[1:]
    feicoes = [confereArquivo(p, float(lado), idioma == "en") for p in pastas]
    exige(sum(feicoes) > 0, "no feature in any file")
    print(f"{len(feicoes)} files, {sum(feicoes)} polygons")
