#include "pim/imagem.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <opencv2/imgproc.hpp>
#include <optional>
#include <string_view>
#include <system_error>
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

constexpr const char* ilegivel = "nao e' uma imagem legivel";

// A large file that is no image is told by its first bytes, before it fills the memory. Nothing is
// returned for a file worth reading.
std::optional<RESULTADO> recusaGrande(const std::string& nome) {
  constexpr std::uintmax_t grande = 256U << 20U;  // bytes
  std::error_code falha;
  const bool comum = std::filesystem::is_regular_file(nome, falha);
  if (!comum || std::filesystem::file_size(nome, falha) <= grande || falha) return std::nullopt;
  BYTES inicio(16);
  const ARQUIVO arquivo = abre(nome, "rb");
  inicio.resize(std::fread(inicio.data(), 1, inicio.size(), arquivo.get()));
  if (ehPnm(inicio) || codecs().reconhece(nome)) return std::nullopt;
  const bool mat = comecaCom(inicio, "MATLAB") || minuscula(sufixo(nome)) == "mat";
  return mat ? leMat(nome) : RESULTADO{{}, ilegivel};
}

RESULTADO decodifica(const BYTES& bytes, const std::string& nome) {
  if (ehPnm(bytes)) return decodificaPnm(bytes);
  if (comecaCom(bytes, "MATLAB")) return leMat(nome);
  RESULTADO lido = codecs().decodifica(bytes);
  // The oldest MAT-files carry no mark of their own.
  const bool mat = !lido.erro.empty() && !bytes.empty() && minuscula(sufixo(nome)) == "mat";
  return mat ? leMat(nome) : lido;
}

// The image as its file holds it: 1 or 3 channels of 8 bits.
cv::Mat leComoEsta(const std::string& nome) {
  const std::optional<RESULTADO> recusada = recusaGrande(nome);
  const RESULTADO lido = recusada ? *recusada : decodifica(leBytes(nome), nome);
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
    // A format that holds a single pixel is known; only this image is too much for it.
    const bool conhecido = codecs().codifica(tipo, cv::Mat::zeros(1, 1, img.type()), bytes);
    erro(conhecido ? "Erro: Imagem nao cabe no formato de "
                   : "Erro: Formato de imagem desconhecido ",
         nome);
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
