#pragma once

#include <string>
#include <vector>

#include "export/idioma.h"
#include "measure/resumo.h"

namespace exporta {

// One row of the summary table.
struct LINHA_RESUMO {
  std::string foto;
  measure::RESUMO resumo;
  std::vector<std::string> avisos = {};  // what makes its numbers doubtful
};

// The summary of many photographs: a row for each and a last row, named "total", for `total`. CSV
// as in export/graoscsv.h. Columns: name; photographs, grains, each shape, grains touching the
// border; area of the picture and grains per unit of it; which size and which weight the rest is
// about; D5 to D95, mean, standard deviation; mean and sorting of Folk and Ward in phi (of sizes in
// px, phi relative to 1 px, the name ends in phi_px), skewness and kurtosis; Cu, Cc; for each sieve
// the share retained and passing, named by its aperture, and the share in the pan; then both ends
// of the 95 % interval of each of these numbers, its name with _de or _ate (_low, _high) behind it,
// the part of the area that grains cover, and a remark. What can't be said is an empty cell.
// pim::erro when a row has other units or sieves than the total, or when the file can't be written
// whole.
void impResumoCsv(const std::vector<LINHA_RESUMO>& linhas, const LINHA_RESUMO& total,
                  const std::string& nome, IDIOMA idioma = IDIOMA::pt);
void impResumoCsv(const std::vector<LINHA_RESUMO>& linhas, const measure::RESUMO& total,
                  const std::string& nome, IDIOMA idioma = IDIOMA::pt);

// The same as JSON: an object with a list of those rows, the total and the names of the photographs
// that failed; a row is an object with the names of the columns. What can't be said is null.
std::string resumoJson(const std::vector<LINHA_RESUMO>& linhas, const LINHA_RESUMO& total,
                       const std::vector<std::string>& falharam, IDIOMA idioma = IDIOMA::pt);
std::string resumoJson(const std::vector<LINHA_RESUMO>& linhas, const measure::RESUMO& total,
                       const std::vector<std::string>& falharam, IDIOMA idioma = IDIOMA::pt);

}  // namespace exporta
