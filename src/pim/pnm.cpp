#include "pim/pnm.h"

#include <cstdint>
#include <cstdio>
#include <opencv2/imgproc.hpp>
#include <optional>

#include "pim/arquivo.h"
#include "pim/texto.h"

namespace pim {
namespace {

struct CABECALHO {
  int tipo = 0;  // the digit after the P
  int cols = 0;
  int rows = 0;
  unsigned maximo = 1;

  bool texto() const { return tipo <= 3; }
  bool bits() const { return tipo == 1 || tipo == 4; }
  int canais() const { return tipo % 3 == 0 ? 3 : 1; }
  std::size_t amostrasPorLinha() const {
    return static_cast<std::size_t>(cols) * static_cast<std::size_t>(canais());
  }
  std::size_t bytesPorLinha() const {  // binary files
    if (bits()) return (static_cast<std::size_t>(cols) + 7) / 8;
    return amostrasPorLinha() * (maximo > 255 ? 2 : 1);
  }
};

// A reading position in the bytes of the file.
struct CURSOR {
  const std::vector<unsigned char>& bytes;
  std::size_t pos;

  bool fim() const { return pos >= bytes.size(); }

  void pulaEspacosEComentarios() {
    while (!fim() && (espaco(bytes[pos]) || bytes[pos] == '#')) {
      if (bytes[pos] == '#') {
        while (!fim() && bytes[pos] != '\n') ++pos;
      } else {
        ++pos;
      }
    }
  }

  // A decimal number of at most `maior`; nothing when there is none.
  std::optional<unsigned> numero(unsigned maior) {
    pulaEspacosEComentarios();
    std::uint64_t valor = 0;
    const std::size_t inicio = pos;
    for (; !fim() && bytes[pos] >= '0' && bytes[pos] <= '9'; ++pos) {
      valor = valor * 10 + (bytes[pos] - std::uint64_t{'0'});
      if (valor > maior) return std::nullopt;
    }
    if (pos == inicio) return std::nullopt;
    return static_cast<unsigned>(valor);
  }

  // A sample of a text bitmap is one digit, with or without blanks around it.
  std::optional<unsigned> bit() {
    pulaEspacosEComentarios();
    if (fim() || (bytes[pos] != '0' && bytes[pos] != '1')) return std::nullopt;
    return bytes[pos++] - unsigned{'0'};
  }
};

constexpr unsigned maiorLado = 1U << 20U;
constexpr std::size_t maximoDePixels = std::size_t{1} << 30U;

// Reads the header; `cursor` is left on the first byte of the pixels. Returns the reason of a
// failure, or an empty text.
std::string leCabecalho(CURSOR& cursor, CABECALHO& cab) {
  const auto cols = cursor.numero(maiorLado);
  const auto rows = cols ? cursor.numero(maiorLado) : std::nullopt;
  const auto maximo = !rows ? std::nullopt : cab.bits() ? 1 : cursor.numero(65535);
  if (!maximo || *maximo == 0 || *cols == 0 || *rows == 0) return "cabecalho invalido";
  cab.cols = static_cast<int>(*cols);
  cab.rows = static_cast<int>(*rows);
  cab.maximo = *maximo;
  if (std::size_t{*cols} * *rows > maximoDePixels) return "imagem grande demais";
  if (!cab.texto()) ++cursor.pos;  // a single white-space character ends the header

  const std::size_t restam = cursor.fim() ? 0 : cursor.bytes.size() - cursor.pos;
  const std::size_t minimo = cab.texto() ? cab.amostrasPorLinha() : cab.bytesPorLinha();
  if (restam / static_cast<std::size_t>(cab.rows) < minimo) return "arquivo incompleto";
  return "";
}

// 255 v / maximo, rounded to nearest.
unsigned char para8Bits(unsigned v, unsigned maximo) {
  return static_cast<unsigned char>((v * 255U + maximo / 2) / maximo);
}

std::string leTexto(CURSOR& cursor, const CABECALHO& cab, cv::Mat& img) {
  const std::size_t n = cab.amostrasPorLinha();
  for (int l = 0; l < cab.rows; ++l) {
    unsigned char* linha = img.ptr(l);
    for (std::size_t i = 0; i < n; ++i) {
      const auto v = cab.bits() ? cursor.bit() : cursor.numero(cab.maximo);
      if (!v) return cursor.fim() ? "arquivo incompleto" : "amostra invalida";
      linha[i] =
          cab.bits() ? static_cast<unsigned char>(255 * (1 - *v)) : para8Bits(*v, cab.maximo);
    }
  }
  return "";
}

std::string leBinario(const CURSOR& cursor, const CABECALHO& cab, cv::Mat& img) {
  const std::size_t n = cab.amostrasPorLinha();
  const unsigned char* origem = cursor.bytes.data() + cursor.pos;
  for (int l = 0; l < cab.rows; ++l, origem += cab.bytesPorLinha()) {
    unsigned char* linha = img.ptr(l);
    for (std::size_t i = 0; i < n; ++i) {
      if (cab.bits()) {
        const unsigned bit = (unsigned{origem[i / 8]} >> (7 - i % 8)) & 1U;
        linha[i] = bit != 0 ? 0 : 255;  // a set bit is black
        continue;
      }
      const unsigned v =
          cab.maximo > 255 ? (unsigned{origem[2 * i]} << 8U) | origem[2 * i + 1] : origem[i];
      if (v > cab.maximo) return "amostra invalida";
      linha[i] = para8Bits(v, cab.maximo);
    }
  }
  return "";
}

}  // namespace

bool ehPnm(const std::vector<unsigned char>& bytes) {
  return bytes.size() >= 3 && bytes[0] == 'P' && bytes[1] >= '1' && bytes[1] <= '6' &&
         (espaco(bytes[2]) || bytes[2] == '#');
}

RESULTADO decodificaPnm(const std::vector<unsigned char>& bytes) {
  CURSOR cursor{bytes, 2};
  CABECALHO cab;
  cab.tipo = bytes[1] - '0';
  std::string falha = leCabecalho(cursor, cab);
  if (!falha.empty()) return {{}, falha};
  cv::Mat img(cab.rows, cab.cols, CV_8UC(cab.canais()));
  falha = cab.texto() ? leTexto(cursor, cab, img) : leBinario(cursor, cab, img);
  if (!falha.empty()) return {{}, falha};
  if (cab.canais() == 3) cv::cvtColor(img, img, cv::COLOR_RGB2BGR);
  return {img, ""};
}

void gravaPnm(const cv::Mat& img, const std::string& nome) {
  ARQUIVO arquivo = abre(nome, "wb");
  std::fprintf(arquivo.get(), "P%d\n%d %d\n255\n", img.channels() == 1 ? 5 : 6, img.cols, img.rows);
  cv::Mat rgb;  // pixels of its own: the image written stays as it is
  for (int l = 0; l < img.rows; ++l) {
    if (img.channels() == 3) cv::cvtColor(img.row(l), rgb, cv::COLOR_BGR2RGB);
    const unsigned char* linha = img.channels() == 3 ? rgb.data : img.ptr(l);
    std::fwrite(linha, img.elemSize(), static_cast<std::size_t>(img.cols), arquivo.get());
  }
  fechaEscrita(std::move(arquivo), nome);
}

}  // namespace pim
