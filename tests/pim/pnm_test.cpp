#include "pim/pnm.h"

#include <random>
#include <sstream>

#include "apoio/pasta.h"
#include "fabrica.h"

using pim::decodificaPnm;
using pim::RESULTADO;

namespace {

// An image before it is written: `v` holds rows * cols * canais samples from 0 to `maximo`.
struct AMOSTRAS {
  int tipo;
  int rows;
  int cols;
  unsigned maximo;
  std::vector<unsigned> v;

  int canais() const { return tipo % 3 == 0 ? 3 : 1; }
  bool bits() const { return tipo % 3 == 1; }
};

AMOSTRAS sorteiaAmostras(std::mt19937& sorteio, int tipo, unsigned maximo) {
  AMOSTRAS a{tipo,
             static_cast<int>(sorteio() % 7) + 1,
             static_cast<int>(sorteio() % 19) + 1,
             tipo % 3 == 1 ? 1 : maximo,
             {}};
  a.v.resize(static_cast<std::size_t>(a.rows * a.cols * a.canais()));
  std::uniform_int_distribution<unsigned> nivel(0, a.maximo);
  for (unsigned& x : a.v) x = nivel(sorteio);
  return a;
}

std::string cabecalho(const AMOSTRAS& a, const std::string& separador) {
  std::ostringstream s;
  s << 'P' << a.tipo << separador << a.cols << separador << a.rows;
  if (!a.bits()) s << separador << a.maximo;
  return s.str();
}

std::string pixelsBinarios(const AMOSTRAS& a) {
  std::string s;
  const std::size_t porLinha = static_cast<std::size_t>(a.cols * a.canais());
  for (std::size_t i = 0; i < a.v.size(); ++i) {
    if (a.bits()) {
      if (i % porLinha % 8 == 0) s += '\0';
      if (a.v[i] != 0) s.back() = static_cast<char>(s.back() | (0x80 >> (i % porLinha % 8)));
    } else {
      if (a.maximo > 255) s += static_cast<char>(a.v[i] / 256);
      s += static_cast<char>(a.v[i] % 256);
    }
  }
  return s;
}

// Text bitmaps need no blanks between samples: every other one goes without.
std::string pixelsTexto(const AMOSTRAS& a) {
  std::string s;
  for (std::size_t i = 0; i < a.v.size(); ++i) {
    s += std::to_string(a.v[i]);
    if (!a.bits() || i % 2 == 0) s += i % 5 == 0 ? "\n# nota 9\n" : " ";
  }
  return s;
}

BYTES monta(const AMOSTRAS& a, const std::string& separador) {
  const bool texto = a.tipo <= 3;
  return deTexto(cabecalho(a, separador) + "\n" + (texto ? pixelsTexto(a) : pixelsBinarios(a)));
}

// Blue, green, red in memory; a set bit is black.
cv::Mat esperada(const AMOSTRAS& a) {
  cv::Mat img(a.rows, a.cols, CV_8UC(a.canais()));
  for (std::size_t i = 0; i < a.v.size(); ++i) {
    const double v = a.bits() ? 1.0 - a.v[i] : static_cast<double>(a.v[i]) / a.maximo;
    const std::size_t destino = a.canais() == 3 ? i - i % 3 + (2 - i % 3) : i;
    img.data[destino] = static_cast<unsigned char>(std::lround(255 * v));
  }
  return img;
}

std::string falha(const std::string& arquivo) {
  EXPECT_TRUE(pim::ehPnm(deTexto(arquivo)));
  const RESULTADO r = decodificaPnm(deTexto(arquivo));
  EXPECT_NE(r.erro.empty(), r.imagem.empty());
  return r.erro;
}

}  // namespace

TEST(DecodificaPnm, IgualAoDecodificadorIngenuoDeP1AP6) {
  SCOPED_TRACE("seed 99");
  std::mt19937 sorteio(99);
  std::uniform_int_distribution<unsigned> maximos(1, 65535);
  for (int vez = 0; vez < 600; ++vez) {
    const int tipo = vez % 6 + 1;
    const unsigned maximo = vez % 4 == 0 ? 255 : maximos(sorteio);
    const AMOSTRAS a = sorteiaAmostras(sorteio, tipo, maximo);
    const RESULTADO r = decodificaPnm(monta(a, vez % 2 == 0 ? " " : "# x\n \t#12 13\n"));
    ASSERT_EQ(r.erro, "") << "P" << tipo << " " << a.maximo;
    ASSERT_EQ(maiorDiferenca(r.imagem, esperada(a)), 0) << "P" << tipo << " " << a.maximo;
  }
}

TEST(DecodificaPnm, TodoMaximoTemPretoEBrancoNosExtremos) {
  for (unsigned maximo = 1; maximo <= 65535; ++maximo) {
    const RESULTADO r = decodificaPnm(monta({5, 1, 2, maximo, {0, maximo}}, " "));
    ASSERT_EQ(r.erro, "");
    ASSERT_EQ(r.imagem.data[0], 0) << maximo;
    ASSERT_EQ(r.imagem.data[1], 255) << maximo;
  }
}

TEST(DecodificaPnm, TruncadoEmQualquerByteEhErroOuResultadoInteiro) {
  SCOPED_TRACE("seed 5");
  std::mt19937 sorteio(5);
  for (int tipo = 1; tipo <= 6; ++tipo) {
    for (const unsigned maximo : {9U, 255U, 60000U}) {
      const AMOSTRAS a = sorteiaAmostras(sorteio, tipo, maximo);
      const BYTES inteiro = monta(a, " ");
      for (std::size_t n = 3; n < inteiro.size(); ++n) {
        const RESULTADO r = decodificaPnm(corta(inteiro, n));
        const bool inteira = r.erro.empty() && r.imagem.size() == cv::Size(a.cols, a.rows);
        const bool recusada = !r.erro.empty() && r.imagem.empty();
        ASSERT_TRUE(recusada || (tipo <= 3 && inteira)) << "P" << tipo << " cut after " << n;
      }
    }
  }
}

TEST(DecodificaPnm, TextoCortadoNoMeioDoUltimoNumeroAindaEhInteiro) {
  EXPECT_EQ(falha("P2 2 1 255 10 20"), "");
  EXPECT_EQ(falha("P2 2 1 255 10 "), "arquivo incompleto");
  EXPECT_EQ(falha("P2 2 1 255 10"), "arquivo incompleto");
}

TEST(DecodificaPnm, CabecalhoInvalidoEhErro) {
  for (const char* c : {"P5 ", "P5 3", "P5 3 4", "P5 0 4 255\n", "P5 4 0 255\n", "P5 4 4 0\n",
                        "P5 4 4 65536\n", "P5 -4 4 255\n", "P5 4,4 255\n", "P5 1048577 1 255\n",
                        "P5 99999999999999999999 1 255\n", "P5 # sem fim", "P4 8"}) {
    EXPECT_EQ(falha(c), "cabecalho invalido") << c;
  }
}

TEST(DecodificaPnm, TamanhoQueOsDadosNaoEnchemNaoTomaMemoria) {
  EXPECT_EQ(falha("P6 30000 30000 65535\n123"), "arquivo incompleto");
  EXPECT_EQ(falha("P3 30000 30000 255\n1 2 3"), "arquivo incompleto");
  EXPECT_EQ(falha("P5 1048576 1048576 255\n123"), "imagem grande demais");
}

TEST(DecodificaPnm, AmostraAcimaDoMaximoOuQueNaoEhNumeroEhErro) {
  EXPECT_EQ(falha("P2 2 1 100 7 101"), "amostra invalida");
  EXPECT_EQ(falha("P2 2 1 100 7 x1"), "amostra invalida");
  EXPECT_EQ(falha("P1 2 1 0 2"), "amostra invalida");
  EXPECT_EQ(falha(std::string("P5 2 1 100\n\x07\x65")), "amostra invalida");
  EXPECT_EQ(falha(std::string("P5 1 1 256\n\x01\x01")), "amostra invalida");
}

TEST(DecodificaPnm, SoAPrimeiraImagemDoArquivoEhLida) {
  const RESULTADO r = decodificaPnm(deTexto("P5 1 1 255\n@P5 1 1 255\nA"));
  EXPECT_EQ(r.erro, "");
  EXPECT_EQ(r.imagem.data[0], '@');
}

TEST(EhPnm, PedeUmaMarcaSeguidaDeBranco) {
  for (const char* sim : {"P1 ", "P6\n", "P5#", "P2\t1"}) EXPECT_TRUE(pim::ehPnm(deTexto(sim)));
  for (const char* nao : {"", "P", "P5", "P7 ", "P0 ", "p5 ", "P55", "PF\n"}) {
    EXPECT_FALSE(pim::ehPnm(deTexto(nao))) << nao;
  }
}

TEST(GravaPnm, EscreveOCabecalhoEOsBytesExatos) {
  const PASTA pasta;
  pim::gravaPnm((cv::Mat_<unsigned char>(2, 3) << 'a', 'b', 'c', 'd', 'e', 'f'), "a.pgm");
  EXPECT_EQ(leTudo("a.pgm"), "P5\n3 2\n255\nabcdef");
  const cv::Mat_<pim::VEC3B> cor(1, 2, pim::VEC3B('b', 'g', 'r'));
  pim::gravaPnm(cor, "a.ppm");
  EXPECT_EQ(leTudo("a.ppm"), "P6\n2 1\n255\nrgbrgb");
}

TEST(GravaPnm, RecorteDeUmaImagemMaiorEhGravadoSoEle) {
  const PASTA pasta;
  const cv::Mat_<unsigned char> cena = cenaCinza(20, 30);
  const cv::Mat recorte = cena(cv::Rect(5, 6, 7, 8));
  pim::gravaPnm(recorte, "a.pgm");
  EXPECT_EQ(maiorDiferenca(decodificaPnm(deTexto(leTudo("a.pgm"))).imagem, recorte), 0);
}
