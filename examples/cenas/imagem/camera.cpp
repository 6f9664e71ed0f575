#include "examples/cenas/imagem/camera.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgcodecs.hpp>
#include <vector>

#include "examples/cenas/imagem/desfoque.h"

namespace cenas {

namespace {

cv::Mat_<float> ilumina(const cv::Mat_<float>& cena, const CAMERA& camera, SORTEIO& s) {
  const double direcao = s.uniforme(0, volta);
  const double gradiente = camera.gradiente.sorteia(s);
  const double vinheta = camera.vinheta.sorteia(s);
  const double gx = gradiente * std::cos(direcao);
  const double gy = gradiente * std::sin(direcao);
  cv::Mat_<float> saida(cena.size());
  for (int l = 0; l < cena.rows; ++l) {
    const double y = 2.0 * l / cena.rows - 1;
    for (int c = 0; c < cena.cols; ++c) {
      const double x = 2.0 * c / cena.cols - 1;
      const double luz = 1 - gradiente + gx * x + gy * y - vinheta * (x * x + y * y) / 2;
      saida(l, c) = cena(l, c) * static_cast<float>(luz);
    }
  }
  return saida;
}

cv::Mat_<unsigned char> revela(const cv::Mat_<float>& luz, const CAMERA& camera, SORTEIO& s) {
  const double ruido = camera.ruido.sorteia(s);
  const double fotons = camera.fotons.sorteia(s);
  cv::Mat_<unsigned char> saida(luz.size());
  for (int l = 0; l < luz.rows; ++l) {
    for (int c = 0; c < luz.cols; ++c) {
      const double claro = 255 * std::max(static_cast<double>(luz(l, c)), 0.0);
      const double desvio = std::sqrt(ruido * ruido + fotons * claro);
      const double cinza = std::floor(claro + desvio * s.normalRapida() + 0.5);
      saida(l, c) = static_cast<unsigned char>(std::clamp(cinza, 0.0, 255.0));
    }
  }
  return saida;
}

cv::Mat_<unsigned char> comprime(const cv::Mat_<unsigned char>& foto, int qualidade) {
  std::vector<unsigned char> bytes;
  cv::imencode(".jpg", foto, bytes, {cv::IMWRITE_JPEG_QUALITY, qualidade});
  return cv::imdecode(bytes, cv::IMREAD_GRAYSCALE);
}

}  // namespace

cv::Mat_<unsigned char> fotografa(const cv::Mat_<float>& cena, const CAMERA& camera, SORTEIO& s) {
  const cv::Mat_<float> iluminada = ilumina(cena, camera, s);
  const cv::Mat_<float> vista = desfoca(iluminada, camera.desfoque.sorteia(s));
  const cv::Mat_<unsigned char> foto = revela(vista, camera, s);
  const int qualidade = static_cast<int>(camera.jpeg.sorteia(s));
  return qualidade > 0 ? comprime(foto, qualidade) : foto;
}

}  // namespace cenas
