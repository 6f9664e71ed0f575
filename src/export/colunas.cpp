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

double segundo(const refine::FIGURA& f) {
  return f.forma == 'c' || f.forma == 'q' ? f.d1 : f.d2;
}

// Of every real number; those of fitted grains have fewer, by their errors (measure/grao.h).
constexpr int significativos = 9;

constexpr DIMENSAO nenhuma = DIMENSAO::nenhuma;
constexpr DIMENSAO compr = DIMENSAO::comprimento;

constexpr std::array<COLUNA, 16> colunas = {{
    {frases::indice, nenhuma, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.indice; }},
    {frases::letra, nenhuma,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return std::string(1, g.figura.forma); }},
    {frases::forma, nenhuma,
     [](const measure::GRAO& g, IDIOMA i) -> VALOR { return nomeDaForma(g.figura.forma, i); }},
    {frases::linha, compr, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.figura.l; }},
    {frases::coluna, compr, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.figura.c; }},
    {frases::d1, compr, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.figura.d1; }},
    {frases::d2, compr, [](const measure::GRAO& g, IDIOMA) -> VALOR { return segundo(g.figura); }},
    {frases::angulo, nenhuma, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.figura.ang; }},
    {frases::correlacao, nenhuma, [](const measure::GRAO& g, IDIOMA) -> VALOR { return g.correl; }},
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

// A circle or square has one size, and its error.
double erroDoSegundo(const measure::GRAO& g) {
  const bool umTamanho = g.figura.forma == 'c' || g.figura.forma == 'q';
  return g.medido->erro[umTamanho ? 2 : 3];
}

// What only fitted grains have.
constexpr std::array<COLUNA, 7> doMedido = {{
    {frases::apoio, nenhuma,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return emDigitos(g.medido->apoio, 4); }},
    {frases::contraste, nenhuma,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return emDigitos(g.medido->contraste, 4); }},
    {frases::erroLinha, compr,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return emDigitos(g.medido->erro[0], 3); }},
    {frases::erroColuna, compr,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return emDigitos(g.medido->erro[1], 3); }},
    {frases::erroD1, compr,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return emDigitos(g.medido->erro[2], 3); }},
    {frases::erroD2, compr,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return emDigitos(erroDoSegundo(g), 3); }},
    {frases::erroAngulo, nenhuma,
     [](const measure::GRAO& g, IDIOMA) -> VALOR { return emDigitos(g.medido->erro[4], 3); }},
}};

std::string comUnidade(const COLUNA& c, measure::UNIDADE unidade, IDIOMA idioma) {
  std::string nome = diz(c.nome, idioma);
  if (c.dimensao == nenhuma) return nome;
  nome += '_';
  nome += nomeDaUnidade(unidade);
  if (c.dimensao == DIMENSAO::area) nome += '2';
  return nome;
}

// `valores` by `quais` once more, the lengths and areas of them in the unit of the scale.
template <std::size_t N>
void poeCalibrados(const std::array<COLUNA, N>& quais, const measure::ESCALA& e, std::size_t de,
                   std::vector<VALOR>& valores) {
  for (std::size_t k = 0; k < N; ++k) {
    if (quais[k].dimensao == nenhuma) continue;
    const double px = std::get<double>(valores[de + k]);
    const double x = quais[k].dimensao == DIMENSAO::area ? area(px, e) : comprimento(px, e);
    valores.emplace_back(emDigitos(x, significativos - 1));
  }
}

template <std::size_t N>
void poeNomes(const std::array<COLUNA, N>& quais, measure::UNIDADE unidade, IDIOMA idioma,
              std::vector<std::string>& nomes) {
  for (const COLUNA& c : quais) nomes.push_back(comUnidade(c, measure::UNIDADE::px, idioma));
  if (unidade == measure::UNIDADE::px) return;
  for (const COLUNA& c : quais) {
    if (c.dimensao != nenhuma) nomes.push_back(comUnidade(c, unidade, idioma));
  }
}

template <std::size_t N>
void poeValores(const std::array<COLUNA, N>& quais, const measure::GRAO& g,
                const measure::ESCALA& e, IDIOMA idioma, std::vector<VALOR>& valores) {
  const std::size_t de = valores.size();
  for (const COLUNA& c : quais) {
    valores.push_back(c.valor(g, idioma));
    if (auto* x = std::get_if<double>(&valores.back())) *x = emDigitos(*x, significativos);
  }
  if (calibrada(e)) poeCalibrados(quais, e, de, valores);
}

}  // namespace

std::vector<std::string> nomesDoGrao(measure::METODO metodo, measure::UNIDADE unidade,
                                     IDIOMA idioma) {
  std::vector<std::string> nomes;
  poeNomes(colunas, unidade, idioma, nomes);
  if (metodo == measure::METODO::apurado) poeNomes(doMedido, unidade, idioma, nomes);
  return nomes;
}

void valoresDoGrao(const measure::GRAO& g, const measure::ESCALA& e, IDIOMA idioma,
                   std::vector<VALOR>& valores) {
  valores.clear();
  poeValores(colunas, g, e, idioma, valores);
  if (g.medido) poeValores(doMedido, g, e, idioma, valores);
}

}  // namespace exporta
