#include "referencia/formas.h"

#include <algorithm>
#include <cmath>

namespace referencia {
namespace {

constexpr double raiz2 = 1.4142135623730951;
constexpr double pi = 3.14159265358979323846;

int lado(double extensao) {
  return 2 * static_cast<int>(std::ceil((extensao - 1) / 2)) + 1;
}

int metade(double d) {
  return static_cast<int>(d * 0.5);
}

template <class T>
void pinta(cv::Mat_<T>& img, char forma, int h1, int h2, double ang, T valor) {
  const int m = img.rows / 2;
  for (int l = 0; l < img.rows; ++l) {
    for (int c = 0; c < img.cols; ++c) {
      if (pertence(forma, h1, h2, ang, l - m, c - m)) img(l, c) = valor;
    }
  }
}

cv::Mat_<float> tabelaDeKernel(int classe) {
  switch (classe) {
    case 1:
      return desenho("+++/+-+/+++");
    case 2:
      return desenho("00+00/0+-+0/+---+/0+-+0/00+00");
    case 3:
      return desenho("0000000/0+++++0/0+---+0/0+---+0/0+---+0/0+++++0/0000000");
    default:
      return desenho(
          "000000000/0000+0000/000+-+000/00+---+00/0+-----+0/00+---+00/000+-+000/0000+0000/"
          "000000000");
  }
}

cv::Mat_<unsigned char> tabelaDeMascara(int classe) {
  switch (classe) {
    case 1:
      return figura("+++/+0+/+++");
    case 2:
      return figura("+++++/++0++/+000+/++0++/+++++");
    case 3:
      return figura("+++++/+000+/+000+/+000+/+++++");
    default:
      return figura("+++++++/+++0+++/++000++/+00000+/++000++/+++0+++/+++++++");
  }
}

int classeDoCirculo(char forma, double d) {
  return forma == 'c' ? static_cast<int>(std::nearbyint(d)) : 5;
}

void normaliza(cv::Mat_<float>& K) {
  double p = 0;
  double n = 0;
  for (int l = 0; l < K.rows; ++l) {
    for (int c = 0; c < K.cols; ++c) {
      if (K(l, c) > 0) p += static_cast<double>(K(l, c));
      if (K(l, c) < 0) n -= static_cast<double>(K(l, c));
    }
  }
  for (int l = 0; l < K.rows; ++l) {
    for (int c = 0; c < K.cols; ++c) {
      const double x = static_cast<double>(K(l, c));
      K(l, c) = static_cast<float>(x > 0 ? x / p : x / n);
    }
  }
}

}  // namespace

bool pertence(char forma, int h1, int h2, double ang, int dl, int dc) {
  if (std::min(h1, h2) < 0) return false;
  if (forma == 'c') return dl * dl + dc * dc <= h1 * h1;
  const double t = ang * pi / 180;
  const double u = dc * std::cos(t) + dl * std::sin(t);
  const double v = -dc * std::sin(t) + dl * std::cos(t);
  if (forma != 'e') {
    return std::abs(u) <= (h1 + 0.5) * (1 + 1e-9) && std::abs(v) <= (h2 + 0.5) * (1 + 1e-9);
  }
  const double fio = 1e-9 * (1 + std::max(h1, h2));
  if (h1 == 0) return std::abs(u) <= fio && std::abs(v) <= h2 + fio;
  if (h2 == 0) return std::abs(v) <= fio && std::abs(u) <= h1 + fio;
  return u * u / h1 / h1 + v * v / h2 / h2 <= 1 + 1e-9;
}

cv::Mat_<unsigned char> mascara(char forma, double d1, double d2, double ang) {
  const int classe = classeDoCirculo(forma, d1);
  if (classe <= 4) return tabelaDeMascara(classe);
  const double maior = std::max(d1, d2);
  int n = lado(maior);
  if (forma == 'c') n = lado(d1) + 2;
  if (forma == 'q' || forma == 'r') n = lado(maior * raiz2);
  cv::Mat_<unsigned char> img(n, n, static_cast<unsigned char>(255));
  pinta(img, forma, metade(d1), metade(d2), ang, static_cast<unsigned char>(0));
  return img;
}

cv::Mat_<unsigned char> contorno(const cv::Mat_<unsigned char>& mascara) {
  cv::Mat_<unsigned char> larga(mascara.rows + 2, mascara.cols + 2,
                                static_cast<unsigned char>(255));
  mascara.copyTo(larga(cv::Rect(1, 1, mascara.cols, mascara.rows)));
  cv::Mat_<unsigned char> out(mascara.size(), static_cast<unsigned char>(255));
  for (int l = 1; l <= mascara.rows; ++l) {
    for (int c = 1; c <= mascara.cols; ++c) {
      const bool vizinhoFora = larga(l - 1, c) != 0 || larga(l + 1, c) != 0 ||
                               larga(l, c - 1) != 0 || larga(l, c + 1) != 0;
      if (larga(l, c) == 0 && vizinhoFora) out(l - 1, c - 1) = 0;
    }
  }
  return out;
}

cv::Mat_<float> kernel(char forma, double d1, double d2, double ang) {
  const int classe = classeDoCirculo(forma, d1);
  cv::Mat_<float> K;
  if (classe <= 4) {
    K = tabelaDeKernel(classe);
  } else {
    const double maior = std::max(d1, d2);
    int n = lado(2 * maior);
    if (forma == 'c' || forma == 'e') n = lado(maior * raiz2) + 2;
    K = cv::Mat_<float>(n, n, 0.0F);
    pinta(K, forma, metade(d1 * raiz2), metade(d2 * raiz2), ang, 1.0F);
    pinta(K, forma, metade(d1), metade(d2), ang, -1.0F);
  }
  normaliza(K);
  return K;
}

std::vector<MASCARA> expansao(const AJUSTE& a, char forma, double d1, double d2) {
  std::vector<double> angulos = {0.0};
  const double limite = forma == 'c' ? 0.0 : forma == 'q' ? 90.0 : 180.0;
  while (angulos.back() + a.passoAng < limite) angulos.push_back(angulos.back() + a.passoAng);
  const int n = static_cast<int>(
      std::nearbyint(1 + a.escOitava * (std::log2(a.escMax) - std::log2(a.escMin))));
  std::vector<MASCARA> lista;
  for (const double ang : angulos) {
    for (int s = 0; s < n; ++s) {
      MASCARA m;
      m.forma = forma;
      m.esc = std::pow(2.0, -static_cast<double>(s) / a.escOitava) * a.escMax;
      m.d1 = m.esc * d1;
      m.d2 = m.esc * d2;
      m.ang = ang;
      const bool grande = s < a.escOitava;
      m.escPir = grande ? a.escPir : m.esc;
      m.sPir = grande ? static_cast<int>(std::floor(std::log2(a.escPir / m.esc) + 1e-6)) : 0;
      m.inic = s == 0 ? 0 : (s + 1 == n ? 2 : 1);
      lista.push_back(m);
    }
  }
  return lista;
}

cv::Mat_<float> desenho(const std::string& linhas) {
  const int cols = static_cast<int>(std::min(linhas.find('/'), linhas.size()));
  const int rows = static_cast<int>(std::count(linhas.begin(), linhas.end(), '/')) + 1;
  cv::Mat_<float> img(rows, cols, 0.0F);
  for (int l = 0; l < rows; ++l) {
    for (int c = 0; c < cols; ++c) {
      const char simbolo = linhas[static_cast<std::size_t>(l * (cols + 1) + c)];
      if (simbolo != '0') img(l, c) = simbolo == '+' ? 1.0F : -1.0F;
    }
  }
  return img;
}

cv::Mat_<unsigned char> figura(const std::string& linhas) {
  const cv::Mat_<float> origem = desenho(linhas);
  cv::Mat_<unsigned char> img(origem.size());
  for (int l = 0; l < img.rows; ++l) {
    for (int c = 0; c < img.cols; ++c) img(l, c) = origem(l, c) > 0 ? 255 : 0;
  }
  return img;
}

}  // namespace referencia
