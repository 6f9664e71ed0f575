#include <matio.h>

#include <cmath>
#include <memory>
#include <span>

#include "pim/modulo/formatos.h"
#include "pim/modulo/mat5.h"
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

}  // namespace

RESULTADO leArquivoMat(const std::string& nome) {
  const SILENCIO silencio;
  const std::unique_ptr<mat_t, FECHAMAT> mat(Mat_Open(nome.c_str(), MAT_ACC_RDONLY));
  if (!mat) return {{}, "nao e' uma imagem nem um MAT-file"};
  if (!mat5Inteiro(nome)) return {{}, "MAT-file incompleto"};
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
