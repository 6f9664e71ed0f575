#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "batch/obra/alvos.h"
#include "export/idioma.h"
#include "sugere/sugere.h"

namespace batch {

// What a few of the photographs say about what to search for.
struct AMOSTRA {
  std::vector<std::filesystem::path> fotos;  // that were looked at, in the order of the choice
  std::vector<bool> lidas;                   // false for those that can't be read
  sugere::SUGESTAO sugestao;
};

inline constexpr std::size_t amostraUsual = 8;

// Looks at `quantas` of the photographs, spread over them by their paths: the order in which they
// are given doesn't matter.
AMOSTRA olhaFotos(const std::vector<ALVO>& alvos, std::size_t quantas,
                  const sugere::PEDIDO& pedido);

// Whether any photograph could be read.
bool algumaLida(const AMOSTRA& a);

// The choice as a kernel.cfg.
std::string kernelCfg(const AMOSTRA& a, exporta::IDIOMA idioma);

// The choice in one line; `todas` is the number of photographs.
std::string resumo(const AMOSTRA& a, std::size_t todas, exporta::IDIOMA idioma);

// What makes the choice doubtful, a line each: nothing seen, grains of both polarities, photographs
// that speak against it or say nothing.
std::vector<std::string> avisos(const AMOSTRA& a, exporta::IDIOMA idioma);

}  // namespace batch
