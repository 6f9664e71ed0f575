#include "bench/partes.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <random>

#include "detect/correlacao.h"
#include "detect/ordenacao.h"
#include "detect/piramide.h"
#include "kernels/grupos.h"
#include "kernels/lekernels.h"
#include "motor/caminho.h"
#include "pim/imagem.h"
#include "referencia/correlacao.h"
#include "referencia/proximos.h"

namespace {

struct BANCO {
  const char* nome;
  const char* texto;  // of its kernel.cfg
  int passo;          // every how many groups one is timed
};

constexpr BANCO bancos[] = {
    {"circulo 21 quadrado 20 retangulo 30 12 elipse 30 18",
     "circulo 21 quadrado 20 retangulo 30 12 elipse 30 18", 7},
    {"kernels de 120 px", "circulo 120 quadrado 120 retangulo 120 48 elipse 120 72", 9},
    {"kernels de 240 px", "circulo 240 quadrado 240 retangulo 240 96 elipse 240 144", 11},
    {"kernels de 5 a 10 px", "circulo 10 quadrado 10 retangulo 10 5 elipse 10 6", 7}};

std::vector<MASCARA> leBanco(const BANCO& banco) {
  std::ofstream("banco.cfg") << banco.texto << '\n';
  std::vector<MASCARA> kernels;
  leKernels("banco.cfg", kernels);
  return kernels;
}

// Calls `acao(first, last)` for every n-th group of kernels.
template <class ACAO>
void paraGrupos(const std::vector<MASCARA>& kernels, int passo, ACAO acao) {
  const std::vector<kernels::GRUPO> grupos = kernels::grupos(kernels);
  for (std::size_t i = 0; i < grupos.size(); i += static_cast<std::size_t>(passo)) {
    acao(grupos[i].primeiro, grupos[i].ultimo);
  }
}

void correlaRapida(benchmark::State& estado, const PIRAMIDE& piramide, const BANCO& banco) {
  const std::vector<MASCARA> kernels = leBanco(banco);
  MELHORCORREL melhor;
  MELHORKERNEL qual;
  const NIVEIS niveis = preparaNiveis(piramide);  // once a run, whatever the number of groups
  for (auto vez : estado) {
    paraGrupos(kernels, banco.passo,
               [&](int de, int ate) { correlaGrupo(niveis, kernels, de, ate, melhor, qual); });
  }
}

// What correlaRapida does, in the instructions named.
void correlaCom(benchmark::State& estado, const PIRAMIDE& piramide, const BANCO& banco,
                const motor::AVALIADOR& avaliador) {
  const std::vector<MASCARA> kernels = leBanco(banco);
  const NIVEIS niveis = preparaNiveis(piramide);
  for (auto vez : estado) {
    paraGrupos(kernels, banco.passo, [&](int de, int ate) {
      const auto grupo = motor::preparaGrupo(kernels, de, ate);
      for (std::size_t L = 0; L < niveis.size(); ++L) {
        cv::Mat_<float> melhor;
        cv::Mat_<int> qual;
        motor::correlaCom(avaliador, *niveis[L], static_cast<int>(L), *grupo, melhor, qual);
      }
    });
  }
}

void correlaSimples(benchmark::State& estado, const PIRAMIDE& piramide, const BANCO& banco) {
  const std::vector<MASCARA> kernels = leBanco(banco);
  MELHORCORREL melhor;
  MELHORKERNEL qual;
  for (auto vez : estado) {
    paraGrupos(kernels, banco.passo, [&](int de, int ate) {
      referencia::correlaGrupo(piramide, kernels, de, ate, melhor, qual);
    });
  }
}

std::vector<MAXLOCAL> registros(int n) {
  std::mt19937 g(1);
  std::vector<MAXLOCAL> v;
  v.reserve(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) {
    v.push_back({static_cast<float>(g() % 1000000) / 1e6F, "cqre"[g() % 4],
                 static_cast<int>(g() % 3000), static_cast<int>(g() % 4000), 20, 20, 0});
  }
  ordena(v, 0, n - 1);
  return v;
}

using ELIMINA = void (*)(const std::vector<MAXLOCAL>&, std::vector<MAXLOCAL>&, int);

void elimina(benchmark::State& estado, int n, ELIMINA operacao) {
  const std::vector<MAXLOCAL> v = registros(n);
  std::vector<MAXLOCAL> saida;
  for (auto vez : estado) operacao(v, saida, 2);
}

// Keeps the time of every benchmark by its name.
class COLETOR : public benchmark::BenchmarkReporter {
 public:
  std::map<std::string, double> segundos;

  bool ReportContext(const Context& /*contexto*/) override { return true; }
  void ReportRuns(const std::vector<Run>& corridas) override {
    for (const Run& r : corridas) {
      segundos[r.run_name.function_name] = r.GetAdjustedRealTime();
      std::fprintf(stderr, "  %s: %.3f s\n", r.run_name.function_name.c_str(),
                   r.GetAdjustedRealTime());
    }
  }
};

template <class ACAO>
void registra(const std::string& nome, ACAO acao) {
  benchmark::RegisterBenchmark(nome.c_str(), acao)->Iterations(1)->Unit(benchmark::kSecond);
}

// What is timed lives until the benchmarks have run.
void registraPartes(const PIRAMIDE& piramide, const std::vector<motor::AVALIADOR>& conjuntos) {
  for (const BANCO& banco : bancos) {
    const std::string nome = banco.nome;
    registra("rapida " + nome, [&](auto& e) { correlaRapida(e, piramide, banco); });
    registra("simples " + nome, [&](auto& e) { correlaSimples(e, piramide, banco); });
  }
  for (std::size_t i = 1; i < conjuntos.size(); ++i) {
    registra(std::string("rapida em ") + conjuntos[i].nome,
             [&, i](auto& e) { correlaCom(e, piramide, bancos[0], conjuntos[i]); });
  }
  registra("rapida 10^6", [](auto& e) { elimina(e, 1000000, eliminaProximo); });
  registra("simples 10^6", [](auto& e) { elimina(e, 1000000, referencia::eliminaProximo); });
  registra("rapida 10^7", [](auto& e) { elimina(e, 10000000, eliminaProximo); });
}

std::vector<LINHA> linhasDasPartes(std::map<std::string, double>& segundos,
                                   const std::vector<motor::AVALIADOR>& conjuntos) {
  std::vector<LINHA> linhas;
  for (const BANCO& banco : bancos) {
    const std::string nome = banco.nome;
    linhas.push_back({"correlation, 12 MP: " + nome, segundos["simples " + nome],
                      segundos["rapida " + nome], ""});
  }
  for (std::size_t i = 1; i < conjuntos.size(); ++i) {
    linhas.push_back({std::string("the first of these in ") + conjuntos[i].nome,
                      segundos[std::string("simples ") + bancos[0].nome],
                      segundos[std::string("rapida em ") + conjuntos[i].nome], ""});
  }
  const double milhao = segundos["rapida 10^6"];
  const double dezMilhoes = segundos["rapida 10^7"];
  linhas.push_back(
      {"near duplicates, 10^6 records on 12 MP", segundos["simples 10^6"], milhao, ""});
  char nota[64];
  std::snprintf(nota, sizeof nota, "%.1f times that of 10^6", dezMilhoes / milhao);
  linhas.push_back({"near duplicates, 10^7 records on 12 MP", 0, dezMilhoes, nota});
  return linhas;
}

}  // namespace

std::vector<LINHA> medePartes(const std::string& cena) {
  cv::Mat_<unsigned char> cinza;
  pim::le(cinza, cena);
  PIRAMIDE piramide;
  constroiPiramide(piramide, detect::emReais(cinza), 4);
  const std::vector<motor::AVALIADOR> conjuntos = motor::avaliadores();
  registraPartes(piramide, conjuntos);
  COLETOR coletor;
  benchmark::RunSpecifiedBenchmarks(&coletor);
  return linhasDasPartes(coletor.segundos, conjuntos);
}
