#include "pim/relogio.h"

#include <chrono>
#include <cstdint>

namespace pim {

int centseg() {
  using CENTESIMOS = std::chrono::duration<std::int64_t, std::centi>;
  // Counted from the first call, so that a run shorter than a hundredth never shows as one.
  static const auto origem = std::chrono::steady_clock::now();
  const auto contagem =
      std::chrono::duration_cast<CENTESIMOS>(std::chrono::steady_clock::now() - origem).count();
  return static_cast<int>(static_cast<std::uint32_t>(contagem));
}

int diferencaCentseg(int inicio, int fim) {
  return static_cast<int>(static_cast<std::uint32_t>(fim) - static_cast<std::uint32_t>(inicio));
}

}  // namespace pim
