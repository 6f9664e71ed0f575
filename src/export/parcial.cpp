#include "export/parcial.h"

#include <cstdio>
#include <utility>

#include "pim/erro.h"

namespace exporta {
namespace {

std::string nomeParcial(const std::string& nome) {
  return nome + ".parcial";
}

void entrega(PARCIAL& p) {
  std::fwrite(p.pendente.data(), 1, p.pendente.size(), p.arquivo.get());
  p.pendente.clear();
}

}  // namespace

PARCIAL abreParcial(const std::string& nome) {
  return {nome, pim::abre(nomeParcial(nome), "wb"), ""};
}

void adianta(PARCIAL& p) {
  constexpr std::size_t bastante = 65536;
  if (p.pendente.size() >= bastante) entrega(p);
}

void conclui(PARCIAL p) {
  entrega(p);
  const std::string parcial = nomeParcial(p.nome);
  pim::fechaEscrita(std::move(p.arquivo), parcial);
  if (std::rename(parcial.c_str(), p.nome.c_str()) != 0) {
    std::remove(parcial.c_str());
    pim::erro("Erro gravacao arquivo ", p.nome);
  }
}

}  // namespace exporta
