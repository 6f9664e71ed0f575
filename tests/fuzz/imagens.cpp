// PNG, JPEG, TIFF, BMP and what else the image library reads, through the codec module.

#include <cstdlib>

#include "apoio/erros.h"
#include "confere.h"
#include "entrada.h"
#include "memoria.h"
#include "pim/imagem.h"
#include "pim/pnm.h"

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  // A few bytes may promise a thousand million pixels, which is legal and slow. The library looks
  // at its limit when it is loaded, at the first image.
  return setenv("OPENCV_IO_MAX_IMAGE_PIXELS", "1048576", 1);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  if (pim::ehPnm({bytes, bytes + n}) || comoTexto(bytes, n).starts_with("MATLAB")) return -1;
  const MEMORIA arquivo(comoTexto(bytes, n));
  cv::Mat_<unsigned char> cinza;
  cv::Mat_<pim::VEC3B> cor;
  const std::string erroCinza = erroDe([&] { pim::le(cinza, arquivo.nome); });
  const std::string erroCor = erroDe([&] { pim::le(cor, arquivo.nome); });
  confere(erroCinza == erroCor, "erros diferentes: " + erroCinza + " / " + erroCor);
  confere(erroCinza.empty() != cinza.empty() && cinza.size() == cor.size(), "imagem ou erro");
  return 0;
}
