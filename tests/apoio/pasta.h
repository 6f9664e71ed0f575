#pragma once

#include <filesystem>
#include <string>

// A temporary folder that is the current directory while it lives and disappears with it.
struct PASTA {
  std::filesystem::path caminho;
  std::filesystem::path anterior;

  PASTA();
  ~PASTA();
  PASTA(const PASTA&) = delete;
  PASTA& operator=(const PASTA&) = delete;
};

void grava(const std::string& nome, const std::string& conteudo);
std::string leTudo(const std::string& nome);
bool existe(const std::string& nome);
