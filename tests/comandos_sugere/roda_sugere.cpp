#include "roda_sugere.h"

#include <sys/wait.h>

#include <cstdlib>

#include "apoio/pasta.h"

namespace {

std::string entreAspas(const std::string& s) {
  std::string r = "'";
  for (const char c : s) r += c == '\'' ? "'\\''" : std::string(1, c);
  return r + "'";
}

}  // namespace

CORRIDA rodaSugere(const std::vector<std::string>& args, const std::string& mais,
                   const std::string& antes) {
  const PASTA saidas;
  const std::string pasta = saidas.caminho.string();
  std::string linha = "export LC_ALL=C; cd " + entreAspas(saidas.anterior.string()) + "; " + antes +
                      " " + entreAspas(VORPLEX_SUGERE);
  for (const std::string& a : args) linha += ' ' + entreAspas(a);
  linha += " </dev/null >" + pasta + "/saida 2>" + pasta + "/erro " + mais;
  const int status = std::system(linha.c_str());
  CORRIDA c;
  if (WIFEXITED(status)) c.estado = WEXITSTATUS(status);
  if (c.estado > 128) c.estado = -1;  // what the shell makes of a signal
  c.saida = leTudo(pasta + "/saida");
  c.erro = leTudo(pasta + "/erro");
  return c;
}
