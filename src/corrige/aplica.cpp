#include "corrige/aplica.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

#include "refine/ajuste/campo.h"
#include "refine/candidatos.h"
#include "refine/contorno/vizinhos.h"
#include "refine/juizo.h"
#include "refine/medida.h"
#include "refine/tracos/tracos.h"

namespace corrige {
namespace {

using refine::APURADO;
using refine::FIGURA;

constexpr double mesma = 0.5;  // share of the union at which two shapes are the same grain

bool longe(const FIGURA& a, const FIGURA& b) {
  const refine::CAIXA p = meiaCaixa(a);
  const refine::CAIXA q = meiaCaixa(b);
  return std::fabs(a.l - b.l) > p.altura + q.altura || std::fabs(a.c - b.c) > p.largura + q.largura;
}

double semelhanca(const FIGURA& a, const FIGURA& b) {
  return longe(a, b) ? 0 : interseccaoSobreUniao(a, b);
}

bool tiraMaisParecido(const FIGURA& f, std::vector<APURADO>& graos) {
  double maior = 0;
  auto qual = graos.end();
  for (auto i = graos.begin(); i != graos.end(); ++i) {
    const double s = semelhanca(i->figura, f);
    if (s < mesma || s <= maior) continue;
    maior = s;
    qual = i;
  }
  if (qual == graos.end()) return false;
  graos.erase(qual);
  return true;
}

// What the edges say of a shape that was drawn about there.
APURADO ajustado(const refine::CAMPO& campo, const FIGURA& desenhada,
                 const std::vector<APURADO>& graos) {
  refine::MESA_DE_EXAME mesa;
  FIGURA f = desenhada;
  const bool perto = ajustaGrosso(campo, f, 1, mesa.bancada) && semelhanca(f, desenhada) >= mesma;
  if (!perto) f = desenhada;
  refine::VIZINHOS vizinhos(32);
  for (const APURADO& g : graos) vizinhos.poe(g.figura);
  quemEncobre(f, vizinhos, 1, mesa);
  const refine::ANDAR& foto = campo.andares[0];
  const std::optional<refine::MEDIDA> m =
      medeMelhor(foto, f, std::string_view(&f.forma, 1), mesa.encobrem, mesa.bancada);
  APURADO g{normal(desenhada), 1, 1, 0, {}};
  if (m && semelhanca(m->figura, desenhada) >= mesma) {
    g.figura = normal(m->figura);
    g.erro = m->erro;
    if (m->figura.d2 > m->figura.d1) std::swap(g.erro[2], g.erro[3]);
  }
  g.contraste = examina(foto, g.figura, 1, mesa.encobrem, mesa.bancada).contraste;
  return g;
}

bool noQuadro(const FIGURA& f, cv::Size tamanho) {
  return f.l >= -0.5 && f.c >= -0.5 && f.l <= tamanho.height - 0.5 && f.c <= tamanho.width - 0.5 &&
         std::max(f.d1, f.d2) <= 2.0 * std::max(tamanho.width, tamanho.height) &&
         std::min(f.d1, f.d2) >= 1;
}

}  // namespace

FEITAS aplica(const cv::Mat_<unsigned char>& vista, const std::vector<CORRECAO>& lista,
              std::vector<APURADO>& graos) {
  FEITAS feitas;
  std::optional<refine::CAMPO> campo;
  for (const CORRECAO& c : lista) {
    if (c.gesto == GESTO::rejeita) {
      ++(tiraMaisParecido(c.figura, graos) ? feitas.rejeitados : feitas.semPar);
      continue;
    }
    if (!noQuadro(c.figura, vista.size())) {
      ++feitas.semPar;
      continue;
    }
    if (!campo) campo = refine::preparaCampo(vista);
    while (tiraMaisParecido(c.figura, graos)) {
    }
    graos.push_back(ajustado(*campo, c.figura, graos));
    ++(c.gesto == GESTO::recupera ? feitas.recuperados : feitas.desenhados);
  }
  return feitas;
}

}  // namespace corrige
