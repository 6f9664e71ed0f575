#include <algorithm>
#include <array>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>
#include <string_view>

#include "pim/modulo/formatos.h"
#include "pim/modulo/silencio.h"
#include "pim/oitobits.h"

namespace pim {
namespace {

bool ehJpeg(const std::vector<unsigned char>& bytes) {
  return bytes.size() > 2 && bytes[0] == 0xFF && bytes[1] == 0xD8 && bytes[2] == 0xFF;
}

// Whether the file begins as one of the formats that photographs come in. The library knows more,
// such as the medical one with a mark at byte 128, whose reader ends the process on damaged files.
bool ehFormatoUsual(const std::vector<unsigned char>& bytes) {
  constexpr std::string_view marcaMedica = "DICM";
  if (bytes.size() >= 132 && std::equal(marcaMedica.begin(), marcaMedica.end(), &bytes[128])) {
    return false;
  }
  using std::string_view_literals::operator""sv;
  constexpr std::array comecos = {
      "\x89PNG"sv, "\xFF\xD8\xFF"sv,     "II*\0"sv,         "MM\0*"sv, "II+\0"sv, "MM\0+"sv, "BM"sv,
      "RIFF"sv,    "\xFF\x4F\xFF\x51"sv, "\0\0\0\x0CjP  "sv};
  const std::string_view inicio(reinterpret_cast<const char*>(bytes.data()),
                                std::min<std::size_t>(bytes.size(), 8));
  const bool pnm = inicio.size() > 1 && inicio[0] == 'P' &&
                   std::string_view("1234567Ff").find(inicio[1]) != std::string_view::npos;
  return pnm || std::any_of(comecos.begin(), comecos.end(), [inicio](std::string_view comeco) {
           return inicio.starts_with(comeco);
         });
}

// Whether the JPEG library complained of coded data that it could not follow: it goes on with grey.
// Its other warnings are about harmless things, such as stray bytes between segments.
bool jpegCorrompido(const std::string& dito) {
  constexpr std::array<std::string_view, 5> queixas = {
      "premature end of data segment", "bad Huffman code", "bad arithmetic code", "instead of RST",
      "Premature end of JPEG file"};
  return std::any_of(queixas.begin(), queixas.end(), [&dito](std::string_view queixa) {
    return dito.find(queixa) != std::string::npos;
  });
}

}  // namespace

bool jpegInteiro(const std::vector<unsigned char>& bytes) {
  std::size_t i = 2;
  while (i + 1 < bytes.size()) {
    const unsigned char marca = bytes[i + 1];
    const bool reinicio = marca >= 0xD0 && marca <= 0xD7;
    if (bytes[i] != 0xFF || marca == 0x00 || marca == 0x01 || marca == 0xFF || reinicio) {
      ++i;  // coded data, stuffing, fill bytes or a restart
    } else if (marca == 0xD9) {
      return true;
    } else {
      if (i + 3 >= bytes.size()) return false;
      i += 2 + (std::size_t{bytes[i + 2]} << 8U) + bytes[i + 3];
    }
  }
  return false;
}

bool reconheceImagem(const std::string& nome) {
  const SILENCIO silencio;
  return cv::haveImageReader(nome);
}

RESULTADO decodificaImagem(const std::vector<unsigned char>& bytes) {
  return decodificaAte(bytes, maiorCodificada);
}

RESULTADO decodificaAte(const std::vector<unsigned char>& bytes, std::size_t maior) {
  const SILENCIO silencio;
  if (bytes.empty()) return {{}, "arquivo vazio"};
  if (bytes.size() > maior) return {{}, "arquivo grande demais para este formato"};
  if (!ehFormatoUsual(bytes)) return {{}, "nao e' uma imagem legivel"};
  const bool jpeg = ehJpeg(bytes);
  if (jpeg && !jpegInteiro(bytes)) return {{}, "arquivo incompleto"};
  try {
    // Only with a requested colour layout does the library turn a JPEG upright.
    const int modo = jpeg ? cv::IMREAD_ANYCOLOR : cv::IMREAD_UNCHANGED;
    const cv::Mat img = cv::imdecode(bytes, modo);
    const bool serve = !img.empty() && img.channels() != 2 && img.channels() <= 4;
    if (!serve) return {{}, "nao e' uma imagem legivel"};
    if (jpeg && jpegCorrompido(silencio.dito())) return {{}, "dados corrompidos"};
    return {para8BitsSemAlfa(img), ""};
  } catch (const cv::Exception& e) {
    return {{}, e.err};
  }
}

bool codificaImagem(const std::string& tipo, const cv::Mat& img,
                    std::vector<unsigned char>& bytes) {
  const SILENCIO silencio;
  std::vector<int> opcoes;
  if (tipo == "tiff" && img.depth() == CV_32F) {
    constexpr int semCompressao = 1;  // COMPRESSION_NONE of the TIFF specification
    opcoes = {cv::IMWRITE_TIFF_COMPRESSION, semCompressao};
  }
  try {
    return cv::imencode("." + tipo, img, bytes, opcoes);
  } catch (const cv::Exception&) {
    return false;
  }
}

}  // namespace pim
