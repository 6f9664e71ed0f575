#include <algorithm>
#include <cstdio>

#include "examples/cenas/cena.h"
#include "examples/cenas/tipos/tipos.h"
#include "fim/fim.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/texto.h"

namespace {

void exigeArgumentos(int argc) {
  if (argc == 5 || argc == 7) return;
  std::puts("cenas lista");
  std::puts("cenas TIPO SEMENTE saida.png saida.csv [linhas colunas]");
  std::puts("  Desenha uma cena de graos de forma conhecida e grava a verdade em saida.csv");
  std::puts("  A lista diz os tipos: nome, treino ou reservado, o que mostram");
  pim::erro("Erro: Numero de argumentos invalido");
}

void lista(std::span<const cenas::TIPO> tipos) {
  for (const cenas::TIPO& t : tipos) {
    std::printf("%s\t%s\t%s\n", t.nome.data(), t.reservado ? "reservado" : "treino",
                t.descricao.data());
  }
}

cv::Size leTamanho(const cenas::TIPO& tipo, int argc, char** argv) {
  cv::Size tamanho(tipo.colunas, tipo.linhas);
  if (argc < 7) return tamanho;
  pim::convArg(tamanho.height, argv[5]);
  pim::convArg(tamanho.width, argv[6]);
  const double area = static_cast<double>(tamanho.height) * tamanho.width;
  if (std::min(tamanho.height, tamanho.width) < 64 || area > 1e8) {
    pim::erro("Erro: Tamanho invalido ", argv[5], std::string(" ") + argv[6]);
  }
  return tamanho;
}

int rende(int argc, char** argv) {
  if (argc == 2 && std::string_view(argv[1]) == "lista") {
    lista(cenas::treino());
    lista(cenas::reservados());
    return 0;
  }
  exigeArgumentos(argc);
  const cenas::TIPO* tipo = cenas::tipo(argv[1]);
  if (tipo == nullptr) pim::erro("Erro: Tipo desconhecido ", argv[1]);
  int semente = 0;
  pim::convArg(semente, argv[2]);
  const cenas::CENA cena =
      cenas::renderiza(*tipo, static_cast<std::uint64_t>(semente), leTamanho(*tipo, argc, argv));
  pim::imp(cena.foto, argv[3]);
  cenas::gravaVerdade(cena.graos, argv[4]);
  std::printf("Numero de graos=%u\n", static_cast<unsigned>(cena.graos.size()));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return fim::executa([&] { return rende(argc, argv); });
}
