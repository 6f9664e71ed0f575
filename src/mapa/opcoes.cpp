#include "mapa/opcoes.h"

#include <algorithm>
#include <opencv2/core.hpp>
#include <thread>

#include "apura/frases.h"
#include "apura/modo.h"
#include "linha/geral.h"
#include "linha/linha.h"
#include "mapa/tabela.h"
#include "pim/texto.h"

namespace mapa {
namespace {

using exporta::FRASE;

const FRASE* guardaModo(int letra, const std::string& valor, textura::MODO& m) {
  refine::MODO_DE_APURAR lido;
  const FRASE* porque = apura::guardaModo(letra, valor, lido);
  if (letra == apura::sensibilidade) {
    m.sensibilidade = lido.sensibilidade;
  } else {
    m.menor = lido.menor;
    m.maior = lido.maior;
  }
  return porque;
}

bool leFios(const std::string& texto, int& n) {
  return pim::paraNumero(texto, n) && n >= 1 && n <= 1024;
}

// Stores one option; returns why its value was refused, or null.
const FRASE* guarda(int letra, const std::string& valor, OPCOES& o) {
  if (linha::ehGeral(letra)) return linha::guardaGeral(letra, valor, o);
  if (apura::ehDoModo(letra)) return guardaModo(letra, valor, o.modo);
  if (letra == 'j') return leFios(valor, o.modo.fios) ? nullptr : &apura::falas::fiosRuins;
  if (letra == rede) o.rede = valor;
  o.indices |= letra == indices;
  o.cartao |= letra == cartao;
  return nullptr;
}

std::string guardaNomes(const std::vector<std::string>& nomes, OPCOES& o) {
  if (nomes.empty()) return o.cartao ? "" : diz(apura::falas::faltaFoto, o.idioma);
  if (nomes.size() == 1) return diz(apura::falas::faltaSaida, o.idioma);
  if (nomes.size() > 2) {
    return cv::format(diz(apura::falas::palavraDemais, o.idioma), nomes[2].c_str());
  }
  o.foto = nomes[0];
  o.saida = nomes[1];
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
  return errada.empty() ? guardaNomes(palavras, o) : errada;
}

}  // namespace mapa
