#include "pim/relogio.h"

#include <chrono>
#include <limits>
#include <thread>

#include "fabrica.h"

TEST(Centseg, ContaCentesimosDeSegundo) {
  const auto antes = std::chrono::steady_clock::now();
  const int inicio = pim::centseg();
  std::this_thread::sleep_for(std::chrono::milliseconds(120));
  const int passados = pim::diferencaCentseg(inicio, pim::centseg());
  const std::chrono::duration<double, std::centi> certos = std::chrono::steady_clock::now() - antes;
  EXPECT_GE(passados, 11);
  EXPECT_LE(passados, certos.count() + 1);
}

TEST(Centseg, NuncaAndaParaTras) {
  int anterior = pim::centseg();
  for (int k = 0; k < 1000; ++k) {
    const int agora = pim::centseg();
    EXPECT_GE(pim::diferencaCentseg(anterior, agora), 0);
    anterior = agora;
  }
}

TEST(DiferencaCentseg, EhCertaNaVoltaDoContador) {
  constexpr int maior = std::numeric_limits<int>::max();
  constexpr int menor = std::numeric_limits<int>::min();
  EXPECT_EQ(pim::diferencaCentseg(100, 1334), 1234);
  EXPECT_EQ(pim::diferencaCentseg(1334, 1184), -150);
  EXPECT_EQ(pim::diferencaCentseg(maior, menor), 1);
  EXPECT_EQ(pim::diferencaCentseg(-3, 4), 7);
}
