#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "refine/contorno/figura.h"

// What a person has corrected by hand among the grains of photographs.

namespace corrige {

// A grain that is none; a candidate that is one; a grain that was missing.
enum class GESTO { rejeita, recupera, desenha };

struct CORRECAO {
  GESTO gesto = GESTO::rejeita;
  refine::FIGURA figura;  // of the grain, in pixels of the photograph
};

// Those of a photograph, in the order in which they were made.
struct CORRECOES {
  std::string soma;  // checksum of its content: files may be renamed
  std::string nome;  // for people
  std::vector<CORRECAO> lista;
};

inline constexpr std::size_t maiorTexto = std::size_t{16} << 20U;  // bytes
inline constexpr std::size_t maisCorrecoes = 20'000;               // in a file

// Reads the text of a file of corrections (JSON, docs/relatorio.md). Each photograph stands in it
// once. pim::erro "Erro: Correcoes invalidas: REASON" for anything else, unknown members and shapes
// without an extent included. Depth and size of what is read are bounded.
std::vector<CORRECOES> leCorrecoes(std::string_view texto);

// A correction as it stands in the file.
std::string emTexto(const CORRECAO& c);

// The text that is read as these corrections; of each photograph one line for each correction.
std::string emTexto(const std::vector<CORRECOES>& v);

// The corrections of the photograph of this checksum; null when there are none.
const CORRECOES* acha(const std::vector<CORRECOES>& v, const std::string& soma);

}  // namespace corrige
