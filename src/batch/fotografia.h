#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "batch/avisos/sinais.h"
#include "batch/obra/alvos.h"
#include "batch/obra/estado.h"
#include "batch/obra/obra.h"
#include "batch/pedido/opcoes.h"
#include "corrige/correcoes.h"

namespace batch {

// What is the same for all photographs of a run.
struct RECEITA {
  const OPCOES_LOTE& opcoes;
  const OBRA& obra;
  std::string kernel;      // a copy of kernel.cfg that stays as it is during the run
  std::string kernelSoma;  // its checksum
  std::string versao;
  int fios = 1;                                                // threads for each photograph
  const std::vector<corrige::CORRECOES>* correcoes = nullptr;  // by hand; null: none
  ALCANCE alcance = {};                                        // of the kernels
};

// How a photograph ended: exit statuses of the process that did it.
namespace fins {
inline constexpr int feita = 0;     // complete in its working folder
inline constexpr int falhou = 1;    // also that of pim::erro
inline constexpr int jaPronta = 3;  // the results that stand are those it would give
inline constexpr int ilegivel = 4;  // there is no photograph; earlier results are left alone
inline constexpr int semLugar = 5;  // something else has the name of its folder
}  // namespace fins

// What the results of a photograph depend on, step by step. `fotoSoma` is its checksum.
ORIGEM origem(const RECEITA& r, const ALVO& alvo, const std::string& fotoSoma);

// Makes all results of a photograph in its working folder, which becomes the current directory;
// files of earlier results are taken over where only what comes after them has changed. Announces
// each step, says what went wrong on standard output and returns one of `fins`, or throws what a
// step throws.
int fazFotografia(const RECEITA& r, const ALVO& alvo);

// Whether the folder holds all results of this origin, undamaged.
bool completos(const ESTADO& e, const std::filesystem::path& pasta, const std::string& nome,
               measure::METODO metodo);

}  // namespace batch
