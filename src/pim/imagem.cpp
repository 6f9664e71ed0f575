#include "pim/imagem.h"

#include <filesystem>
#include <opencv2/imgproc.hpp>
#include <string_view>
#include <vector>

#include "pim/arquivo.h"
#include "pim/codecs.h"
#include "pim/erro.h"
#include "pim/pnm.h"
#include "pim/texto.h"

namespace pim {
namespace {

using BYTES = std::vector<unsigned char>;

bool comecaCom(const BYTES& bytes, std::string_view marca) {
  return bytes.size() >= marca.size() && std::equal(marca.begin(), marca.end(), bytes.begin());
}

// A MAT-file is read again by its name, which a pipe doesn't allow.
RESULTADO leMat(const std::string& nome) {
  if (!std::filesystem::is_regular_file(nome)) return {{}, "MAT-file precisa ser arquivo comum"};
  return codecs().leMat(nome);
}

// The image as its file holds it: 1 or 3 channels of 8 bits.
cv::Mat leComoEsta(const std::string& nome) {
  const BYTES bytes = leBytes(nome);
  RESULTADO lido;
  if (ehPnm(bytes)) {
    lido = decodificaPnm(bytes);
  } else if (comecaCom(bytes, "MATLAB")) {
    lido = leMat(nome);
  } else {
    lido = codecs().decodifica(bytes);
    // The oldest MAT-files carry no mark of their own.
    if (!lido.erro.empty() && minuscula(sufixo(nome)) == "mat") lido = leMat(nome);
  }
  if (!lido.erro.empty()) erro("Erro leitura imagem ", nome, ": " + lido.erro);
  return lido.imagem;
}

cv::Mat emCanais(const cv::Mat& img, int canais) {
  if (img.channels() == canais) return img;
  cv::Mat convertida;
  cv::cvtColor(img, convertida, canais == 1 ? cv::COLOR_BGR2GRAY : cv::COLOR_GRAY2BGR);
  return convertida;
}

void grava(const cv::Mat& img, const std::string& nome) {
  if (img.empty()) erro("Erro: Imagem vazia ", nome);
  const std::string tipo = minuscula(sufixo(nome));
  if (tipo == "pgm") return gravaPnm(emCanais(img, 1), nome);
  if (tipo == "ppm") return gravaPnm(emCanais(img, 3), nome);
  if (tipo == "pnm") return gravaPnm(img, nome);
  BYTES bytes;
  if (!codecs().codifica(tipo, img, bytes)) {
    erro("Erro: Formato de imagem desconhecido ", nome);
  }
  gravaBytes(nome, bytes);
}

}  // namespace

void le(cv::Mat_<unsigned char>& img, const std::string& nome) {
  img = emCanais(leComoEsta(nome), 1);
}

void le(cv::Mat_<VEC3B>& img, const std::string& nome) {
  img = emCanais(leComoEsta(nome), 3);
}

void imp(const cv::Mat_<unsigned char>& img, const std::string& nome) {
  grava(img, nome);
}

void imp(const cv::Mat_<VEC3B>& img, const std::string& nome) {
  grava(img, nome);
}

void imp(const cv::Mat_<float>& img, const std::string& nome) {
  const std::string tipo = minuscula(sufixo(nome));
  if (img.empty()) erro("Erro: Imagem vazia ", nome);
  BYTES bytes;
  const bool conhecido = tipo == "img" || tipo == "tif" || tipo == "tiff";
  if (!conhecido || !codecs().codifica("tiff", img, bytes)) {
    erro("Erro: Formato de imagem desconhecido ", nome);
  }
  gravaBytes(nome, bytes);
}

}  // namespace pim
