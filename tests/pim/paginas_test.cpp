#include "pim/paginas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

namespace {

using LISTA = std::vector<int, pim::PAGINAS<int>>;

std::uintptr_t endereco(const LISTA& v) {
  return reinterpret_cast<std::uintptr_t>(v.data());
}

}  // namespace

TEST(Paginas, UmaListaGrandeComecaNumaPaginaGrande) {
  const LISTA v(pim::PAGINAS<int>::pagina / sizeof(int));
  EXPECT_EQ(endereco(v) % pim::PAGINAS<int>::pagina, 0U);
}

TEST(Paginas, ListasDeQualquerTamanhoCrescemSemPerderNada) {
  LISTA v;
  for (int i = 0; i < 3000000; ++i) v.push_back(i);  // from some bytes to several large pages
  const LISTA copia = v;
  v.clear();
  v.shrink_to_fit();
  std::vector<int> contagem(copia.size());
  std::iota(contagem.begin(), contagem.end(), 0);
  EXPECT_TRUE(std::equal(copia.begin(), copia.end(), contagem.begin()));
}
