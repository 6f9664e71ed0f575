#include "report/relat.h"

#include <cmath>
#include <cstdio>
#include <limits>

#include "pim/arquivo.h"
#include "pim/erro.h"

namespace {

double areaInteira(double area, const MAXLOCAL& m, const std::string& nome, std::size_t k) {
  const double inteira = std::nearbyint(area);
  constexpr double menor = std::numeric_limits<int>::min();
  constexpr double maior = std::numeric_limits<int>::max();
  if (!(inteira >= menor && inteira <= maior)) {
    pim::erro("Erro: Area fora do intervalo ", cv::format("%c %g %g", m.forma, m.d1, m.d2),
              lugarDoRegistro(nome, k));
  }
  return inteira + 0.0;  // no negative zero
}

void impTabela(std::FILE* f, const char* titulo, const std::map<double, int>& tabela) {
  std::fprintf(f, "%s\n", titulo);
  std::fprintf(f, "%6s %6s\n", "area", "quant");
  for (const auto& [area, quantos] : tabela) std::fprintf(f, "%6.0f %6d\n", area, quantos);
}

}  // namespace

TABELAS contaAreas(const std::vector<MAXLOCAL>& v, const std::string& nome) {
  constexpr double pi = 3.141592653589793;
  TABELAS tabelas;
  for (std::size_t k = 0; k < v.size(); ++k) {
    const MAXLOCAL& m = v[k];
    if (m.forma == 'c') {
      const double raio = m.d1 * 0.5;
      ++tabelas.circulos[areaInteira(pi * (raio * raio), m, nome, k)];
    } else if (m.forma == 'q' || m.forma == 'r') {
      ++tabelas.retangulos[areaInteira(m.d1 * m.d2, m, nome, k)];
    }
  }
  return tabelas;
}

void impTabelas(const TABELAS& tabelas, const std::string& nome) {
  pim::ARQUIVO arquivo = pim::abre(nome, "wt", "Erro abertura ");
  impTabela(arquivo.get(), "Circulos:", tabelas.circulos);
  impTabela(arquivo.get(), "Retangulos e quadrados:", tabelas.retangulos);
  pim::fechaEscrita(std::move(arquivo), nome);
}

void Relat(int argc, char** argv) {
  if (argc != 3) {
    std::puts("Relat ent.ho2 sai.rel");
    pim::erro("Erro: Numero de argumentos invalido");
  }
  std::printf("Lendo %s...\n", argv[1]);
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, argv[1]);
  std::printf("Numero de maximos locais originais=%u\n", static_cast<unsigned>(v.size()));
  impTabelas(contaAreas(v, argv[1]), argv[2]);
}
