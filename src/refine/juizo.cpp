#include "refine/juizo.h"

#include <algorithm>
#include <numeric>

#include "refine/escolha.h"
#include "refine/paralelo.h"
#include "refine/tracos/companhia.h"

namespace refine {

namespace {

constexpr double menorNota = -3;  // of shapes alone, to be chosen
constexpr double notaDeQuemEncobre = -0.5;

// Looks again at what chosen neighbours hide in part: hidden outline is not missing outline.
void olhaDeNovo(const CAMPO& campo, const std::vector<CANDIDATO>& v, const MODO_DE_JULGAR& modo,
                const NOTA<quantosTracos>& nota, JUIZO& j) {
  VIZINHOS aceitos(32);
  for (const std::size_t k : j.escolhidos) {
    if (j.notas[k] >= notaDeQuemEncobre) aceitos.poe(j.figuras[k]);
  }
  paraTodos<MESA_DE_EXAME>(v.size(), modo.fios, modo.pausa, [&](std::size_t k, MESA_DE_EXAME& m) {
    if (j.notas[k] < menorNota - 2) return;
    quemEncobre(j.figuras[k], aceitos, modo.sobreposicao, m);
    if (m.encobrem.empty()) return;
    const ANDAR& andar = campo.andarPara(menorMetade(j.figuras[k]));
    for (FIGURA& g : m.encobrem) g = noAndar(g, andar.nivel);
    const EXAME e =
        examina(andar, noAndar(j.figuras[k], andar.nivel), v[k].correl, m.encobrem, m.bancada);
    const double agora = nota.de(e.tracos);
    if (agora <= j.notas[k]) return;
    j.notas[k] = agora;
    j.exames[k] = e;
  });
}

}  // namespace

void quemEncobre(const FIGURA& f, const VIZINHOS& aceitos, double sobreposicao, MESA_DE_EXAME& m) {
  m.encobrem.clear();
  aceitos.perto(f, m.perto);
  if (m.perto.empty()) return;
  pontosDentro(f, m.pontos);
  for (const std::uint32_t k : m.perto) {
    const FIGURA& g = aceitos.figuras[k];
    const auto n = std::count_if(m.pontos.begin(), m.pontos.end(), [&](const PONTO_NA_FOTO& p) {
      return contem(g, aceitos.eixos[k], p.l, p.c);
    });
    const double parte = static_cast<double>(n) / static_cast<double>(m.pontos.size());
    if (n == 0 || parte > sobreposicao || parte * area(f) > sobreposicao * area(g)) continue;
    m.encobrem.push_back(g);
  }
}

JUIZO julga(const CAMPO& campo, const std::vector<CANDIDATO>& v, const MODO_DE_JULGAR& modo,
            const NOTA<quantosTracos>& nota) {
  JUIZO j;
  for (const CANDIDATO& c : v) {
    j.figuras.push_back(c.figura);
    j.exames.push_back(c.exame);
    j.notas.push_back(nota.de(c.exame.tracos));
  }
  REGRAS regras;
  regras.sobreposicao = modo.sobreposicao;
  regras.menorNota = menorNota;
  j.escolhidos = escolhe(j.figuras, j.notas, regras);
  olhaDeNovo(campo, v, modo, nota, j);
  j.escolhidos = escolhe(j.figuras, j.notas, regras);
  return j;
}

std::vector<double> apoios(const JUIZO& j, const NOTA<quantosDaCompanhia>& nota) {
  std::vector<EXAME> exames;
  std::vector<double> notas;
  std::vector<double> p;
  for (const std::size_t k : j.escolhidos) {
    exames.push_back(j.exames[k]);
    notas.push_back(j.notas[k]);
    p.push_back(probabilidade(j.notas[k]));
  }
  const std::vector<double> sozinhas = p;
  for (int volta = 0; volta < 2; ++volta) {
    const std::vector<COMPANHIA> c = comparaTodos(exames, notas, p);
    for (std::size_t k = 0; k < p.size(); ++k) p[k] = probabilidade(nota.de(c[k]));
  }
  // Few shapes are no company to be judged by: each then counts for itself.
  constexpr double poucas = 8;
  const double quantas = std::accumulate(sozinhas.begin(), sozinhas.end(), 0.0);
  for (std::size_t k = 0; k < p.size(); ++k) {
    p[k] = (quantas * p[k] + poucas * sozinhas[k]) / (quantas + poucas);
  }
  return p;
}

}  // namespace refine
