#include "shell/despacho.h"

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "detect/correla.h"
#include "detect/oldcorrela.h"
#include "draw/extrai.h"
#include "draw/traca.h"
#include "filter/filtra.h"
#include "kernels/comando.h"
#include "pim/erro.h"
#include "pim/relogio.h"
#include "pim/texto.h"
#include "report/contaform.h"
#include "report/relat.h"

namespace {

constexpr const char* titulo =
    "< Vorplex.exe: Programas para granulometria multi-formas v" VORPLEX_VERSAO
    ">\n"
    "_______________________________________________________________________________";

constexpr const char* lista =
    "Programas:\n"
    "  Kernel    - Gera imagem das mascaras a partir de kernel.cfg\n"
    "  Correla   - Maximos locais (.ho1) das correlacoes com mascaras multiformas\n"
    "  Traca     - Traca formas de maximos locais (.ho1 ou .ho2) sem filtrar\n"
    "  ExtraiAm  - Extrai amostras dentro das formas localizadas\n"
    "  ExtraiCla - Extrai amostras classificadas dentro das formas localizadas\n"
    "  Filtra    - Filtra maximos locais (.ho1)\n"
    "  OldCorrela- Maximos locais (.ho1) das correlacoes - versao antiga\n"
    "  Relat     - Le .ho2 e gera .rel\n"
    "  ContaForm - Le *.ho2 e imprime numero total de formas\n"
    "...............................................................................";

struct PROGRAMA {
  std::string_view nome;
  void (*executa)(int argc, char** argv);
};

constexpr std::array<PROGRAMA, 9> programas = {{{"kernel", Kernel},
                                                {"correla", Correla},
                                                {"traca", Traca},
                                                {"extraiam", ExtraiAm},
                                                {"extraicla", ExtraiCla},
                                                {"filtra", Filtra},
                                                {"oldcorrela", OldCorrela},
                                                {"relat", Relat},
                                                {"contaform", ContaForm}}};

const PROGRAMA& procura(const std::string& nome) {
  for (const PROGRAMA& p : programas) {
    if (p.nome == nome) return p;
  }
  pim::erro("Erro: Programa inexistente ", nome);
}

}  // namespace

void mostraTempo(int centesimos) {
  std::printf("Tempo gasto: %d.%02d segundos.\n", centesimos / 100, centesimos % 100);
}

int despacha(int argc, char** argv) {
  std::puts(titulo);
  if (argc < 2) {
    std::puts(lista);
    pim::erro("Erro: Numero de argumentos invalido");
  }
  const int inicio = pim::centseg();
  procura(pim::minuscula(argv[1])).executa(argc - 1, argv + 1);
  mostraTempo(pim::diferencaCentseg(inicio, pim::centseg()));
  return 0;
}
