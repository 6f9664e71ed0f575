#include "kernels/lekernels.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "kernels/formas.h"
#include "kernels/normaliza.h"
#include "pim/arquivo.h"
#include "pim/converte.h"
#include "pim/erro.h"
#include "pim/texto.h"
#include "pim/token.h"

namespace {

constexpr double maximoDeKernels = 1 << 20;
constexpr std::size_t maximoDeBytes = std::size_t{2} << 30U;

struct AJUSTES {
  double passoAng = 10.0;  // degrees
  int escOitava = 5;       // scales an octave
  double escMin = 0.5;
  double escMax = 1.0;
  double escPir = 4.0;
};

// A shape statement of the file: sizes in pixels at scale 1.
struct BASE {
  char forma;
  double d1;
  double d2;

  std::string texto() const { return cv::format("%c %g %g", forma, d1, d2); }
};

// The file being read.
struct LEITOR {
  std::FILE* f;
  const std::string& nome;

  double numero() const {
    double x = 0;
    pim::leNum(f, x, nome);
    return x;
  }
};

void exige(bool valida, const char* condicao) {
  if (!valida) pim::erro("Erro: deve ter ", condicao);
}

// Carries out a setting statement; false when `palavra` is none. A value is stored before it is
// checked, against the other settings as they stand at that moment.
bool leAjuste(const LEITOR& leitor, const std::string& palavra, AJUSTES& a) {
  if (palavra == "passoang") {
    a.passoAng = leitor.numero();
  } else if (palavra == "escoitava") {
    pim::leNum(leitor.f, a.escOitava, leitor.nome);
    exige(1 <= a.escOitava, "1<=escOitava");
  } else if (palavra == "escala" || palavra == "escmin") {
    a.escMin = leitor.numero();
    exige(0 <= a.escMin, "0<=escMin");
  } else if (palavra == "a" || palavra == "escmax") {
    a.escMax = leitor.numero();
    exige(a.escMin <= a.escMax, "escMin<=escMax");
  } else if (palavra == "piramide" || palavra == "escpir") {
    a.escPir = leitor.numero();
    exige(a.escMax <= a.escPir, "escMax<=escPir");
  } else {
    return false;
  }
  return true;
}

// Reads the sizes of a shape statement; false when `palavra` is none.
bool leForma(const LEITOR& leitor, const std::string& palavra, BASE& base) {
  const bool redonda = palavra == "circulo" || palavra == "quadrado";
  if (!redonda && palavra != "retangulo" && palavra != "elipse") return false;
  base.forma = palavra == "quadrado" ? 'q' : palavra[0];
  base.d1 = leitor.numero();
  base.d2 = redonda ? base.d1 : leitor.numero();
  return true;
}

// The scales of a run in double: it is infinite when escMin is 0.
double numeroDeEscalas(const AJUSTES& a) {
  return std::nearbyint(1 + a.escOitava * std::log2(a.escMax / a.escMin));
}

std::vector<double> angulos(const BASE& base, const AJUSTES& a) {
  std::vector<double> lista = {0.0};
  if (base.forma == 'c') return lista;
  const double limite = base.forma == 'q' ? 90.0 : 180.0;
  for (double ang = a.passoAng; ang < limite; ang += a.passoAng) {
    if (!(ang > lista.back())) pim::erro("Erro: passoAng nao avanca em ", base.texto());
    if (static_cast<double>(lista.size()) >= maximoDeKernels) {
      pim::erro("Erro: Kernels demais em ", base.texto());
    }
    lista.push_back(ang);
  }
  return lista;
}

// Ends with an error when the statement would take the set past its limit. A range of scales that
// goes down to nothing ends by itself, with an error of the shape that gets too small to draw,
// before half a pixel is reached.
void exigeQueCaibam(const BASE& base, const AJUSTES& a, double nEsc, std::size_t nAng,
                    std::size_t jaFeitos) {
  const double maior = a.escMax * std::max(base.d1, base.d2);
  const double ateMeioPixel = 2 + std::max(0.0, a.escOitava * std::log2(maior / 0.5));
  const double feitos = ateMeioPixel < nEsc ? ateMeioPixel : nEsc * static_cast<double>(nAng);
  if (static_cast<double>(jaFeitos) + feitos > maximoDeKernels) {
    pim::erro("Erro: Kernels demais em ", base.texto());
  }
}

void escolheEscala(MASCARA& m, const BASE& base, const AJUSTES& a, int s, int nEsc) {
  m.esc = std::pow(2.0, static_cast<double>(-s) / a.escOitava) * a.escMax;
  m.d1 = m.esc * base.d1;
  m.d2 = m.esc * base.d2;
  if (s < a.escOitava) {
    // The small term lets a logarithm that rounding left a hair below an integer count as it.
    m.escPir = a.escPir;
    m.sPir = pim::trunca(std::floor(std::log2(a.escPir / m.esc) + 1e-6));
  } else {
    m.escPir = m.esc;
    m.sPir = 0;
  }
  m.inic = s == 0 ? 0 : s == nEsc - 1 ? 2 : 1;
}

void desenhaImagens(MASCARA& m) {
  switch (m.forma) {
    case 'c':
      kernelCirculo(m.kernel, m.d1);
      contornoCirculo(m.contorno, m.d1);
      mascaraCirculo(m.mascara, m.d1);
      break;
    case 'q':
      kernelQuadrado(m.kernel, m.d1, m.ang);
      contornoQuadrado(m.contorno, m.d1, m.ang);
      mascaraQuadrado(m.mascara, m.d1, m.ang);
      break;
    case 'r':
      kernelRetangulo(m.kernel, m.d1, m.d2, m.ang);
      contornoRetangulo(m.contorno, m.d1, m.d2, m.ang);
      mascaraRetangulo(m.mascara, m.d1, m.d2, m.ang);
      break;
    default:
      kernelElipse(m.kernel, m.d1, m.d2, m.ang);
      contornoElipse(m.contorno, m.d1, m.d2, m.ang);
      mascaraElipse(m.mascara, m.d1, m.d2, m.ang);
  }
}

// The set under construction. `trabalho` lives as long as the file is read, so that consecutive
// records share images (see leKernels).
struct CONJUNTO {
  std::vector<MASCARA>& kernels;
  MASCARA trabalho;
  std::size_t bytes = 0;  // of the distinct images

  void acrescenta(const BASE& base) {
    const uchar* antes = trabalho.kernel.data;
    desenhaImagens(trabalho);
    if (trabalho.kernel.data != antes) {
      bytes += trabalho.kernel.total() * sizeof(float) + 2 * trabalho.mascara.total();
    }
    if (bytes > maximoDeBytes) pim::erro("Erro: Kernels demais em ", base.texto());
    kernels.emplace_back();
    kernels.back() = trabalho;
  }
};

void expande(CONJUNTO& conjunto, const BASE& base, const AJUSTES& a) {
  const double escalas = numeroDeEscalas(a);
  const int nEsc = pim::trunca(escalas);
  if (nEsc < 1) return;
  const std::vector<double> angs = angulos(base, a);
  exigeQueCaibam(base, a, escalas, angs.size(), conjunto.kernels.size());
  conjunto.trabalho.forma = base.forma;
  for (const double ang : angs) {
    conjunto.trabalho.ang = ang;
    for (int s = 0; s < nEsc; ++s) {
      escolheEscala(conjunto.trabalho, base, a, s, nEsc);
      conjunto.acrescenta(base);
    }
  }
}

}  // namespace

void leKernels(const std::string& nome, std::vector<MASCARA>& kernels) {
  const pim::ARQUIVO arquivo = pim::abre(nome, "rt");
  const LEITOR leitor{arquivo.get(), nome};
  AJUSTES ajustes;
  BASE base{};
  CONJUNTO conjunto{kernels, {}, 0};
  while (true) {
    const std::string palavra = pim::minuscula(pim::leStr(leitor.f));
    if (palavra == "eof") return;
    if (leAjuste(leitor, palavra, ajustes)) continue;
    if (!leForma(leitor, palavra, base)) pim::erro("Erro: Palavra desconhecida ", palavra);
    expande(conjunto, base, ajustes);
  }
}
