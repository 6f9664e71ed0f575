// MAT-files, through the codec module.

#include "apoio/erros.h"
#include "confere.h"
#include "entrada.h"
#include "memoria.h"
#include "pim/codecs.h"
#include "pim/imagem.h"

// A few bytes may claim a huge array, for which the library asks at once. It gets what there is on
// a small machine; the sanitizer would make a large block costly, used or not.
extern "C" const char* __asan_default_options() {
  return "max_allocation_size_mb=64:allocator_may_return_null=1";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  const MEMORIA arquivo(comoTexto(bytes, n));
  const pim::RESULTADO lido = pim::codecs().leMat(arquivo.nome);
  confere(lido.erro.empty() != lido.imagem.empty(), "imagem ou erro");
  confere(lido.imagem.empty() || lido.imagem.type() == CV_8UC1, "tipo da imagem");
  constexpr std::size_t maiorRazao = 1032;  // of deflate
  confere(lido.imagem.total() <= maiorRazao * n, "mais elementos que dados");
  if (!comoTexto(bytes, n).starts_with("MATLAB")) return 0;
  cv::Mat_<unsigned char> classes;
  const std::string erro = erroDe([&] { pim::le(classes, arquivo.nome); });
  confere(erro.empty() == lido.erro.empty(), "le e leMat: " + erro);
  confere(!erro.empty() || classes.size() == lido.imagem.size(), "tamanho");
  return 0;
}
