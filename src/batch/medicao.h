#pragma once

#include <filesystem>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "batch/obra/alvos.h"
#include "batch/pedido/opcoes.h"
#include "corrige/aplica.h"
#include "measure/resumo.h"
#include "refine/apura.h"

namespace batch {

// Fits the detections of `base`.ho1 to the photograph `vista`, in the current directory, and
// corrects what was corrected by hand (null: nothing): leaves the grains as `base`.ho2 and, in
// full, in `arquivoDosApurados`, and what was refused or rejected in `arquivoDosCandidatos`.
corrige::FEITAS apuraLista(const cv::Mat_<unsigned char>& vista, const std::string& base,
                           const refine::MODO_DE_APURAR& modo, const corrige::CORRECOES* correcoes);

// The scale of a photograph, and whether its grains are brighter than their ground.
measure::ESCALA escalaDe(const OPCOES_LOTE& o, const ALVO& alvo);
bool claros(const OPCOES_LOTE& o, const ALVO& alvo);

// All grains of a photograph from its folder of results, measured.
std::vector<measure::GRAO> leGraos(measure::METODO metodo, const std::filesystem::path& pasta,
                                   const std::string& nome, cv::Size tamanho);

// The grains of a photograph from its folder of results, measured, and weighted by the border
// as the options say.
measure::FOTOGRAFIA leFotografia(const OPCOES_LOTE& o, const std::filesystem::path& pasta,
                                 const ALVO& alvo, cv::Size tamanho);

// What was refused there, measured, with indices from `primeiro` on. Only fitted grains have such.
std::vector<measure::GRAO> leCandidatos(const std::filesystem::path& pasta, cv::Size tamanho,
                                        std::size_t primeiro);

}  // namespace batch
