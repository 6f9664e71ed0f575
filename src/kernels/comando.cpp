#include "kernels/comando.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "kernels/grupos.h"
#include "kernels/lekernels.h"
#include "pim/erro.h"
#include "pim/gruda.h"
#include "pim/imagem.h"

namespace {

void listaTodos(const std::vector<MASCARA>& kernels) {
  std::printf("Numero de kernels=%u\n", static_cast<unsigned>(kernels.size()));
  for (const MASCARA& m : kernels) {
    std::printf("forma=%c d1=%g d2=%g ang=%g", m.forma, m.d1, m.d2, m.ang);
    std::printf(" esc=%g escPir=%g sPir=%d inic=%d\n", m.esc, m.escPir, m.sPir, m.inic);
  }
}

// The mosaic is no larger than the images that the program reads.
constexpr std::int64_t maiorLadoDoMosaico = 1 << 20;
constexpr std::int64_t maximoDoMosaico = 1 << 30;

// Each group of kernels is a column of the mosaic.
void exigeQueCaiba(const std::vector<MASCARA>& conjunto, const std::vector<kernels::GRUPO>& colunas,
                   const std::string& nome) {
  std::int64_t rows = 0;
  std::int64_t cols = -1;
  for (const kernels::GRUPO& coluna : colunas) {
    std::int64_t altura = -1;
    std::int64_t largura = 0;
    for (int i = coluna.primeiro; i <= coluna.ultimo; ++i) {
      const int lado = kernels::ladoDaImagem(conjunto[static_cast<std::size_t>(i)].molde);
      altura += lado + 1;
      largura = std::max<std::int64_t>(largura, lado);
    }
    rows = std::max(rows, altura);
    cols += largura + 1;
  }
  const bool cabe = rows <= maiorLadoDoMosaico && cols <= maiorLadoDoMosaico;
  if (!cabe || rows * cols > maximoDoMosaico) {
    pim::erro("Erro: Mosaico grande demais ", nome,
              " (" + std::to_string(cols) + " x " + std::to_string(rows) + " pixels)");
  }
}

// Joins items `de` to `ate`, the last excluded, by halves: adding them one by one would copy the
// first ones over and over. The result is the same, since every side met on the way is odd and is
// centred exactly.
template <class ITEM, class JUNTA>
cv::Mat_<unsigned char> juntaMetades(int de, int ate, ITEM item, JUNTA junta) {
  if (ate - de == 1) return item(static_cast<std::size_t>(de));
  const int meio = de + (ate - de) / 2;
  return junta(juntaMetades(de, meio, item, junta), juntaMetades(meio, ate, item, junta), 1, 0);
}

cv::Mat_<unsigned char> mosaico(const std::vector<MASCARA>& conjunto, const std::string& nome) {
  const std::vector<kernels::GRUPO> colunas = kernels::grupos(conjunto);
  if (colunas.empty()) return {};
  exigeQueCaiba(conjunto, colunas, nome);
  const auto cinza = [&](std::size_t i) {
    cv::Mat_<unsigned char> G;
    kernelParaCinza(kernels::imagemDoKernel(conjunto[i]), G);
    return G;
  };
  const auto coluna = [&](std::size_t k) {
    return juntaMetades(colunas[k].primeiro, colunas[k].ultimo + 1, cinza, pim::grudaV);
  };
  return juntaMetades(0, static_cast<int>(colunas.size()), coluna, pim::grudaH);
}

}  // namespace

void kernelParaCinza(const cv::Mat_<float>& K, cv::Mat_<unsigned char>& G) {
  G.create(K.size());
  for (int l = 0; l < K.rows; ++l) {
    const float* origem = K[l];
    unsigned char* destino = G[l];
    for (int c = 0; c < K.cols; ++c) {
      destino[c] = origem[c] < 0 ? 0 : origem[c] > 0 ? 255 : 128;
    }
  }
}

void Kernel(int argc, char** argv) {
  if (argc != 3) {
    std::puts("Kernel kernel.cfg kernel.pgm");
    pim::erro("Erro: Numero de argumentos invalido");
  }
  std::vector<MASCARA> kernels;
  leKernels(argv[1], kernels, IMAGENS::nenhuma);
  listaTodos(kernels);
  pim::imp(mosaico(kernels, argv[2]), argv[2]);
}
