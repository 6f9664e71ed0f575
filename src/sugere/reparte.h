#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <thread>
#include <vector>

namespace sugere {

// Calls faz(i) for every i below `n` on `fios` threads, one at a time each: for long work. The
// first exception that one throws is thrown here when all have ended.
template <class FAZ>
void reparte(std::size_t n, int fios, FAZ faz) {
  std::atomic<std::size_t> proximo{0};
  std::vector<std::exception_ptr> falhas(n);
  const auto trabalha = [&] {
    for (std::size_t i = 0; (i = proximo++) < n;) {
      try {
        faz(i);
      } catch (...) {
        falhas[i] = std::current_exception();
      }
    }
  };
  {
    std::vector<std::jthread> outros;
    const auto mais = static_cast<std::size_t>(std::max(fios, 1)) - 1;
    for (std::size_t k = 0; k < std::min(mais, n); ++k) outros.emplace_back(trabalha);
    trabalha();
  }
  for (const std::exception_ptr& f : falhas) {
    if (f) std::rethrow_exception(f);
  }
}

}  // namespace sugere
