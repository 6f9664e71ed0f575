#include "apura/registros.h"

#include <fstream>
#include <sstream>
#include <utility>

#include "export/parcial.h"
#include "export/valor.h"
#include "pim/erro.h"
#include "pim/texto.h"

namespace apura {
namespace {

constexpr const char* titulo = "vorplex-apura 1";

template <class REGISTRO, class FAZ>
void paraCadaNumero(REGISTRO& a, FAZ faz) {
  auto& f = a.figura;
  for (auto* x : {&f.l, &f.c, &f.d1, &f.d2, &f.ang, &a.apoio, &a.contraste}) faz(*x);
  for (auto& x : a.erro) faz(x);
}

bool leRegistro(const std::string& linha, refine::APURADO& a) {
  std::istringstream partes(linha);
  std::string palavra;
  if (!(partes >> palavra) || palavra.size() != 1) return false;
  a.figura.forma = palavra[0];
  bool bom = partes >> palavra && pim::paraNumero(palavra, a.correl);
  paraCadaNumero(a,
                 [&](double& x) { bom = bom && partes >> palavra && pim::paraNumero(palavra, x); });
  return bom && !(partes >> palavra);
}

}  // namespace

void impApurados(const std::vector<refine::APURADO>& v, const std::string& nome) {
  exporta::PARCIAL p = exporta::abreParcial(nome);
  std::string& s = p.pendente;
  s = std::string(titulo) + '\n';
  for (const refine::APURADO& a : v) {
    s += a.figura.forma;
    s += ' ';
    exporta::poeNumero(s, a.correl);
    paraCadaNumero(a, [&s](double x) {
      s += ' ';
      exporta::poeNumero(s, x);
    });
    s += '\n';
    exporta::adianta(p);
  }
  exporta::conclui(std::move(p));
}

std::vector<refine::APURADO> leApurados(const std::string& nome) {
  std::ifstream f(nome, std::ios::binary);
  std::string linha;
  if (!std::getline(f, linha) || linha != titulo) pim::erro("Erro leitura arquivo ", nome);
  std::vector<refine::APURADO> v;
  while (std::getline(f, linha)) {
    if (!leRegistro(linha, v.emplace_back())) pim::erro("Erro leitura arquivo ", nome);
  }
  return v;
}

}  // namespace apura
