#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sugere {

// What a kernel.cfg says to vorplex-lote beyond its kernels, in a comment of its own that the
// searches pass over: "// vorplex-lote: -i -c 0.02".
struct RECADO {
  bool inverte = false;           // -i: bright grains on dark ground
  std::optional<double> minCorr;  // -c: smallest correlation of the search
};

// That line, without its end.
std::string linhaDoRecado(const RECADO& r);

// What the first such line of the text says; nothing where there is none. pim::erro with its number
// and `nome` when it holds anything else than -i and -c with a finite number.
RECADO leRecado(std::string_view texto, const std::string& nome);

}  // namespace sugere
