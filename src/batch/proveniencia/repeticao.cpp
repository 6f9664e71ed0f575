#include "batch/proveniencia/repeticao.h"

namespace batch {

OPCOES_LOTE opcoesDaRepeticao(const PROVENIENCIA& p, const OPCOES_LOTE& pedidas,
                              std::string& erro) {
  OPCOES_LOTE o;
  o.idioma = p.idioma == "en" ? exporta::IDIOMA::en : exporta::IDIOMA::pt;
  erro = leOpcoes(p.argumentos, o,
                  [&p](const std::string& /*palavra*/) { return p.arquivoDoKernel.empty(); });
  if (o.kernel.empty()) o.kernel = "kernel.cfg";
  o.saida = pedidas.saidaDada ? pedidas.saida : "repeticao";
  if (!pedidas.entradas.empty()) o.entradas = pedidas.entradas;
  o.processos = pedidas.processos;
  o.quieto = pedidas.quieto;
  o.refaz = true;
  o.kernelTexto = p.kernel;
  return o;
}

}  // namespace batch
