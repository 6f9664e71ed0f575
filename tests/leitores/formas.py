"""Compares outlines that a reader has read with those of the table, by GDAL's geometry."""
import numpy
from osgeo import ogr

from medidas import contorno, exige

ogr.UseExceptions()


def poligono(pontos):
    anel = ogr.Geometry(ogr.wkbLinearRing)
    for x, y in [*pontos, pontos[0]]:
        anel.AddPoint_2D(float(x), float(y))
    p = ogr.Geometry(ogr.wkbPolygon)
    p.AddGeometry(anel)
    return p


def confereForma(pontos, grao, onde):
    """`pontos` in px, pixel centres whole; `grao` a row of graos.csv. Chords may lie 1/50 px within
    a curve; straight sides must be where they are, to the digits of 32-bit numbers."""
    lida = poligono(pontos)
    exige(lida.IsValid(), onde, "the outline is not a valid polygon")
    certa = poligono(contorno(grao.letra, grao.linha_px, grao.coluna_px, grao.d1_px, grao.d2_px,
                              grao.angulo_graus))
    diferenca = lida.SymDifference(certa)
    area = diferenca.GetArea() if diferenca else 0
    folga = (0.02 if grao.letra in "ce" else 1e-4) * grao.perimetro_px
    exige(area <= folga, onde, f"{area:.3f} px2 lie in one of outline and table alone, {folga:.3f} may")


def emPixels(geometria, lado):
    """The points of a polygon's only ring, which must be closed."""
    exige(geometria.GetGeometryName() == "POLYGON" and geometria.GetGeometryCount() == 1,
          "not a polygon of one ring", geometria.GetGeometryName())
    pontos = numpy.array(geometria.GetGeometryRef(0).GetPoints())[:, :2]
    exige((pontos[0] == pontos[-1]).all(), "the ring is not closed")
    return pontos[:-1] / lado
