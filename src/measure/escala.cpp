#include "measure/escala.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>

#include "pim/erro.h"

namespace measure {
namespace {

struct LINHA {
  UNIDADE unidade;
  const char* nome;
  double milimetros;
};

constexpr std::array<LINHA, 6> unidades = {{{UNIDADE::px, "px", 1},
                                            {UNIDADE::um, "um", 1e-3},
                                            {UNIDADE::mm, "mm", 1},
                                            {UNIDADE::cm, "cm", 10},
                                            {UNIDADE::m, "m", 1000},
                                            {UNIDADE::in, "in", 25.4}}};

constexpr double menorLado = 1e-9;
constexpr double maiorLado = 1e9;

const LINHA& linha(UNIDADE u) {
  return unidades[static_cast<std::size_t>(u)];
}

std::string_view semBrancos(std::string_view s) {
  constexpr const char* brancos = " \t";
  const std::size_t de = s.find_first_not_of(brancos);
  if (de == std::string_view::npos) return {};
  return s.substr(de, s.find_last_not_of(brancos) - de + 1);
}

// The unit of that name; px when there is none.
UNIDADE unidadeDe(std::string_view nome) {
  constexpr std::string_view micro = "\u00B5m";
  constexpr std::string_view mi = "\u03BCm";  // the Greek letter looks the same
  if (nome == micro || nome == mi) return UNIDADE::um;
  for (const LINHA& u : unidades) {
    if (nome == u.nome) return u.unidade;
  }
  return UNIDADE::px;
}

// A comma between two digits, as several languages write decimals, as a point.
std::string comPontoDecimal(std::string s) {
  const auto algarismo = [&s](std::size_t i) { return i < s.size() && s[i] >= '0' && s[i] <= '9'; };
  const std::size_t i = s.find(',');
  if (i != std::string::npos && i > 0 && algarismo(i - 1) && algarismo(i + 1)) s[i] = '.';
  return s;
}

constexpr std::string_view pixelsPor = "px/";

std::string motivoDoLado(double lado) {
  if (!std::isfinite(lado)) return "o tamanho do pixel deve ser finito";
  if (lado <= 0) return "o tamanho do pixel deve ser maior que zero";
  if (lado < menorLado || lado > maiorLado) return "o tamanho do pixel deve ir de 1e-9 a 1e9";
  return "";
}

std::string motivoDaUnidade(std::string_view nome) {
  if (nome.empty()) return "falta a unidade (um, mm, cm, m, in)";
  return "unidade desconhecida (use um, mm, cm, m, in)";
}

}  // namespace

bool calibrada(const ESCALA& e) {
  return e.unidade != UNIDADE::px;
}

const char* nomeDaUnidade(UNIDADE u) {
  return linha(u).nome;
}

double milimetros(UNIDADE u) {
  return linha(u).milimetros;
}

double comprimento(double px, const ESCALA& e) {
  return px * e.lado;
}

double area(double px2, const ESCALA& e) {
  return px2 * (e.lado * e.lado);
}

std::string paraEscala(const std::string& texto, ESCALA& e) {
  const std::string comPonto = comPontoDecimal(texto);
  const std::string_view s = semBrancos(comPonto);
  double lado = 0;
  const auto [fim, falha] = std::from_chars(s.data(), s.data() + s.size(), lado);
  if (falha == std::errc::result_out_of_range) return "o tamanho do pixel deve ir de 1e-9 a 1e9";
  if (falha != std::errc()) return "falta o tamanho do pixel, como em 0.05mm";
  std::string_view nome = semBrancos(s.substr(static_cast<std::size_t>(fim - s.data())));
  if (nome.starts_with(pixelsPor)) {
    nome = semBrancos(nome.substr(pixelsPor.size()));
    lado = 1 / lado;
  }
  const std::string motivo = motivoDoLado(lado);
  if (!motivo.empty()) return motivo;
  const UNIDADE unidade = unidadeDe(nome);
  if (unidade == UNIDADE::px) return motivoDaUnidade(nome);
  e = {lado, unidade};
  return "";
}

ESCALA leEscala(const std::string& texto) {
  ESCALA e;
  const std::string motivo = paraEscala(texto, e);
  if (!motivo.empty()) pim::erro("Erro: Escala invalida ", texto, ": " + motivo);
  return e;
}

}  // namespace measure
