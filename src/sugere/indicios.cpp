#include "sugere/indicios.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "detect/procura.h"
#include "kernels/lekernels.h"
#include "sugere/banco.h"

namespace sugere {
namespace {

constexpr PASSOS passos{30, 3};  // coarse: fits mend places and sizes
constexpr double menorDoBanco = 8;
constexpr double maiorDoBanco = 128;
constexpr int grande = 8;  // reduction in which larger shapes are searched

std::vector<MAXLOCAL> procura(const cv::Mat_<unsigned char>& img, const std::vector<LINHA>& linhas,
                              double minCorr) {
  std::vector<MASCARA> kernels;
  kernels::leKernelsDoTexto(texto(linhas, passos), "sugere", kernels, IMAGENS::nenhuma);
  return detect::procura(img, kernels, minCorr);
}

// All families between two sizes.
std::vector<LINHA> todas(double menor, double maior) {
  return {{'c', 1, menor, maior},   {'q', 1, menor, maior},   {'r', 1.6, menor, maior},
          {'r', 2.5, menor, maior}, {'e', 1.6, menor, maior}, {'e', 2.5, menor, maior}};
}

// Those of the picture `grande` times larger.
void ampliaLista(std::vector<MAXLOCAL>& v) {
  for (MAXLOCAL& m : v) {
    m.li = m.li * grande + grande / 2;
    m.ci = m.ci * grande + grande / 2;
    m.d1 *= grande;
    m.d2 *= grande;
  }
}

void junta(std::vector<MAXLOCAL>& v, const std::vector<MAXLOCAL>& mais) {
  v.insert(v.end(), mais.begin(), mais.end());
  std::stable_sort(v.begin(), v.end(),
                   [](const MAXLOCAL& a, const MAXLOCAL& b) { return a.correl > b.correl; });
}

std::vector<MAXLOCAL> lista(const cv::Mat_<unsigned char>& img, double minCorr) {
  const double terco = std::min(img.rows, img.cols) / 3.0;
  std::vector<MAXLOCAL> v =
      procura(img, todas(menorDoBanco, std::clamp(terco, 2 * menorDoBanco, maiorDoBanco)), minCorr);
  if (terco <= maiorDoBanco) return v;
  std::vector<MAXLOCAL> maiores =
      procura(reduzida(img, grande), todas(maiorDoBanco / grande, terco / grande), minCorr);
  ampliaLista(maiores);
  junta(v, maiores);
  return v;
}

double diametro(const refine::FIGURA& f) {
  return std::sqrt(refine::area(f) * (4 / std::numbers::pi));
}

}  // namespace

std::vector<INDICIO> indicios(const VISTA& v, const OLHAR& olhar) {
  const cv::Mat_<unsigned char> img =
      olhar.inverte ? cv::Mat_<unsigned char>(255 - v.cinza) : v.cinza;
  const std::vector<refine::APURADO> graos =
      refine::apura(img, lista(img, olhar.minCorr), olhar.modo).graos;
  std::vector<INDICIO> r;
  for (const refine::APURADO& g : graos) {
    const double d = diametro(g.figura) * v.reducao;
    if (mostra(v, d)) r.push_back({g.figura, d, g.correl, g.apoio, g.contraste});
  }
  return r;
}

double evidencia(const std::vector<INDICIO>& v) {
  double soma = 0;
  for (const INDICIO& i : v) soma += i.diametro * i.apoio * i.contraste;
  return soma;
}

}  // namespace sugere
