#include "treino/nomes.h"

namespace treino {

const std::array<std::string_view, refine::quantosTracos> nomesDosTracos = {
    "bordaVista",    "bordaVista2",   "bordaForte",     "uniforme",        "escuroPorDentro",
    "alinhada",      "aspera",        "asperaRelativa", "separacao",       "separacao2",
    "nucleoEscuro",  "anelClaro",     "contrasteRuido", "logContraste",    "logPerimetro",
    "logCorrelacao", "logRampa",      "logAlongamento", "contrasteDesvio", "maiorFalha",
    "piorQuarto",    "texturaDentro", "texturaFora",    "degrauUniforme",  "visivel",
    "nitidez",       "centroEscuro",  "beiraEscura",    "ehQuadrado",      "ehRetangulo",
    "ehElipse"};

const std::array<std::string_view, refine::quantosEsbocados> nomesDosEsbocados = {
    "eBorda",        "ePerto",          "ePerto2",        "eForte",       "ePiorQuarto",
    "eLogDegrau",    "eBeira",          "eEscuro",        "eMiolo",       "eLogContraste",
    "eLogPerimetro", "eLogAlongamento", "eLogCorrelacao", "eDegrauDesvio"};

// Between bars: how far the feature is from the middle of the picture, whatever the side.
const std::array<std::string_view, refine::quantosDaCompanhia> nomesDaCompanhia = {
    "nota",
    "nota baixa",
    "nota alta",
    "nota do meio",
    "|logPerimetro|",
    "logPerimetro",
    "|logContraste|",
    "logContraste",
    "|bordaForte|",
    "bordaForte",
    "|separacao|",
    "separacao",
    "|logAlongamento|",
    "|texturaDentro|",
    "texturaDentro",
    "|nitidez|",
    "nitidez",
    "|asperaRelativa|",
    "asperaRelativa",
    "|anelClaro|",
    "anelClaro",
    "|alinhada|",
    "alinhada",
    "|dentro|",
    "dentro",
    "|fora|",
    "fora",
    "nota relativa",
    "primeiro quartil das notas",
    "terceiro quartil"};

}  // namespace treino
