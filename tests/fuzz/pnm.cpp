// PGM, PPM and PBM files as grey and as colour, and written back.

#include "pim/pnm.h"
#include "apoio/erros.h"

#include <opencv2/imgproc.hpp>

#include "confere.h"
#include "entrada.h"
#include "memoria.h"
#include "pim/arquivo.h"
#include "pim/imagem.h"

namespace {

bool iguais(const cv::Mat& a, const cv::Mat& b) {
  return a.size() == b.size() && a.type() == b.type() && cv::norm(a, b, cv::NORM_INF) == 0;
}

void confereEscrita(const cv::Mat& img) {
  const MEMORIA arquivo;
  pim::gravaPnm(img, arquivo.nome);
  const pim::RESULTADO lido = pim::decodificaPnm(pim::leBytes(arquivo.nome));
  confere(lido.erro.empty() && iguais(lido.imagem, img), "imagem relida");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  const std::vector<unsigned char> dados(bytes, bytes + n);
  if (!pim::ehPnm(dados)) return -1;  // other formats have their own target
  const pim::RESULTADO lido = pim::decodificaPnm(dados);
  confere(lido.erro.empty() != lido.imagem.empty(), "imagem ou erro");

  const MEMORIA arquivo(comoTexto(bytes, n));
  cv::Mat_<unsigned char> cinza;
  cv::Mat_<pim::VEC3B> cor;
  const std::string erroCinza = erroDe([&] { pim::le(cinza, arquivo.nome); });
  const std::string erroCor = erroDe([&] { pim::le(cor, arquivo.nome); });
  confere(erroCinza.empty() == lido.erro.empty() && erroCinza == erroCor, "erro: " + erroCinza);
  if (!lido.erro.empty()) return 0;

  // No more pixels than the file can hold: at best eight of them in a byte.
  confere(lido.imagem.total() <= 8 * n, "mais pixels que dados");
  cv::Mat outra;
  const bool temCor = lido.imagem.channels() == 3;
  cv::cvtColor(lido.imagem, outra, temCor ? cv::COLOR_BGR2GRAY : cv::COLOR_GRAY2BGR);
  confere(iguais(cinza, temCor ? outra : lido.imagem), "cinza");
  confere(iguais(cor, temCor ? lido.imagem : outra), "cor");
  confereEscrita(cinza);
  confereEscrita(cor);
  return 0;
}
