#include "treino/tabela.h"

#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>

#include "pim/erro.h"

namespace treino {

void TABELA::nomeia(std::span<const std::string_view> nomes) {
  colunas.insert(colunas.end(), nomes.begin(), nomes.end());
}

void grava(const TABELA& t, const std::string& nome) {
  std::ofstream out(nome, std::ios::binary);
  for (std::size_t k = 0; k < t.colunas.size(); ++k) out << (k > 0 ? "," : "") << t.colunas[k];
  out << '\n';
  out.write(reinterpret_cast<const char*>(t.valores.data()),
            static_cast<std::streamsize>(t.valores.size() * sizeof(double)));
  out.close();
  if (!out) pim::erro("Erro: Impossivel gravar ", nome);
}

TABELA leTabela(const std::string& nome, std::size_t colunas) {
  std::ifstream in(nome, std::ios::binary);
  std::string cabecalho;
  if (!in || !std::getline(in, cabecalho)) pim::erro("Erro: Impossivel ler ", nome);
  TABELA t;
  std::istringstream nomes(cabecalho);
  for (std::string s; std::getline(nomes, s, ',');) t.colunas.push_back(s);
  const std::string bytes{std::istreambuf_iterator<char>(in), {}};
  if (t.colunas.size() != colunas || bytes.size() % (colunas * sizeof(double)) != 0) {
    pim::erro("Erro: Tabela invalida ", nome);
  }
  t.valores.resize(bytes.size() / sizeof(double));
  if (!bytes.empty()) std::memcpy(t.valores.data(), bytes.data(), bytes.size());
  return t;
}

}  // namespace treino
