// Files of corrections: any bytes. What is taken is written and read back as the same, and applied.

#include "corrige/aplica.h"

#include "apoio/erros.h"
#include "confere.h"
#include "entrada.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  const std::string texto(comoTexto(bytes, n));
  std::vector<corrige::CORRECOES> v;
  const std::string erro = erroDe([&] { v = corrige::leCorrecoes(texto); });
  if (!erro.empty()) {
    confere(erro.rfind("Erro: Correcoes invalidas: ", 0) == 0, "outro erro: " + erro);
    return 0;
  }
  const std::string escrito = corrige::emTexto(v);
  confere(corrige::emTexto(corrige::leCorrecoes(escrito)) == escrito, "escrito e lido");
  cv::Mat_<unsigned char> foto(40, 50, static_cast<unsigned char>(180));
  foto(cv::Rect(10, 10, 20, 16)).setTo(60);
  for (const corrige::CORRECOES& c : v) {
    std::vector<refine::APURADO> graos;
    const corrige::FEITAS f = corrige::aplica(foto, c.lista, graos);
    confere(f.rejeitados + f.recuperados + f.desenhados + f.semPar == c.lista.size(), "contadas");
  }
  return 0;
}
