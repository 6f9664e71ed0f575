#include "batch/avisos/avisos.h"

#include <algorithm>
#include <opencv2/core.hpp>

namespace batch {
namespace {

using exporta::FRASE;

constexpr FRASE noMenor = {
    "%.0f %% dos graos no menor tamanho procurado (%.3g px) ou abaixo: procure tambem menores",
    "%.0f %% of the grains at the smallest size searched (%.3g px) or below: search for smaller "
    "ones too"};
constexpr FRASE noMaior = {
    "%.0f %% dos graos no maior tamanho procurado (%.3g px) ou acima: procure tambem maiores",
    "%.0f %% of the grains at the largest size searched (%.3g px) or above: search for larger "
    "ones too"};
constexpr FRASE polaridade = {
    "polaridade: em %zu fotografia(s) o contrario do que se procurou e' mais forte; confira "
    "--inverte",
    "polarity: in %zu photograph(s) the opposite of what was searched is stronger; check --invert"};
constexpr FRASE poucos = {"%zu graos: D10 e D90 pedem pelo menos 100",
                          "%zu grains: D10 and D90 ask for at least 100"};
constexpr FRASE desfoque = {
    "bordas desfocadas em %.1f px, e os menores graos (D5) tem %.1f px: tamanhos incertos",
    "edges are blurred over %.1f px, and the smallest grains (D5) have %.1f px: sizes are "
    "doubtful"};

constexpr double passo = 1.15;

// Grains from `de` to below `ate`.
std::size_t entre(const std::vector<double>& v, double de, double ate) {
  const auto n = std::count_if(v.begin(), v.end(), [=](double x) { return x >= de && x < ate; });
  return static_cast<std::size_t>(n);
}

void poePonta(std::vector<AVISO>& v, DUVIDA que, std::size_t na, std::size_t ao, std::size_t todos,
              double tamanho) {
  const bool muitos = na > 4 && na * 10 >= todos;
  if (!muitos || na * 2 <= ao * 3) return;
  v.push_back({que, static_cast<double>(na) / static_cast<double>(todos), tamanho, na});
}

void poePontas(std::vector<AVISO>& v, const std::vector<double>& d, const ALCANCE& a) {
  // Nothing can pile up between ends that are next to each other.
  if (!(a.menor > 0) || a.maior < a.menor * passo * passo * passo) return;
  const double baixo = a.menor * passo;
  const double alto = a.maior / passo;
  poePonta(v, DUVIDA::noMenor, entre(d, 0, baixo), entre(d, baixo, baixo * passo), d.size(),
           a.menor);
  poePonta(v, DUVIDA::noMaior, entre(d, alto, 1e300), entre(d, alto / passo, alto), d.size(),
           a.maior);
}

void poePolaridade(std::vector<AVISO>& v, const std::vector<SINAIS>& sinais) {
  const auto n = static_cast<std::size_t>(std::count_if(
      sinais.begin(), sinais.end(), [](const SINAIS& s) { return s.claros > 1.3 * s.escuros; }));
  if (n > 0 && 2 * n >= sinais.size()) v.push_back({DUVIDA::polaridade, 0, 0, n});
}

void poeDesfoque(std::vector<AVISO>& v, const OBSERVADO& o) {
  std::vector<double> larguras;
  for (const SINAIS& s : o.sinais) {
    if (s.desfoque > 0) larguras.push_back(s.desfoque);
  }
  if (larguras.empty() || o.diametros.empty()) return;
  std::sort(larguras.begin(), larguras.end());
  std::vector<double> d = o.diametros;
  std::sort(d.begin(), d.end());
  const double largura = larguras[larguras.size() / 2];
  const double d5 = d[d.size() / 20];
  if (largura * 3 >= d5 * 2) v.push_back({DUVIDA::desfoque, largura, d5, 0});
}

}  // namespace

std::vector<AVISO> avisos(const OBSERVADO& o, const ALCANCE& a) {
  std::vector<AVISO> v;
  poePontas(v, o.diametros, a);
  poePolaridade(v, o.sinais);
  const std::size_t n = o.diametros.size();
  if (n > 0 && n < 100) v.push_back({DUVIDA::poucos, 0, 0, n});
  poeDesfoque(v, o);
  return v;
}

std::string frase(const AVISO& a, exporta::IDIOMA idioma) {
  switch (a.que) {
    case DUVIDA::noMenor:
      return cv::format(diz(noMenor, idioma), 100 * a.parte, a.tamanho);
    case DUVIDA::noMaior:
      return cv::format(diz(noMaior, idioma), 100 * a.parte, a.tamanho);
    case DUVIDA::polaridade:
      return cv::format(diz(polaridade, idioma), a.quantos);
    case DUVIDA::desfoque:
      return cv::format(diz(desfoque, idioma), a.parte, a.tamanho);
    default:
      return cv::format(diz(poucos, idioma), a.quantos);
  }
}

}  // namespace batch
