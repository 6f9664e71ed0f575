#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <thread>
#include <vector>

#include "pim/pausa.h"

namespace refine {

// Calls faz(i, mesa) for every i below `n`, on `fios` threads, each with a workspace `MESA` of its
// own. Which thread does what is left to chance, so `faz` must write to places of its own alone.
// They are handed out `lote` at a time. `pausa`, which may be empty, is called between pieces of
// work in the thread that calls. The first exception that one throws is thrown here when all have
// ended.
template <class MESA, class FAZ>
void paraTodos(std::size_t n, int fios, const pim::PAUSA& pausa, FAZ faz, std::size_t lote = 64) {
  std::atomic<std::size_t> proximo{0};
  std::vector<std::exception_ptr> falhas(static_cast<std::size_t>(std::max(fios, 1)));
  const auto trabalha = [&](std::size_t fio) {
    try {
      MESA mesa;
      for (std::size_t de = 0; (de = proximo.fetch_add(lote)) < n;) {
        if (fio == 0 && pausa) pausa();
        for (std::size_t i = de; i < std::min(n, de + lote); ++i) faz(i, mesa);
      }
    } catch (...) {
      falhas[fio] = std::current_exception();
      proximo = n;
    }
  };
  {
    std::vector<std::jthread> outros;
    for (std::size_t fio = 1; fio < falhas.size(); ++fio) outros.emplace_back(trabalha, fio);
    trabalha(0);
  }
  for (const std::exception_ptr& f : falhas) {
    if (f) std::rethrow_exception(f);
  }
}

}  // namespace refine
