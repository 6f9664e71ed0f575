#include "apura/opcoes.h"

#include <algorithm>
#include <array>
#include <opencv2/core.hpp>
#include <thread>

#include "apura/frases.h"
#include "apura/modo.h"
#include "apura/tabela.h"
#include "linha/geral.h"
#include "linha/linha.h"
#include "pim/texto.h"

namespace apura {
namespace {

using exporta::FRASE;

bool leFios(const std::string& texto, int& n) {
  return pim::paraNumero(texto, n) && n >= 1 && n <= 1024;
}

// Stores one option; returns why its value was refused, or null.
const FRASE* guarda(int letra, const std::string& valor, OPCOES& o) {
  if (linha::ehGeral(letra)) return linha::guardaGeral(letra, valor, o);
  switch (letra) {
    case 'i':
      o.inverte = true;
      return nullptr;
    case indices:
      o.indices = true;
      return nullptr;
    case 'j':
      return leFios(valor, o.modo.fios) ? nullptr : &falas::fiosRuins;
    default:
      return guardaModo(letra, valor, o.modo);
  }
}

std::string guardaNomes(const std::vector<std::string>& nomes, OPCOES& o) {
  constexpr std::array<const FRASE*, 3> faltas = {&falas::faltaFoto, &falas::faltaLista,
                                                  &falas::faltaSaida};
  if (nomes.size() < faltas.size()) return diz(*faltas.at(nomes.size()), o.idioma);
  if (nomes.size() > faltas.size()) {
    return cv::format(diz(falas::palavraDemais, o.idioma), nomes[faltas.size()].c_str());
  }
  o.foto = nomes[0];
  o.lista = nomes[1];
  o.saida = nomes[2];
  return "";
}

}  // namespace

std::string leOpcoes(const std::vector<std::string>& args, OPCOES& o) {
  o.modo.fios = std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, 1024);
  std::vector<std::string> palavras = {programa.nome};
  palavras.insert(palavras.end(), args.begin(), args.end());
  const linha::RECUSA recusa =
      linha::leOpcoes(palavras, programa, [&o](const linha::OPCAO& op, const std::string& valor) {
        return guarda(op.letra, valor, o);
      });
  if (o.ajuda || o.versao) return "";
  const std::string errada = linha::motivo(recusa, o.idioma);
  if (!errada.empty()) return errada;
  return guardaNomes(palavras, o);
}

}  // namespace apura
