#pragma once

#include <array>
#include <opencv2/core.hpp>
#include <optional>
#include <string>
#include <vector>

#include "corrige/aplica.h"
#include "export/idioma.h"
#include "measure/borda.h"
#include "measure/distribuicao.h"
#include "measure/escala.h"
#include "measure/grao.h"
#include "measure/resumo.h"

namespace page {

// The results of a batch as a page for the web browser: one file that needs nothing else, neither
// other files nor a network. Sizes, curve, plots and tables follow what the reader selects in it
// (correlation, shapes), by the definitions of src/measure.

// A photograph and what was found in it.
struct FOTO_DA_PAGINA {
  std::string nome;    // how the page calls it
  std::string figura;  // the picture to show, as impFigura left it; empty when there is none
  cv::Size tamanho;    // of the photograph that the grains were found in; the picture is
                       // stretched to it
  std::vector<measure::GRAO> graos;
  std::vector<measure::GRAO> candidatos = {};     // refused ones, which a reader may bring back
  std::string soma = {};                          // checksum of the photograph; empty: unknown
  std::vector<corrige::CORRECAO> correcoes = {};  // made by hand in this run
  std::string grupo = {};                         // that it is compared in; empty: none
  std::optional<measure::ESCALA> escala = {};     // its own, in the unit of the page's
};

// Names and texts may hold anything, invalid UTF-8 and markup too.
struct PAGINA {
  std::string titulo;
  exporta::IDIOMA idioma = exporta::IDIOMA::pt;
  measure::ESCALA escala;  // of all photographs
  measure::GRANDEZA grandeza = measure::GRANDEZA::equivalente;
  measure::PESO peso = measure::PESO::numero;
  std::vector<double> peneiras;  // apertures as in measure/peneira.h; may be empty
  double minCorr = 0;            // smallest correlation of the search
  // By which the grains were chosen, in the order of measure::letras: the least correlation of each
  // family, of fitted grains the least support. The slider begins there.
  std::array<double, measure::letras.size()> limiares{};
  measure::METODO metodo = measure::METODO::classico;  // by which all grains were measured
  measure::BORDA borda = measure::BORDA::inclui;       // how cut grains count
  std::string comando;  // how the page was made, shown at its end; may be empty
  std::vector<FOTO_DA_PAGINA> fotos;
  std::vector<std::string> falharam;          // names of photographs that are not in the numbers
  std::string proveniencia;                   // JSON: from what it was made; empty: nothing is told
  std::optional<corrige::FEITAS> corrigidas;  // by hand, in all photographs; nothing: none asked
  std::vector<std::string> avisos;            // what makes the numbers doubtful, said of all grains
};

// Writes the page aside, as `nome`.parcial, and gives it its name when it is complete. pim::erro
// when a picture can't be read, an aperture is refused or the page can't be written whole.
void impPagina(const PAGINA& pagina, const std::string& nome);

}  // namespace page
