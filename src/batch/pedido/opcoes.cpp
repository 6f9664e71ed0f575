#include "batch/pedido/opcoes.h"

#include <cmath>
#include <sstream>

#include "apura/modo.h"
#include "batch/pedido/frases.h"
#include "batch/pedido/tabela.h"
#include "linha/geral.h"
#include "linha/linha.h"
#include "pim/texto.h"

namespace batch {
namespace {

constexpr int maiorAmostra = 1000;

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

bool leAmostra(const std::string& texto, std::size_t& n) {
  int lido = 0;
  if (!pim::paraNumero(texto, lido) || lido < 1 || lido > maiorAmostra) return false;
  n = static_cast<std::size_t>(lido);
  return true;
}

bool leProcessos(const std::string& texto, int& n) {
  return pim::paraNumero(texto, n) && n >= 1 && n <= 1024;
}

// Stores one of the options that have a value; returns why it was refused, or null.
const exporta::FRASE* guardaValor(int letra, const std::string& valor, OPCOES_LOTE& o) {
  double x = 0;
  switch (letra) {
    case 'o':
      o.saida = valor;
      o.saidaDada = true;
      return valor.empty() ? &falas::saidaVazia : nullptr;
    case 'e':
      return paraEscala(valor, o.escala).empty() ? nullptr : &falas::escalaRuim;
    case metodo:
      return linha::lePalavra(valor, metodos, o.metodo) ? nullptr : &falas::metodoRuim;
    case 'f':
      o.filtra = valor;
      return nullptr;
    case 'c':
      o.minCorr = valor;
      return leReal(valor, x) && x >= 0 && x <= 1 ? nullptr : &falas::minCorrRuim;
    case 'g':
      return linha::lePalavra(valor, grandezas, o.grandeza) ? nullptr : &falas::grandezaRuim;
    case 'w':
      return linha::lePalavra(valor, pesos, o.peso) ? nullptr : &falas::pesoRuim;
    case amostra:
      return leAmostra(valor, o.amostra) ? nullptr : &falas::amostraRuim;
    case repete:
      o.repete = valor;
      return valor.empty() ? &falas::arquivoVazio : nullptr;
    case comCorrecoes:
      o.correcoes = valor;
      return valor.empty() ? &falas::arquivoVazio : nullptr;
    case comGrupos:
      o.grupos = valor;
      return valor.empty() ? &falas::arquivoVazio : nullptr;
    case borda:
      return linha::lePalavra(valor, bordas, o.borda) ? nullptr : &falas::bordaRuim;
    case 'p':
      return lePeneiras(valor, o.peneiras) ? nullptr : &falas::peneirasRuins;
    default:
      return leProcessos(valor, o.processos) ? nullptr : &falas::processosRuins;
  }
}

void guardaSinal(int letra, OPCOES_LOTE& o) {
  if (letra == semBorda) o.borda = measure::BORDA::exclui;
  o.inverte |= letra == 'i';
  o.recursivo |= letra == 'r';
  o.refaz |= letra == refaz;
  o.json |= letra == json;
  o.simula |= letra == simula;
}

// Options that only one of the methods has, as far as they were given.
struct PROPRIAS {
  bool filtra = false;
  bool modo = false;
};

// Returns why the option was refused, or null.
const exporta::FRASE* guarda(const linha::OPCAO& op, const std::string& valor, OPCOES_LOTE& o,
                             PROPRIAS& p) {
  p.filtra |= op.letra == 'f';
  p.modo |= apura::ehDoModo(op.letra);
  if (linha::ehGeral(op.letra)) return linha::guardaGeral(op.letra, valor, o);
  if (apura::ehDoModo(op.letra)) return apura::guardaModo(op.letra, valor, o.modo);
  if (linha::levaValor(op)) return guardaValor(op.letra, valor, o);
  guardaSinal(op.letra, o);
  return nullptr;
}

// Why the options don't go together, or an empty text.
std::string conflito(const OPCOES_LOTE& o, const PROPRIAS& p) {
  const bool apurado = o.metodo == measure::METODO::apurado;
  if (apurado && p.filtra) return diz(falas::filtraEhDoClassico, o.idioma);
  if (!apurado && !o.correcoes.empty()) return diz(falas::correcoesSaoDoApurado, o.idioma);
  return !apurado && p.modo ? diz(falas::modoEhDoApurado, o.idioma) : "";
}

}  // namespace

std::string leOpcoes(const std::vector<std::string>& args, OPCOES_LOTE& o,
                     const EH_ENTRADA& ehEntrada) {
  std::vector<std::string> palavras = {programa.nome};
  palavras.insert(palavras.end(), args.begin(), args.end());
  PROPRIAS proprias;
  const linha::RECUSA recusa =
      linha::leOpcoes(palavras, programa, [&](const linha::OPCAO& op, const std::string& valor) {
        return guarda(op, valor, o, proprias);
      });
  if (o.ajuda || o.versao) return "";
  const std::string errada = linha::motivo(recusa, o.idioma);
  if (!errada.empty()) return errada;
  std::string briga = conflito(o, proprias);
  if (!briga.empty()) return briga;
  if (!o.repete.empty()) {
    o.entradas = palavras;
    return "";
  }
  const bool nomes = !palavras.empty() && palavras.front() == "-";  // on standard input
  const bool temKernel = !palavras.empty() && !nomes && !(ehEntrada && ehEntrada(palavras.front()));
  if (temKernel) o.kernel = palavras.front();
  o.entradas.assign(palavras.begin() + (temKernel ? 1 : 0), palavras.end());
  return o.entradas.empty() ? diz(falas::faltaFoto, o.idioma) : "";
}

std::string minCorrDaProcura(const OPCOES_LOTE& o) {
  constexpr const char* paraApurar = "0.02";
  return o.minCorr.empty() && o.metodo == measure::METODO::apurado ? paraApurar : o.minCorr;
}

}  // namespace batch
