#include "apoio/executa.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>
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

// Takes from the programs that this process will start the powers to open any file; false when that
// can't be done. Only the superuser has them.
bool largaPoderes() {
  if (geteuid() != 0) return true;
  return prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0) == 0 &&
         prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH, 0, 0, 0) == 0;
}

struct PEDIDO {
  const std::vector<std::string>& args;
  const std::vector<std::string>& entorno;
  int segundos = 60;
  bool semPoderes = false;
};

[[noreturn]] void filho(const PEDIDO& p, const std::string& saida, const std::string& erro) {
  if (p.semPoderes && !largaPoderes()) _exit(126);
  redireciona("/dev/null", O_RDONLY, 0);
  redireciona(saida.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 1);
  redireciona(erro.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 2);
  for (const std::string& par : p.entorno) {
    const std::size_t igual = par.find('=');
    setenv(par.substr(0, igual).c_str(), par.substr(igual + 1).c_str(), 1);
  }
  const std::string limite = std::to_string(p.segundos);
  std::vector<std::string> linha = {"timeout", "-s", "KILL", limite, VORPLEX_EXECUTAVEL};
  if (p.segundos <= 0) linha.erase(linha.begin(), linha.begin() + 4);
  linha.insert(linha.end(), p.args.begin(), p.args.end());
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

double segundosDe(const timeval& t) {
  return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec);
}

EXECUCAO roda(const PEDIDO& pedido) {
  const std::string saida = nomeTemporario();
  const std::string erro = nomeTemporario();
  const pid_t pid = fork();
  if (pid == 0) filho(pedido, saida, erro);
  int status = 0;
  rusage uso{};
  wait4(pid, &status, 0, &uso);
  EXECUCAO e;
  e.cpu = segundosDe(uso.ru_utime) + segundosDe(uso.ru_stime);
  e.memoria = uso.ru_maxrss * 1024;
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

}  // namespace

EXECUCAO executa(const std::vector<std::string>& args, const std::vector<std::string>& entorno,
                 int segundos) {
  return roda({args, entorno, segundos});
}

EXECUCAO executaSemPoderes(const std::vector<std::string>& args) {
  return roda({args, {}, 60, true});
}

bool perdePoderes() {
  const pid_t pid = fork();
  if (pid == 0) _exit(largaPoderes() ? 0 : 1);
  int status = 0;
  waitpid(pid, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::string miolo(const EXECUCAO& e) {
  std::string texto = e.saida;
  if (texto.starts_with(titulo)) texto.erase(0, titulo.size());
  const std::size_t tempo = texto.rfind("Tempo gasto: ");
  const std::size_t fim = tempo == std::string::npos ? tempo : texto.find('\n', tempo);
  if (fim != std::string::npos && fim + 1 == texto.size()) texto.erase(tempo);
  return texto;
}
