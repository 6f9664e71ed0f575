#include "pim/modulo/formatos.h"

// The one symbol that the program looks up in the module.
extern "C" __attribute__((visibility("default"))) const pim::CODECS pimTabelaDeCodecs;
const pim::CODECS pimTabelaDeCodecs = {pim::reconheceImagem, pim::decodificaImagem,
                                       pim::codificaImagem, pim::leArquivoMat};
