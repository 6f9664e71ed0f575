#include "measure/incerteza/reamostra.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>

namespace measure {
namespace {

// By photograph, and in each by size.
void ordena(std::vector<MEDIDA>& v) {
  std::sort(v.begin(), v.end(), [](const MEDIDA& a, const MEDIDA& b) {
    return std::tie(a.foto, a.tamanho, a.peso, a.erro) <
           std::tie(b.foto, b.tamanho, b.peso, b.erro);
  });
}

// The error of a size as it is drawn: the size stays above zero.
double erroSorteado(const MEDIDA& m) {
  return std::min(m.erro, 0.9 * m.tamanho);
}

// The variance of the photographs' totals and that which independent grains would give them.
struct VARIANCIAS {
  double fotos = 0;
  double graos = 0;
};

VARIANCIAS variancias(const std::vector<MEDIDA>& v, std::size_t fotos, double d, double parte) {
  VARIANCIAS s;
  std::vector<double> totais;
  for (std::size_t i = 0; i < v.size(); ++i) {
    if (i == 0 || v[i].foto != v[i - 1].foto) totais.push_back(0);
    const double abaixo = v[i].tamanho < d ? 1 : v[i].tamanho > d ? 0 : 0.5;
    const double z = v[i].peso * (abaixo - parte);
    totais.back() += z;
    s.graos += z * z;
  }
  const auto m = static_cast<double>(fotos);
  const double media = std::accumulate(totais.begin(), totais.end(), 0.0) / m;
  for (const double t : totais) s.fotos += (t - media) * (t - media);
  s.fotos *= m / (m - 1);
  return s;
}

// How many times each photograph counts.
std::vector<double> sorteiaFotos(const URNA& u, SORTEIO& sorteio) {
  const std::size_t n = u.comeco.size() - 1;
  std::vector<double> vezes(n, 1.0);
  if (u.entreFotos == 0) return vezes;
  std::vector<int> sorteadas(n, 0);
  for (std::size_t k = 0; k < n; ++k) ++sorteadas[abaixoDe(n, sorteio.proximo())];
  const double passo = std::sqrt(u.entreFotos);
  for (std::size_t k = 0; k < n; ++k) vezes[k] = 1 + passo * (sorteadas[k] - 1);
  return vezes;
}

std::vector<int> sorteiaGraos(const URNA& u, SORTEIO& sorteio) {
  std::vector<int> vezes(u.tamanho.size(), 0);
  for (std::size_t k = 0; k + 1 < u.comeco.size(); ++k) {
    const std::size_t graos = u.comeco[k + 1] - u.comeco[k];
    for (std::size_t i = 0; i < graos; ++i) {
      const std::uint32_t x = sorteio.proximo();
      const std::size_t grao = u.comeco[k] + abaixoDe(graos, x);
      ++vezes[u.lugar[grao * u.copias + (u.copias == 2 ? x & 1U : 0)]];
    }
  }
  return vezes;
}

}  // namespace

double entreFotos(const std::vector<MEDIDA>& v) {
  std::vector<MEDIDA> w = v;
  ordena(w);
  std::size_t fotos = w.empty() ? 0 : 1;
  for (std::size_t i = 1; i < w.size(); ++i) fotos += w[i].foto != w[i - 1].foto ? 1 : 0;
  if (fotos < 2) return 0;
  const CURVA c = curva(v);
  VARIANCIAS s;
  for (const int p : percentis) {
    const VARIANCIAS uma = variancias(w, fotos, *percentil(c, p), p / 100.0);
    s.fotos += uma.fotos;
    s.graos += uma.graos;
  }
  return s.fotos > s.graos ? 1 - s.graos / s.fotos : 0;
}

URNA urna(std::vector<MEDIDA> v) {
  URNA u;
  u.entreFotos = entreFotos(v);
  ordena(v);
  const bool comErros = std::any_of(v.begin(), v.end(), [](const MEDIDA& m) { return m.erro > 0; });
  u.copias = comErros ? 2 : 1;
  std::vector<double> tamanhos;
  std::vector<std::size_t> fotos;
  for (std::size_t i = 0; i < v.size(); ++i) {
    if (i == 0 || v[i].foto != v[i - 1].foto) u.comeco.push_back(i);
    const double e = comErros ? erroSorteado(v[i]) : 0;
    tamanhos.push_back(v[i].tamanho - e);
    if (comErros) tamanhos.push_back(v[i].tamanho + e);
    fotos.push_back(u.comeco.size() - 1);
  }
  u.comeco.push_back(v.size());
  std::vector<std::size_t> ordem(tamanhos.size());
  std::iota(ordem.begin(), ordem.end(), std::size_t{0});
  std::stable_sort(ordem.begin(), ordem.end(),
                   [&](std::size_t a, std::size_t b) { return tamanhos[a] < tamanhos[b]; });
  u.lugar.resize(ordem.size());
  for (const std::size_t i : ordem) {
    u.lugar[i] = u.tamanho.size();
    u.tamanho.push_back(tamanhos[i]);
    u.peso.push_back(v[i / u.copias].peso);
    u.foto.push_back(fotos[i / u.copias]);
  }
  return u;
}

void reamostra(const URNA& u, SORTEIO& sorteio, CURVA& c) {
  const std::vector<double> fotos = sorteiaFotos(u, sorteio);
  const std::vector<int> vezes = sorteiaGraos(u, sorteio);
  c.tamanho.clear();
  c.peso.clear();
  double total = 0;
  for (std::size_t i = 0; i < vezes.size(); ++i) {
    const double w = vezes[i] * fotos[u.foto[i]] * u.peso[i];
    if (!(w > 0)) continue;
    c.tamanho.push_back(u.tamanho[i]);
    c.peso.push_back(w);
    total += w;
  }
  c.acumulada.resize(c.peso.size());
  double abaixo = 0;
  for (std::size_t i = 0; i < c.peso.size(); ++i) {
    c.acumulada[i] = (abaixo + c.peso[i] / 2) / total;
    abaixo += c.peso[i];
  }
}

}  // namespace measure
