#include "batch/pedido/opcoes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <opencv2/core.hpp>
#include <sstream>

#include "apura/modo.h"
#include "batch/pedido/frases.h"
#include "linha/linha.h"
#include "pim/texto.h"

namespace batch {
namespace {

enum LONGA { metodo = 256, semBorda, refaz, idioma, quieto, ajuda, versao };

constexpr std::array<option, 17> outras = {{{"saida", required_argument, nullptr, 'o'},
                                            {"escala", required_argument, nullptr, 'e'},
                                            {"metodo", required_argument, nullptr, metodo},
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
                                            {"versao", no_argument, nullptr, versao}}};

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

bool leMetodo(const std::string& texto, measure::METODO& m) {
  if (texto == "apurado") m = measure::METODO::apurado;
  if (texto == "classico") m = measure::METODO::classico;
  return texto == "apurado" || texto == "classico";
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
    case metodo:
      return leMetodo(valor, o.metodo) ? nullptr : &falas::metodoRuim;
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
      return linha::leIdioma(valor, o.idioma) ? nullptr : &linha::frases::idiomaRuim;
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

// Options that only one of the methods has, as far as they were given.
struct PROPRIAS {
  bool filtra = false;
  bool modo = false;
};

// Returns why the option was refused, or null.
const exporta::FRASE* guarda(int letra, const char* valor, OPCOES_LOTE& o, PROPRIAS& p) {
  p.filtra |= letra == 'f';
  p.modo |= apura::ehDoModo(letra);
  if (apura::ehDoModo(letra))
    return apura::guardaModo(letra, valor == nullptr ? "" : valor, o.modo);
  if (valor != nullptr) return guardaValor(letra, valor, o);
  guardaSinal(letra, o);
  return nullptr;
}

// Why the options don't go together, or an empty text.
std::string conflito(const OPCOES_LOTE& o, const PROPRIAS& p) {
  const bool apurado = o.metodo == measure::METODO::apurado;
  if (apurado && p.filtra) return diz(falas::filtraEhDoClassico, o.idioma);
  return !apurado && p.modo ? diz(falas::modoEhDoApurado, o.idioma) : "";
}

}  // namespace

std::string leOpcoes(const std::vector<std::string>& args, OPCOES_LOTE& o) {
  std::vector<std::string> palavras = {"vorplex-lote"};
  palavras.insert(palavras.end(), args.begin(), args.end());
  std::vector<option> longas(outras.begin(), outras.end());
  longas.insert(longas.end(), apura::opcoesDoModo.begin(), apura::opcoesDoModo.end());
  longas.push_back({nullptr, 0, nullptr, 0});
  PROPRIAS proprias;
  const linha::RECUSA recusa = linha::leOpcoes(
      palavras, ":o:e:f:c:g:w:p:ij:r", longas,
      [&](int letra, const char* valor) { return guarda(letra, valor, o, proprias); });
  if (o.ajuda || o.versao) return "";
  if (recusa.frase != nullptr) {
    return cv::format(diz(*recusa.frase, o.idioma), recusa.valor.c_str());
  }
  std::string briga = conflito(o, proprias);
  if (!briga.empty()) return briga;
  if (palavras.empty()) return diz(falas::faltaKernel, o.idioma);
  o.kernel = palavras.front();
  o.entradas.assign(palavras.begin() + 1, palavras.end());
  return o.entradas.empty() ? diz(falas::faltaFoto, o.idioma) : "";
}

std::string minCorrDaProcura(const OPCOES_LOTE& o) {
  constexpr const char* paraApurar = "0.02";
  return o.minCorr.empty() && o.metodo == measure::METODO::apurado ? paraApurar : o.minCorr;
}

}  // namespace batch
