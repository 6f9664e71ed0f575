// Outlines, indices, centre marks and samples of any detections on a small picture: nothing but
// those pixels changes, whatever the places and sizes.

#include <algorithm>
#include <cmath>

#include "apoio/erros.h"
#include "confere.h"
#include "draw/amostra.h"
#include "draw/formas.h"
#include "entrada.h"

namespace {

const pim::VEC3B fundo(10, 20, 30);
const pim::VEC3B vermelho(0, 0, 255);
const pim::VEC3B verde(0, 255, 0);
const pim::VEC3B branco(255, 255, 255);
const pim::VEC3B preto(0, 0, 0);

void confereCores(const cv::Mat_<pim::VEC3B>& img, std::initializer_list<pim::VEC3B> cores) {
  for (const pim::VEC3B& x : img) {
    confere(std::find(cores.begin(), cores.end(), x) != cores.end(), "outra cor");
  }
}

// Larger shapes are legal, up to 256 MiB each.
bool legalEGrande(const MAXLOCAL& m, double fator) {
  constexpr double maiorPequena = 120;
  constexpr double recusada = 20000;
  const auto demais = [&](double d) { return d > maiorPequena && d < recusada; };
  return demais(m.d1) || demais(m.d2) || demais(m.d1 * fator) || demais(m.d2 * fator);
}

// The only assertion that may fail is that of a shape without a mask.
void confereAmostra(const MAXLOCAL& m, const cv::Mat_<pim::VEC3B>& foto, double fator) {
  cv::Mat_<pim::VEC3B> amostra;
  MAXLOCAL ampliada = m;
  ampliada.d1 *= fator;
  ampliada.d2 *= fator;
  cv::Mat_<unsigned char> mascara;
  if (!erroDe([&] { mascaraMaxLocal(ampliada, mascara); }).empty()) return;
  try {
    amostra = extraiAm(m, foto, fator);
  } catch (const pim::ASSERCAO&) {
    confere(mascara.empty(), "afirmacao com mascara");
    return;
  }
  confere(amostra.size() == mascara.size(), "tamanho da amostra");
  confereCores(amostra, {fundo, preto});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  ENTRADA e{bytes, n};
  const cv::Size tamanho{e.inteiro(1, 40), e.inteiro(1, 40)};
  const cv::Mat_<pim::VEC3B> foto(tamanho, fundo);
  const bool bold = e.byte() % 2 == 1;
  const double fator = e.real();
  const int quantos = e.inteiro(0, 5);
  std::vector<MAXLOCAL> v;
  for (int i = 0; i < quantos; ++i) v.push_back(e.deteccao());
  for (const MAXLOCAL& m : v) {
    if (legalEGrande(m, fator)) return -1;
  }
  cv::Mat_<pim::VEC3B> tracada;
  if (erroDe([&] { tracada = tracaFormas(foto, v, bold, vermelho); }).empty()) {
    confereCores(tracada, {fundo, vermelho});
  }
  confereCores(tracaIndices(foto, v), {fundo, vermelho, branco});
  confereCores(tracaCentros(foto, v, bold), {fundo, verde});
  for (const MAXLOCAL& m : v) confereAmostra(m, foto, fator);
  confereCores(foto, {fundo});
  return 0;
}
