#include "vorplex/suggest.h"

#include <algorithm>
#include <numeric>

#include "api/registros.h"
#include "api/traduz.h"
#include "sugere/sugere.h"
#include "sugere/texto.h"
#include "vorplex/error.h"

namespace vorplex {
namespace {

// An order that depends on the pictures alone.
bool antes(const cv::Mat_<unsigned char>& a, const cv::Mat_<unsigned char>& b) {
  if (a.rows != b.rows) return a.rows < b.rows;
  if (a.cols != b.cols) return a.cols < b.cols;
  for (int l = 0; l < a.rows; ++l) {
    const auto [x, y] = std::mismatch(a[l], a[l] + a.cols, b[l]);
    if (x != a[l] + a.cols) return *x < *y;
  }
  return false;
}

::sugere::PEDIDO pedido(const SuggestOptions& o) {
  const bool formas = !o.shapes.empty() && o.shapes.find_first_not_of("cqre") == std::string::npos;
  if (!formas) throw Error("shapes out of range");
  if (o.sample < 1) throw Error("sample out of range");
  if (o.threads < 1 || o.threads > 1024) throw Error("number of threads out of range");
  ::sugere::PEDIDO p;
  p.inverte = o.bright;
  p.modo.familias = o.shapes;
  p.fios = o.threads;
  return p;
}

Suggestion sugestao(const ::sugere::ESCOLHA& e, bool english) {
  using ::sugere::LINGUA;
  Suggestion s;
  s.text = ::sugere::emKernelCfg(e, english ? LINGUA::en : LINGUA::pt);
  s.bright = e.inverte;
  s.min_correlation = e.minCorr;
  for (const ::sugere::LINHA& l : e.linhas) {
    if (s.shapes.find(l.forma) == std::string::npos) s.shapes += l.forma;
  }
  s.min_size = e.menor;
  s.max_size = e.maior;
  s.share = e.parte;
  s.both = ::sugere::temAmbas(e);
  s.found = !e.geral;
  return s;
}

}  // namespace

Suggestion suggest(const std::vector<Image>& images, const SuggestOptions& options) {
  return api::traduz([&] {
    const ::sugere::PEDIDO p = pedido(options);
    std::vector<cv::Mat_<unsigned char>> fotos;
    for (const Image& i : images) fotos.push_back(api::matriz(i));
    std::stable_sort(fotos.begin(), fotos.end(), antes);
    const auto quais = ::sugere::espalhados(fotos.size(), options.sample);
    const auto le = [&](std::size_t i) { return fotos[quais[i]]; };
    return sugestao(::sugere::sugere(quais.size(), le, p).escolha, options.english);
  });
}

}  // namespace vorplex
