#include "export/geojson.h"

#include <utility>
#include <vector>

#include "export/colunas.h"
#include "export/parcial.h"
#include "export/valor.h"
#include "measure/contorno.h"

namespace exporta {
namespace {

void poePonto(std::string& s, const measure::PONTO& p, const measure::ESCALA& e) {
  s += '[';
  poeArredondado(s, comprimento(p.x, e), casas);
  s += ',';
  poeArredondado(s, comprimento(p.y, e), casas);
  s += ']';
}

void poeAnel(std::string& s, const measure::GRAO& g, const measure::ESCALA& e) {
  const std::vector<measure::PONTO> v = measure::contorno(g.figura, measure::desvioUsual);
  s += '[';
  for (const measure::PONTO& p : v) {
    poePonto(s, p, e);
    s += ',';
  }
  poePonto(s, v.front(), e);
  s += ']';
}

}  // namespace

void impGeojson(const measure::FOTOGRAFIA& foto, const std::string& nome, IDIOMA idioma) {
  PARCIAL p = abreParcial(nome);
  const std::vector<std::string> nomes = nomesDoGrao(foto.metodo, foto.escala.unidade, idioma);
  std::vector<VALOR> valores;
  std::string& s = p.pendente;
  s += "{\"type\":\"FeatureCollection\",\"features\":[";
  const char* separador = "\n";
  for (const measure::GRAO& g : foto.graos) {
    s += separador;
    separador = ",\n";
    s += "{\"type\":\"Feature\",\"id\":";
    poeNumero(s, g.indice);
    s += ",\"properties\":{";
    valoresDoGrao(g, foto.escala, idioma, valores);
    for (std::size_t k = 0; k < nomes.size(); ++k) {
      if (k > 0) s += ',';
      poeJson(s, nomes[k]);
      s += ':';
      poeJson(s, valores[k]);
    }
    s += "},\"geometry\":{\"type\":\"Polygon\",\"coordinates\":[";
    poeAnel(s, g, foto.escala);
    s += "]}}";
    adianta(p);
  }
  s += "\n]}\n";
  conclui(std::move(p));
}

}  // namespace exporta
