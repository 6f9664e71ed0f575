#include "batch/opcoes.h"

#include <getopt.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <opencv2/core.hpp>
#include <sstream>

#include "batch/frases.h"
#include "export/valor.h"
#include "pim/texto.h"

namespace batch {
namespace {

enum LONGA { semBorda = 256, refaz, idioma, quieto, ajuda, versao };

constexpr std::array<option, 17> longas = {{{"saida", required_argument, nullptr, 'o'},
                                            {"escala", required_argument, nullptr, 'e'},
                                            {"filtra", required_argument, nullptr, 'f'},
                                            {"min-corr", required_argument, nullptr, 'c'},
                                            {"grandeza", required_argument, nullptr, 'g'},
                                            {"peso", required_argument, nullptr, 'w'},
                                            {"peneiras", required_argument, nullptr, 'p'},
                                            {"sem-borda", no_argument, nullptr, semBorda},
                                            {"inverte", no_argument, nullptr, 'i'},
                                            {"processos", required_argument, nullptr, 'j'},
                                            {"recursivo", no_argument, nullptr, 'r'},
                                            {"refaz", no_argument, nullptr, refaz},
                                            {"idioma", required_argument, nullptr, idioma},
                                            {"quieto", no_argument, nullptr, quieto},
                                            {"ajuda", no_argument, nullptr, ajuda},
                                            {"versao", no_argument, nullptr, versao},
                                            {nullptr, 0, nullptr, 0}}};

struct RECUSA {
  const exporta::FRASE* frase = nullptr;
  std::string valor;
};

bool leReal(const std::string& texto, double& x) {
  return pim::paraNumero(texto, x) && std::isfinite(x);
}

bool lePeneiras(const std::string& texto, std::vector<double>& v) {
  v.clear();
  std::istringstream partes(texto + ',');
  for (std::string parte; std::getline(partes, parte, ',');) {
    double x = 0;
    if (!leReal(parte, x) || !(x > (v.empty() ? 0 : v.back()))) return false;
    v.push_back(x);
  }
  return true;
}

bool leGrandeza(const std::string& texto, measure::GRANDEZA& g) {
  if (texto == "equivalente") g = measure::GRANDEZA::equivalente;
  if (texto == "menor") g = measure::GRANDEZA::menor;
  if (texto == "maior") g = measure::GRANDEZA::maior;
  return texto == "equivalente" || texto == "menor" || texto == "maior";
}

bool lePeso(const std::string& texto, measure::PESO& p) {
  if (texto == "numero") p = measure::PESO::numero;
  if (texto == "area") p = measure::PESO::area;
  if (texto == "volume") p = measure::PESO::volume;
  return texto == "numero" || texto == "area" || texto == "volume";
}

bool leIdioma(const std::string& texto, exporta::IDIOMA& i) {
  if (texto == "pt") i = exporta::IDIOMA::pt;
  if (texto == "en") i = exporta::IDIOMA::en;
  return texto == "pt" || texto == "en";
}

bool leProcessos(const std::string& texto, int& n) {
  return pim::paraNumero(texto, n) && n >= 1 && n <= 1024;
}

// Stores one option that has a value; returns why it was refused, or null.
const exporta::FRASE* guardaValor(int letra, const std::string& valor, OPCOES_LOTE& o) {
  double x = 0;
  switch (letra) {
    case 'o':
      o.saida = valor;
      return valor.empty() ? &falas::saidaVazia : nullptr;
    case 'e':
      return paraEscala(valor, o.escala).empty() ? nullptr : &falas::escalaRuim;
    case 'f':
      o.filtra = valor;
      return nullptr;
    case 'c':
      o.minCorr = valor;
      return leReal(valor, x) ? nullptr : &falas::minCorrRuim;
    case 'g':
      return leGrandeza(valor, o.grandeza) ? nullptr : &falas::grandezaRuim;
    case 'w':
      return lePeso(valor, o.peso) ? nullptr : &falas::pesoRuim;
    case 'p':
      return lePeneiras(valor, o.peneiras) ? nullptr : &falas::peneirasRuins;
    case 'j':
      return leProcessos(valor, o.processos) ? nullptr : &falas::processosRuins;
    default:
      return leIdioma(valor, o.idioma) ? nullptr : &falas::idiomaRuim;
  }
}

void guardaSinal(int letra, OPCOES_LOTE& o) {
  o.semBorda |= letra == semBorda;
  o.inverte |= letra == 'i';
  o.recursivo |= letra == 'r';
  o.refaz |= letra == refaz;
  o.quieto |= letra == quieto;
  o.ajuda |= letra == ajuda;
  o.versao |= letra == versao;
}

// What getopt has just refused. It tells an unknown letter by `optopt`, a word by its place.
RECUSA recusada(int letra, const std::string& palavra) {
  if (letra == ':') return {&falas::faltaValor, palavra};
  const bool existe = std::any_of(longas.begin(), longas.end(),
                                  [](const option& o) { return o.val != 0 && o.val == optopt; });
  if (existe) return {&falas::valorDemais, palavra};
  if (optopt == 0) return {&falas::opcaoDesconhecida, palavra};
  return {&falas::opcaoDesconhecida, exporta::emUtf8({'-', static_cast<char>(optopt)})};
}

// Reads all options; the words that are none are left behind `optind`.
RECUSA leTodas(std::vector<char*>& argv, OPCOES_LOTE& o) {
  opterr = 0;
  optind = 0;  // begins anew, so that a process may read several command lines
  const int argc = static_cast<int>(argv.size()) - 1;
  RECUSA primeira;
  while (true) {
    const int letra = getopt_long(argc, argv.data(), ":o:e:f:c:g:w:p:ij:r", longas.data(), nullptr);
    if (letra == -1) return primeira;
    RECUSA recusa;
    if (letra == '?' || letra == ':') {
      recusa = recusada(letra, argv[static_cast<std::size_t>(optind) - 1]);
    } else if (optarg != nullptr) {
      recusa = {guardaValor(letra, optarg, o), optarg};
    } else {
      guardaSinal(letra, o);
    }
    if (primeira.frase == nullptr && recusa.frase != nullptr) primeira = recusa;
  }
}

}  // namespace

std::string leOpcoes(const std::vector<std::string>& args, OPCOES_LOTE& o) {
  std::vector<std::string> palavras = {"vorplex-lote"};
  palavras.insert(palavras.end(), args.begin(), args.end());
  std::vector<char*> argv;
  argv.reserve(palavras.size() + 1);
  for (std::string& p : palavras) argv.push_back(p.data());
  argv.push_back(nullptr);

  const RECUSA recusa = leTodas(argv, o);
  if (o.ajuda || o.versao) return "";
  if (recusa.frase != nullptr) {
    return cv::format(diz(*recusa.frase, o.idioma), recusa.valor.c_str());
  }
  const auto resto = argv.begin() + optind;
  if (resto + 1 == argv.end()) return diz(falas::faltaKernel, o.idioma);
  o.kernel = *resto;
  o.entradas.assign(resto + 1, argv.end() - 1);
  return o.entradas.empty() ? diz(falas::faltaFoto, o.idioma) : "";
}

}  // namespace batch
