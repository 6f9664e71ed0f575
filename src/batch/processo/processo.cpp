#include "batch/processo/processo.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <list>
#include <opencv2/core.hpp>
#include <optional>
#include <sstream>
#include <string_view>
#include <vector>

#include "batch/pedido/frases.h"
#include "batch/processo/descritor.h"
#include "export/valor.h"
#include "fim/fim.h"
#include "linha/linha.h"
#include "linha/traducao.h"
#include "pim/erro.h"
#include "pim/texto.h"

namespace batch {
namespace {

constexpr std::string_view passando = "...";  // after what a process is about to do

constexpr char marcaDaParte = '\x1F';  // before how far a process is, in a line of its own

constexpr std::array<int, 3> fatais = {SIGINT, SIGTERM, SIGHUP};

// All that a signal handler can reach.
volatile std::sig_atomic_t interrompido = 0;  // NOLINT(cppcoreguidelines-avoid-non-const-*)

void anota(int /*sinal*/) {
  interrompido = 1;
}

void mascara(int como) {
  sigset_t conjunto;
  sigemptyset(&conjunto);
  for (const int sinal : fatais) sigaddset(&conjunto, sinal);
  sigprocmask(como, &conjunto, nullptr);
}

struct CANO {
  DESCRITOR leitura;
  DESCRITOR escrita;
};

CANO abreCano() {
  std::array<int, 2> fds{};
  if (pipe2(fds.data(), O_CLOEXEC) != 0) pim::erro("Erro: pipe: ", std::strerror(errno));
  return {DESCRITOR(fds[0]), DESCRITOR(fds[1])};
}

// The new process ends with the one that made it; if that has ended already, at once.
void ligaA(pid_t pai) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != pai) _exit(EXIT_FAILURE);
}

pid_t bifurca() {
  std::fflush(nullptr);  // else both would write what is pending
  const pid_t pid = fork();
  if (pid < 0) pim::erro("Erro: fork: ", std::strerror(errno));
  return pid;
}

constexpr std::size_t maiorFala = 65536;              // bytes kept of what a process says
constexpr std::size_t maiorMensagem = maiorFala / 2;  // of an error, so that it is kept whole
constexpr std::size_t maiorMotivo = 1000;             // of an error in a report

// The text, or its beginning and its end when it is longer than `maximo` bytes.
std::string encurtado(const std::string& texto, std::size_t maximo) {
  if (texto.size() <= maximo) return texto;
  const auto noMeio = [&](std::size_t i) { return (texto[i] & 0xC0) == 0x80; };  // of a character
  std::size_t de = maximo / 2;
  std::size_t ate = texto.size() - maximo / 2;
  for (int i = 0; i < 3 && noMeio(de); ++i) --de;
  for (int i = 0; i < 3 && noMeio(ate); ++i) ++ate;
  return texto.substr(0, de) + "..." + texto.substr(ate);
}

// Appends what can be read now and keeps the tail; false at the end.
bool escuta(int fd, std::string& fala) {
  std::array<char, 4096> bloco;
  const ssize_t n = read(fd, bloco.data(), bloco.size());
  if (n < 0) return errno == EINTR || errno == EAGAIN;
  const auto lidos = static_cast<std::size_t>(n);
  fala.append(bloco.data(), lidos);
  if (fala.size() > 2 * maiorFala) fala.erase(0, fala.size() - maiorFala);
  return n > 0;
}

// Takes the lines that tell how far the process is out of what it said; the last of them, if any.
std::optional<double> retiraParte(std::string& fala) {
  std::optional<double> parte;
  for (std::size_t de = 0; (de = fala.find(marcaDaParte, de)) != std::string::npos;) {
    const std::size_t fim = fala.find('\n', de);
    if (fim == std::string::npos) break;  // the rest is still to come
    double x = 0;
    if (pim::paraNumero(fala.substr(de + 1, fim - de - 1), x)) parte = std::clamp(x, 0.0, 1.0);
    fala.erase(de, fim + 1 - de);
  }
  return parte;
}

TERMINO recolhe(pid_t pid, std::string fala) {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) continue;
  TERMINO t;
  if (WIFEXITED(status)) t.estado = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) t.sinal = WTERMSIG(status);
  t.fala = std::move(fala);
  return t;
}

// A task that is running.
struct ATIVA {
  std::size_t indice = 0;
  pid_t pid = -1;
  DESCRITOR leitura;
  std::string fala;
};

// All exceptions end here: below lies what the process that made this one was doing.
int estadoDe(const TAREFAS& t, std::size_t indice) {
  try {
    return fim::executa([&] {
      try {
        return t.faz(indice);
      } catch (const pim::ERRO& e) {
        pim::erro(encurtado(linha::traduzida(e.mensagem, t.idioma), maiorMensagem));
      }
    });
  } catch (const std::exception& e) {
    return fim::executa([&]() -> int { pim::erro("Erro: ", e.what()); });
  }
}

[[noreturn]] void cumpre(const TAREFAS& t, std::size_t indice, int saida) {
  for (const int sinal : fatais) std::signal(sinal, SIG_DFL);
  std::signal(SIGPIPE, SIG_DFL);
  mascara(SIG_UNBLOCK);
  const rlimit nada = {0, 0};
  setrlimit(RLIMIT_CORE, &nada);  // a failed photograph leaves a message, not its memory
  const int vazio = open("/dev/null", O_RDONLY | O_CLOEXEC);
  dup2(vazio, STDIN_FILENO);
  dup2(saida, STDOUT_FILENO);
  dup2(saida, STDERR_FILENO);
  std::exit(estadoDe(t, indice));
}

// In a process group of its own, so that the task and those that it runs are ended together.
ATIVA comeca(const TAREFAS& t, std::size_t indice) {
  CANO cano = abreCano();
  const pid_t pai = getpid();
  const pid_t pid = bifurca();
  if (pid == 0) {
    setpgid(0, 0);
    ligaA(pai);
    cumpre(t, indice, cano.escrita.fd);
  }
  setpgid(pid, pid);
  return {indice, pid, std::move(cano.leitura), ""};
}

void mata(std::list<ATIVA>& ativas) {
  for (const ATIVA& a : ativas) kill(-a.pid, SIGKILL);
  for (ATIVA& a : ativas) {
    while (escuta(a.leitura.fd, a.fala)) continue;  // to the end of those that it runs too
    recolhe(a.pid, "");
  }
  ativas.clear();
}

// Waits until a task says something, a second has passed or a signal comes.
std::vector<pollfd> espera(const std::list<ATIVA>& ativas) {
  std::vector<pollfd> fds;
  for (const ATIVA& a : ativas) fds.push_back({a.leitura.fd, POLLIN, 0});
  const timespec segundo = {1, 0};
  sigset_t livre;
  sigprocmask(SIG_SETMASK, nullptr, &livre);
  for (const int sinal : fatais) sigdelset(&livre, sinal);
  if (ppoll(fds.data(), fds.size(), &segundo, &livre) < 0) fds.clear();
  return fds;
}

void atende(const TAREFAS& t, std::list<ATIVA>& ativas, const std::vector<pollfd>& fds) {
  auto ativa = ativas.begin();
  for (const pollfd& p : fds) {
    const auto esta = ativa++;
    if (p.revents == 0) continue;
    const bool vive = escuta(esta->leitura.fd, esta->fala);
    const std::optional<double> parte = retiraParte(esta->fala);
    if (parte && t.andou) t.andou(esta->indice, *parte);
    if (vive) continue;
    esta->leitura = DESCRITOR();
    t.acabou(esta->indice, recolhe(esta->pid, std::move(esta->fala)));
    ativas.erase(esta);
  }
}

}  // namespace

void preparaSinais() {
  std::signal(SIGPIPE, SIG_IGN);
  for (const int sinal : fatais) {
    struct sigaction acao {};
    sigaction(sinal, nullptr, &acao);
    if (acao.sa_handler == SIG_IGN) continue;
    acao.sa_handler = anota;
    acao.sa_flags = 0;
    sigaction(sinal, &acao, nullptr);
  }
  mascara(SIG_BLOCK);
}

namespace {

bool executaTodas(const TAREFAS& t, std::list<ATIVA>& ativas) {
  std::size_t proxima = 0;
  while (proxima < t.quantas || !ativas.empty()) {
    while (proxima < t.quantas && static_cast<int>(ativas.size()) < t.aoMesmoTempo) {
      if (t.comeca) t.comeca(proxima);
      ativas.push_back(comeca(t, proxima++));
    }
    atende(t, ativas, espera(ativas));
    if (interrompido != 0) {
      mata(ativas);
      return false;
    }
    if (t.passaTempo) t.passaTempo();
  }
  return true;
}

}  // namespace

bool executaTarefas(const TAREFAS& t) {
  std::list<ATIVA> ativas;
  try {
    return executaTodas(t, ativas);
  } catch (...) {
    mata(ativas);
    throw;
  }
}

void anuncia(const std::string& passo) {
  std::printf("%s%s\n", passo.c_str(), passando.data());
  std::fflush(stdout);  // known even if this process does not come far
}

void anunciaParte(double parte) {
  std::printf("%c%.4f\n", marcaDaParte, parte);
  std::fflush(stdout);
}

std::string emUmaLinha(const std::string& texto) {
  std::string s = exporta::emUtf8(texto);
  for (char& c : s) {
    if (static_cast<unsigned char>(c) < ' ' || c == 127) c = '?';
  }
  return s;
}

std::string motivo(const TERMINO& t, const std::string& quem, exporta::IDIOMA idioma) {
  std::istringstream linhas(t.fala);
  std::string achada;
  std::string ocupado = quem;
  for (std::string dita; std::getline(linhas, dita);) {
    const std::string linha = linha::traduzida(dita, idioma);
    for (const char* erro : {linha::frases::erro.pt, linha::frases::erro.en}) {
      if (linha.starts_with(erro)) achada = linha.substr(std::strlen(erro));
    }
    if (linha.starts_with("Erro ")) achada = linha;
    if (linha.ends_with(passando)) ocupado = linha.substr(0, linha.size() - passando.size());
  }
  if (!achada.empty()) return emUmaLinha(encurtado(achada, maiorMotivo));
  if (t.sinal != 0) {
    return cv::format(diz(falas::porSinal, idioma), ocupado.c_str(), t.sinal,
                      linha::nomeDoSinal(t.sinal, idioma).c_str());
  }
  return cv::format(diz(falas::porEstado, idioma), ocupado.c_str(), t.estado);
}

}  // namespace batch
