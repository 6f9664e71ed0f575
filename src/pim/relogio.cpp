#include "pim/relogio.h"

#include <chrono>
#include <cstdint>

namespace pim {

int centseg() {
  using CENTESIMOS = std::chrono::duration<std::int64_t, std::centi>;
  const auto agora = std::chrono::steady_clock::now().time_since_epoch();
  const auto contagem = std::chrono::duration_cast<CENTESIMOS>(agora).count();
  return static_cast<int>(static_cast<std::uint32_t>(contagem));
}

int diferencaCentseg(int inicio, int fim) {
  return static_cast<int>(static_cast<std::uint32_t>(fim) - static_cast<std::uint32_t>(inicio));
}

}  // namespace pim
