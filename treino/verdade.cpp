#include "treino/verdade.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <map>
#include <opencv2/imgcodecs.hpp>
#include <sstream>

#include "pim/erro.h"
#include "pim/texto.h"

namespace treino {

using refine::FIGURA;

namespace {

using CAMPOS = std::vector<std::string>;

CAMPOS campos(std::string linha) {
  if (!linha.empty() && linha.back() == '\r') linha.pop_back();
  CAMPOS v;
  std::istringstream s(linha);
  for (std::string c; std::getline(s, c, ',');) v.push_back(c);
  return v;
}

// Where the columns that are needed stand.
using COLUNAS = std::array<std::size_t, 6>;

COLUNAS colunas(const CAMPOS& cabecalho, const std::string& nome) {
  constexpr std::array nomes = {"letter", "row", "col", "d1", "d2", "ang"};
  COLUNAS onde{};
  for (std::size_t k = 0; k < nomes.size(); ++k) {
    const auto p = std::find(cabecalho.begin(), cabecalho.end(), nomes[k]);
    if (p == cabecalho.end()) pim::erro("Erro: Falta a coluna ", nomes[k], " em " + nome);
    onde[k] = static_cast<std::size_t>(p - cabecalho.begin());
  }
  return onde;
}

// Angles of truth tables turn counter-clockwise.
FIGURA figuraDe(const CAMPOS& c, const COLUNAS& onde, const std::string& nome) {
  const bool cabe = *std::max_element(onde.begin(), onde.end()) < c.size();
  if (!cabe || c[onde[0]].size() != 1 ||
      std::string("cqre").find(c[onde[0]]) == std::string::npos) {
    pim::erro("Erro: Linha invalida em ", nome);
  }
  std::array<double, 5> x{};
  for (std::size_t k = 0; k < x.size(); ++k) {
    const bool numero = pim::paraNumero(c[onde[k + 1]], x[k]) && std::isfinite(x[k]);
    if (!numero) pim::erro("Erro: Linha invalida em ", nome);
  }
  FIGURA f{c[onde[0]][0], x[0], x[1], x[2], x[3], -x[4]};
  if (f.forma == 'c' || f.forma == 'q') f.d2 = f.d1;
  return f;
}

void leRotulos(VERDADE& v, const std::string& nome) {
  const cv::Mat lida = cv::imread(nome, cv::IMREAD_UNCHANGED);
  if (lida.empty() || lida.channels() != 1) pim::erro("Erro: Rotulos invalidos ", nome);
  lida.convertTo(v.rotulos, CV_32S);
  v.areas.assign(v.graos.size() + 1, 0);
  for (const int r : v.rotulos) {
    if (r < 0 || r >= static_cast<int>(v.areas.size()))
      pim::erro("Erro: Rotulo sem grao em ", nome);
    ++v.areas[static_cast<std::size_t>(r)];
  }
}

ACERTO acertoNosRotulos(const VERDADE& v, const FIGURA& f) {
  const refine::EIXOS e(f);
  const refine::CAIXA m = refine::meiaCaixa(f);
  const int l0 = std::max(0, static_cast<int>(f.l - m.altura));
  const int l1 = std::min(v.rotulos.rows - 1, static_cast<int>(f.l + m.altura + 1));
  const int c0 = std::max(0, static_cast<int>(f.c - m.largura));
  const int c1 = std::min(v.rotulos.cols - 1, static_cast<int>(f.c + m.largura + 1));
  std::map<int, double> comuns;
  double pixels = 0;
  for (int l = l0; l <= l1; ++l) {
    for (int c = c0; c <= c1; ++c) {
      if (!contem(f, e, l, c)) continue;
      ++pixels;
      if (v.rotulos(l, c) > 0) ++comuns[v.rotulos(l, c)];
    }
  }
  ACERTO melhor;
  for (const auto& [rotulo, comum] : comuns) {
    const double iou = comum / (pixels + v.areas[static_cast<std::size_t>(rotulo)] - comum);
    if (iou > melhor.iou) melhor = {iou, rotulo - 1};
  }
  return melhor;
}

// Whether two shapes may share anything worth counting.
bool comparaveis(const FIGURA& a, const FIGURA& b) {
  const double longe = (std::max(a.d1, a.d2) + std::max(b.d1, b.d2)) / 2;
  if (std::hypot(a.l - b.l, a.c - b.c) > longe) return false;
  const double x = area(a);
  const double y = area(b);
  return std::min(x, y) >= 0.3 * std::max(x, y);
}

}  // namespace

VERDADE leVerdade(const std::string& tabela, const std::string& rotulos) {
  std::ifstream in(tabela);
  std::string linha;
  if (!in || !std::getline(in, linha)) pim::erro("Erro: Impossivel ler ", tabela);
  const COLUNAS onde = colunas(campos(linha), tabela);
  VERDADE v;
  while (std::getline(in, linha)) {
    const CAMPOS c = campos(linha);
    if (!c.empty()) v.graos.push_back(figuraDe(c, onde, tabela));
  }
  if (!rotulos.empty()) leRotulos(v, rotulos);
  return v;
}

ACERTO acerto(const VERDADE& v, const FIGURA& f) {
  if (!v.rotulos.empty()) return acertoNosRotulos(v, f);
  ACERTO melhor;
  for (std::size_t k = 0; k < v.graos.size(); ++k) {
    if (!comparaveis(v.graos[k], f)) continue;
    const double iou = interseccaoSobreUniao(f, v.graos[k], 32);
    if (iou > melhor.iou) melhor = {iou, static_cast<int>(k)};
  }
  return melhor;
}

}  // namespace treino
