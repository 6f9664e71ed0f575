#include "apoio/pasta.h"

#include <unistd.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

PASTA::PASTA() : anterior(std::filesystem::current_path()) {
  std::string modelo = (std::filesystem::temp_directory_path() / "vorplex-XXXXXX").string();
  if (mkdtemp(modelo.data()) == nullptr) throw std::runtime_error("mkdtemp");
  caminho = modelo;
  std::filesystem::current_path(caminho);
}

PASTA::~PASTA() {
  std::filesystem::current_path(anterior);
  std::error_code ignorado;
  std::filesystem::remove_all(caminho, ignorado);
}

void grava(const std::string& nome, const std::string& conteudo) {
  std::ofstream f(nome, std::ios::binary);
  f << conteudo;
}

std::string leTudo(const std::string& nome) {
  std::ifstream f(nome, std::ios::binary);
  return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

bool existe(const std::string& nome) {
  return std::filesystem::exists(nome);
}
