#include "export/colunas.h"

#include <array>
#include <cmath>

namespace {

enum class DIMENSAO { nenhuma, comprimento, area };

struct COLUNA {
  FRASE nome;
  DIMENSAO dimensao;
  VALOR (*valor)(const GRAO& g, IDIOMA idioma);
};

double segundo(const MAXLOCAL& m) {
  return m.forma == 'c' || m.forma == 'q' ? m.d1 : m.d2;
}

constexpr DIMENSAO nenhuma = DIMENSAO::nenhuma;
constexpr DIMENSAO compr = DIMENSAO::comprimento;

constexpr std::array<COLUNA, 16> colunas = {{
    {frases::indice, nenhuma, [](const GRAO& g, IDIOMA) -> VALOR { return g.indice; }},
    {frases::letra, nenhuma,
     [](const GRAO& g, IDIOMA) -> VALOR { return std::string(1, g.maximo.forma); }},
    {frases::forma, nenhuma,
     [](const GRAO& g, IDIOMA i) -> VALOR { return nomeDaForma(g.maximo.forma, i); }},
    {frases::linha, compr, [](const GRAO& g, IDIOMA) -> VALOR { return g.maximo.li; }},
    {frases::coluna, compr, [](const GRAO& g, IDIOMA) -> VALOR { return g.maximo.ci; }},
    {frases::d1, compr, [](const GRAO& g, IDIOMA) -> VALOR { return g.maximo.d1; }},
    {frases::d2, compr, [](const GRAO& g, IDIOMA) -> VALOR { return segundo(g.maximo); }},
    {frases::angulo, nenhuma, [](const GRAO& g, IDIOMA) -> VALOR { return g.maximo.ang; }},
    {frases::correlacao, nenhuma, [](const GRAO& g, IDIOMA) -> VALOR { return g.maximo.correl; }},
    {frases::area, DIMENSAO::area, [](const GRAO& g, IDIOMA) -> VALOR { return g.area; }},
    {frases::equivalente, compr, [](const GRAO& g, IDIOMA) -> VALOR { return g.equivalente; }},
    {frases::perimetro, compr, [](const GRAO& g, IDIOMA) -> VALOR { return g.perimetro; }},
    {frases::menor, compr, [](const GRAO& g, IDIOMA) -> VALOR { return g.menor; }},
    {frases::maior, compr, [](const GRAO& g, IDIOMA) -> VALOR { return g.maior; }},
    {frases::alongamento, nenhuma, [](const GRAO& g, IDIOMA) -> VALOR { return g.alongamento; }},
    {frases::tocaBorda, nenhuma, [](const GRAO& g, IDIOMA) -> VALOR { return g.tocaBorda; }},
}};

std::string comUnidade(const COLUNA& c, UNIDADE unidade, IDIOMA idioma) {
  std::string nome = diz(c.nome, idioma);
  if (c.dimensao == nenhuma) return nome;
  nome += '_';
  nome += nomeDaUnidade(unidade);
  if (c.dimensao == DIMENSAO::area) nome += '2';
  return nome;
}

VALOR calibrado(const VALOR& v, DIMENSAO dimensao, const ESCALA& e) {
  const int* inteiro = std::get_if<int>(&v);
  const double px = inteiro != nullptr ? *inteiro : std::get<double>(v);
  return dimensao == DIMENSAO::area ? area(px, e) : comprimento(px, e);
}

}  // namespace

std::vector<std::string> nomesDoGrao(UNIDADE unidade, IDIOMA idioma) {
  std::vector<std::string> nomes;
  nomes.reserve(2 * colunas.size());
  for (const COLUNA& c : colunas) nomes.push_back(comUnidade(c, UNIDADE::px, idioma));
  if (unidade == UNIDADE::px) return nomes;
  for (const COLUNA& c : colunas) {
    if (c.dimensao != nenhuma) nomes.push_back(comUnidade(c, unidade, idioma));
  }
  return nomes;
}

void valoresDoGrao(const GRAO& g, const ESCALA& e, IDIOMA idioma, std::vector<VALOR>& valores) {
  valores.clear();
  for (const COLUNA& c : colunas) valores.push_back(c.valor(g, idioma));
  if (!calibrada(e)) return;
  for (std::size_t k = 0; k < colunas.size(); ++k) {
    const DIMENSAO dimensao = colunas[k].dimensao;
    if (dimensao != nenhuma) valores.push_back(calibrado(valores[k], dimensao, e));
  }
}
