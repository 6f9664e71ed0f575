#pragma once

#include <string>
#include <string_view>

// A file without a place on any disk, to hand to what reads and writes files by name.
struct MEMORIA {
  int descritor;
  std::string nome;

  explicit MEMORIA(std::string_view conteudo = "");
  ~MEMORIA();
  MEMORIA(const MEMORIA&) = delete;
  MEMORIA& operator=(const MEMORIA&) = delete;

  std::string conteudo() const;
};
