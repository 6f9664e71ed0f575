#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace treino {

// A table of numbers. Its file has one line of column names with commas between them, then the rows
// as doubles in the byte order of the machine.
struct TABELA {
  std::vector<std::string> colunas;
  std::vector<double> valores;  // row by row

  void nomeia(std::span<const std::string_view> nomes);
  std::size_t linhas() const { return colunas.empty() ? 0 : valores.size() / colunas.size(); }
  std::span<const double> linha(std::size_t k) const {
    return std::span(valores).subspan(k * colunas.size(), colunas.size());
  }
};

// pim::erro naming the file when it can't be written whole, or isn't such a table of `colunas`
// columns.
void grava(const TABELA& t, const std::string& nome);
TABELA leTabela(const std::string& nome, std::size_t colunas);

}  // namespace treino
