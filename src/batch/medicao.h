#pragma once

#include <filesystem>
#include <opencv2/core.hpp>
#include <string>

#include "batch/pedido/opcoes.h"
#include "measure/resumo.h"
#include "refine/apura.h"

namespace batch {

// Fits the detections of `base`.ho1 to the photograph `vista`, in the current directory: leaves the
// grains as `base`.ho2 and, in full, in `arquivoDosApurados`.
void apuraLista(const cv::Mat_<unsigned char>& vista, const std::string& base,
                const refine::MODO_DE_APURAR& modo);

// The grains of a photograph from its folder of results, measured; those at the border are left out
// when the options say so.
measure::FOTOGRAFIA leFotografia(const OPCOES_LOTE& o, const std::filesystem::path& pasta,
                                 const std::string& nome, cv::Size tamanho);

}  // namespace batch
