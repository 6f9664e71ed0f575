#include "shell/ajuda.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "linha/ajuda.h"
#include "linha/geral.h"
#include "linha/linha.h"
#include "pim/texto.h"
#include "shell/tabela.h"

namespace shell {
namespace {

struct PEDIDO {
  exporta::IDIOMA idioma = linha::idiomaDoAmbiente();
  bool quieto = false;
  bool ajuda = false;
  bool versao = false;
};

}  // namespace

bool pedeAjuda(int argc, char** argv) {
  constexpr std::array<std::string_view, 6> pedidos = {"-h", "--ajuda",  "--help",
                                                       "-V", "--versao", "--version"};
  return argc >= 2 && std::find(pedidos.begin(), pedidos.end(), argv[1]) != pedidos.end();
}

int mostraAjuda(int argc, char** argv) {
  PEDIDO p;
  std::vector<std::string> palavras(argv, argv + argc);
  const linha::RECUSA recusa =
      linha::leOpcoes(palavras, programa, [&p](const linha::OPCAO& o, const std::string& valor) {
        return linha::guardaGeral(o.letra, valor, p);
      });
  if (recusa.frase != nullptr) {
    const std::string porque = pim::semControles(linha::motivo(recusa, p.idioma));
    std::fprintf(stderr, "%s%s\n", diz(linha::frases::erro, p.idioma), porque.c_str());
    return 2;
  }
  if (p.ajuda) {
    std::fputs(linha::ajuda(programa, p.idioma).c_str(), stdout);
  } else {
    std::printf("%s %s\n", programa.nome, VORPLEX_VERSAO);
  }
  return 0;
}

}  // namespace shell
