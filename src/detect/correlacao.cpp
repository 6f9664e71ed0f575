#include "detect/correlacao.h"

void correlaPiramide(const PIRAMIDE& piramide, const cv::Mat_<float>& kernel,
                     std::vector<cv::Mat_<float>>& saida, int ultimo) {
  saida.resize(piramide.size());
  for (std::size_t L = 0; L < piramide.size(); ++L) saida[L].create(piramide[L].size());
  for (std::size_t L = 0; static_cast<int>(L) <= ultimo; ++L) {
    motor::filtra(piramide[L], kernel, saida[L]);
  }
}

NIVEIS preparaNiveis(const PIRAMIDE& piramide) {
  NIVEIS niveis;
  for (const cv::Mat_<float>& imagem : piramide) niveis.push_back(motor::preparaNivel(imagem));
  return niveis;
}

void correlaGrupo(const NIVEIS& niveis, const std::vector<MASCARA>& kernels, int primeiro,
                  int ultimo, MELHORCORREL& melhorCorrel, MELHORKERNEL& melhorKernel,
                  const pim::PAUSA& pausa) {
  melhorCorrel.resize(niveis.size());
  melhorKernel.resize(niveis.size());
  const auto grupo = motor::preparaGrupo(kernels, primeiro, ultimo, pausa);
  for (std::size_t L = 0; L < niveis.size(); ++L) {
    motor::correlaNivel(*niveis[L], static_cast<int>(L), *grupo, melhorCorrel[L], melhorKernel[L],
                        pausa);
  }
}

void correlaGrupo(const PIRAMIDE& piramide, const std::vector<MASCARA>& kernels, int primeiro,
                  int ultimo, MELHORCORREL& melhorCorrel, MELHORKERNEL& melhorKernel) {
  correlaGrupo(preparaNiveis(piramide), kernels, primeiro, ultimo, melhorCorrel, melhorKernel);
}
