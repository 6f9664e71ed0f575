#include "refine/ajuste/campo.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "refine/contorno/numeros.h"

namespace refine {

namespace {

constexpr double sigmaDoAlisamento = 0.8;
constexpr double menorRuido = 0.006;      // a step of 1.5 of 255
constexpr double ruidoPorMediana = 2.55;  // slope of noise seldom passed, by the median slope

cv::Mat_<float> metade(const cv::Mat_<float>& m) {
  cv::Mat_<float> r(m.rows / 2, m.cols / 2);
  for (int l = 0; l < r.rows; ++l) {
    const float* a = m[2 * l];
    const float* b = m[2 * l + 1];
    float* s = r[l];
    for (int c = 0; c < r.cols; ++c) {
      s[c] = (a[2 * c] + a[2 * c + 1] + b[2 * c] + b[2 * c + 1]) * 0.25F;
    }
  }
  return r;
}

cv::Mat_<float> comMargem(const cv::Mat_<float>& m, int margem) {
  cv::Mat_<float> r(m.rows + 2 * margem, m.cols + 2 * margem);
  for (int l = 0; l < r.rows; ++l) {
    const float* a = m[std::clamp(l - margem, 0, m.rows - 1)];
    float* s = r[l];
    for (int c = 0; c < r.cols; ++c) s[c] = a[std::clamp(c - margem, 0, m.cols - 1)];
  }
  return r;
}

// Median size of the slope over two pixels.
double medianaDoGradiente(const cv::Mat_<float>& m) {
  std::vector<float> g;
  const int passo = std::max(1, (m.rows * m.cols) / (1 << 18));
  int k = 0;
  for (int l = 1; l + 1 < m.rows; ++l) {
    for (int c = 1; c + 1 < m.cols; ++c) {
      if (++k % passo != 0) continue;
      const float dx = (m(l, c + 1) - m(l, c - 1)) * 0.5F;
      const float dy = (m(l + 1, c) - m(l - 1, c)) * 0.5F;
      g.push_back(std::sqrt(dx * dx + dy * dy));
    }
  }
  if (g.empty()) return 0;
  const auto meio = g.begin() + static_cast<std::ptrdiff_t>(g.size() / 2);
  std::nth_element(g.begin(), meio, g.end());
  return *meio;
}

double desvioPadrao(const cv::Mat_<float>& m) {
  double s = 0;
  double q = 0;
  for (int l = 0; l < m.rows; ++l) {
    for (int c = 0; c < m.cols; ++c) {
      s += m(l, c);
      q += double{m(l, c)} * m(l, c);
    }
  }
  const double n = static_cast<double>(m.rows) * m.cols;
  return std::sqrt(std::max(0.0, q / n - s / n * (s / n)));
}

ANDAR andar(const cv::Mat_<float>& imagem, int nivel) {
  const cv::Mat_<float> liso = alisa(imagem, sigmaDoAlisamento);
  ANDAR a;
  a.nivel = nivel;
  a.rows = imagem.rows;
  a.cols = imagem.cols;
  a.liso = comMargem(liso, ANDAR::margem);
  a.gradiente = medianaDoGradiente(liso);
  a.ruido = std::max(menorRuido, ruidoPorMediana * a.gradiente);
  a.desvio = desvioPadrao(liso);
  return a;
}

// saida = the sum of peso[k] times rows k before and k after; `linha(k)` is row k.
template <class LINHA>
void pesaAosPares(const std::vector<float>& peso, int n, LINHA linha, float* saida) {
  const float* meio = linha(0);
  for (int c = 0; c < n; ++c) saida[c] = peso[0] * meio[c];
  for (int k = 1; k < static_cast<int>(peso.size()); ++k) {
    const float p = peso[static_cast<std::size_t>(k)];
    const float* antes = linha(-k);
    const float* depois = linha(k);
    for (int c = 0; c < n; ++c) saida[c] += p * (antes[c] + depois[c]);
  }
}

}  // namespace

cv::Mat_<float> alisa(const cv::Mat_<float>& imagem, double sigma) {
  const int raio = static_cast<int>(std::ceil(4 * sigma));
  std::vector<float> peso(static_cast<std::size_t>(raio) + 1);
  double soma = 0;
  for (int k = 0; k <= raio; ++k)
    soma += (k == 0 ? 1 : 2) * exponencial(-k * k / (2 * sigma * sigma));
  for (int k = 0; k <= raio; ++k) {
    peso[static_cast<std::size_t>(k)] =
        static_cast<float>(exponencial(-k * k / (2 * sigma * sigma)) / soma);
  }
  cv::Mat_<float> deitada(imagem.size());
  std::vector<float> larga(static_cast<std::size_t>(imagem.cols + 2 * raio));
  for (int l = 0; l < imagem.rows; ++l) {
    const float* linha = imagem[l];
    std::fill_n(larga.begin(), raio, linha[0]);
    std::copy_n(linha, imagem.cols, larga.begin() + raio);
    std::fill_n(larga.end() - raio, raio, linha[imagem.cols - 1]);
    pesaAosPares(
        peso, imagem.cols, [&](int k) { return larga.data() + raio + k; }, deitada[l]);
  }
  cv::Mat_<float> saida(imagem.size());
  for (int l = 0; l < imagem.rows; ++l) {
    const auto linha = [&](int k) { return deitada[std::clamp(l + k, 0, imagem.rows - 1)]; };
    pesaAosPares(peso, imagem.cols, linha, saida[l]);
  }
  return saida;
}

const ANDAR& CAMPO::andarPara(double menorMetade) const {
  std::size_t k = 0;
  while (k + 1 < andares.size() && menorMetade > 14) {
    menorMetade /= 2;
    ++k;
  }
  return andares[k];
}

CAMPO preparaCampo(const cv::Mat_<unsigned char>& imagem) {
  cv::Mat_<float> m(imagem.size());
  for (int l = 0; l < m.rows; ++l) {
    for (int c = 0; c < m.cols; ++c) m(l, c) = static_cast<float>(imagem(l, c)) / 255.0F;
  }
  CAMPO campo;
  campo.andares.push_back(andar(m, 0));
  for (int nivel = 1; m.rows >= 32 && m.cols >= 32; ++nivel) {
    m = metade(m);
    campo.andares.push_back(andar(m, nivel));
  }
  return campo;
}

}  // namespace refine
