#include "export/roi.h"

#include <gtest/gtest.h>
#include <zip.h>

#include <cmath>
#include <cstring>

#include "apoio/erros.h"
#include "apoio/pasta.h"
#include "export/zip.h"
#include "leitores.h"
#include "measure/contorno.h"

using namespace measure;
using namespace exporta;

namespace {

using BYTES = std::vector<unsigned char>;

constexpr int poligono = 0;
constexpr int retangulo = 1;
constexpr int oval = 2;

// A region as a reader of the format takes it from the bytes.
struct ROI {
  int tipo = -1;
  int caixa[4] = {};            // top, left, bottom, right
  float exata[4] = {};          // x, y, width, height, of ovals and rectangles
  std::vector<PONTO> reais;     // of polygons
  std::vector<PONTO> inteiros;  // absolute
  std::string nome;
};

unsigned u16(const BYTES& b, std::size_t i) {
  return static_cast<unsigned>(b.at(i) << 8) + b.at(i + 1);
}

unsigned u32(const BYTES& b, std::size_t i) {
  return (u16(b, i) << 16) + u16(b, i + 2);
}

int curto(const BYTES& b, std::size_t i) {
  const int n = static_cast<std::int16_t>(u16(b, i));
  return n < -5000 ? static_cast<int>(u16(b, i)) : n;
}

float real(const BYTES& b, std::size_t i) {
  const unsigned bits = u32(b, i);
  float x = 0;
  std::memcpy(&x, &bits, sizeof x);
  return x;
}

ROI decodifica(const BYTES& b) {
  ROI r;
  EXPECT_EQ(std::string(b.begin(), b.begin() + 4), "Iout");
  EXPECT_GE(u16(b, 4), 223U);          // from here on ovals have sub-pixel sizes
  EXPECT_EQ(u16(b, 50) & 128U, 128U);  // sub-pixel coordinates
  EXPECT_EQ(u16(b, 48), 0U);           // no subtype
  r.tipo = b.at(6);
  for (std::size_t k = 0; k < 4; ++k) r.caixa[k] = curto(b, 8 + 2 * k);
  const std::size_t n = u16(b, 16);
  for (std::size_t k = 0; r.tipo != poligono && k < 4; ++k) r.exata[k] = real(b, 18 + 4 * k);
  for (std::size_t i = 0; i < n; ++i) {
    r.inteiros.push_back({static_cast<double>(curto(b, 64 + 2 * i) + r.caixa[1]),
                          static_cast<double>(curto(b, 64 + 2 * (n + i)) + r.caixa[0])});
    r.reais.push_back({real(b, 64 + 4 * (n + i)), real(b, 64 + 4 * (2 * n + i))});
  }
  const std::size_t segundo = u32(b, 60);
  EXPECT_GE(segundo, 64 + 12 * n);
  const std::size_t onde = u32(b, segundo + 16);
  for (std::size_t i = 0; i < u32(b, segundo + 20); ++i) {
    r.nome += static_cast<char>(u16(b, onde + 2 * i));
  }
  EXPECT_EQ(b.size(), onde + 2 * r.nome.size());
  return r;
}

GRAO grao(char letra, double d1, double d2, double ang, int li = 30, int ci = 40) {
  return mede({0.5F, letra, li, ci, d1, d2, ang}, 7, 100, 100);
}

TEST(Roi, CirculoDePixelsInteirosEhOvalMeioPixelAdiante) {
  const ROI r = decodifica(roiDoGrao(grao('c', 21, 0, 33), "0007"));
  EXPECT_EQ(r.tipo, oval);
  EXPECT_EQ(r.nome, "0007");
  const float exata[] = {30, 20, 21, 21};
  const int caixa[] = {20, 30, 41, 51};
  for (int k = 0; k < 4; ++k) {
    EXPECT_EQ(r.exata[k], exata[k]) << k;
    EXPECT_EQ(r.caixa[k], caixa[k]) << k;
  }
}

TEST(Roi, ElipseERetanguloAprumadosDePixelsInteirosSaoExatos) {
  const ROI e = decodifica(roiDoGrao(grao('e', 21, 11, 90), "a"));
  EXPECT_EQ(e.tipo, oval);
  const float doOval[] = {35, 20, 11, 21};
  const ROI r = decodifica(roiDoGrao(grao('r', 21, 11, 0), "a"));
  EXPECT_EQ(r.tipo, retangulo);
  const float doRetangulo[] = {30, 25, 21, 11};
  for (int k = 0; k < 4; ++k) {
    EXPECT_EQ(e.exata[k], doOval[k]) << k;
    EXPECT_EQ(r.exata[k], doRetangulo[k]) << k;
  }
}

TEST(Roi, TamanhosQuebradosSaoPoligonos) {
  for (const GRAO& g : {grao('c', 20.5, 0, 0), grao('c', 20, 0, 0), grao('e', 21, 10.5, 0),
                        grao('q', 20, 0, 0), grao('r', 21, 10, 90)}) {
    EXPECT_EQ(decodifica(roiDoGrao(g, "a")).tipo, poligono) << g.figura.d1;
  }
}

TEST(Roi, PoligonosTemOsVerticesDoContorno) {
  for (const GRAO& g :
       {grao('q', 20, 0, 30), grao('r', 20, 7, 45), grao('e', 24, 9, 120), grao('c', 20.5, 0, 0)}) {
    const ROI r = decodifica(roiDoGrao(g, "0007"));
    EXPECT_EQ(r.tipo, poligono);
    const std::vector<PONTO> v = contorno(g.figura, 0.02);
    ASSERT_EQ(r.reais.size(), v.size());
    for (std::size_t i = 0; i < v.size(); ++i) {
      EXPECT_NEAR(r.reais[i].x, v[i].x + 0.5, 1e-5);
      EXPECT_NEAR(r.reais[i].y, v[i].y + 0.5, 1e-5);
      EXPECT_EQ(r.inteiros[i].x, std::floor(v[i].x + 0.5));
      EXPECT_EQ(r.inteiros[i].y, std::floor(v[i].y + 0.5));
      EXPECT_GE(r.reais[i].x, r.caixa[1]);
      EXPECT_LE(r.reais[i].x, r.caixa[3]);
      EXPECT_GE(r.reais[i].y, r.caixa[0]);
      EXPECT_LE(r.reais[i].y, r.caixa[2]);
    }
  }
}

TEST(Roi, LugaresNegativosEAlemDe32767) {
  const ROI r = decodifica(roiDoGrao(grao('q', 20, 0, 30, 40000, -3), "a"));
  EXPECT_EQ(r.caixa[0], 39986);
  EXPECT_EQ(r.caixa[1], -17);
  EXPECT_NEAR(r.reais[0].y, contorno(grao('q', 20, 0, 30, 40000, -3).figura, 0.02)[0].y + 0.5,
              0.01);
  EXPECT_EQ(decodifica(roiDoGrao(grao('c', 21, 0, 0, 70000, -9000), "a")).caixa[0], 60535);
  EXPECT_EQ(decodifica(roiDoGrao(grao('c', 21, 0, 0, 70000, -9000), "a")).exata[1], 69990);
}

// The entries of an archive by the zip library.
std::vector<ENTRADA> leZip(const std::string& nome) {
  int falha = 0;
  zip_t* z = zip_open(nome.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &falha);
  if (z == nullptr) {
    ADD_FAILURE() << "nao abre: " << falha;
    return {};
  }
  std::vector<ENTRADA> v;
  for (zip_int64_t i = 0; i < zip_get_num_entries(z, 0); ++i) {
    zip_stat_t dados;
    EXPECT_EQ(zip_stat_index(z, static_cast<zip_uint64_t>(i), 0, &dados), 0);
    ENTRADA e{dados.name, BYTES(dados.size)};
    zip_file_t* f = zip_fopen_index(z, static_cast<zip_uint64_t>(i), 0);
    EXPECT_EQ(zip_fread(f, e.bytes.data(), dados.size), static_cast<zip_int64_t>(dados.size));
    zip_fclose(f);
    v.push_back(e);
  }
  zip_close(z);
  return v;
}

TEST(Rois, UmaEntradaPorGraoComOIndiceNoNome) {
  const PASTA pasta;
  const FOTOGRAFIA foto = fotoDeExemplo();
  impRois(foto, "rois.zip");
  const std::vector<ENTRADA> v = leZip("rois.zip");
  ASSERT_EQ(v.size(), foto.graos.size());
  EXPECT_EQ(v[0].nome, "0000.roi");
  EXPECT_EQ(v[11].nome, "0011.roi");
  for (std::size_t i = 0; i < v.size(); ++i) {
    EXPECT_EQ(v[i].bytes, roiDoGrao(foto.graos[i], nomeDoRoi(foto.graos[i])));
    EXPECT_EQ(decodifica(v[i].bytes).nome + ".roi", v[i].nome);
  }
}

TEST(Rois, OsMesmosGraosDaoOsMesmosBytesEDataFixa) {
  const PASTA pasta;
  impRois(fotoDeExemplo(), "a.zip");
  setenv("TZ", "Asia/Tokyo", 1);
  tzset();
  impRois(fotoDeExemplo(), "b.zip");
  unsetenv("TZ");
  tzset();
  EXPECT_EQ(leTudo("a.zip"), leTudo("b.zip"));
  // Time and date of the first local header: midnight, first of January 1980.
  EXPECT_EQ(leTudo("a.zip").substr(10, 4), std::string("\0\0\x21\0", 4));
  EXPECT_EQ(leTudo("a.zip").substr(8, 2), std::string("\0\0", 2));  // stored
}

TEST(Rois, SemGraosNaoHaArquivoEOAnteriorSai) {
  const PASTA pasta;
  const FOTOGRAFIA vazia = {"f", 9, 9, {}, {}};
  impRois(vazia, "v.zip");
  EXPECT_FALSE(existe("v.zip"));
  impRois(fotoDeExemplo(), "v.zip");
  ASSERT_TRUE(existe("v.zip"));
  impRois(vazia, "v.zip");
  EXPECT_FALSE(existe("v.zip"));
  std::filesystem::create_directories("d.zip/dentro");
  EXPECT_EQ(erroDe([&] { impRois(vazia, "d.zip"); }), "Erro gravacao arquivo d.zip");
}

TEST(Rois, SubstituiOAnterior) {
  const PASTA pasta;
  impRois(fotoDeExemplo(), "a.zip");
  FOTOGRAFIA menor = fotoDeExemplo();
  menor.graos.resize(2);
  impRois(menor, "a.zip");
  EXPECT_EQ(leZip("a.zip").size(), 2U);
}

TEST(Rois, DiscoCheioEIndicesRepetidosSaoErro) {
  const PASTA pasta;
  FOTOGRAFIA repetida = fotoDeExemplo();
  repetida.graos[3].indice = 2;
  EXPECT_EQ(erroDe([&] { impRois(repetida, "a.zip"); }),
            "Erro gravacao arquivo a.zip: File already exists");
  std::filesystem::create_symlink("/dev/full", "b.zip.parcial");
  EXPECT_EQ(erroDe([&] { impRois(fotoDeExemplo(), "b.zip"); }),
            "Erro gravacao arquivo b.zip.parcial");
}

}  // namespace
