#pragma once

#include <string>
#include <vector>

namespace exporta {

// One file of an archive.
struct ENTRADA {
  std::string nome;
  std::vector<unsigned char> bytes;
};

// Writes a zip archive of the entries, at least one, in order, stored without compression and dated
// 1980-01-01 00:00: the same entries always give the same bytes. pim::erro when two entries have
// the same name or when the file can't be written whole.
void impZip(const std::vector<ENTRADA>& entradas, const std::string& nome);

}  // namespace exporta
