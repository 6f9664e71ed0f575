#include "pim/texto.h"

#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "pim/erro.h"

namespace pim {
namespace {

// Position of the dot that starts the suffix, or npos.
std::size_t pontoDoSufixo(const std::string& nome) {
  const std::size_t ponto = nome.rfind('.');
  const std::size_t barra = nome.rfind('/');
  const bool antesDoNome = barra != std::string::npos && ponto < barra;
  return antesDoNome ? std::string::npos : ponto;
}

// Runs a strtod-like function over the whole of `texto`; false unless every character is used.
template <class T, class CONVERSOR>
bool converteTudo(const std::string& texto, T& valor, CONVERSOR conversor) {
  if (texto.empty() || std::isspace(static_cast<unsigned char>(texto[0])) != 0) return false;
  char* fim = nullptr;
  errno = 0;
  valor = conversor(texto.c_str(), &fim);
  return fim == texto.c_str() + texto.size();
}

template <class T, class CONVERSOR>
bool paraReal(const std::string& texto, T& x, CONVERSOR conversor) {
  T valor{};
  if (!converteTudo(texto, valor, conversor)) return false;
  if (errno == ERANGE && std::isinf(valor)) return false;
  x = valor;
  return true;
}

template <class T>
void converteArgumento(T& x, const std::string& texto) {
  if (!paraNumero(texto, x)) erro("Erro: Numero invalido ", texto);
}

}  // namespace

std::string minuscula(std::string texto) {
  for (char& c : texto) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return texto;
}

std::string sufixo(const std::string& nome) {
  const std::size_t ponto = pontoDoSufixo(nome);
  return ponto == std::string::npos ? "" : nome.substr(ponto + 1);
}

std::string semSufixo(const std::string& nome) {
  return nome.substr(0, pontoDoSufixo(nome));
}

std::string comeco(const std::string& texto) {
  constexpr std::size_t maximo = 80;
  return texto.size() <= maximo ? texto : texto.substr(0, maximo) + "...";
}

std::string semControles(std::string texto) {
  for (char& c : texto) {
    if (std::iscntrl(static_cast<unsigned char>(c)) != 0) c = '?';
  }
  return texto;
}

bool paraNumero(const std::string& texto, int& x) {
  long valor = 0;
  const auto decimal = [](const char* s, char** fim) { return std::strtol(s, fim, 10); };
  if (!converteTudo(texto, valor, decimal) || errno == ERANGE) return false;
  if (valor < std::numeric_limits<int>::min() || valor > std::numeric_limits<int>::max()) {
    return false;
  }
  x = static_cast<int>(valor);
  return true;
}

bool paraNumero(const std::string& texto, float& x) {
  return paraReal(texto, x, [](const char* s, char** fim) { return std::strtof(s, fim); });
}

bool paraNumero(const std::string& texto, double& x) {
  return paraReal(texto, x, [](const char* s, char** fim) { return std::strtod(s, fim); });
}

void convArg(int& x, const std::string& texto) {
  converteArgumento(x, texto);
}

void convArg(double& x, const std::string& texto) {
  converteArgumento(x, texto);
}

}  // namespace pim
