#include "pim/listagem.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "pim/erro.h"

namespace pim {

bool casa(const std::string& padrao, const std::string& nome) {
  std::size_t p = 0;
  std::size_t n = 0;
  std::size_t estrela = std::string::npos;  // the last `*` met, which may take more characters
  std::size_t depois = 0;                   // where `nome` went on after it
  while (n < nome.size()) {
    if (p < padrao.size() && padrao[p] == '*') {
      estrela = p++;
      depois = n;
    } else if (p < padrao.size() && padrao[p] == nome[n]) {
      ++p;
      ++n;
    } else if (estrela != std::string::npos) {
      p = estrela + 1;
      n = ++depois;
    } else {
      return false;
    }
  }
  return padrao.find_first_not_of('*', p) == std::string::npos;
}

void vsWildCard(const std::string& padrao, std::vector<std::string>& nomes, bool tambemPastas) {
  nomes.clear();
  std::error_code falha;
  std::filesystem::directory_iterator pasta(".", falha);
  for (; !falha && pasta != std::filesystem::directory_iterator(); pasta.increment(falha)) {
    std::error_code semTipo;  // an entry that vanishes meanwhile is simply not listed
    const bool serve =
        pasta->is_regular_file(semTipo) || (tambemPastas && pasta->is_directory(semTipo));
    std::string nome = pasta->path().filename().string();
    if (serve && casa(padrao, nome)) nomes.push_back(std::move(nome));
  }
  if (falha) erro("Erro leitura da pasta corrente: ", falha.message());
  std::sort(nomes.begin(), nomes.end());
}

}  // namespace pim
