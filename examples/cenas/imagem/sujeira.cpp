#include "examples/cenas/imagem/sujeira.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "examples/cenas/imagem/pintura.h"

namespace cenas {

namespace {

// A straight stroke from p to q, `largura` pixels wide.
CONTORNO traco(cv::Point2d p, cv::Point2d q, double largura) {
  const cv::Point2d d = q - p;
  const double n = std::max(std::hypot(d.x, d.y), 1e-6);
  const cv::Point2d lado(-d.y * largura / 2 / n, d.x * largura / 2 / n);
  return {p + lado, q + lado, q - lado, p - lado};
}

struct PINCEL {
  cv::Mat_<float>& imagem;
  double claro;
  SORTEIO& s;

  cv::Point2d lugar() const { return {s.uniforme(0, imagem.cols), s.uniforme(0, imagem.rows)}; }

  float tom(double contraste) const {
    return static_cast<float>(std::min(claro * (1 - contraste), 1.0));
  }

  void ponto() const {
    const cv::Point2d p = lugar();
    const double d = s.uniforme(1.2, 5);
    const GRAO g{'e', p.y, p.x, d * s.uniforme(1, 1.8), d, s.uniforme(0, 180)};
    cobre(imagem, cobertura(contornoDe(g, FEITIO::ondulado, 0.15, s)), tom(s.uniforme(0.2, 0.8)));
  }

  // A thin thread that turns a little at every step.
  void fibra() const {
    cv::Point2d p = lugar();
    double direcao = s.uniforme(0, volta);
    double curva = s.uniforme(-0.06, 0.06);
    const double largura = s.uniforme(0.8, 2.2);
    const float cor = tom(s.uniforme(0.2, 0.6));
    const int passos = static_cast<int>(s.uniforme(12, 50));
    for (int i = 0; i < passos; ++i) {
      const cv::Point2d q = p + 3 * cv::Point2d(std::cos(direcao), std::sin(direcao));
      cobre(imagem, cobertura(traco(p, q, largura)), cor);
      p = q;
      curva += s.uniforme(-0.02, 0.02);
      direcao += curva;
    }
  }

  void risco() const {
    const cv::Point2d p = lugar();
    const double direcao = s.uniforme(0, volta);
    const double longo = s.uniforme(40, 250);
    const cv::Point2d q = p + longo * cv::Point2d(std::cos(direcao), std::sin(direcao));
    const double contraste = s.uniforme(0, 1) < 0.6 ? -s.uniforme(0.1, 0.3) : s.uniforme(0.1, 0.4);
    cobre(imagem, cobertura(traco(p, q, s.uniforme(0.6, 1.6))), tom(contraste));
  }

  // Strokes between points of a box of 3 by 5: 0 at the upper left, 14 at the lower right.
  void letra() const {
    static constexpr std::array<std::array<int, 8>, 6> sinais = {{{0, 12, 0, 2, 6, 7, 12, 14},
                                                                  {0, 2, 1, 13, 1, 1, 1, 1},
                                                                  {0, 12, 2, 14, 6, 8, 0, 2},
                                                                  {0, 12, 12, 14, 0, 0, 0, 0},
                                                                  {0, 13, 13, 2, 0, 0, 0, 0},
                                                                  {0, 2, 2, 12, 12, 14, 6, 8}}};
    const cv::Point2d canto = lugar();
    const double passo = s.uniforme(3, 6);
    const float cor = tom(s.uniforme(0.3, 0.7));
    const auto& sinal = sinais[static_cast<std::size_t>(s.uniforme(0, sinais.size()))];
    const auto em = [&](int i) {
      const int linha = i / 3;
      return canto + passo * cv::Point2d(1.4 * (i % 3), linha);
    };
    for (std::size_t i = 0; i < sinal.size(); i += 2) {
      if (sinal[i] == sinal[i + 1]) continue;
      cobre(imagem, cobertura(traco(em(sinal[i]), em(sinal[i + 1]), passo / 2.5)), cor);
    }
  }

  template <class GESTO>
  void repete(int quantos, GESTO gesto) const {
    for (int i = 0; i < quantos; ++i) (this->*gesto)();
  }
};

}  // namespace

void pintaSujeira(cv::Mat_<float>& imagem, const TIPO& tipo, SORTEIO& s) {
  const double escala = static_cast<double>(imagem.total()) / (tipo.linhas * tipo.colunas);
  const auto quantos = [&](int n) { return static_cast<int>(std::lround(n * escala)); };
  const PINCEL pincel{imagem, tipo.chao.claro, s};
  pincel.repete(quantos(tipo.sujeira.pontos), &PINCEL::ponto);
  pincel.repete(quantos(tipo.sujeira.fibras), &PINCEL::fibra);
  pincel.repete(quantos(tipo.sujeira.riscos), &PINCEL::risco);
  pincel.repete(quantos(tipo.sujeira.letras), &PINCEL::letra);
}

void pintaCorpos(cv::Mat_<float>& imagem, const TIPO& tipo, const std::vector<OBJETO>& objetos,
                 SORTEIO& s) {
  if (!tipo.sujeira.corpos) return;
  TIPO corpo = tipo;
  corpo.aspecto = {};
  corpo.aspecto.contraste = {0.1, 0.3};
  corpo.aspecto.translucido = true;
  corpo.aspecto.foco = {0.5, 1.5};
  corpo.aspecto.manchas = 0.25;
  corpo.aspecto.passoManchas = 6;
  for (const OBJETO& o : objetos) {
    GRAO g = o.verdade;
    const double d = diametro(g);
    g.forma = 'e';
    g.linha += s.uniforme(-0.6, 0.6) * d;
    g.coluna += s.uniforme(-0.6, 0.6) * d;
    g.d1 = d * s.uniforme(3.2, 5.5);
    g.d2 = g.d1 * s.uniforme(0.6, 1);
    g.ang = s.uniforme(0, 180);
    const OBJETO feito(g, contornoDe(g, FEITIO::ondulado, 0.12, s));
    pinta(imagem, corpo, feito, sorteiaTinta(corpo, feito, {0, 0}, s));
  }
}

}  // namespace cenas
