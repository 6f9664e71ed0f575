#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "apura/tabela.h"
#include "batch/pedido/tabela.h"
#include "manual/completa.h"
#include "manual/roff.h"
#include "mapa/tabela.h"
#include "proposta/tabela.h"
#include "shell/tabela.h"

// Makes the manual pages and the completions of all programs:
// manuais FOLDER-OF-MODELS OUTPUT-FOLDER VERSION

namespace fs = std::filesystem;

namespace {

constexpr std::array<linha::PROGRAMA, 5> programas = {
    shell::programa, apura::programa, mapa::programa, batch::programa, proposta::programa};

std::string le(const fs::path& nome) {
  std::ostringstream s;
  s << std::ifstream(nome, std::ios::binary).rdbuf();
  if (!s) throw std::runtime_error("can't read " + nome.string());
  return s.str();
}

void grava(const fs::path& nome, const std::string& texto) {
  fs::create_directories(nome.parent_path());
  std::ofstream f(nome, std::ios::binary);
  if (!(f << texto).flush()) throw std::runtime_error("can't write " + nome.string());
}

// The table of the program that a page is about; an empty one for pages about none.
linha::PROGRAMA doNome(const std::string& nome) {
  for (const linha::PROGRAMA& p : programas) {
    if (nome == p.nome) return p;
  }
  return {"", {"", ""}};
}

void fazPaginas(const fs::path& modelos, const fs::path& saida, const std::string& versao,
                exporta::IDIOMA i) {
  const bool pt = i == exporta::IDIOMA::pt;
  const fs::path man = saida / "man" / (pt ? "pt" : "");
  for (const auto& e : fs::directory_iterator(modelos / (pt ? "pt" : "en"))) {
    const std::string secao = e.path().extension().string().substr(1);
    const linha::PROGRAMA p = doNome(e.path().stem().string());
    grava(man / ("man" + secao) / e.path().filename(), manual::pagina(le(e.path()), p, i, versao));
  }
  // Who looks for the page of the file finds the page of all files.
  fs::create_symlink("vorplex-formats.5", man / "man5" / "kernel.cfg.5");
}

void faz(const fs::path& modelos, const fs::path& saida, const std::string& versao) {
  fs::remove_all(saida);
  fazPaginas(modelos, saida, versao, exporta::IDIOMA::pt);
  fazPaginas(modelos, saida, versao, exporta::IDIOMA::en);
  for (const linha::PROGRAMA& p : programas) {
    const std::string nome = p.nome;
    grava(saida / "bash" / nome, manual::bash(p));
    grava(saida / "zsh" / ("_" + nome), manual::zsh(p));
    grava(saida / "fish" / (nome + ".fish"), manual::fish(p));
  }
  grava(saida / "feito", "");
}

}  // namespace

int main(int argc, char** argv) {
  try {
    if (argc != 4) throw std::runtime_error("usage: manuais MODELS OUTPUT VERSION");
    faz(argv[1], argv[2], argv[3]);
    return 0;
  } catch (const std::exception& e) {
    std::fprintf(stderr, "manuais: %s\n", e.what());
    return 1;
  }
}
