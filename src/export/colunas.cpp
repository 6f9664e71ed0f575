#include "export/colunas.h"

#include <array>
#include <cmath>

namespace exporta {
namespace {

enum class DIMENSAO { nenhuma, comprimento, area };

struct COLUNA {
  FRASE nome;
  DIMENSAO dimensao;
  VALOR (*valor)(const measure::GRAO& g, IDIOMA idioma);
};

double segundo(const MAXLOCAL& m) {
  return m.forma == 'c' || m.forma == 'q' ? m.d1 : m.d2;
}

constexpr DIMENSAO nenhuma = DIMENSAO::nenhuma;
constexpr DIMENSAO compr = DIMENSAO::comprimento;

constexpr std::array<COLUNA, 16> colunas = {{
    {frases::indice, nenhuma, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.indice; }},
    {frases::letra, nenhuma,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return std::string(1, g.maximo.forma); }},
    {frases::forma, nenhuma,
     [](const measure::GRAO& g, IDIOMA i) -> VALOR { return nomeDaForma(g.maximo.forma, i); }},
    {frases::linha, compr, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.maximo.li; }},
    {frases::coluna, compr, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.maximo.ci; }},
    {frases::d1, compr, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.maximo.d1; }},
    {frases::d2, compr, [](const measure::GRAO& g, IDIOMA) -> VALOR { return segundo(g.maximo); }},
    {frases::angulo, nenhuma, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.maximo.ang; }},
    {frases::correlacao, nenhuma,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.maximo.correl; }},
    {frases::area, DIMENSAO::area, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.area; }},
    {frases::equivalente, compr,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.equivalente; }},
    {frases::perimetro, compr, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.perimetro; }},
    {frases::menor, compr, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.menor; }},
    {frases::maior, compr, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.maior; }},
    {frases::alongamento, nenhuma,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.alongamento; }},
    {frases::tocaBorda, nenhuma,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.tocaBorda; }},
}};

std::string comUnidade(const COLUNA& c, measure::UNIDADE unidade, IDIOMA idioma) {
  std::string nome = diz(c.nome, idioma);
  if (c.dimensao == nenhuma) return nome;
  nome += '_';
  nome += nomeDaUnidade(unidade);
  if (c.dimensao == DIMENSAO::area) nome += '2';
  return nome;
}

VALOR calibrado(const VALOR& v, DIMENSAO dimensao, const measure::ESCALA& e) {
  const int* inteiro = std::get_if<int>(&v);
  const double px = inteiro != nullptr ? *inteiro : std::get<double>(v);
  return dimensao == DIMENSAO::area ? area(px, e) : comprimento(px, e);
}

}  // namespace

std::vector<std::string> nomesDoGrao(measure::UNIDADE unidade, IDIOMA idioma) {
  std::vector<std::string> nomes;
  nomes.reserve(2 * colunas.size());
  for (const COLUNA& c : colunas) nomes.push_back(comUnidade(c, measure::UNIDADE::px, idioma));
  if (unidade == measure::UNIDADE::px) return nomes;
  for (const COLUNA& c : colunas) {
    if (c.dimensao != nenhuma) nomes.push_back(comUnidade(c, unidade, idioma));
  }
  return nomes;
}

void valoresDoGrao(const measure::GRAO& g, const measure::ESCALA& e, IDIOMA idioma,
                   std::vector<VALOR>& valores) {
  valores.clear();
  for (const COLUNA& c : colunas) valores.push_back(c.valor(g, idioma));
  if (!calibrada(e)) return;
  for (std::size_t k = 0; k < colunas.size(); ++k) {
    const DIMENSAO dimensao = colunas[k].dimensao;
    if (dimensao != nenhuma) valores.push_back(calibrado(valores[k], dimensao, e));
  }
}

}  // namespace exporta
