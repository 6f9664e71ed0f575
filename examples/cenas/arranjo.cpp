#include "examples/cenas/arranjo.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "examples/cenas/forma/ajuste.h"

namespace cenas {

namespace {

constexpr int tentativas = 200;

double milesimos(double x) {
  return std::round(x * 1000) / 1000;
}

cv::Point2d lugarEscrito(cv::Point2d p) {
  return {milesimos(p.x), milesimos(p.y)};
}

GRAO arredondado(GRAO g) {
  for (double* x : {&g.linha, &g.coluna, &g.d1, &g.d2, &g.ang}) *x = milesimos(*x);
  return g;
}

double areaCoberta(const RETALHO& r) {
  return cv::sum(r.valor)[0];
}

// Pixels that both cover, each as far as the one that covers less of it.
double partilhada(const RETALHO& a, const RETALHO& b) {
  const cv::Rect r = a.caixa() & b.caixa();
  double soma = 0;
  for (int l = r.y; l < r.y + r.height; ++l) {
    for (int c = r.x; c < r.x + r.width; ++c) {
      soma += static_cast<double>(std::min(a.em(l, c), b.em(l, c)));
    }
  }
  return soma;
}

// The grains laid so far, and how much of each is shared already.
struct TERRENO {
  cv::Size tamanho;
  double partilha;  // of the area of grains set against each other, at most
  std::vector<OBJETO> objetos;
  std::vector<double> areas;
  std::vector<double> cobertas;

  // Whether `r`, of `area` pixels, may lie there: it shares at most `parte` of its own area and of
  // theirs. Where nothing may be shared, the thousandth part stands for rounding.
  bool cabe(const RETALHO& r, double area, double parte) const {
    const double limite = std::max(parte, 0.001);
    double minha = 0;
    for (std::size_t i = 0; i < objetos.size(); ++i) {
      if ((objetos[i].cobertura.caixa() & r.caixa()).empty()) continue;
      const double x = partilhada(objetos[i].cobertura, r);
      minha += x;
      if (cobertas[i] + x > limite * areas[i] || minha > limite * area) return false;
    }
    return true;
  }

  const GRAO& maisPerto(cv::Point2d p) const {
    const auto longe = [&](const OBJETO& o) {
      return std::hypot(o.verdade.coluna - p.x, o.verdade.linha - p.y);
    };
    return std::min_element(objetos.begin(), objetos.end(),
                            [&](const OBJETO& a, const OBJETO& b) { return longe(a) < longe(b); })
        ->verdade;
  }

  void poe(OBJETO objeto) {
    areas.push_back(areaCoberta(objeto.cobertura));
    cobertas.push_back(0);
    for (std::size_t i = 0; i < objetos.size(); ++i) {
      const double x = partilhada(objetos[i].cobertura, objeto.cobertura);
      cobertas[i] += x;
      cobertas.back() += x;
    }
    objetos.push_back(std::move(objeto));
  }
};

double sorteiaTamanho(const POPULACAO& p, SORTEIO& s) {
  if (p.espalha <= 0) return p.tamanho.sorteiaRazao(s);
  const double meio = std::sqrt(p.tamanho.de * p.tamanho.ate);
  return std::clamp(meio * std::exp(p.espalha * s.normal()), p.tamanho.de, p.tamanho.ate);
}

// A grain of random shape, size and angle at the middle of nowhere.
GRAO sorteiaGrao(const POPULACAO& p, SORTEIO& s) {
  GRAO g;
  const double qual = s.uniforme(0, static_cast<double>(p.familias.size()));
  g.forma = p.familias[static_cast<std::size_t>(qual)];
  const double tamanho = sorteiaTamanho(p, s);
  const bool alongado = g.forma == 'r' || g.forma == 'e';
  const double razao = alongado ? p.razao.sorteia(s) : 1;
  g.d1 = tamanho * std::sqrt(razao);
  g.d2 = tamanho / std::sqrt(razao);
  g.ang = g.forma == 'c' ? 0 : s.uniforme(0, g.forma == 'q' ? 90 : 180);
  return arredondado(g);
}

bool cortado(const CONTORNO& contorno, cv::Size tamanho) {
  return std::any_of(contorno.begin(), contorno.end(), [&](const cv::Point2d& p) {
    return p.x < -0.5 || p.y < -0.5 || p.x > tamanho.width - 0.5 || p.y > tamanho.height - 0.5;
  });
}

// How much of the grain the picture shows.
double visivel(const RETALHO& r, cv::Size tamanho) {
  const RETALHO tudo{{0, 0}, cv::Mat_<float>(tamanho, 1.0F)};
  return partilhada(r, tudo) / areaCoberta(r);
}

// A place for one grain: its outline is made once about the origin and moved about.
struct CANDIDATO {
  GRAO grao;
  CONTORNO contorno;
  bool corta;  // is to be cut by the border

  CONTORNO em(cv::Point2d p) const { return deslocado(contorno, p); }

  bool noQuadro(const CONTORNO& c, cv::Size tamanho) const {
    if (cortado(c, tamanho) != corta) return false;
    return !corta || visivel(cobertura(c), tamanho) > 0.35;
  }
};

bool livre(const TERRENO& t, const CANDIDATO& k, cv::Point2d p, double folga) {
  GRAO g = k.grao;
  g.linha = p.y;
  g.coluna = p.x;
  const double fator = 1 + 2 * folga / std::min(g.d1, g.d2);
  const RETALHO r = cobertura(escalado(k.em(p), g, fator));
  return t.cabe(r, areaCoberta(r), 0);
}

bool solto(const TERRENO& t, const CANDIDATO& k, double folga, SORTEIO& s, cv::Point2d& p) {
  const double fora = k.corta ? std::max(k.grao.d1, k.grao.d2) / 2 : 0;
  p = lugarEscrito(
      {s.uniforme(-fora, t.tamanho.width + fora), s.uniforme(-fora, t.tamanho.height + fora)});
  return k.noQuadro(k.em(p), t.tamanho) && livre(t, k, p, folga);
}

// Away from the middle of the grain nearest to a random place, in a random direction, until no more
// than allowed is shared.
bool encostado(const TERRENO& t, const CANDIDATO& k, SORTEIO& s, cv::Point2d& p) {
  const GRAO& v = t.maisPerto({s.uniforme(0, t.tamanho.width), s.uniforme(0, t.tamanho.height)});
  const double direcao = s.uniforme(0, volta);
  const double raio = (std::min(v.d1, v.d2) + std::min(k.grao.d1, k.grao.d2)) / 2;
  const double longe = std::hypot(v.d1, v.d2) + std::hypot(k.grao.d1, k.grao.d2);
  for (double d = raio * (1 - 1.2 * std::sqrt(t.partilha)); d < longe; d += 0.5) {
    p = lugarEscrito({v.coluna + d * std::cos(direcao), v.linha + d * std::sin(direcao)});
    const CONTORNO c = k.em(p);
    if (!t.cabe(cobertura(c), area(c), t.partilha)) continue;
    return k.noQuadro(c, t.tamanho);
  }
  return false;
}

CANDIDATO sorteiaCandidato(const POPULACAO& p, SORTEIO& s) {
  CANDIDATO k{sorteiaGrao(p, s), {}, s.uniforme(0, 1) < p.cortados};
  k.contorno = contornoDe(k.grao, p.feitio, p.irregular.sorteia(s), s);
  return k;
}

OBJETO objeto(const POPULACAO& populacao, const CANDIDATO& k, cv::Point2d p) {
  GRAO g = k.grao;
  g.linha = p.y;
  g.coluna = p.x;
  if (populacao.feitio == FEITIO::exato) return OBJETO(g, k.em(p));
  GRAO dito = ajusta(k.em(p), g.forma, g);
  if (populacao.feitio == FEITIO::oblongo && g.forma == 'r') {
    const GRAO elipse = ajusta(k.em(p), 'e', g);
    if (semelhanca(k.em(p), elipse) > semelhanca(k.em(p), dito)) dito = elipse;
  }
  return OBJETO(arredondado(dito), k.em(p));
}

}  // namespace

OBJETO::OBJETO(const GRAO& g, CONTORNO c)
    : verdade(g), contorno(std::move(c)), cobertura(cenas::cobertura(contorno)) {}

std::vector<OBJETO> arranja(const TIPO& tipo, cv::Size tamanho, SORTEIO& s) {
  const POPULACAO& p = tipo.populacao;
  const double escala = static_cast<double>(tamanho.area()) / (tipo.linhas * tipo.colunas);
  const int quantos = std::max(1, static_cast<int>(std::lround(p.quantos.sorteia(s) * escala)));
  TERRENO t{tamanho, p.partilha.sorteia(s), {}, {}, {}};
  for (int i = 0; i < quantos; ++i) {
    const CANDIDATO k = sorteiaCandidato(p, s);
    const bool junto = !t.objetos.empty() && s.uniforme(0, 1) < p.juntos;
    cv::Point2d lugar;
    bool posto = false;
    for (int n = 0; n < tentativas && !posto; ++n) {
      posto = junto ? encostado(t, k, s, lugar) : solto(t, k, p.folga, s, lugar);
    }
    if (!posto) continue;
    OBJETO o = objeto(p, k, lugar);
    o.cortado = cortado(o.contorno, tamanho);
    o.claro = s.uniforme(0, 1) < tipo.aspecto.claros;
    t.poe(std::move(o));
  }
  return std::move(t.objetos);
}

}  // namespace cenas
