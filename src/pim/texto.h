#pragma once

#include <string>

namespace pim {

// Whether a character separates words in the C library's own locale; EOF does not.
constexpr bool espaco(int c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

// A copy of `texto` with the letters A to Z made lower case; other bytes stay as they are.
std::string minuscula(std::string texto);

// The text after the last "." of the last path component of `nome`, without the dot; empty when
// there is none. "saida.ho2" gives "ho2", "dir.d/saida" gives "".
std::string sufixo(const std::string& nome);

// `nome` without the last "." of its last path component and what follows it; directories stay.
// "dir.d/a.b.jpg" gives "dir.d/a.b"; a name without a suffix comes back unchanged.
std::string semSufixo(const std::string& nome);

// The beginning of `texto`: at most 80 characters and, when more follow, "...".
std::string comeco(const std::string& texto);

// `texto` with "?" for control characters, which could change what a terminal shows or does.
std::string semControles(std::string texto);

// Converts the whole of `texto` to a number and returns whether it is one that fits the type of
// `x`; otherwise `x` keeps its value. Integers are decimal; real numbers are those that the C
// library reads ("nan" and "inf" among them). A real number too small for its type becomes 0.
bool paraNumero(const std::string& texto, int& x);
bool paraNumero(const std::string& texto, float& x);
bool paraNumero(const std::string& texto, double& x);

// Converts a command-line argument and stores it in `x`; pim::erro with the argument when the
// whole of it is not a number that fits.
void convArg(int& x, const std::string& texto);
void convArg(double& x, const std::string& texto);

}  // namespace pim
