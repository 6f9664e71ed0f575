#include "apura/opcoes.h"

#include <algorithm>
#include <array>
#include <opencv2/core.hpp>
#include <thread>

#include "apura/frases.h"
#include "apura/modo.h"
#include "linha/linha.h"
#include "pim/texto.h"

namespace apura {
namespace {

using exporta::FRASE;

enum LONGA { indices = 256, idioma, quieto };

constexpr std::array<option, 13> outras = {{
    {"inverte", no_argument, nullptr, 'i'},
    {"invert", no_argument, nullptr, 'i'},
    {"indices", no_argument, nullptr, indices},
    {"fios", required_argument, nullptr, 'j'},
    {"threads", required_argument, nullptr, 'j'},
    {"idioma", required_argument, nullptr, idioma},
    {"language", required_argument, nullptr, idioma},
    {"quieto", no_argument, nullptr, quieto},
    {"quiet", no_argument, nullptr, quieto},
    {"ajuda", no_argument, nullptr, 'h'},
    {"help", no_argument, nullptr, 'h'},
    {"versao", no_argument, nullptr, 'V'},
    {"version", no_argument, nullptr, 'V'},
}};

bool leFios(const std::string& texto, int& n) {
  return pim::paraNumero(texto, n) && n >= 1 && n <= 1024;
}

// Stores one option; returns why its value was refused, or null.
const FRASE* guarda(int letra, const char* valor, OPCOES& o) {
  if (ehDoModo(letra)) return guardaModo(letra, valor == nullptr ? "" : valor, o.modo);
  if (letra == 'j') return leFios(valor, o.modo.fios) ? nullptr : &falas::fiosRuins;
  if (letra == idioma) {
    return linha::leIdioma(valor, o.idioma) ? nullptr : &linha::frases::idiomaRuim;
  }
  o.inverte |= letra == 'i';
  o.indices |= letra == indices;
  o.quieto |= letra == quieto;
  o.ajuda |= letra == 'h';
  o.versao |= letra == 'V';
  return nullptr;
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
  std::vector<std::string> palavras = {"vorplex-apura"};
  palavras.insert(palavras.end(), args.begin(), args.end());
  std::vector<option> longas(opcoesDoModo.begin(), opcoesDoModo.end());
  longas.insert(longas.end(), outras.begin(), outras.end());
  longas.push_back({nullptr, 0, nullptr, 0});
  const linha::RECUSA recusa =
      linha::leOpcoes(palavras, ":hij:V", longas,
                      [&o](int letra, const char* valor) { return guarda(letra, valor, o); });
  if (o.ajuda || o.versao) return "";
  if (recusa.frase != nullptr) {
    return cv::format(diz(*recusa.frase, o.idioma), recusa.valor.c_str());
  }
  return guardaNomes(palavras, o);
}

}  // namespace apura
