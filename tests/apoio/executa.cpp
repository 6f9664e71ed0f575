#include "apoio/executa.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "apoio/pasta.h"

namespace {

void redireciona(const char* nome, int modo, int destino) {
  const int fd = open(nome, modo, 0600);
  dup2(fd, destino);
  close(fd);
}

[[noreturn]] void filho(const std::vector<std::string>& args,
                        const std::vector<std::string>& entorno, int segundos,
                        const std::string& saida, const std::string& erro) {
  redireciona("/dev/null", O_RDONLY, 0);
  redireciona(saida.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 1);
  redireciona(erro.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 2);
  for (const std::string& par : entorno) {
    const std::size_t igual = par.find('=');
    setenv(par.substr(0, igual).c_str(), par.substr(igual + 1).c_str(), 1);
  }
  const std::string limite = std::to_string(segundos);
  std::vector<std::string> linha = {"timeout", "-s", "KILL", limite, VORPLEX_EXECUTAVEL};
  if (segundos <= 0) linha.erase(linha.begin(), linha.begin() + 4);
  linha.insert(linha.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& a : linha) argv.push_back(a.data());
  argv.push_back(nullptr);
  execvp(argv[0], argv.data());
  _exit(127);
}

std::string nomeTemporario() {
  std::string modelo = (std::filesystem::temp_directory_path() / "vorplex-saida-XXXXXX").string();
  const int fd = mkstemp(modelo.data());
  if (fd < 0) throw std::runtime_error("mkstemp");
  close(fd);
  return modelo;
}

}  // namespace

EXECUCAO executa(const std::vector<std::string>& args, const std::vector<std::string>& entorno,
                 int segundos) {
  const std::string saida = nomeTemporario();
  const std::string erro = nomeTemporario();
  const pid_t pid = fork();
  if (pid == 0) filho(args, entorno, segundos, saida, erro);
  int status = 0;
  waitpid(pid, &status, 0);
  EXECUCAO e;
  if (WIFEXITED(status)) e.estado = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) e.sinal = WTERMSIG(status);
  // `timeout` passes a signal on as 128 + its number.
  if (e.estado > 128) {
    e.sinal = e.estado - 128;
    e.estado = -1;
  }
  e.saida = leTudo(saida);
  e.erro = leTudo(erro);
  std::filesystem::remove(saida);
  std::filesystem::remove(erro);
  return e;
}

std::string miolo(const EXECUCAO& e) {
  std::string texto = e.saida;
  if (texto.starts_with(titulo)) texto.erase(0, titulo.size());
  const std::size_t tempo = texto.rfind("Tempo gasto: ");
  const std::size_t fim = tempo == std::string::npos ? tempo : texto.find('\n', tempo);
  if (fim != std::string::npos && fim + 1 == texto.size()) texto.erase(tempo);
  return texto;
}
