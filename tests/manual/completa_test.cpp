#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <thread>

#include "apoio/pasta.h"
#include "apoio/terminal.h"
#include "tem.h"

// The completions in the shells themselves, as one who types in a terminal sees them.

namespace fs = std::filesystem;

namespace {

const std::string compartilhado = VORPLEX_SHARE;

// What a shell reads before anything is typed: the completions, and a key that writes down the line
// as it stands.
std::string preparoDoBash() {
  std::string s = "PS1=; LC_ALL=C\n";
  for (const char* p :
       {"Vorplex", "vorplex-lote", "vorplex-apura", "vorplex-mapa", "vorplex-sugere"}) {
    s += "source '" + compartilhado + "/bash/" + p + "'\n";
  }
  return s +
         "anota() { printf %s \"$READLINE_LINE\" >linha.parcial; mv linha.parcial linha; }\n"
         "bind -x '\"\\C-]\": anota' 2>/dev/null\n"
         "bind 'set bell-style none' 2>/dev/null\n";
}

std::string preparoDoZsh() {
  return "PROMPT=; LC_ALL=C; unsetopt beep\nfpath=('" + compartilhado +
         "/zsh' $fpath)\nautoload -Uz compinit; compinit -D -u\n"
         "anota() { print -rn -- $BUFFER >linha.parcial; mv linha.parcial linha }\n"
         "zle -N anota; bindkey '^]' anota; bindkey '^I' complete-word\n";
}

// A shell in a terminal.
struct CONCHA {
  TERMINAL terminal;
  pid_t pid = -1;

  CONCHA(const std::vector<std::string>& comando, const std::string& preparo)
      : terminal(abreTerminal()), pid(fork()) {
    grava("preparo", preparo);
    if (pid == 0) vive(comando);
    diga("source ./preparo; touch pronta\n");
    espera("pronta");
  }
  CONCHA(const CONCHA&) = delete;
  CONCHA& operator=(const CONCHA&) = delete;
  ~CONCHA() {
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
    close(terminal.mestre);
  }

  [[noreturn]] void vive(std::vector<std::string> comando) const {
    setsid();
    const int fd = open(terminal.nome.c_str(), O_RDWR);
    for (const int n : {0, 1, 2}) dup2(fd, n);
    setenv("TERM", "dumb", 1);
    setenv("HOME", fs::current_path().c_str(), 1);
    std::vector<char*> argv;
    for (std::string& s : comando) argv.push_back(s.data());
    argv.push_back(nullptr);
    execvp(argv[0], argv.data());
    _exit(127);
  }

  void diga(const std::string& teclas) const {
    if (write(terminal.mestre, teclas.data(), teclas.size()) < 0) ADD_FAILURE();
  }

  // Until the file is there; what the terminal shows is read away meanwhile.
  void espera(const std::string& arquivo) const {
    using namespace std::chrono_literals;
    fcntl(terminal.mestre, F_SETFL, O_NONBLOCK);
    std::array<char, 4096> bloco;
    for (int i = 0; i < 6000 && !existe(arquivo); ++i) {
      while (read(terminal.mestre, bloco.data(), bloco.size()) > 0) continue;
      std::this_thread::sleep_for(5ms);
    }
    EXPECT_TRUE(existe(arquivo)) << arquivo;
  }

  // The line after `texto` and the key that completes.
  std::string completa(const std::string& texto) const {
    constexpr const char* apagaTudo = "\x05\x15";
    fs::remove("linha");
    diga(apagaTudo + texto + "\t\x1D");
    espera("linha");
    return leTudo("linha");
  }
};

struct CASO {
  std::string digitado;
  std::string completado;
};

const std::vector<CASO> casos = {
    {"vorplex-lote --met", "vorplex-lote --metodo"},
    {"vorplex-lote --metodo cl", "vorplex-lote --metodo classico "},
    {"vorplex-lote -w vo", "vorplex-lote -w volume "},
    {"vorplex-lote f", "vorplex-lote foto.PNG "},
    {"vorplex-lote k", "vorplex-lote kernel.cfg "},
    {"vorplex-lote kernel.cfg f", "vorplex-lote kernel.cfg foto.PNG "},
    {"vorplex-lote -e 1mm kernel.cfg f", "vorplex-lote -e 1mm kernel.cfg foto.PNG "},
    {"vorplex-lote kernel.cfg n", "vorplex-lote kernel.cfg n"},
    {"vorplex-lote kernel.cfg dois\\ n", "vorplex-lote kernel.cfg dois\\ nomes.jpg "},
    {"vorplex-lote -o p", "vorplex-lote -o pasta/"},
    {"vorplex-lote --saida=p", "vorplex-lote --saida=pasta/"},
    {"vorplex-apura --sensi", "vorplex-apura --sensibilidade"},
    {"vorplex-apura foto.PNG l", "vorplex-apura foto.PNG lista.ho1 "},
    {"Vorplex oldc", "Vorplex oldcorrela "},
    {"Vorplex OLD", "Vorplex oldcorrela "},
    {"Vorplex correla f", "Vorplex correla foto.PNG "},
    {"Vorplex Correla foto.PNG k", "Vorplex Correla foto.PNG kernel.cfg "},
    {"Vorplex FILTRA foto.PNG l", "Vorplex FILTRA foto.PNG lista.ho1 "},
};

void enche() {
  for (const char* nome :
       {"kernel.cfg", "foto.PNG", "dois nomes.jpg", "lista.ho1", "notas.txt", "n.dat"}) {
    grava(nome, "");
  }
  fs::create_directory("pasta");
}

void confere(const CONCHA& concha) {
  for (const CASO& c : casos) {
    std::string linha = concha.completa(c.digitado);
    // Where a value is to follow, the shells end the name of an option in their own ways.
    if (!c.completado.ends_with(' ') && (linha.ends_with('=') || linha.ends_with(' '))) {
      linha.pop_back();
    }
    EXPECT_EQ(linha, c.completado) << c.digitado;
  }
}

TEST(Completa, NoBash) {
  if (!haTerminal()) GTEST_SKIP() << "there is no terminal to be had here";
  const PASTA pasta;
  enche();
  const CONCHA concha({"bash", "--norc", "--noprofile", "-i"}, preparoDoBash());
  confere(concha);
  EXPECT_EQ(concha.completa("vorplex-lote --outp"), "vorplex-lote --output ");
}

TEST(Completa, NoZsh) {
  if (!haTerminal()) GTEST_SKIP() << "there is no terminal to be had here";
  if (!tem("zsh")) GTEST_SKIP() << "there is no zsh here";
  const PASTA pasta;
  enche();
  confere(CONCHA({"zsh", "-f", "-i"}, preparoDoZsh()));
}

std::string fish(const std::string& digitado, const std::string& lingua) {
  std::string comando = "LC_ALL=" + lingua + " HOME=$PWD fish -N -c 'for p in " + compartilhado +
                        "/fish/*.fish; source $p; end; complete -C\"" + digitado + "\"' 2>&1";
  std::string saida;
  FILE* f = popen(comando.c_str(), "r");
  for (int c = 0; (c = std::fgetc(f)) != EOF;) saida += static_cast<char>(c);
  EXPECT_EQ(pclose(f), 0) << digitado;
  return saida;
}

// The words offered, without their descriptions.
std::vector<std::string> ofertas(const std::string& digitado, const std::string& lingua = "C") {
  std::vector<std::string> v;
  std::istringstream linhas(fish(digitado, lingua));
  for (std::string l; std::getline(linhas, l);) v.push_back(l.substr(0, l.find('\t')));
  return v;
}

TEST(Completa, NoFish) {
  if (!tem("fish")) GTEST_SKIP() << "there is no fish here";
  using TEXTOS = std::vector<std::string>;
  const PASTA pasta;
  enche();
  EXPECT_EQ(ofertas("vorplex-lote --met"), TEXTOS{"--metodo"});
  EXPECT_EQ(ofertas("vorplex-lote --meth", "en_US"), TEXTOS{"--method"});
  EXPECT_EQ(ofertas("vorplex-lote --metodo cl"), TEXTOS{"classico"});
  EXPECT_EQ(ofertas("vorplex-lote -o p"), TEXTOS{"pasta/"});
  EXPECT_EQ(ofertas("vorplex-lote k"), TEXTOS{"kernel.cfg"});
  EXPECT_EQ(ofertas("vorplex-lote -e 1mm kernel.cfg f"), TEXTOS{"foto.PNG"});
  EXPECT_EQ(ofertas("vorplex-lote kernel.cfg n"), TEXTOS{});
  EXPECT_EQ(ofertas("vorplex-apura foto.PNG l"), TEXTOS{"lista.ho1"});
  EXPECT_EQ(ofertas("Vorplex oldc"), TEXTOS{"oldcorrela"});
  EXPECT_EQ(ofertas("Vorplex OLD"), TEXTOS{"oldcorrela"});
  EXPECT_EQ(ofertas("Vorplex Correla foto.PNG k"), TEXTOS{"kernel.cfg"});
}

}  // namespace
