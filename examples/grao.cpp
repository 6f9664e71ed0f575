#include "examples/grao.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <sstream>

#include "pim/arquivo.h"
#include "pim/erro.h"
#include "pim/texto.h"

namespace {

constexpr const char* cabecalho = "letter,row,col,d1,d2,ang";
constexpr int subdivisoes = 16;  // of a pixel side

GRAO leLinha(const std::string& linha, const std::string& nome) {
  std::istringstream campos(linha);
  GRAO g;
  std::string letra;
  std::getline(campos, letra, ',');
  bool certa = letra.size() == 1;
  if (certa) g.forma = letra[0];
  for (double* x : {&g.linha, &g.coluna, &g.d1, &g.d2, &g.ang}) {
    std::string campo;
    std::getline(campos, campo, ',');
    certa = certa && pim::paraNumero(campo, *x);
  }
  if (!certa) pim::erro("Erro: Linha invalida ", linha, " em " + nome);
  return g;
}

}  // namespace

FIGURA::FIGURA(const GRAO& g)
    : grao(g),
      cosseno(std::cos(g.ang * std::numbers::pi / 180)),
      seno(std::sin(g.ang * std::numbers::pi / 180)),
      reta(g.forma == 'q' || g.forma == 'r') {}

cv::Point2d FIGURA::eixos(double l, double c) const {
  const double y = l - grao.linha;
  const double x = c - grao.coluna;
  return {2 * (x * cosseno + y * seno) / grao.d1, 2 * (y * cosseno - x * seno) / grao.d2};
}

double FIGURA::nivel(double l, double c) const {
  const cv::Point2d p = eixos(l, c);
  return reta ? std::max(std::abs(p.x), std::abs(p.y)) : std::sqrt(p.x * p.x + p.y * p.y);
}

double FIGURA::cobertura(int l, int c) const {
  // Every shape is convex: a pixel whose corners lie inside lies inside whole.
  if (dentro(l - 0.5, c - 0.5) && dentro(l - 0.5, c + 0.5) && dentro(l + 0.5, c - 0.5) &&
      dentro(l + 0.5, c + 0.5)) {
    return 1;
  }
  int cobertos = 0;
  for (int i = 0; i < subdivisoes; ++i) {
    const double y = l - 0.5 + (i + 0.5) / subdivisoes;
    for (int j = 0; j < subdivisoes; ++j) {
      if (dentro(y, c - 0.5 + (j + 0.5) / subdivisoes)) ++cobertos;
    }
  }
  return static_cast<double>(cobertos) / (subdivisoes * subdivisoes);
}

cv::Rect FIGURA::caixa() const {
  const double raio = reta ? std::hypot(grao.d1, grao.d2) / 2 : std::max(grao.d1, grao.d2) / 2;
  const int topo = static_cast<int>(std::floor(grao.linha - raio));
  const int esquerda = static_cast<int>(std::floor(grao.coluna - raio));
  const int base = static_cast<int>(std::ceil(grao.linha + raio));
  const int direita = static_cast<int>(std::ceil(grao.coluna + raio));
  return {esquerda, topo, direita - esquerda + 1, base - topo + 1};
}

GRAO crescido(GRAO g, double folga) {
  g.d1 += 2 * folga;
  g.d2 += 2 * folga;
  return g;
}

double diametro(const GRAO& g) {
  const double lado = std::sqrt(g.d1 * g.d2);
  return g.forma == 'q' || g.forma == 'r' ? lado * 2 / std::sqrt(std::numbers::pi) : lado;
}

GRAO daDeteccao(const MAXLOCAL& m) {
  const bool igual = m.forma == 'c' || m.forma == 'q';
  return {m.forma, static_cast<double>(m.li), static_cast<double>(m.ci),
          m.d1,    igual ? m.d1 : m.d2,       m.forma == 'c' ? 0 : m.ang};
}

void gravaGraos(const std::vector<GRAO>& graos, const std::string& nome) {
  pim::ARQUIVO arquivo = pim::abre(nome, "wt");
  std::fprintf(arquivo.get(), "%s\n", cabecalho);
  for (const GRAO& g : graos) {
    std::fprintf(arquivo.get(), "%c,%.2f,%.2f,%.2f,%.2f,%.1f\n", g.forma, g.linha, g.coluna, g.d1,
                 g.d2, g.ang);
  }
  pim::fechaEscrita(std::move(arquivo), nome);
}

std::vector<GRAO> leGraos(const std::string& nome) {
  const std::vector<unsigned char> bytes = pim::leBytes(nome);
  std::istringstream texto(std::string(bytes.begin(), bytes.end()));
  std::string linha;
  std::getline(texto, linha);
  if (linha != cabecalho) pim::erro("Erro: Cabecalho invalido em ", nome);
  std::vector<GRAO> graos;
  while (std::getline(texto, linha)) graos.push_back(leLinha(linha, nome));
  return graos;
}
