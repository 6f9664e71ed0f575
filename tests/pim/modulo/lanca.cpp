// A shared module that hides all symbols but these.
#include "pim/erro.h"

#define VISIVEL extern "C" __attribute__((visibility("default")))

VISIVEL void lancaErro() {
  pim::erro("Erro: ", "do modulo");
}

VISIVEL void lancaAssercao() {
  pim::assercaoFalhou("x", {"modulo", 7, "void f()"});
}

VISIVEL void lancaContagem() {
  throw pim::CONTAGEM_IMPOSSIVEL("Erro: -1");
}
