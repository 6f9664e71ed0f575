#include "proposta/opcoes.h"

#include <algorithm>
#include <opencv2/core.hpp>
#include <thread>

#include "apura/frases.h"
#include "batch/pedido/frases.h"
#include "linha/geral.h"
#include "linha/linha.h"
#include "pim/texto.h"
#include "proposta/tabela.h"

namespace proposta {
namespace {

using exporta::FRASE;

bool leDeUm(const std::string& texto, int maior, int& n) {
  return pim::paraNumero(texto, n) && n >= 1 && n <= maior;
}

// Stores one option; returns why its value was refused, or null.
const FRASE* guarda(int letra, const std::string& valor, OPCOES& o) {
  if (linha::ehGeral(letra)) return linha::guardaGeral(letra, valor, o);
  if (apura::ehDoModo(letra)) return apura::guardaModo(letra, valor, o.modo);
  int n = 0;
  switch (letra) {
    case amostra:
      if (!leDeUm(valor, 1000, n)) return &batch::falas::amostraRuim;
      o.amostra = static_cast<std::size_t>(n);
      return nullptr;
    case 'd':
      o.figura = valor;
      return nullptr;
    case 'j':
      return leDeUm(valor, 1024, o.fios) ? nullptr : &apura::falas::fiosRuins;
    default:
      o.inverte |= letra == 'i';
      o.recursivo |= letra == 'r';
      return nullptr;
  }
}

}  // namespace

std::string leOpcoes(const std::vector<std::string>& args, OPCOES& o) {
  o.fios = std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, 1024);
  std::vector<std::string> palavras = {programa.nome};
  palavras.insert(palavras.end(), args.begin(), args.end());
  const linha::RECUSA recusa =
      linha::leOpcoes(palavras, programa, [&o](const linha::OPCAO& op, const std::string& valor) {
        return guarda(op.letra, valor, o);
      });
  if (o.ajuda || o.versao) return "";
  const std::string errada = linha::motivo(recusa, o.idioma);
  if (!errada.empty()) return errada;
  o.entradas = palavras;
  return palavras.empty() ? diz(batch::falas::faltaFoto, o.idioma) : "";
}

}  // namespace proposta
