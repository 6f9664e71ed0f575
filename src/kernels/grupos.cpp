#include "kernels/grupos.h"

namespace kernels {

std::vector<GRUPO> grupos(const std::vector<MASCARA>& conjunto) {
  std::vector<GRUPO> lista;
  int primeiro = 0;
  for (int i = 0; i < static_cast<int>(conjunto.size()); ++i) {
    if (conjunto[static_cast<std::size_t>(i)].inic != 2) continue;
    lista.push_back({primeiro, i});
    primeiro = i + 1;
  }
  return lista;
}

}  // namespace kernels
