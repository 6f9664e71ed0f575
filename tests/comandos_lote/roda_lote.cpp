#include "roda_lote.h"

#include <sstream>

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "apoio/pasta.h"

namespace fs = std::filesystem;

namespace {

std::string temporario() {
  std::string modelo = (fs::temp_directory_path() / "vorplex-lote-XXXXXX").string();
  close(mkstemp(modelo.data()));
  return modelo;
}

[[noreturn]] void filho(const std::vector<std::string>& args, const MODO& modo, const LANCADA& l) {
  if (modo.semPoderes) {
    prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
    prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH, 0, 0, 0);
  }
  if (modo.maiorArquivo > 0) {
    const auto limite = static_cast<rlim_t>(modo.maiorArquivo);
    const rlimit r = {limite, limite};
    setrlimit(RLIMIT_FSIZE, &r);
    std::signal(SIGXFSZ, SIG_IGN);
  }
  std::signal(SIGINT, SIG_DFL);
  setenv("LC_ALL", modo.ambiente.c_str(), 1);
  const std::string saida = modo.terminal ? l.terminal.nome : l.saida;
  dup2(open(modo.entrada.empty() ? "/dev/null" : modo.entrada.c_str(), O_RDONLY), 0);
  dup2(open(saida.c_str(), O_WRONLY | O_NOCTTY), 1);
  dup2(open(l.erro.c_str(), O_WRONLY), 2);
  std::vector<std::string> linha = {VORPLEX_LOTE};
  linha.insert(linha.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& s : linha) argv.push_back(s.data());
  argv.push_back(nullptr);
  execv(argv[0], argv.data());
  _exit(127);
}

std::string leTerminal(int mestre) {
  std::string tudo;
  std::array<char, 4096> bloco;
  for (ssize_t n = 0; (n = read(mestre, bloco.data(), bloco.size())) > 0;) {
    tudo.append(bloco.data(), static_cast<std::size_t>(n));
  }
  close(mestre);
  return tudo;
}

}  // namespace

LANCADA lancaLote(const std::vector<std::string>& args, const MODO& modo) {
  LANCADA l;
  l.saida = temporario();
  l.erro = temporario();
  if (modo.terminal) l.terminal = abreTerminal();
  l.pid = fork();
  if (l.pid == 0) filho(args, modo, l);
  return l;
}

CORRIDA esperaLote(const LANCADA& l) {
  CORRIDA c;
  if (l.terminal.mestre >= 0) c.saida = leTerminal(l.terminal.mestre);
  int status = 0;
  waitpid(l.pid, &status, 0);
  if (WIFEXITED(status)) c.estado = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) c.sinal = WTERMSIG(status);
  c.saida += leTudo(l.saida);
  c.erro = leTudo(l.erro);
  fs::remove(l.saida);
  fs::remove(l.erro);
  return c;
}

CORRIDA rodaLote(const std::vector<std::string>& args, const MODO& modo) {
  return esperaLote(lancaLote(args, modo));
}

std::map<std::string, std::string> arvore(const std::string& pasta) {
  std::map<std::string, std::string> m;
  for (const auto& e : fs::recursive_directory_iterator(pasta)) {
    if (e.is_regular_file()) {
      m[fs::relative(e.path(), pasta).string()] = leTudo(e.path().string());
    }
  }
  return m;
}

std::vector<std::string> dentroDe(const std::string& pasta) {
  std::vector<std::string> v;
  for (const auto& e : fs::directory_iterator(pasta)) v.push_back(e.path().filename().string());
  std::sort(v.begin(), v.end());
  return v;
}

std::string semAvisos(const std::string& erro) {
  std::string s;
  std::istringstream linhas(erro);
  for (std::string linha; std::getline(linhas, linha);) {
    const bool aviso = linha.starts_with("Aviso: ") || linha.starts_with("Warning: ");
    if (!aviso) s += linha + '\n';
  }
  return s;
}
