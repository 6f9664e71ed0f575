#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace batch {

// Checksums that tell whether a file or a setting has changed: 64 bits, as 16 hexadecimal digits.
// Any change of a single 8-byte word changes them; they are no defence against forgery.

// A checksum of texts, in order. The lengths count, so that {"a", "bc"} is not {"ab", "c"}.
struct SOMA {
  std::uint64_t estado = 0x9E3779B97F4A7C15U;

  void poe(std::string_view bytes);
  std::string texto() const;
};

// Of the whole content of a regular file; nothing when it can't be read.
std::optional<std::string> somaDoArquivo(const std::string& nome);

}  // namespace batch
