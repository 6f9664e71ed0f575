#include <cstdio>

#include "examples/avaliacao.h"
#include "examples/classes.h"
#include "fim/fim.h"
#include "pim/erro.h"

namespace {

void exigeArgumentos(int argc) {
  if (argc == 3 || argc == 4) return;
  std::puts("Avalia cena.csv resultado.ho2 [classes.mat]");
  std::puts("  Compara as formas localizadas com as verdadeiras; IoU>=0.5 e' acerto");
  std::puts("  classes: 0=nao ha grao 1=grao de outra forma 2=grao da mesma forma");
  pim::erro("Erro: Numero de argumentos invalido");
}

void mostra(const char* nome, const CONTAGEM& c) {
  std::printf("%-8s %8d %10d %8d %12d\n", nome, c.verdade, c.deteccoes, c.achados, c.letra);
}

std::vector<unsigned char> classifica(const std::vector<GRAO>& verdade,
                                      const std::vector<GRAO>& deteccoes,
                                      const std::vector<int>& par) {
  std::vector<unsigned char> classes(deteccoes.size(), 0);
  for (std::size_t d = 0; d < deteccoes.size(); ++d) {
    if (par[d] < 0) continue;
    const GRAO& g = verdade[static_cast<std::size_t>(par[d])];
    classes[d] = g.forma == deteccoes[d].forma ? 2 : 1;
  }
  return classes;
}

int compara(int argc, char** argv) {
  exigeArgumentos(argc);
  const std::vector<GRAO> verdade = leGraos(argv[1]);
  std::vector<MAXLOCAL> maximos;
  leMaxLocais(maximos, argv[2]);
  std::vector<GRAO> deteccoes;
  deteccoes.reserve(maximos.size());
  for (const MAXLOCAL& m : maximos) deteccoes.push_back(daDeteccao(m));

  const std::vector<int> par = casa(verdade, deteccoes);
  const AVALIACAO a = avalia(verdade, deteccoes, par);
  std::printf("%-8s %8s %10s %8s %12s\n", "forma", "verdade", "deteccoes", "achados",
              "letra certa");
  for (const auto& [forma, familia] : a.familias) mostra(std::string(1, forma).c_str(), familia);
  mostra("total", a.total);
  std::printf("precisao=%.3f revocacao=%.3f F1=%.3f\n", a.precisao(), a.revocacao(), a.f1());
  std::printf("erro mediano do diametro=%.1f%% letras certas=%.1f%%\n", 100 * a.erroDiametro,
              100 * a.letrasCertas());
  if (argc == 4) gravaClasses(classifica(verdade, deteccoes, par), argv[3]);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return fim::executa([&] { return compara(argc, argv); });
}
