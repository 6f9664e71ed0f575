#include "sugere/escolha.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace sugere {
namespace {

constexpr double parteQueConta = 0.02;    // of the grains, or of their area, that keeps a family
constexpr double folga = 1.5;             // of the sizes searched beyond those seen
constexpr double parteDosMenores = 0.01;  // of the grains may be smaller than `menor`
constexpr double apoioDoMaior = 0.5;      // that the largest grain has at least
constexpr double parteDeAmbas = 0.3;      // of the lesser polarity

// A grain that was seen, and how many it stands for.
struct VISTO {
  const INDICIO* i;
  double peso;
};

// The share of photograph `foto` in which grains of this diameter would show, parts that are seen
// twice counted twice.
double coberta(const std::vector<OLHADA>& v, std::size_t foto, double diametro) {
  double soma = 0;
  for (const OLHADA& o : v) {
    if (o.vista.foto == foto && mostra(o.vista, diametro)) soma += o.vista.parte;
  }
  return soma;
}

std::vector<VISTO> vistos(const std::vector<OLHADA>& v, const OLHADA& o, bool inverte) {
  std::vector<VISTO> r;
  for (const INDICIO& i : inverte ? o.claros : o.escuros) {
    r.push_back({&i, i.apoio / coberta(v, o.vista.foto, i.diametro)});
  }
  return r;
}

// As `evidencia`, for the whole photograph.
double evidenciaToda(const std::vector<VISTO>& v) {
  double soma = 0;
  for (const VISTO& x : v) soma += x.i->diametro * x.peso * x.i->contraste;
  return soma;
}

// The smallest x such that grains below weigh the share `parte` of all.
double quantil(std::vector<VISTO> v, double parte, double INDICIO::*campo) {
  std::sort(v.begin(), v.end(),
            [&](const VISTO& a, const VISTO& b) { return a.i->*campo < b.i->*campo; });
  double tudo = 0;
  for (const VISTO& x : v) tudo += x.peso;
  double soma = 0;
  for (const VISTO& x : v) {
    soma += x.peso;
    if (soma > parte * tudo) return x.i->*campo;
  }
  return v.back().i->*campo;
}

// The proportion that stands for those near it. Kernels of longer shapes find more false ones than
// true ones: fits make shapes longer where they are.
double proporcaoTipica(double alongamento) {
  if (alongamento < 1.3) return 1;
  return alongamento < 2 ? 1.6 : 2.5;
}

// The family that a shape is searched as: nearly round ellipses as circles, nearly square
// rectangles as squares.
QUINHAO quinhao(const refine::FIGURA& f) {
  const double p = proporcaoTipica(refine::alongamento(f));
  const bool reta = f.forma == 'q' || f.forma == 'r';
  if (p > 1) return {reta ? 'r' : 'e', p, 0};
  return {reta ? 'q' : 'c', 1, 0};
}

// Families by their share of the grains, and which of them count, by number or by area.
void contaFamilias(const std::vector<VISTO>& v, ESCOLHA& e) {
  std::vector<double> areas;
  double peso = 0;
  double area = 0;
  for (const VISTO& x : v) {
    const QUINHAO q = quinhao(x.i->figura);
    std::size_t k = 0;
    while (k < e.familias.size() &&
           (e.familias[k].forma != q.forma || e.familias[k].proporcao != q.proporcao)) {
      ++k;
    }
    if (k == e.familias.size()) {
      e.familias.push_back(q);
      areas.push_back(0);
    }
    const double a = x.i->diametro * x.i->diametro * x.peso;
    e.familias[k].parte += x.peso;
    areas[k] += a;
    peso += x.peso;
    area += a;
  }
  for (std::size_t k = 0; k < e.familias.size(); ++k) {
    QUINHAO& q = e.familias[k];
    q.parte /= peso;
    if (std::max(q.parte, areas[k] / area) >= parteQueConta) {
      e.linhas.push_back({q.forma, q.proporcao, e.menor / folga, e.maior * folga});
    }
  }
  const auto ordem = [](const LINHA& a, const LINHA& b) {
    return std::pair(std::string_view("cqre").find(a.forma), a.proporcao) <
           std::pair(std::string_view("cqre").find(b.forma), b.proporcao);
  };
  std::sort(e.linhas.begin(), e.linhas.end(), ordem);
  std::stable_sort(e.familias.begin(), e.familias.end(),
                   [](const QUINHAO& a, const QUINHAO& b) { return a.parte > b.parte; });
}

void escolheTamanhos(const std::vector<VISTO>& v, ESCOLHA& e) {
  e.menor = quantil(v, parteDosMenores, &INDICIO::diametro);
  e.maior = e.menor;
  for (const VISTO& x : v) {
    if (x.i->apoio >= apoioDoMaior) e.maior = std::max(e.maior, x.i->diametro);
  }
}

// All that may be, for photographs in which nothing was seen.
void generaliza(ESCOLHA& e) {
  e.geral = true;
  for (const auto& [forma, proporcao] : std::initializer_list<std::pair<char, double>>{
           {'c', 1}, {'q', 1}, {'r', 1.6}, {'r', 2.5}, {'e', 1.6}, {'e', 2.5}}) {
    e.linhas.push_back({forma, proporcao, e.menor, e.maior});
  }
}

}  // namespace

ESCOLHA escolhe(const std::vector<OLHADA>& v, std::size_t quantasFotos) {
  ESCOLHA e;
  e.fotos.resize(quantasFotos);
  PARECER todas;
  for (const OLHADA& o : v) {
    PARECER& p = e.fotos[o.vista.foto];
    p.escuros += evidenciaToda(vistos(v, o, false));
    p.claros += evidenciaToda(vistos(v, o, true));
  }
  for (const PARECER& p : e.fotos) {
    todas.escuros += p.escuros;
    todas.claros += p.claros;
  }
  e.inverte = todas.claros > todas.escuros;
  e.parte = todas.parte(e.inverte);
  std::vector<VISTO> graos;
  for (const OLHADA& o : v) {
    for (const VISTO& x : vistos(v, o, e.inverte)) {
      graos.push_back(x);
      e.fotos[o.vista.foto].quantos += x.peso;
    }
  }
  if (graos.empty()) {
    generaliza(e);
    return e;
  }
  escolheTamanhos(graos, e);
  contaFamilias(graos, e);
  if (e.menor < 8) e.passos.oitava = 3;
  return e;
}

bool temAmbas(const ESCOLHA& e) {
  return !e.geral && e.parte < 1 - parteDeAmbas;
}

bool destoa(const ESCOLHA& e, const PARECER& p) {
  return p.parte(e.inverte) < parteDeAmbas;
}

}  // namespace sugere
