#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace batch {

// A record of a table, and the line that it begins in, from 1.
struct LINHA_DE_CSV {
  std::size_t numero = 0;
  std::vector<std::string> campos;
};

// Records of comma-separated values, by RFC 4180: fields may stand between quotes, where commas,
// ends of line and doubled quotes belong to them. Empty lines are left out, and so is the mark of
// UTF-8. pim::erro "Erro: CSV, linha N: REASON" for quotes elsewhere, quotes that don't end and
// zero bytes.
std::vector<LINHA_DE_CSV> leCsv(std::string_view texto);

}  // namespace batch
