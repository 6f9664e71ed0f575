#include "refine/apura.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <string_view>

#include "pim/erro.h"
#include "refine/candidatos.h"
#include "refine/contorno/digitos.h"
#include "refine/contorno/vizinhos.h"
#include "refine/escolha.h"
#include "refine/juizo.h"
#include "refine/medida.h"
#include "refine/paralelo.h"
#include "refine/sombra.h"

namespace refine {

namespace {

void exigeFamilias(const std::string& familias) {
  const bool boas = !familias.empty() && familias.find_first_not_of("cqre") == std::string::npos;
  if (!boas) pim::erro("Erro: Familias invalidas ", familias);
}

// The detection in one of the families allowed, of equal area.
FIGURA emFamilia(FIGURA f, std::string_view familias) {
  if (familias.find(f.forma) != std::string_view::npos) return f;
  const bool redonda = f.forma == 'c' || f.forma == 'q';
  const std::string_view ordem = redonda ? "cqer" : "ercq";
  const double antes = area(f);
  for (const char forma : ordem) {
    if (familias.find(forma) == std::string_view::npos) continue;
    f.forma = forma;
    break;
  }
  if (f.forma == 'c' || f.forma == 'q') f.d1 = f.d2 = std::sqrt(f.d1 * f.d2);
  if (f.forma == 'c') f.ang = 0;
  const double k = std::sqrt(antes / area(f));
  f.d1 *= k;
  f.d2 *= k;
  return f;
}

bool servePara(const MAXLOCAL& m, int rows, int cols) {
  const std::string_view letras = "cqre";
  const bool finitos =
      std::isfinite(m.correl) && std::isfinite(m.d1) && std::isfinite(m.d2) && std::isfinite(m.ang);
  if (!finitos || letras.find(m.forma) == std::string_view::npos) return false;
  const double maior = 2.0 * std::max(rows, cols);
  const double d2 = m.forma == 'c' || m.forma == 'q' ? m.d1 : m.d2;
  return m.d1 >= 1 && d2 >= 1 && m.d1 <= maior && d2 <= maior && m.li >= 0 && m.li < rows &&
         m.ci >= 0 && m.ci < cols && std::fabs(m.ang) <= 1e6;
}

MODO_DE_AJUSTAR modoDeAjustar(const MODO_DE_APURAR& modo) {
  const auto tem = [&](char forma) {
    return !modo.semLetras && modo.familias.find(forma) != std::string::npos;
  };
  return {tem('e'), tem('r'), modo.fios, false, modo.pausa};
}

double diametro(const FIGURA& f) {
  return std::sqrt(area(f) * (4 / std::numbers::pi));
}

// Measures the shapes that stay, each with what its neighbours hide of it left out.
std::vector<MEDIDO> medeTodos(const CAMPO& campo, const std::vector<FIGURA>& figuras,
                              const MODO_DE_APURAR& modo) {
  std::vector<MEDIDO> medidos(figuras.size());
  VIZINHOS aceitos(32);
  for (const FIGURA& f : figuras) aceitos.poe(f);
  paraTodos<MESA_DE_EXAME>(
      figuras.size(), modo.fios, modo.pausa, [&](std::size_t i, MESA_DE_EXAME& m) {
        const FIGURA& f = figuras[i];
        quemEncobre(f, aceitos, 1, m);
        std::erase_if(m.encobrem,
                      [&](const FIGURA& g) { return g.l == f.l && g.c == f.c && g.d1 == f.d1; });
        const std::string familias = modo.semLetras ? std::string(1, f.forma) : modo.familias;
        const ANDAR& foto = campo.andares[0];
        medidos[i].inteiro = medeMelhor(foto, f, familias, m.encobrem, m.bancada);
        if (!medidos[i].inteiro) return;
        medidos[i].semSombra = semSombra(foto, *medidos[i].inteiro, m.encobrem, m.bancada);
      });
  tiraSombras(medidos);
  return medidos;
}

APURADO apurado(const MEDIDA& m, const CANDIDATO& c, const EXAME& e, double apoio) {
  APURADO g{normal(m.figura), c.correl, apoio, e.contraste, m.erro};
  if (m.figura.d2 > m.figura.d1) std::swap(g.erro[2], g.erro[3]);
  g.figura = peloErro(g.figura, g.erro);
  return g;
}

// By decreasing support; of two that were measured into much the same place, the better.
std::vector<APURADO> semColisoes(std::vector<APURADO> v, const MODO_DE_APURAR& modo) {
  std::stable_sort(v.begin(), v.end(),
                   [](const APURADO& a, const APURADO& b) { return a.apoio > b.apoio; });
  std::vector<FIGURA> figuras;
  std::vector<double> notas;
  for (const APURADO& g : v) {
    figuras.push_back(g.figura);
    notas.push_back(-static_cast<double>(notas.size()));  // in this order
  }
  REGRAS regras;
  regras.sobreposicao = std::max(0.5, modo.sobreposicao + 0.1);
  regras.contornoLivre = 0;
  regras.menorNota = -std::numeric_limits<double>::infinity();
  regras.notaDeTroca = std::numeric_limits<double>::infinity();
  std::vector<APURADO> ficam;
  for (const std::size_t k : escolhe(figuras, notas, regras)) ficam.push_back(v[k]);
  return ficam;
}

// Smaller ones have no edges of their own: what fits there is noise.
constexpr double menorDiametro = 4;

bool cabe(const FIGURA& f, const MODO_DE_APURAR& modo) {
  const double d = diametro(f);
  return d >= modo.menor && d <= modo.maior;
}

// The best of those whose support `p` does not do.
std::vector<APURADO> candidatos(const JUIZO& j, const std::vector<CANDIDATO>& v,
                                const std::vector<double>& p, const MODO_DE_APURAR& modo) {
  std::vector<APURADO> recusados;
  for (std::size_t i = 0; i < p.size(); ++i) {
    const std::size_t k = j.escolhidos[i];
    const FIGURA& f = j.figuras[k];
    if (p[i] >= menorApoio(modo.sensibilidade) || !cabe(f, modo)) continue;
    recusados.push_back({normal(f), v[k].correl, p[i], j.exames[k].contraste, {}});
  }
  std::stable_sort(recusados.begin(), recusados.end(),
                   [](const APURADO& a, const APURADO& b) { return a.apoio > b.apoio; });
  recusados.resize(std::min(recusados.size(), modo.candidatos));
  return recusados;
}

APURACAO apuraBoas(const CAMPO& campo, const std::vector<DETECCAO>& boas,
                   const MODO_DE_APURAR& modo, const PESOS& pesos) {
  constexpr double folga = 0.85;  // measuring may still change the size
  std::vector<CANDIDATO> v = ajustaTodos(campo, boas, modoDeAjustar(modo), pesos);
  std::erase_if(v, [&](const CANDIDATO& c) {
    const double d = diametro(c.figura);
    return d < std::max(folga * modo.menor, menorDiametro) || d > modo.maior / folga;
  });
  const JUIZO j = julga(campo, v, {modo.sobreposicao, modo.fios, modo.pausa}, pesos.sozinha);
  const std::vector<double> p = apoios(j, pesos.acompanhada);
  std::vector<FIGURA> figuras;
  std::vector<std::size_t> quais;  // places among the chosen
  for (std::size_t i = 0; i < p.size(); ++i) {
    if (p[i] < menorApoio(modo.sensibilidade)) continue;
    figuras.push_back(j.figuras[j.escolhidos[i]]);
    quais.push_back(i);
  }
  const std::vector<MEDIDO> medidos = medeTodos(campo, figuras, modo);
  std::vector<APURADO> graos;
  for (std::size_t i = 0; i < medidos.size(); ++i) {
    if (!medidos[i].inteiro) continue;
    if (!cabe(medidos[i].inteiro->figura, modo)) continue;
    const std::size_t k = j.escolhidos[quais[i]];
    graos.push_back(apurado(*medidos[i].inteiro, v[k], j.exames[k], p[quais[i]]));
  }
  return {semColisoes(std::move(graos), modo), candidatos(j, v, p, modo), 0};
}

}  // namespace

double menorApoio(double sensibilidade) {
  const double s = std::clamp(sensibilidade, 0.0, 1.0);
  return s < 0.5 ? 0.33 + (0.5 - s) * 1.14 : 0.33 - (s - 0.5) * 0.56;
}

APURACAO apura(const cv::Mat_<unsigned char>& imagem, const std::vector<MAXLOCAL>& lista,
               const MODO_DE_APURAR& modo, const PESOS& pesos) {
  exigeFamilias(modo.familias);
  std::size_t recusados = 0;
  std::vector<DETECCAO> boas;
  for (const MAXLOCAL& m : lista) {
    if (!servePara(m, imagem.rows, imagem.cols)) {
      ++recusados;
      continue;
    }
    boas.push_back({modo.semLetras ? figura(m) : emFamilia(figura(m), modo.familias), m.correl});
  }
  APURACAO r;
  if (!boas.empty()) r = apuraBoas(preparaCampo(imagem), boas, modo, pesos);
  r.recusados = recusados;
  return r;
}

}  // namespace refine
