#include "refine/paralelo.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <vector>

namespace {

struct MESA_CONTADA {
  int vezes = 0;
};

}  // namespace

TEST(Paralelo, CadaIndiceUmaVez) {
  for (const std::size_t n : {0U, 1U, 63U, 64U, 65U, 1000U}) {
    for (const int fios : {-1, 0, 1, 2, 5, 20}) {
      std::vector<int> vezes(n);
      refine::paraTodos<MESA_CONTADA>(n, fios, {}, [&](std::size_t i, MESA_CONTADA& m) {
        ++vezes[i];
        ++m.vezes;
      });
      for (const int v : vezes) ASSERT_EQ(v, 1) << n << ' ' << fios;
    }
  }
}

TEST(Paralelo, MesaEhDeUmFioSo) {
  std::vector<int> antes(1000);
  refine::paraTodos<MESA_CONTADA>(1000, 4, {},
                                  [&](std::size_t i, MESA_CONTADA& m) { antes[i] = m.vezes++; });
  // Each thread counts from 0: as many zeros as threads that found work.
  int zeros = 0;
  for (const int a : antes) zeros += a == 0 ? 1 : 0;
  EXPECT_GE(zeros, 1);
  EXPECT_LE(zeros, 4);
}

TEST(Paralelo, ExcecaoPassaDepoisDeTodosAcabarem) {
  for (const int fios : {1, 2, 5}) {
    std::atomic<int> feitos{0};
    const auto faz = [&](std::size_t i, MESA_CONTADA&) {
      if (i == 130) throw std::runtime_error("130");
      ++feitos;
    };
    EXPECT_THROW(refine::paraTodos<MESA_CONTADA>(100000, fios, {}, faz), std::runtime_error);
    EXPECT_LT(feitos, 100000 - 1) << "the others stop soon";
  }
}
