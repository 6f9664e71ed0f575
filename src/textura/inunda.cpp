#include "textura/inunda.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace textura {
namespace {

constexpr std::size_t niveis = 256;

// The pixels by height; those of equal height in the order of the picture.
struct PORALTURA {
  std::vector<int> pixels;
  std::array<std::size_t, niveis + 1> comeco{};
};

PORALTURA porAltura(const cv::Mat_<unsigned char>& relevo) {
  PORALTURA p;
  for (const unsigned char v : relevo) ++p.comeco[v + 1U];
  for (std::size_t v = 0; v < niveis; ++v) p.comeco[v + 1] += p.comeco[v];
  p.pixels.resize(relevo.total());
  auto proximo = p.comeco;
  int i = 0;
  for (const unsigned char v : relevo) p.pixels[proximo[v]++] = i++;
  return p;
}

// A pixel in the queue, and the hill that reached it.
struct VEZ {
  int pixel, morro;
};

// Hills under construction, from the tops down.
struct MORROS {
  const cv::Mat_<unsigned char>& relevo;
  CORTE corte;
  std::vector<int> dono;  // of each pixel, with a frame of one pixel around: 0 none yet
  std::vector<int> pai;   // of each hill: the one that took it over, or itself
  std::vector<int> pico;
  std::vector<VEZ> fila;
  int passo;  // from a pixel of `dono` to the one below

  MORROS(const cv::Mat_<unsigned char>& r, const CORTE& c)
      : relevo(r),
        corte(c),
        dono(static_cast<std::size_t>(r.rows + 2) * static_cast<std::size_t>(r.cols + 2)),
        pai{0},
        pico{0},
        passo(r.cols + 2) {}

  std::size_t lugar(int i) const {
    return static_cast<std::size_t>((i / relevo.cols + 1) * passo + i % relevo.cols + 1);
  }

  int raiz(int m) {
    while (pai[static_cast<std::size_t>(m)] != m) {
      int& acima = pai[static_cast<std::size_t>(m)];
      acima = pai[static_cast<std::size_t>(acima)];
      m = acima;
    }
    return m;
  }

  // Two hills meet at this height; returns the one that the meeting place belongs to.
  int encontro(int a, int b, int altura) {
    if (a == b) return a;
    const int alto = pico[static_cast<std::size_t>(a)];
    const int outro = pico[static_cast<std::size_t>(b)];
    if (std::min(alto, outro) - altura >= corte.menorVale) return a;
    const bool primeiro = alto > outro || (alto == outro && a < b);
    const int fica = primeiro ? a : b;
    pai[static_cast<std::size_t>(primeiro ? b : a)] = fica;
    return fica;
  }

  std::array<std::size_t, 4> vizinhos(std::size_t p) const {
    const auto desce = static_cast<std::size_t>(passo);
    return {p - desce, p - 1, p + 1, p + desce};
  }

  // The hill of a neighbour, 0 if they are of none.
  int encosta(std::size_t p) const {
    for (const std::size_t q : vizinhos(p)) {
      if (dono[q] != 0) return dono[q];
    }
    return 0;
  }

  // Gives a pixel to the hill that reached it. Hills that become one here do so through it.
  void toma(std::size_t p, int m, int altura) {
    m = raiz(m);
    for (const std::size_t q : vizinhos(p)) {
      if (dono[q] != 0) m = encontro(m, raiz(dono[q]), altura);
    }
    dono[p] = m;
  }

  void enfileira(int i) {
    const int l = i / relevo.cols;
    const int c = i % relevo.cols;
    const unsigned char v = relevo(l, c);
    const auto tenta = [&](int ll, int cc, int j) {
      const bool cabe = ll >= 0 && ll < relevo.rows && cc >= 0 && cc < relevo.cols;
      if (cabe && relevo(ll, cc) == v && dono[lugar(j)] == 0) fila.push_back({j, dono[lugar(i)]});
    };
    tenta(l - 1, c, i - relevo.cols);
    tenta(l, c - 1, i - 1);
    tenta(l, c + 1, i + 1);
    tenta(l + 1, c, i + relevo.cols);
  }

  // Goes on from the queue within one height.
  void espalha(int altura) {
    for (std::size_t k = 0; k < fila.size(); ++k) {
      const VEZ vez = fila[k];
      const std::size_t p = lugar(vez.pixel);
      if (dono[p] != 0) continue;
      toma(p, vez.morro, altura);
      enfileira(vez.pixel);
    }
    fila.clear();
  }

  void nivel(const std::vector<int>& pixels, std::size_t de, std::size_t ate, int altura) {
    const auto vazio = [&](int i) { return dono[lugar(i)] == 0; };
    for (std::size_t k = de; k < ate; ++k) {
      const int morro = encosta(lugar(pixels[k]));
      if (morro != 0) fila.push_back({pixels[k], morro});
    }
    espalha(altura);
    for (std::size_t k = de; k < ate; ++k) {
      if (!vazio(pixels[k])) continue;
      pai.push_back(static_cast<int>(pai.size()));
      pico.push_back(altura);
      dono[lugar(pixels[k])] = pai.back();
      enfileira(pixels[k]);
      espalha(altura);
    }
  }
};

}  // namespace

cv::Mat_<int> inunda(const cv::Mat_<unsigned char>& relevo, const CORTE& corte) {
  const PORALTURA p = porAltura(relevo);
  MORROS m(relevo, corte);
  for (std::size_t v = niveis - 1; v > 0; --v) {
    m.nivel(p.pixels, p.comeco[v], p.comeco[v + 1], static_cast<int>(v));
  }
  std::vector<int> numero(m.pai.size(), 0);
  int quantos = 0;
  cv::Mat_<int> rotulos(relevo.size(), 0);
  int i = 0;
  for (int& r : rotulos) {
    const int dono = m.raiz(m.dono[m.lugar(i++)]);
    const auto k = static_cast<std::size_t>(dono);
    if (dono == 0 || m.pico[k] < corte.menorPico) continue;
    if (numero[k] == 0) numero[k] = ++quantos;
    r = numero[k];
  }
  return rotulos;
}

}  // namespace textura
