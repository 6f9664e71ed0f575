// What caught errors leave behind.
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <opencv2/core.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "apoio/erros.h"
#include "apoio/pasta.h"
#include "detect/maxlocal.h"
#include "detect/ordenacao.h"
#include "draw/amostra.h"
#include "export/zip.h"
#include "filter/filtra.h"
#include "kernels/lekernels.h"
#include "page/figura.h"
#include "page/pagina.h"
#include "pim/imagem.h"
#include "report/relat.h"

using namespace exporta;
using namespace page;

namespace {

std::ptrdiff_t descritores() {
  const std::filesystem::directory_iterator abertos("/proc/self/fd");
  return std::distance(begin(abertos), end(abertos));
}

// Bytes that the C library has handed out; nothing under a sanitizer, which tells of leaks itself.
std::size_t memoria() {
  const struct mallinfo2 m = mallinfo2();
  return m.uordblks + m.hblkhd;
}

void preparaArquivos() {
  grava("texto", "isto nao e' uma imagem");
  grava("cortada.pgm", "P5\n100 100\n255\nabc");
  grava("cortada.png", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16));
  grava("cortada.jpg", "\xFF\xD8\xFF\xE0");
  grava("cortado.mat", "MATLAB 5.0 MAT-file" + std::string(200, ' '));
  grava("k.cfg", "circulo 21 quadrado xis");
  grava("a.ho1", "3\n0.5 c 1 2 3 4 5\n");
  grava("b.ho1", "-1\n");
}

void leImagem(const char* nome) {
  cv::Mat_<unsigned char> img;
  pim::le(img, nome);
}

std::vector<MAXLOCAL> leLista(const char* nome) {
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, nome);
  return v;
}

using ACAO = std::function<void()>;

const std::vector<ACAO>& acoesQueFalham() {
  static const MAXLOCAL enorme{0.5F, 'r', 1, 1, 1e9, 1e9, 0};
  static const std::vector<ACAO> acoes = {
      [] { leImagem("nada.png"); },
      [] { leImagem("texto"); },
      [] { leImagem("cortada.pgm"); },
      [] { leImagem("cortada.png"); },
      [] { leImagem("cortada.jpg"); },
      [] { leImagem("cortado.mat"); },
      [] { pim::imp(cv::Mat_<float>(9, 9, 0.5F), "/dev/full"); },
      [] { pim::imp(cv::Mat_<unsigned char>(9, 9, 'x'), "nada/a.png"); },
      [] {
        std::vector<MASCARA> v;
        leKernels("k.cfg", v);
      },
      [] { leLista("a.ho1"); },
      [] { leLista("b.ho1"); },
      [] { impMaxLocais({enorme}, "/dev/full"); },
      [] { contaAreas({enorme}); },
      [] { impTabelas({}, "sem/a.rel"); },
      [] {
        std::vector<MAXLOCAL> v;
        ordena(v, 0, -1);
      },
      [] {
        extraiAm({0.9F, 'x', 4, 4, 5, 5, 0}, cv::Mat_<pim::VEC3B>(9, 9), 1);
      },
      [] {
        pim::ISTR s;
        s.texto = "circulo 1 xis";
        leParametros(s);
      },
      [] {
        impZip({{"a", {1, 2}}, {"a", {3}}}, "a.zip");
      },
      [] { emJpeg({}, 80); },
      [] {
        PAGINA p;
        p.peneiras = {2, 1};
        impPagina(p, "p.html");
      }};
  return acoes;
}

// How many of the actions threw.
std::size_t falham() {
  const std::vector<ACAO>& acoes = acoesQueFalham();
  return static_cast<std::size_t>(std::count_if(acoes.begin(), acoes.end(), [](const ACAO& acao) {
    try {
      acao();
    } catch (const std::exception&) {
      return true;
    }
    return false;
  }));
}

}  // namespace

TEST(Sobras, MilErrosApanhadosNaoDeixamDescritorNemMemoriaNemArquivo) {
  const PASTA pasta;
  preparaArquivos();
  const std::size_t uma = falham();  // and the libraries take what they keep
  ASSERT_EQ(uma, acoesQueFalham().size());
  const std::vector<std::filesystem::path> antes(std::filesystem::directory_iterator("."), {});
  const std::ptrdiff_t abertos = descritores();
  const std::size_t ocupada = memoria();
  std::size_t erros = 0;
  while (erros < 1000) erros += falham();
  EXPECT_EQ(descritores(), abertos);
  EXPECT_LT(memoria(), ocupada + 4096);  // four bytes an error
  const std::vector<std::filesystem::path> depois(std::filesystem::directory_iterator("."), {});
  EXPECT_EQ(antes.size(), 8U);
  EXPECT_EQ(depois.size(), antes.size());
}
