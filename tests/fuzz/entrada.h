#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "detect/maxlocal.h"

// Values made of the fuzzer's bytes, from first to last; zeros once they are used up.
struct ENTRADA {
  const std::uint8_t* bytes;
  std::size_t restam;

  std::uint8_t byte();

  // From `de` to `ate`, both included.
  int inteiro(int de, int ate);

  // Mostly -64 to 63, else any 32 bits or an end of the range.
  int qualquerInteiro();

  // Quarters from -32 to 31.75, multiples of 2.5, special values or any 64 bits.
  double real();

  // A detection with any letter, mostly one that has a shape.
  MAXLOCAL deteccao();
};

// The bytes as text.
std::string_view comoTexto(const std::uint8_t* bytes, std::size_t n);
