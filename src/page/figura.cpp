#include "page/figura.h"

#include <turbojpeg.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <opencv2/imgproc.hpp>

#include "pim/arquivo.h"
#include "pim/erro.h"
#include "pim/imagem.h"

namespace page {
namespace {

struct SOLTA {
  void operator()(void* h) const { tjDestroy(h); }
  void operator()(unsigned char* p) const { tjFree(p); }
};

constexpr const char* miniatura = ".mini";
constexpr int qualidadeDaMiniatura = 75;

// `lado` of a picture whose longer side shrinks from `de` to `para`.
int encolhe(int lado, int de, int para) {
  return std::max(1, pim::arredonda(static_cast<double>(lado) * para / de));
}

}  // namespace

cv::Mat_<pim::VEC3B> reduz(const cv::Mat_<pim::VEC3B>& img, int lado) {
  const int maior = std::max(img.rows, img.cols);
  if (maior <= lado) return img;
  cv::Mat_<pim::VEC3B> menor;
  const cv::Size tamanho(encolhe(img.cols, maior, lado), encolhe(img.rows, maior, lado));
  cv::resize(img, menor, tamanho, 0, 0, cv::INTER_AREA);
  return menor;
}

std::vector<unsigned char> emJpeg(const cv::Mat_<pim::VEC3B>& img, int qualidade) {
  if (img.empty()) pim::erro("Erro: Imagem vazia");
  const std::unique_ptr<void, SOLTA> codificador(tjInitCompress());
  unsigned char* destino = nullptr;
  unsigned long quantos = 0;
  const bool falha =
      codificador == nullptr ||
      tjCompress2(codificador.get(), img.ptr(), img.cols, static_cast<int>(img.step[0]), img.rows,
                  TJPF_BGR, &destino, &quantos, TJSAMP_420, qualidade, TJFLAG_ACCURATEDCT) != 0;
  const std::unique_ptr<unsigned char, SOLTA> dono(destino);
  if (falha) pim::erro("Erro: JPEG: ", tjGetErrorStr2(codificador.get()));
  return {destino, destino + quantos};
}

std::vector<unsigned char> emJpegAte(const cv::Mat_<pim::VEC3B>& img, std::size_t limite) {
  constexpr int menorLado = 200;
  std::vector<unsigned char> bytes;
  for (int lado = ladoDaFigura; lado >= menorLado; lado = lado * 3 / 4) {
    const cv::Mat_<pim::VEC3B> reduzida = reduz(img, lado);
    for (const int qualidade : {80, 65, 50}) {
      bytes = emJpeg(reduzida, qualidade);
      if (bytes.size() <= limite) return bytes;
    }
  }
  return bytes;
}

void impFigura(const std::string& arquivo, std::size_t limite, const std::string& nome) {
  cv::Mat_<pim::VEC3B> img;
  pim::le(img, arquivo);
  pim::gravaBytes(nome + miniatura, emJpeg(reduz(img, ladoDaMiniatura), qualidadeDaMiniatura));
  pim::gravaBytes(nome, emJpegAte(img, limite));
}

FIGURA leFigura(const std::string& nome) {
  return {pim::leBytes(nome), pim::leBytes(nome + miniatura)};
}

FIGURA figuraVazia(cv::Size tamanho) {
  const int maior = std::max({tamanho.width, tamanho.height, 1});
  const auto cinza = [&](int lado) {
    const int para = std::min(lado, maior);
    const cv::Mat_<pim::VEC3B> img(encolhe(tamanho.height, maior, para),
                                   encolhe(tamanho.width, maior, para), pim::VEC3B(208, 208, 208));
    return emJpeg(img, qualidadeDaMiniatura);
  };
  return {cinza(ladoDaFigura), cinza(ladoDaMiniatura)};
}

std::size_t limiteDaFigura(std::size_t fotos) {
  constexpr std::size_t todas = 26'000'000;  // 35 MB in base64
  constexpr std::size_t minimo = 20'000;
  return std::max(todas / std::max<std::size_t>(fotos, 1), minimo);
}

std::string emBase64(const std::vector<unsigned char>& bytes) {
  constexpr const char* digitos =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string s;
  s.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t ha = std::min<std::size_t>(bytes.size() - i, 3);
    unsigned grupo = 0;
    for (std::size_t k = 0; k < 3; ++k) grupo = grupo << 8U | (k < ha ? bytes[i + k] : 0U);
    for (std::size_t k = 0; k < 4; ++k) {
      s += k <= ha ? digitos[grupo >> (18 - 6 * k) & 63U] : '=';
    }
  }
  return s;
}

}  // namespace page
