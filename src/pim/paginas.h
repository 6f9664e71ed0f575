#pragma once

#include <sys/mman.h>

#include <cstddef>
#include <new>

namespace pim {

// Memory for what is read all over the place, as an allocator for std::vector. Whatever fills a
// large page or more (2 MB) is asked for in large pages: with those of 4 kB most reads would first
// have to look up where their page lies. The system may refuse, which costs only time.
template <class T>
struct PAGINAS {
  using value_type = T;

  static constexpr std::size_t pagina = std::size_t{2} << 20;

  PAGINAS() = default;
  template <class OUTRO>
  explicit PAGINAS(const PAGINAS<OUTRO>& /*outro*/) {}

  static std::align_val_t alinhamento(std::size_t n) {
    return std::align_val_t{n * sizeof(T) < pagina ? alignof(T) : pagina};
  }

  T* allocate(std::size_t n) {
    void* p = ::operator new(n * sizeof(T), alinhamento(n));
    if (n * sizeof(T) >= pagina) madvise(p, n * sizeof(T), MADV_HUGEPAGE);
    return static_cast<T*>(p);
  }
  void deallocate(T* p, std::size_t n) { ::operator delete(p, alinhamento(n)); }

  bool operator==(const PAGINAS& /*outra*/) const { return true; }
};

}  // namespace pim
