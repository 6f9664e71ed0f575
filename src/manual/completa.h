#pragma once

#include <string>
#include <vector>

#include "linha/programa.h"

// Completion of a program's command line in the shells: options in the language of the environment
// (in the other one when only those begin so), values that are words, files by their suffixes. One
// file a program, and nothing else is needed to read it.

namespace manual {

std::string bash(const linha::PROGRAMA& p);
std::string zsh(const linha::PROGRAMA& p);
std::string fish(const linha::PROGRAMA& p);

// The suffixes of the files that a word may name, joined by "|"; empty for any file.
std::string sufixos(linha::TIPO t);

// What may stand in place n, counted from 0, where all before are there: an operand that may be
// missing leaves its place to the next as well.
std::vector<linha::OPERANDO> noLugar(std::span<const linha::OPERANDO> operandos, std::size_t n);

// How many places there are; the last one stands for all behind it when `repete`.
struct LUGARES {
  std::size_t quantos = 0;
  bool repete = false;
};
LUGARES lugares(std::span<const linha::OPERANDO> operandos);

// "vorplex_lote": a name that the shells take for a function.
std::string identificador(const linha::PROGRAMA& p);

// "-o", "--saida" and "--output", those that there are.
std::vector<std::string> nomes(const linha::OPCAO& o);

// The texts with `entre` between them.
std::string junta(const std::vector<std::string>& textos, const std::string& entre);

// In single quotes, for a shell.
std::string entreAspas(const std::string& s);

}  // namespace manual
