#pragma once

#include <map>
#include <string>
#include <vector>

#include "detect/maxlocal.h"

// Sub-program `relat ent.ho2 sai.rel`: counts the grains of each area. argv[0] is its name.
void Relat(int argc, char** argv);

// How many grains have each area, in whole square pixels (ties to even). Ellipses and unknown
// letters are in neither table.
struct TABELAS {
  std::map<double, int> circulos;    // pi (d1/2)^2
  std::map<double, int> retangulos;  // squares too: d1 d2
};

// pim::erro with the record, its index and `nome`, the name of the list, when an area does not fit
// a 32-bit integer.
TABELAS contaAreas(const std::vector<MAXLOCAL>& v, const std::string& nome = "");

// Writes both tables (docs/rel.md). pim::erro when the file can't be created or written whole.
void impTabelas(const TABELAS& tabelas, const std::string& nome);
