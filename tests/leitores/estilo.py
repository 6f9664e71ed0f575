"""graos.qml is XML, and has a style for every value of the attribute that it goes by in graos.geojson.

estilo.py FOLDER...
"""
import json
import sys
import xml.etree.ElementTree as xml

from medidas import exige


def confere(pasta):
    raiz = xml.parse(f"{pasta}/graos.qml").getroot()
    estilo = raiz.find("renderer-v2")
    exige(raiz.tag == "qgis" and estilo.get("type") == "categorizedSymbol", pasta, "no style by values")
    simbolos = {s.get("name") for s in estilo.iter("symbol")}
    familias = {c.get("value"): c.get("symbol") for c in estilo.iter("category")}
    exige(set(familias.values()) == simbolos, pasta, f"symbols {simbolos}, families {familias}")
    with open(f"{pasta}/graos.geojson", encoding="utf-8") as f:
        feicoes = json.load(f)["features"]
    valores = {f["properties"][estilo.get("attr")] for f in feicoes}
    exige(valores <= set(familias), pasta, f"values {valores}, families {familias}")
    return len(feicoes)


if __name__ == "__main__":
    graos = [confere(p) for p in sys.argv[1:]]
    exige(sum(graos) > 0, "no feature in any file")
    print(f"{len(graos)} styles, {sum(graos)} polygons")
