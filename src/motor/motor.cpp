#include "motor/motor.h"

#include "motor/caminho.h"

namespace motor {

// Levels made with the former are whole numbers of the latter.
static_assert(1 / unidadeDeBytes == valorDoByte);

std::shared_ptr<const NIVEL> preparaNivel(const cv::Mat_<float>& imagem) {
  return std::make_shared<const NIVEL>(representa(imagem));
}

std::shared_ptr<const GRUPO> preparaGrupo(const std::vector<MASCARA>& kernels, int primeiro,
                                          int ultimo, const pim::PAUSA& pausa) {
  return std::make_shared<const GRUPO>(esquematiza(kernels, primeiro, ultimo, pausa));
}

void correlaNivel(const NIVEL& nivel, int L, const GRUPO& grupo, cv::Mat_<float>& melhor,
                  cv::Mat_<int>& qual, const pim::PAUSA& pausa) {
  correlaCom(avaliadores().front(), nivel, L, grupo, melhor, qual, pausa);
}

}  // namespace motor
