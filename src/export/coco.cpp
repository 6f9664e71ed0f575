#include "export/coco.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "export/recorte.h"
#include "export/valor.h"
#include "measure/contorno.h"

namespace exporta {
namespace {

using measure::PONTO;

void poePar(std::string& s, double x, double y) {
  poeArredondado(s, x, casas);
  s += ',';
  poeArredondado(s, y, casas);
}

// The outline where a pixel covers 0 to 1, as far as it lies in the picture.
std::vector<PONTO> poligono(const measure::GRAO& g, const measure::FOTOGRAFIA& foto) {
  std::vector<PONTO> v = measure::contorno(g.figura, measure::desvioUsual);
  for (PONTO& p : v) p = {p.x + 0.5, p.y + 0.5};
  return recorta(std::move(v), foto.cols, foto.rows);
}

void poeCaixa(std::string& s, const std::vector<PONTO>& v) {
  const auto [esquerda, direita] = std::ranges::minmax(v, {}, &PONTO::x);
  const auto [alto, baixo] = std::ranges::minmax(v, {}, &PONTO::y);
  poePar(s, esquerda.x, alto.y);
  s += ',';
  poePar(s, direita.x - esquerda.x, baixo.y - alto.y);
}

std::size_t categoria(char forma) {
  const auto onde = std::find(measure::letras.begin(), measure::letras.end(), forma);
  return static_cast<std::size_t>(onde - measure::letras.begin()) + 1;
}

void poeAnotacao(COCO& c, const measure::GRAO& g, const std::vector<PONTO>& v) {
  std::string& s = c.saida.pendente;
  s += c.graos++ == 0 ? "\n" : ",\n";
  s += "{\"id\":";
  poeNumero(s, c.graos);
  s += ",\"image_id\":";
  poeNumero(s, c.fotos);
  s += ",\"category_id\":";
  poeNumero(s, categoria(g.figura.forma));
  s += ",\"iscrowd\":0,\"area\":";
  poeArredondado(s, areaComSinal(v), casas);
  s += ",\"bbox\":[";
  poeCaixa(s, v);
  s += "],\"score\":";
  poeJson(s, g.medido ? VALOR(g.medido->apoio) : VALOR(g.correl));
  s += ",\"grain\":";
  poeNumero(s, g.indice);
  s += ",\"segmentation\":[[";
  for (const PONTO& p : v) {
    poePar(s, p.x, p.y);
    s += ',';
  }
  s.back() = ']';
  s += "]}";
}

void poeCategorias(std::string& s, IDIOMA idioma) {
  for (const char forma : measure::letras) {
    s += forma == measure::letras.front() ? "\n{\"id\":" : ",\n{\"id\":";
    poeNumero(s, categoria(forma));
    s += ",\"name\":";
    poeJson(s, nomeDaForma(forma, idioma));
    s += ",\"supercategory\":";
    poeJson(s, std::string(diz(frases::grao, idioma)));
    s += '}';
  }
}

}  // namespace

COCO abreCoco(const std::string& nome, IDIOMA idioma) {
  COCO c{abreParcial(nome), idioma, {}};
  c.saida.pendente += "{\"info\":{\"description\":\"Vorplex\"},\"licenses\":[],\"annotations\":[";
  return c;
}

void acrescenta(COCO& c, const measure::FOTOGRAFIA& foto, const std::string& arquivo) {
  c.imagens += c.fotos++ == 0 ? "\n{\"id\":" : ",\n{\"id\":";
  poeNumero(c.imagens, c.fotos);
  c.imagens += ",\"file_name\":";
  poeJson(c.imagens, arquivo);
  c.imagens += ",\"width\":";
  poeNumero(c.imagens, foto.cols);
  c.imagens += ",\"height\":";
  poeNumero(c.imagens, foto.rows);
  c.imagens += '}';
  for (const measure::GRAO& g : foto.graos) {
    const std::vector<PONTO> v = poligono(g, foto);
    if (v.size() < 3 || areaComSinal(v) <= 0) continue;
    poeAnotacao(c, g, v);
    adianta(c.saida);
  }
}

void conclui(COCO c) {
  std::string& s = c.saida.pendente;
  s += "\n],\"images\":[" + c.imagens + "\n],\"categories\":[";
  poeCategorias(s, c.idioma);
  s += "\n]}\n";
  conclui(std::move(c.saida));
}

}  // namespace exporta
