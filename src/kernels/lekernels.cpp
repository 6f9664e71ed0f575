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

// What a set may cost; statements that go beyond are refused before their kernels are drawn. A
// search with a set at these limits takes hours. A bank of 1000 kernels of 240 pixels has less than
// a hundredth of these kernels and pixels.
constexpr double maximoDeKernels = 1 << 18;      // some 100 MB of records
constexpr double maximoDePixels = 8589934592.0;  // drawn, half a minute's work; shared ones too
constexpr double maximoDeBytes = 2147483648.0;   // of the distinct images, when they are kept

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

  // Ends with an error about the statement just read.
  [[noreturn]] void recusa(const char* mensagem, const BASE& base) const {
    pim::erro(mensagem, base.texto(), pim::lugar(f, nome));
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

std::vector<double> angulos(const LEITOR& leitor, const BASE& base, const AJUSTES& a) {
  std::vector<double> lista = {0.0};
  if (base.forma == 'c') return lista;
  const double limite = base.forma == 'q' ? 90.0 : 180.0;
  for (double ang = a.passoAng; ang < limite; ang += a.passoAng) {
    if (!(ang > lista.back())) leitor.recusa("Erro: passoAng nao avanca em ", base);
    if (static_cast<double>(lista.size()) >= maximoDeKernels) {
      leitor.recusa("Erro: Kernels demais em ", base);
    }
    lista.push_back(ang);
  }
  return lista;
}

double escala(const AJUSTES& a, int s) {
  return std::pow(2.0, static_cast<double>(-s) / a.escOitava) * a.escMax;
}

struct CUSTO {
  double kernels = 0;
  double pixels = 0;  // of the kernel images drawn
  double bytes = 0;   // of the distinct images: one is drawn over as long as its size stays

  // Why it is too much; nothing when it isn't.
  const char* excesso(IMAGENS imagens) const {
    if (kernels > maximoDeKernels) return "Erro: Kernels demais em ";
    if (pixels > maximoDePixels) return "Erro: Pixels de kernels demais em ";
    if (imagens == IMAGENS::nenhuma || bytes <= maximoDeBytes) return nullptr;
    return "Erro: Memoria de kernels demais em ";
  }
  void soma(const CUSTO& outro, double vezes) {
    kernels += outro.kernels * vezes;
    pixels += outro.pixels * vezes;
    bytes += outro.bytes * vezes;
  }
};

// One run of scales. `anterior` is the side of the kernel drawn last, before and after. A range
// that goes down to nothing counts up to half a pixel, where the run ends by itself, with the error
// of a shape too small to draw.
CUSTO custoDaCorrida(const BASE& base, const AJUSTES& a, int nEsc, IMAGENS imagens,
                     double& anterior) {
  CUSTO custo;
  for (int s = 0; s < nEsc && custo.excesso(imagens) == nullptr; ++s) {
    const double esc = escala(a, s);
    const double lado = std::max(ladoDoKernel(base.forma, esc * base.d1, esc * base.d2), 1.0);
    const double mascara = std::max(ladoDaMascara(base.forma, esc * base.d1, esc * base.d2), 0.0);
    custo.kernels += 1;
    custo.pixels += lado * lado;
    if (lado != anterior) custo.bytes += sizeof(float) * lado * lado + 2 * mascara * mascara;
    anterior = lado;
    if (!(esc * std::max(base.d1, base.d2) > 0.5)) break;
  }
  return custo;
}

void escolheEscala(MASCARA& m, const BASE& base, const AJUSTES& a, int s, int nEsc) {
  m.esc = escala(a, s);
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
  kernels::desenhaKernel(m.kernel, m.molde);
  switch (m.forma) {
    case 'c':
      contornoCirculo(m.contorno, m.d1);
      return mascaraCirculo(m.mascara, m.d1);
    case 'q':
      contornoQuadrado(m.contorno, m.d1, m.ang);
      return mascaraQuadrado(m.mascara, m.d1, m.ang);
    case 'r':
      contornoRetangulo(m.contorno, m.d1, m.d2, m.ang);
      return mascaraRetangulo(m.mascara, m.d1, m.d2, m.ang);
    default:
      contornoElipse(m.contorno, m.d1, m.d2, m.ang);
      mascaraElipse(m.mascara, m.d1, m.d2, m.ang);
  }
}

// The set under construction. `trabalho` lives as long as the file is read, so that consecutive
// records share images (see leKernels).
struct CONJUNTO {
  std::vector<MASCARA>& kernels;
  IMAGENS imagens;
  std::size_t primeiro = kernels.size();  // of this file
  MASCARA trabalho{};
  CUSTO custo{};
  double ladoAnterior = -1;

  // Ends in the errors of `desenhaImagens`, without drawing. A disc that rounds to nothing leaves
  // the kernel drawn before it as it is, when there is one, but has no outline.
  void exigeImagens() {
    const bool sumido = trabalho.forma == 'c' && pim::arredonda(trabalho.d1) <= 0;
    if (sumido && kernels.size() > primeiro) contornoCirculo(trabalho.contorno, trabalho.d1);
    kernels::exigeKernel(trabalho.molde);
  }

  void acrescenta() {
    trabalho.molde = {trabalho.forma, trabalho.d1, trabalho.d2, trabalho.ang};
    if (imagens == IMAGENS::todas) {
      desenhaImagens(trabalho);
    } else {
      exigeImagens();
    }
    kernels.emplace_back();
    kernels.back() = trabalho;
  }

  // Each record over whose image the next one was drawn gets what that shows in the end.
  void partilha() {
    for (std::size_t i = kernels.size(); i-- > primeiro + 1;) {
      const MASCARA& m = kernels[i];
      if (kernels::tomaImagemNova({m.forma, m.d1, m.d2, m.ang})) continue;
      kernels::MOLDE& anterior = kernels[i - 1].molde;
      if (kernels::ladoDaImagem(anterior) == kernels::ladoDaImagem(m.molde)) anterior = m.molde;
    }
  }
};

void expande(CONJUNTO& conjunto, const LEITOR& leitor, const BASE& base, const AJUSTES& a) {
  const int nEsc = pim::trunca(numeroDeEscalas(a));
  if (nEsc < 1) return;
  const double maior = ladoDoKernel(base.forma, a.escMax * base.d1, a.escMax * base.d2);
  if (maior > maiorLadoKernel) leitor.recusa("Erro: Forma grande demais ", base);
  const std::vector<double> angs = angulos(leitor, base, a);
  double& lado = conjunto.ladoAnterior;
  const auto daCorrida = [&] { return custoDaCorrida(base, a, nEsc, conjunto.imagens, lado); };
  conjunto.custo.soma(daCorrida(), 1);
  conjunto.custo.soma(daCorrida(), static_cast<double>(angs.size() - 1));
  const char* excesso = conjunto.custo.excesso(conjunto.imagens);
  if (excesso != nullptr) leitor.recusa(excesso, base);
  conjunto.trabalho.forma = base.forma;
  for (const double ang : angs) {
    conjunto.trabalho.ang = ang;
    for (int s = 0; s < nEsc; ++s) {
      escolheEscala(conjunto.trabalho, base, a, s, nEsc);
      conjunto.acrescenta();
    }
  }
}

// All statements of an open file of that name.
void leTodos(const LEITOR& leitor, std::vector<MASCARA>& kernels, IMAGENS imagens) {
  AJUSTES ajustes;
  BASE base{};
  CONJUNTO conjunto{kernels, imagens};
  while (true) {
    const std::string palavra = pim::minuscula(pim::leStr(leitor.f, leitor.nome));
    if (palavra == "eof") return conjunto.partilha();
    if (leAjuste(leitor, palavra, ajustes)) continue;
    if (!leForma(leitor, palavra, base)) pim::erro("Erro: Palavra desconhecida ", palavra);
    expande(conjunto, leitor, base, ajustes);
  }
}

}  // namespace

void leKernels(const std::string& nome, std::vector<MASCARA>& kernels, IMAGENS imagens) {
  const pim::ARQUIVO arquivo = pim::abre(nome, "rt");
  leTodos({arquivo.get(), nome}, kernels, imagens);
}

namespace kernels {

void leKernelsDoTexto(std::string_view texto, const std::string& nome,
                      std::vector<MASCARA>& conjunto, IMAGENS imagens) {
  const pim::ARQUIVO arquivo = pim::abreTexto(texto, nome);
  leTodos({arquivo.get(), nome}, conjunto, imagens);
}

}  // namespace kernels
