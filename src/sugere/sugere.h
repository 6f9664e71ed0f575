#pragma once

#include <cstddef>
#include <functional>
#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "refine/apura.h"
#include "sugere/escolha.h"

namespace sugere {

struct PEDIDO {
  std::optional<bool> inverte;  // bright grains on dark ground, when that is known
  refine::MODO_DE_APURAR modo;  // which grains there may be
  int fios = 1;                 // threads; the result doesn't depend on it
};

// The choice, and all that was looked at for it.
struct SUGESTAO {
  ESCOLHA escolha;
  std::vector<OLHADA> olhadas;  // by photograph
};

// Gives photograph `i`; called once for each in order, in the thread of the caller. An empty one
// counts as one that can't be read.
using LEITOR = std::function<cv::Mat_<unsigned char>(std::size_t i)>;

// Chooses what to search for in `quantas` photographs, by looking at half as many pixels as one of
// them has, 0.4 to 2 million: all of small photographs, parts of large ones.
SUGESTAO sugere(std::size_t quantas, const LEITOR& le, const PEDIDO& pedido);

}  // namespace sugere
