#include "manual/completa.h"

#include <algorithm>

namespace manual {

using linha::OPCAO;
using linha::OPERANDO;
using linha::TIPO;

std::string sufixos(TIPO t) {
  switch (t) {
    case TIPO::kernel:
      return "cfg";
    case TIPO::lista:
      return "ho1|ho2";
    case TIPO::fotos:
      return "pgm|ppm|pnm|pbm|png|jpg|jpeg|tif|tiff|bmp";
    case TIPO::saida:
      return "csv|ho2|pgm|ppm|pnm|png|jpg|jpeg|tif|tiff|bmp";
    default:
      return "";
  }
}

std::vector<OPERANDO> noLugar(std::span<const OPERANDO> operandos, std::size_t n) {
  std::vector<OPERANDO> v;
  for (std::size_t i = std::min(n, operandos.size()); i < operandos.size(); ++i) {
    v.push_back(operandos[i]);
    if (!std::string(operandos[i].nome.pt).starts_with('[')) break;
  }
  // Where one before was missing, the last ones have moved.
  if (v.empty() && lugares(operandos).repete) v.push_back(operandos.back());
  return v;
}

LUGARES lugares(std::span<const OPERANDO> operandos) {
  const bool repete =
      !operandos.empty() && std::string(operandos.back().nome.pt).find("...") != std::string::npos;
  return {operandos.size(), repete};
}

std::string identificador(const linha::PROGRAMA& p) {
  std::string s = p.nome;
  std::replace(s.begin(), s.end(), '-', '_');
  return s;
}

std::vector<std::string> nomes(const OPCAO& o) {
  std::vector<std::string> v;
  if (linha::temLetra(o)) v.push_back({'-', static_cast<char>(o.letra)});
  v.push_back(std::string("--") + o.pt);
  if (std::string(o.pt) != o.en) v.push_back(std::string("--") + o.en);
  return v;
}

std::string junta(const std::vector<std::string>& textos, const std::string& entre) {
  std::string s;
  for (const std::string& t : textos) s += (s.empty() ? "" : entre) + t;
  return s;
}

std::string entreAspas(const std::string& s) {
  std::string r = "'";
  for (const char c : s) r += c == '\'' ? "'\\''" : std::string(1, c);
  return r + "'";
}

}  // namespace manual
