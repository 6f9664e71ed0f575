#pragma once

#include <cstdio>
#include <string>

#include "linha/ajuda.h"
#include "linha/geral.h"
#include "linha/linha.h"
#include "linha/traducao.h"

namespace linha {

// What the mains of the programs with options have in common. `erro` is what is wrong with the
// command line, if anything; `executa()` does the work and `recusa(text, status)` tells an error.
// Both return the exit status: `usoErrado` or `falhou` for what is refused here, 0 when all is
// well.
template <class OPCOES, class EXECUTA, class RECUSADOR>
int roda(const PROGRAMA& programa, const std::string& versao, const OPCOES& o,
         const std::string& erro, EXECUTA executa, RECUSADOR recusa) {
  constexpr int falhou = 1;
  constexpr int usoErrado = 2;
  int estado = 0;
  if (!erro.empty()) {
    estado = recusa(erro, usoErrado);
  } else if (o.ajuda) {
    std::fputs(ajuda(programa, o.idioma).c_str(), stdout);
  } else if (o.versao) {
    std::printf("%s %s\n", programa.nome, versao.c_str());
  } else {
    emSuaLingua(o.idioma, [&] { estado = executa(); });
  }
  const bool disse = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
  if (!disse && estado == 0) return recusa(diz(frases::saidaPadrao, o.idioma), falhou);
  return estado;
}

}  // namespace linha
