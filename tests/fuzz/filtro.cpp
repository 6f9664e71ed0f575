// The intersection filter against its plain form on crowded lists: the same records kept, or the
// same end.

#include <limits>
#include <stdexcept>

#include "apoio/erros.h"
#include "confere.h"
#include "entrada.h"
#include "filter/filtinter.h"
#include "referencia/filtro.h"

namespace {

using LISTA = std::vector<MAXLOCAL>;
using FILTRO = void (*)(const LISTA&, LISTA&, cv::Size, const LIMIARES&);

// In quarters of pixels and mostly near the corner, where withdrawn shapes are taken off again.
MAXLOCAL deteccao(ENTRADA& e) {
  if (e.byte() > 240) return e.deteccao();
  MAXLOCAL m;
  m.correl = static_cast<float>(e.byte() % 16) / 16;
  m.forma = "cqrex"[e.byte() % 5];
  m.li = e.inteiro(-6, 40);
  m.ci = e.inteiro(-6, 40);
  m.d1 = e.inteiro(0, 100) / 4.0;
  m.d2 = e.inteiro(0, 100) / 4.0;
  m.ang = 5 * e.inteiro(0, 36);
  return m;
}

double limiar(ENTRADA& e) {
  const int x = e.byte();
  if (x == 255) return std::numeric_limits<double>::quiet_NaN();
  return x < 128 ? x % 16 / 16.0 : e.real();
}

// How it ends: nothing, or what was thrown.
std::string fimDe(FILTRO filtro, const LISTA& entrada, LISTA& saida, cv::Size tamanho,
                  const LIMIARES& t) {
  try {
    filtro(entrada, saida, tamanho, t);
    return "";
  } catch (const pim::ASSERCAO& a) {
    return a.expressao;
  } catch (const pim::ERRO& erro) {
    return erro.what();
  } catch (const std::out_of_range&) {
    return "out_of_range";
  }
}

bool mesma(const MAXLOCAL& a, const MAXLOCAL& b) {
  const auto igual = [](double x, double y) { return x == y || (x != x && y != y); };
  return a.correl == b.correl && a.forma == b.forma && a.li == b.li && a.ci == b.ci &&
         igual(a.d1, b.d1) && igual(a.d2, b.d2) && igual(a.ang, b.ang);
}

// Large shapes are legal and take their time.
bool legalEGrande(const MAXLOCAL& m) {
  const auto demais = [](double d) { return d > 100 && d < 20000; };
  return demais(m.d1) || demais(m.d2);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  ENTRADA e{bytes, n};
  const cv::Size tamanho{e.inteiro(1, 50), e.inteiro(1, 50)};
  LIMIARES limiares;
  for (LIMIAR* t : {&limiares.circulo, &limiares.retangulo, &limiares.quadrado, &limiares.elipse}) {
    t->minCorr = limiar(e);
    t->maxInter = limiar(e);
  }
  LISTA entrada;
  while (e.restam > 0 && entrada.size() < 40) entrada.push_back(deteccao(e));
  for (const MAXLOCAL& m : entrada) {
    if (legalEGrande(m)) return -1;
  }
  LISTA rapido;
  LISTA simples;
  const std::string fim = fimDe(filtInter, entrada, rapido, tamanho, limiares);
  const std::string fimSimples = fimDe(referencia::filtInter, entrada, simples, tamanho, limiares);
  // The fast form looks a few detections ahead: it may meet a shape that is too large before the
  // plain one ends otherwise.
  const bool grandeDemais = fim.find("Forma grande demais") != std::string::npos;
  confere(fim == fimSimples || (grandeDemais && !fimSimples.empty()),
          "fins diferentes: " + fim + " / " + fimSimples);
  confere(fim.find("t[i]>=0") == std::string::npos, "indice negativo na grade");
  if (!fim.empty()) return 0;
  confere(rapido.size() == simples.size(), "numero de mantidos");
  for (std::size_t i = 0; i < rapido.size(); ++i) confere(mesma(rapido[i], simples[i]), "mantido");
  return 0;
}
