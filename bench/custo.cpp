#include "bench/custo.h"

#include <chrono>
#include <fstream>
#include <opencv2/core.hpp>
#include <random>

#include "bench/corridas.h"
#include "detect/correlacao.h"
#include "detect/maximos.h"
#include "detect/piramide.h"
#include "kernels/grupos.h"
#include "kernels/lekernels.h"

namespace {

// Noise over squares of several levels; the cost of the search does not depend on the picture.
PIRAMIDE fotografia(int rows, int cols) {
  std::mt19937 g(3);
  cv::Mat_<float> imagem(rows, cols);
  for (int l = 0; l < rows; ++l) {
    for (int c = 0; c < cols; ++c) {
      const int nivel = static_cast<int>(g() % 64) + (l / 29 + c / 37) % 4 * 48;
      imagem(l, c) = static_cast<float>(nivel * 0.00392156862745098);
    }
  }
  PIRAMIDE piramide;
  constroiPiramide(piramide, imagem, 4);
  return piramide;
}

CUSTO mede(const std::string& trabalho, const PIRAMIDE& piramide, const std::string& texto) {
  std::ofstream("custo.cfg") << texto << '\n';
  std::vector<MASCARA> kernels;
  leKernels("custo.cfg", kernels);
  const auto inicio = std::chrono::steady_clock::now();
  const NIVEIS niveis = preparaNiveis(piramide);
  MELHORCORREL melhor;
  MELHORKERNEL qual;
  for (const auto& [primeiro, ultimo] : kernels::grupos(kernels)) {
    correlaGrupo(niveis, kernels, primeiro, ultimo, melhor, qual);
    std::vector<MAXLOCAL> maximos;
    findMaxLocal(melhor, qual, kernels, maximos, 0.5);
  }
  const std::chrono::duration<double> tempo = std::chrono::steady_clock::now() - inicio;
  const double porKernel =
      static_cast<double>(piramide[0].total()) * static_cast<double>(kernels.size());
  return {trabalho, tempo.count(), tempo.count() / porKernel * 1e9};
}

}  // namespace

std::vector<CUSTO> medeCustos() {
  const std::string poucos = "passoang 60 retangulo 30 12";  // 18 kernels
  std::vector<CUSTO> custos;
  custos.push_back(mede("3 MP, 18 kernels", fotografia(1500, 2000), poucos));
  custos.push_back(mede("12 MP, 18 kernels", fotografia(3000, 4000), poucos));
  custos.push_back(mede("48 MP, 18 kernels", fotografia(6000, 8000), poucos));
  const PIRAMIDE pequena = fotografia(1000, 1000);
  const auto bancoDe = [](const char* passo) {
    return std::string("escoitava 9 passoang ") + passo + " retangulo 30 12";
  };
  custos.push_back(mede("1 MP, 10 kernels", pequena, bancoDe("180")));
  custos.push_back(mede("1 MP, 100 kernels", pequena, bancoDe("18")));
  custos.push_back(mede("1 MP, 1000 kernels", pequena, bancoDe("1.8")));
  return custos;
}

double bytesPorPixel(const std::string& cena, double pixels) {
  std::ofstream("custo.cfg") << "circulo 21 retangulo 30 12\n";
  const CORRIDA r = corre({"Vorplex", "correla", cena, "custo.cfg", "custo.ho1", "0.3"});
  return r.megabytes * 1048576 / pixels;
}
