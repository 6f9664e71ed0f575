#include "export/parcial.h"

#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "pim/erro.h"
#include "pim/texto.h"

namespace fs = std::filesystem;

namespace exporta {
namespace {

// Whether only its own name leads to it: another file can't take the place of a device.
bool escreveDireto(const std::string& nome) {
  std::error_code falha;
  const fs::file_status s = fs::status(nome, falha);
  return fs::exists(s) && !fs::is_regular_file(s) && !fs::is_directory(s);
}

// What a chain of links leads to, whether that exists or not; a name that is none as it stands.
std::string destino(const std::string& nome) {
  constexpr int maximo = 40;  // as many as the system follows
  std::error_code falha;
  fs::path p = nome;
  for (int i = 0; i < maximo && fs::is_symlink(fs::symlink_status(p, falha)); ++i) {
    p = p.parent_path() / fs::read_symlink(p, falha);
  }
  return p.string();
}

void assume(const std::string& aparte, const std::string& nome) {
  if (aparte != nome && std::rename(aparte.c_str(), nome.c_str()) != 0) {
    std::remove(aparte.c_str());
    pim::erro("Erro gravacao arquivo ", nome);
  }
}

void entrega(PARCIAL& p) {
  std::fwrite(p.pendente.data(), 1, p.pendente.size(), p.arquivo.get());
  p.pendente.clear();
}

}  // namespace

PARCIAL abreParcial(const std::string& nome) {
  const std::string final = escreveDireto(nome) ? nome : destino(nome);
  const std::string aparte = escreveDireto(nome) ? nome : final + ".parcial";
  return {final, aparte, pim::abre(aparte, "wb"), ""};
}

void adianta(PARCIAL& p) {
  constexpr std::size_t bastante = 65536;
  if (p.pendente.size() >= bastante) entrega(p);
}

void conclui(PARCIAL p) {
  entrega(p);
  pim::fechaEscrita(std::move(p.arquivo), p.aparte);
  assume(p.aparte, p.nome);
}

void gravaAparte(const std::string& nome,
                 const std::function<void(const std::string& aparte)>& escreve) {
  if (escreveDireto(nome)) return escreve(nome);
  const std::string final = destino(nome);
  const std::string aparte = final + ".parcial." + pim::sufixo(nome);
  escreve(aparte);
  assume(aparte, final);
}

}  // namespace exporta
