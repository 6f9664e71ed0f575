#include <matio.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <memory>
#include <span>
#include <string_view>

#include "pim/modulo/formatos.h"
#include "pim/modulo/silencio.h"

namespace pim {
namespace {

struct FECHAMAT {
  void operator()(mat_t* mat) const { Mat_Close(mat); }
};
struct LIBERAVAR {
  void operator()(matvar_t* var) const { Mat_VarFree(var); }
};
using VARIAVEL = std::unique_ptr<matvar_t, LIBERAVAR>;

bool ehMatrizReal(const matvar_t& var) {
  const bool numerica = var.class_type >= MAT_C_DOUBLE && var.class_type <= MAT_C_UINT64;
  return numerica && var.rank == 2 && var.isComplex == 0;
}

// Copies a column-major array to row-major bytes; false at an element that is no byte.
template <class T>
bool copia(const matvar_t& var, cv::Mat_<unsigned char>& img) {
  const auto n = static_cast<std::size_t>(img.rows) * static_cast<std::size_t>(img.cols);
  const std::span dados(static_cast<const T*>(var.data), n);
  std::size_t k = 0;
  for (int c = 0; c < img.cols; ++c) {
    for (int l = 0; l < img.rows; ++l, ++k) {
      const auto v = static_cast<double>(dados[k]);
      if (!(v >= 0 && v <= 255) || v != std::floor(v)) return false;
      img(l, c) = static_cast<unsigned char>(v);
    }
  }
  return true;
}

bool copiaSegundoTipo(const matvar_t& var, cv::Mat_<unsigned char>& img) {
  switch (var.class_type) {
    case MAT_C_DOUBLE:
      return copia<double>(var, img);
    case MAT_C_SINGLE:
      return copia<float>(var, img);
    case MAT_C_INT8:
      return copia<mat_int8_t>(var, img);
    case MAT_C_UINT8:
      return copia<mat_uint8_t>(var, img);
    case MAT_C_INT16:
      return copia<mat_int16_t>(var, img);
    case MAT_C_UINT16:
      return copia<mat_uint16_t>(var, img);
    case MAT_C_INT32:
      return copia<mat_int32_t>(var, img);
    case MAT_C_UINT32:
      return copia<mat_uint32_t>(var, img);
    case MAT_C_INT64:
      return copia<mat_int64_t>(var, img);
    case MAT_C_UINT64:
      return copia<mat_uint64_t>(var, img);
    default:
      return false;
  }
}

// Whether every element of a MAT-file of version 5 ends inside the file; other versions are passed.
// The library itself takes what is missing from a cut file for data.
bool elementosInteiros(const std::string& nome) {
  constexpr std::size_t cabecalho = 128;  // bytes; version and byte order are the last four
  constexpr std::size_t etiqueta = 8;     // type and size of an element, 32 bits each
  std::ifstream arquivo(nome, std::ios::binary | std::ios::ate);
  const auto total = static_cast<std::size_t>(std::max<std::streamoff>(arquivo.tellg(), 0));
  std::array<char, etiqueta> lida{};
  const auto le = [&](std::size_t posicao, std::size_t n) {
    arquivo.seekg(static_cast<std::streamoff>(posicao));
    return !!arquivo.read(lida.data(), static_cast<std::streamsize>(n));
  };
  if (total < cabecalho || !le(cabecalho - 4, 4)) return true;
  const std::string_view marca(lida.data(), 4);
  const bool little = marca == std::string_view("\0\1IM", 4);
  if (!little && marca != std::string_view("\1\0MI", 4)) return true;

  std::size_t posicao = cabecalho;
  while (posicao < total) {
    if (!le(posicao, etiqueta)) return false;
    std::size_t tamanho = 0;
    for (std::size_t k = 0; k < 4; ++k) {
      tamanho = tamanho << 8U | static_cast<unsigned char>(lida[little ? 7 - k : 4 + k]);
    }
    posicao += etiqueta + tamanho;
  }
  return posicao == total;
}

}  // namespace

RESULTADO leArquivoMat(const std::string& nome) {
  const SILENCIO silencio;
  const std::unique_ptr<mat_t, FECHAMAT> mat(Mat_Open(nome.c_str(), MAT_ACC_RDONLY));
  if (!mat) return {{}, "nao e' uma imagem nem um MAT-file"};
  if (!elementosInteiros(nome)) return {{}, "MAT-file incompleto"};
  VARIAVEL var;
  do {
    var.reset(Mat_VarReadNextInfo(mat.get()));
  } while (var && !ehMatrizReal(*var));
  if (!var) return {{}, "MAT-file sem matriz numerica de duas dimensoes"};

  constexpr std::size_t maiorLado = 1U << 20U;
  constexpr std::size_t maximoDeElementos = std::size_t{1} << 27U;
  const std::size_t rows = var->dims[0];
  const std::size_t cols = var->dims[1];
  const bool cabe = rows <= maiorLado && cols <= maiorLado && rows * cols <= maximoDeElementos;
  if (!cabe) return {{}, "matriz grande demais"};
  if (rows * cols == 0) return {{}, "matriz vazia"};
  if (Mat_VarReadDataAll(mat.get(), var.get()) != 0 || var->data == nullptr) {
    return {{}, "MAT-file incompleto"};
  }
  cv::Mat_<unsigned char> img(static_cast<int>(rows), static_cast<int>(cols));
  if (!copiaSegundoTipo(*var, img)) return {{}, "elemento fora de 0 a 255"};
  return {img, ""};
}

}  // namespace pim
