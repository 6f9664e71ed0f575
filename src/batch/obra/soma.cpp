#include "batch/obra/soma.h"

#include <bit>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <opencv2/core.hpp>
#include <system_error>
#include <vector>

#include "pim/arquivo.h"

namespace batch {
namespace {

// One to one in the state and in the word: no single change is lost.
std::uint64_t mistura(std::uint64_t estado, std::uint64_t palavra) {
  std::uint64_t x = (std::rotl(estado, 23) ^ palavra) * 0xBF58476D1CE4E5B9U;
  x ^= x >> 31U;
  return x;
}

}  // namespace

void SOMA::poe(std::string_view bytes) {
  const std::size_t inteiras = bytes.size() / 8 * 8;
  std::uint64_t palavra = 0;
  for (std::size_t i = 0; i < inteiras; i += 8) {
    std::memcpy(&palavra, bytes.data() + i, 8);
    estado = mistura(estado, palavra);
  }
  palavra = 0;
  std::memcpy(&palavra, bytes.data() + inteiras, bytes.size() - inteiras);
  estado = mistura(estado, palavra);
  estado = mistura(estado, bytes.size());
}

std::string SOMA::texto() const {
  return cv::format("%016llx", static_cast<unsigned long long>(estado));
}

std::optional<std::string> somaDoArquivo(const std::string& nome) {
  std::error_code falha;
  if (!std::filesystem::is_regular_file(nome, falha)) return std::nullopt;
  const pim::ARQUIVO arquivo(std::fopen(nome.c_str(), "rbe"));
  if (!arquivo) return std::nullopt;
  SOMA soma;
  std::vector<char> bloco(std::size_t{1} << 18U);
  std::size_t lidos = 0;
  while ((lidos = std::fread(bloco.data(), 1, bloco.size(), arquivo.get())) > 0) {
    soma.poe({bloco.data(), lidos});
  }
  if (std::ferror(arquivo.get()) != 0) return std::nullopt;
  return soma.texto();
}

}  // namespace batch
