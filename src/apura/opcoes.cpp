#include "apura/opcoes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <opencv2/core.hpp>
#include <thread>

#include "apura/frases.h"
#include "linha/linha.h"
#include "pim/texto.h"

namespace apura {
namespace {

using exporta::FRASE;

enum LONGA {
  familias = 256,
  tamanhos,
  sobreposicao,
  sensibilidade,
  semLetras,
  indices,
  idioma,
  quieto
};

constexpr std::array<option, 24> longas = {
    {{"familias", required_argument, nullptr, familias},
     {"families", required_argument, nullptr, familias},
     {"tamanhos", required_argument, nullptr, tamanhos},
     {"sizes", required_argument, nullptr, tamanhos},
     {"sobreposicao", required_argument, nullptr, sobreposicao},
     {"overlap", required_argument, nullptr, sobreposicao},
     {"sensibilidade", required_argument, nullptr, sensibilidade},
     {"sensitivity", required_argument, nullptr, sensibilidade},
     {"sem-letras", no_argument, nullptr, semLetras},
     {"keep-letters", no_argument, nullptr, semLetras},
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
     {nullptr, 0, nullptr, 0}}};

bool leFamilias(const std::string& texto, std::string& letras) {
  letras = texto;
  return !texto.empty() && texto.find_first_not_of("cqre") == std::string::npos;
}

// "MIN-MAX". A number may hold a dash too, as in 1e-3, so every dash is tried.
bool leTamanhos(const std::string& texto, refine::MODO_DE_APURAR& m) {
  for (std::size_t i = texto.find('-'); i != std::string::npos; i = texto.find('-', i + 1)) {
    double menor = 0;
    double maior = 0;
    const bool dois =
        pim::paraNumero(texto.substr(0, i), menor) && pim::paraNumero(texto.substr(i + 1), maior);
    if (!dois || !(menor >= 0) || !(menor < maior) || !std::isfinite(maior)) continue;
    m.menor = menor;
    m.maior = maior;
    return true;
  }
  return false;
}

bool leParte(const std::string& texto, double& x) {
  return pim::paraNumero(texto, x) && x >= 0 && x <= 1;
}

bool leFios(const std::string& texto, int& n) {
  return pim::paraNumero(texto, n) && n >= 1 && n <= 1024;
}

// Stores one option that has a value; returns why it was refused, or null.
const FRASE* guardaValor(int letra, const std::string& valor, OPCOES& o) {
  switch (letra) {
    case familias:
      return leFamilias(valor, o.modo.familias) ? nullptr : &falas::familiasRuins;
    case tamanhos:
      return leTamanhos(valor, o.modo) ? nullptr : &falas::tamanhosRuins;
    case sobreposicao:
      return leParte(valor, o.modo.sobreposicao) ? nullptr : &falas::sobreposicaoRuim;
    case sensibilidade:
      return leParte(valor, o.modo.sensibilidade) ? nullptr : &falas::sensibilidadeRuim;
    case 'j':
      return leFios(valor, o.modo.fios) ? nullptr : &falas::fiosRuins;
    default:
      return linha::leIdioma(valor, o.idioma) ? nullptr : &linha::frases::idiomaRuim;
  }
}

const FRASE* guarda(int letra, const char* valor, OPCOES& o) {
  if (valor != nullptr) return guardaValor(letra, valor, o);
  o.modo.semLetras |= letra == semLetras;
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
