#include "bench/corridas.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <random>

namespace {

constexpr const char* banco = "circulo 21 quadrado 20 retangulo 30 12 elipse 30 18\n";

std::string nota(const CORRIDA& simples, const CORRIDA& rapida) {
  std::array<char, 96> texto;
  std::snprintf(texto.data(), texto.size(), "memory %.0f MB, plain %.0f MB", rapida.megabytes,
                simples.megabytes);
  return texto.data();
}

CORRIDA mediana(std::vector<CORRIDA> v) {
  const auto meio = v.begin() + static_cast<std::ptrdiff_t>(v.size() / 2);
  std::nth_element(v.begin(), meio, v.end(),
                   [](const CORRIDA& a, const CORRIDA& b) { return a.segundos < b.segundos; });
  return *meio;
}

// Both forms in turn, `vezes` times; the median of each.
LINHA compara(const std::string& trabalho, const std::vector<std::string>& rapida,
              const std::vector<std::string>& simples, std::size_t vezes = 1) {
  std::fprintf(stderr, "  %s\n", trabalho.c_str());
  std::vector<CORRIDA> r(vezes);
  std::vector<CORRIDA> s(vezes);
  for (std::size_t i = 0; i < vezes; ++i) {
    r[i] = corre(rapida);
    s[i] = corre(simples);
  }
  return {trabalho, mediana(s).segundos, mediana(r).segundos, nota(mediana(s), mediana(r))};
}

// The median of several runs, for those that take milliseconds.
LINHA curta(const std::string& trabalho, const std::vector<std::string>& linha) {
  std::vector<CORRIDA> v(21);
  for (CORRIDA& c : v) c = corre(linha);
  return {trabalho, 0, mediana(v).segundos, "median of 21"};
}

// `n` detections of the bank's shapes spread over 12 MP, best first.
void gravaLista(const std::string& nome, int n) {
  std::mt19937 g(2);
  std::ofstream f(nome);
  f << n << "\n//correl f    l    c       d1       d2 deg\n";
  for (int i = 0; i < n; ++i) {
    f << 0.9 - i * 8e-6 << ' ' << "cqre"[g() % 4] << ' ' << g() % 3000 << ' ' << g() % 4000 << ' '
      << 12 + g() % 18 << ' ' << 8 + g() % 10 << ' ' << 10 * (g() % 18) << '\n';
  }
}

}  // namespace

CORRIDA corre(const std::vector<std::string>& linha) {
  const auto inicio = std::chrono::steady_clock::now();
  const pid_t pid = fork();
  if (pid == 0) {
    const int nada = open("/dev/null", O_WRONLY);
    dup2(nada, STDOUT_FILENO);
    dup2(nada, STDERR_FILENO);
    const std::string programa = std::string(VORPLEX_PASTA) + "/" + linha[0];
    std::vector<std::string> textos = linha;
    std::vector<char*> argv;
    argv.reserve(textos.size() + 1);
    for (std::string& t : textos) argv.push_back(t.data());
    argv.push_back(nullptr);
    execv(programa.c_str(), argv.data());
    _exit(127);
  }
  int estado = 0;
  rusage uso{};
  wait4(pid, &estado, 0, &uso);
  const std::chrono::duration<double> tempo = std::chrono::steady_clock::now() - inicio;
  return {tempo.count(), static_cast<double>(uso.ru_maxrss) / 1024};
}

std::vector<LINHA> medeCorridas() {
  std::ofstream("banco.cfg") << banco;
  std::ofstream("seis.cfg") << "circulo 21\n";
  corre({"cena", "c3.pgm", "c3.csv", "1536", "2048"});
  corre({"cena", "c1.pgm", "c1.csv", "1000", "1500"});
  corre({"cena", "c0.pgm", "c0.csv", "100", "100"});
  gravaLista("lista.ho1", 100000);
  gravaLista("curta.ho2", 200);
  std::vector<LINHA> linhas;
  linhas.push_back(compara("correla, 3 MP, minCorr 0.1",
                           {"Vorplex", "correla", "c3.pgm", "banco.cfg", "r.ho1", "0.1"},
                           {"simples", "correla", "c3.pgm", "banco.cfg", "s.ho1", "0.1"}));
  linhas.push_back(compara("correla, 1.5 MP, minCorr 0.001",
                           {"Vorplex", "correla", "c1.pgm", "banco.cfg", "r.ho1", "0.001"},
                           {"simples", "correla", "c1.pgm", "banco.cfg", "s.ho1", "0.001"}));
  linhas.push_back(compara("filtra, 12 MP, 10^5 records",
                           {"Vorplex", "filtra", "c12.pgm", "lista.ho1", "r.ho2"},
                           {"simples", "filtra", "c12.pgm", "lista.ho1", "s.ho2"}, 5));
  linhas.push_back(curta("relat, 200 records", {"Vorplex", "relat", "curta.ho2", "r.rel"}));
  linhas.push_back(curta("contaform", {"Vorplex", "contaform"}));
  linhas.push_back(curta("usage error", {"Vorplex"}));
  linhas.push_back(curta("correla, 100 x 100 PGM, 6 kernels",
                         {"Vorplex", "correla", "c0.pgm", "seis.cfg", "r.ho1"}));
  return linhas;
}
