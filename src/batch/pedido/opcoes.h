#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "export/idioma.h"
#include "measure/borda.h"
#include "measure/distribuicao.h"
#include "measure/escala.h"
#include "measure/grao.h"
#include "refine/apura.h"

namespace batch {

// What the command line of vorplex-lote asks for.
struct OPCOES_LOTE {
  std::string kernel;                      // kernel.cfg; empty: to be chosen by the photographs
  std::optional<std::string> kernelTexto;  // what it says, where that is known already
  std::vector<std::string> entradas;       // photographs and folders, as given
  std::string saida = "resultado";
  bool saidaDada = false;  // it was named
  std::string repete;      // a proveniencia.json to do again; empty: none
  measure::ESCALA escala;
  measure::METODO metodo = measure::METODO::apurado;
  refine::MODO_DE_APURAR modo;  // of that method
  std::string filtra;           // of the other: parameters of filtra; empty: its defaults
  std::string minCorr;          // of the search, as given; empty: what suits the method
  measure::GRANDEZA grandeza = measure::GRANDEZA::equivalente;
  measure::PESO peso = measure::PESO::numero;
  std::vector<double> peneiras;
  std::size_t amostra = 8;  // photographs that are looked at for the choice
  std::string correcoes;    // file of corrections by hand; empty: none
  std::string grupos;       // "pastas", "folders" or a table; empty: none
  measure::BORDA borda = measure::BORDA::corrige;
  bool inverte = false;
  int processos = 0;  // photographs at a time; 0: to be chosen
  bool recursivo = false;
  bool refaz = false;
  bool json = false;    // the summary on standard output, all else on standard error
  bool simula = false;  // says what would be done
  bool quieto = false;
  bool ajuda = false;
  bool versao = false;
  exporta::IDIOMA idioma = exporta::IDIOMA::pt;
};

// Whether the first word is a photograph or a folder, and no kernel.cfg.
using EH_ENTRADA = std::function<bool(const std::string& palavra)>;

// Options may stand anywhere before "--"; the first word that is none is kernel.cfg unless
// `ehEntrada` says otherwise, the others are photographs. Returns what is wrong, in the language
// asked for, or an empty text. What only the sub-programs can judge (the parameters of filtra,
// kernel.cfg) is not looked at. With `repete` all words are photographs, and there may be none.
std::string leOpcoes(const std::vector<std::string>& args, OPCOES_LOTE& o,
                     const EH_ENTRADA& ehEntrada = {});

// The smallest correlation to search with: the one given, else for fitting so low that hardly a
// grain is missed (what is none goes later), else empty, for the default of the search.
std::string minCorrDaProcura(const OPCOES_LOTE& o);

}  // namespace batch
