#include "report/contaform.h"

#include <cstdio>
#include <string>
#include <vector>

#include "pim/arquivo.h"
#include "pim/erro.h"
#include "pim/listagem.h"
#include "pim/token.h"

void ContaForm(int /*argc*/, char** /*argv*/) {
  std::vector<std::string> nomes;
  pim::vsWildCard("*.ho2", nomes, false);
  std::string primeiroFechado;
  for (const std::string& nome : nomes) {
    const pim::ARQUIVO arquivo(std::fopen(nome.c_str(), "rt"));
    if (!arquivo) {
      if (primeiroFechado.empty()) primeiroFechado = nome;
      continue;
    }
    pim::pulaBrancos(arquivo.get(), nome);
    std::printf("%s ", nome.c_str());
    pim::copiaPalavra(arquivo.get(), stdout, nome);
    std::puts("");
    std::fflush(stdout);
  }
  if (!primeiroFechado.empty()) pim::erro("Erro abertura arquivo ", primeiroFechado);
}
