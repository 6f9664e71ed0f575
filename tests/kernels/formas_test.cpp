#include "kernels/formas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "apoio/erros.h"
#include "apoio/figuras.h"
#include "referencia/formas.h"

namespace {

using CINZA = cv::Mat_<unsigned char>;

CINZA mascaraDe(char forma, double d1, double d2, double ang) {
  CINZA out;
  if (forma == 'c') mascaraCirculo(out, d1);
  if (forma == 'q') mascaraQuadrado(out, d1, ang);
  if (forma == 'r') mascaraRetangulo(out, d1, d2, ang);
  if (forma == 'e') mascaraElipse(out, d1, d2, ang);
  return out;
}

CINZA contornoDe(char forma, double d1, double d2, double ang) {
  CINZA out;
  if (forma == 'c') contornoCirculo(out, d1);
  if (forma == 'q') contornoQuadrado(out, d1, ang);
  if (forma == 'r') contornoRetangulo(out, d1, d2, ang);
  if (forma == 'e') contornoElipse(out, d1, d2, ang);
  return out;
}

int pixelsDaForma(const CINZA& img) {
  return static_cast<int>(img.total()) - cv::countNonZero(img);
}

constexpr double infinito = std::numeric_limits<double>::infinity();

}  // namespace

TEST(MascaraCirculo, DiametrosDe1A4SaoTabelasFixas) {
  EXPECT_TRUE(iguais(mascaraDe('c', 1, 0, 0), referencia::figura("+++/+0+/+++")));
  EXPECT_TRUE(iguais(mascaraDe('c', 2, 0, 0), referencia::figura("+++++/++0++/+000+/++0++/+++++")));
  EXPECT_TRUE(iguais(mascaraDe('c', 3, 0, 0), referencia::figura("+++++/+000+/+000+/+000+/+++++")));
  EXPECT_TRUE(
      iguais(mascaraDe('c', 4, 0, 0),
             referencia::figura("+++++++/+++0+++/++000++/+00000+/++000++/+++0+++/+++++++")));
}

TEST(MascaraCirculo, MeioArredondaParaOPar) {
  EXPECT_TRUE(iguais(mascaraDe('c', 4.5, 0, 0), mascaraDe('c', 4, 0, 0)));
  EXPECT_TRUE(iguais(mascaraDe('c', 3.5, 0, 0), mascaraDe('c', 4, 0, 0)));
  EXPECT_TRUE(iguais(mascaraDe('c', 2.5, 0, 0), mascaraDe('c', 2, 0, 0)));
  EXPECT_TRUE(iguais(mascaraDe('c', 1.5, 0, 0), mascaraDe('c', 2, 0, 0)));
}

TEST(MascaraCirculo, PoucoAcimaDe4EMeioSegueOCasoGeral) {
  const CINZA m = mascaraDe('c', 4.51, 0, 0);
  EXPECT_EQ(m.size(), cv::Size(7, 7));
  EXPECT_TRUE(
      iguais(m, referencia::figura("+++++++/+++0+++/++000++/+00000+/++000++/+++0+++/+++++++")));
  EXPECT_TRUE(referencia::pertence('c', 2, 2, 0, 0, 2));
}

TEST(MascaraCirculo, Diametro9TemLado11ERaio4) {
  const CINZA m = mascaraDe('c', 9, 0, 0);
  EXPECT_EQ(m.size(), cv::Size(11, 11));
  EXPECT_EQ(m(5, 1), 0);
  EXPECT_EQ(m(5, 0), 255);
  EXPECT_EQ(m(5 + 3, 5 + 3), 255);  // 18 > 16
}

TEST(MascaraCirculo, QueArredondaParaZeroNaoTocaASaida) {
  for (const double d : {0.5, 0.49, 0.0, -0.3, -7.0}) {
    CINZA cheia(2, 3, static_cast<unsigned char>(77));
    const CINZA antes = cheia.clone();
    const unsigned char* dados = cheia.data;
    mascaraCirculo(cheia, d);
    EXPECT_TRUE(iguais(cheia, antes)) << d;
    EXPECT_EQ(cheia.data, dados) << d;
    CINZA vazia;
    mascaraCirculo(vazia, d);
    EXPECT_TRUE(vazia.empty()) << d;
  }
}

TEST(MascaraQuadrado, Lado10TemImagemDe15EMeioLado5) {
  const CINZA m = mascaraDe('q', 10, 0, 0);
  EXPECT_EQ(m.size(), cv::Size(15, 15));
  EXPECT_EQ(pixelsDaForma(m), 11 * 11);
  EXPECT_EQ(m(2, 2), 0);
  EXPECT_EQ(m(1, 7), 255);
}

TEST(MascaraElipse, Eixos20E10TemImagemDe21ESemieixos10E5) {
  const CINZA m = mascaraDe('e', 20, 10, 0);
  EXPECT_EQ(m.size(), cv::Size(21, 21));
  EXPECT_EQ(m(10, 0), 0);
  EXPECT_EQ(m(5, 10), 0);
  EXPECT_EQ(m(4, 10), 255);
}

TEST(MascaraRetangulo, LadoVemDoMaiorTamanho) {
  EXPECT_EQ(mascaraDe('r', 6, 14, 0).size(), mascaraDe('r', 14, 6, 0).size());
  EXPECT_EQ(mascaraDe('r', 6, 14, 0).rows, 21);  // 2 ceil((19.79 - 1) / 2) + 1
}

TEST(MascaraRetangulo, DeLadosIguaisEhOQuadrado) {
  for (const double ang : {0.0, 10.0, 45.0, 77.7}) {
    EXPECT_TRUE(iguais(mascaraDe('r', 12, 12, ang), mascaraDe('q', 12, 0, ang))) << ang;
  }
}

TEST(Mascaras, SaoAsDaVersaoIngenua) {
  constexpr unsigned semente = 20220;
  SCOPED_TRACE(semente);
  std::mt19937 g(semente);
  std::uniform_real_distribution<double> tamanho(0.6, 45);
  std::uniform_real_distribution<double> angulo(-200, 400);
  for (int i = 0; i < 600; ++i) {
    const char forma = "cqre"[i % 4];
    const double d1 = tamanho(g);
    const double d2 = forma == 'c' || forma == 'q' ? d1 : tamanho(g);
    const double ang = i % 3 == 0 ? 15.0 * (i % 24) : angulo(g);
    const CINZA esperada = referencia::mascara(forma, d1, d2, ang);
    const CINZA obtida = mascaraDe(forma, d1, d2, ang);
    ASSERT_TRUE(iguais(obtida, esperada)) << forma << ' ' << d1 << ' ' << d2 << ' ' << ang;
    ASSERT_TRUE(iguais(contornoDe(forma, d1, d2, ang), referencia::contorno(esperada)))
        << forma << ' ' << d1 << ' ' << d2 << ' ' << ang;
    ASSERT_EQ(obtida.rows % 2, 1);
  }
}

TEST(Mascaras, TamanhoZeroDaImagemDeUmPixel) {
  for (const char forma : {'q', 'r', 'e'}) {
    const CINZA m = mascaraDe(forma, 0, 0, 30);
    EXPECT_EQ(m.size(), cv::Size(1, 1)) << forma;
    EXPECT_EQ(pixelsDaForma(m), 1) << forma;
  }
}

TEST(Mascaras, TamanhoNegativoDaImagemVazia) {
  for (const char forma : {'q', 'r', 'e'}) {
    CINZA cheia(5, 5, static_cast<unsigned char>(1));
    if (forma == 'q') mascaraQuadrado(cheia, -9, 0);
    if (forma == 'r') mascaraRetangulo(cheia, -9, -4, 0);
    if (forma == 'e') mascaraElipse(cheia, -9, -4, 0);
    EXPECT_TRUE(cheia.empty()) << forma;
  }
}

TEST(Mascaras, UmTamanhoNegativoNaoDesenhaNada) {
  EXPECT_EQ(pixelsDaForma(mascaraDe('r', 9, -4, 0)), 0);
  EXPECT_EQ(pixelsDaForma(mascaraDe('e', -4, 9, 0)), 0);
  EXPECT_EQ(mascaraDe('r', 9, -4, 0).rows, 13);
}

TEST(Mascaras, SaidaDoMesmoTamanhoEhDesenhadaPorCima) {
  CINZA out(15, 15, static_cast<unsigned char>(77));
  const CINZA copiaRasa = out;
  mascaraQuadrado(out, 10, 0);
  EXPECT_EQ(out.data, copiaRasa.data);
  EXPECT_TRUE(iguais(copiaRasa, referencia::mascara('q', 10, 10, 0)));
  contornoQuadrado(out, 10, 0);
  EXPECT_EQ(out.data, copiaRasa.data);
  EXPECT_TRUE(iguais(copiaRasa, referencia::contorno(referencia::mascara('q', 10, 10, 0))));
}

TEST(Mascaras, TabelasTambemReusamASaidaDoMesmoTamanho) {
  CINZA out = mascaraDe('c', 2, 0, 0);
  const CINZA copiaRasa = out;
  mascaraCirculo(out, 3);
  EXPECT_EQ(out.data, copiaRasa.data);
  EXPECT_TRUE(iguais(copiaRasa, mascaraDe('c', 3, 0, 0)));
}

TEST(Mascaras, SaidaDeOutroTamanhoEhTrocada) {
  CINZA out(15, 17, static_cast<unsigned char>(77));
  const CINZA copiaRasa = out;
  mascaraQuadrado(out, 10, 0);
  EXPECT_NE(out.data, copiaRasa.data);
  EXPECT_EQ(pixelsDaForma(copiaRasa), 0);
  EXPECT_EQ(copiaRasa(0, 0), 77);
}

TEST(Mascaras, TamanhoQueNaoCabeEhErroComAForma) {
  EXPECT_EQ(erroDe([&] { mascaraDe('c', 1e9, 0, 0); }), "Erro: Forma grande demais c 1e+09 1e+09");
  EXPECT_EQ(erroDe([&] { mascaraDe('q', infinito, 0, 0); }), "Erro: Forma grande demais q inf inf");
  EXPECT_EQ(erroDe([&] { mascaraDe('r', 3, 1e300, 0); }), "Erro: Forma grande demais r 3 1e+300");
  EXPECT_EQ(erroDe([&] { mascaraDe('e', NAN, 3, 0); }), "Erro: Forma grande demais e nan 3");
}

TEST(ContornoInterno, Diametro1EhOProprioPixel) {
  EXPECT_TRUE(iguais(contornoDe('c', 1, 0, 0), referencia::figura("+++/+0+/+++")));
}

TEST(ContornoInterno, Diametro3EhAnelDe8Pixels) {
  EXPECT_TRUE(
      iguais(contornoDe('c', 3, 0, 0), referencia::figura("+++++/+000+/+0+0+/+000+/+++++")));
}

TEST(ContornoInterno, PixelDaFormaNaBordaEhContorno) {
  CINZA out;
  contornoInterno(CINZA(3, 3, static_cast<unsigned char>(0)), out);
  EXPECT_TRUE(iguais(out, referencia::figura("000/0+0/000")));
}

TEST(ContornoInterno, QualquerValorDiferenteDeZeroEhFundo) {
  constexpr unsigned semente = 4401;
  SCOPED_TRACE(semente);
  std::mt19937 g(semente);
  for (int i = 0; i < 200; ++i) {
    CINZA img(1 + static_cast<int>(g() % 12), 1 + static_cast<int>(g() % 12));
    for (unsigned char& x : img) x = static_cast<unsigned char>(g() % 4 == 0 ? 1 + g() % 255 : 0);
    CINZA out;
    contornoInterno(img, out);
    ASSERT_TRUE(iguais(out, referencia::contorno(img)));
  }
}

TEST(ContornoInterno, ImagemVaziaEhErro) {
  CINZA out;
  EXPECT_EQ(erroDe([&] { contornoInterno(CINZA(), out); }), "Erro: IMG_::constructor _mat nulo");
}

TEST(ContornoInterno, CirculoQueArredondaParaZeroFalhaOndeAMascaraCala) {
  EXPECT_EQ(erroDe([&] { contornoDe('c', 0.5, 0, 0); }), "Erro: IMG_::constructor _mat nulo");
}

namespace {

// The image that the rows describe.
CINZA pintado(const PERFIL& p) {
  CINZA img(p.lado, p.lado, static_cast<unsigned char>(255));
  for (int y = 0; y < p.lado; ++y) {
    for (int x = p.linha(y).de; x <= p.linha(y).ate; ++x) img(y, x + p.lado / 2) = 0;
  }
  return img;
}

}  // namespace

TEST(Perfil, EhAMascaraLinhaALinha) {
  SCOPED_TRACE("seed 17");
  std::mt19937 sorteio(17);
  const auto tamanho = [&] { return 0.25 * static_cast<double>(sorteio() % 200) - 3; };
  for (int vez = 0; vez < 2000 && !testing::Test::HasFailure(); ++vez) {
    const char forma = "cqre"[vez % 4];
    const double d1 = tamanho();
    const double d2 = tamanho();
    const double ang = static_cast<double>(sorteio() % 180);
    const CINZA mascara = mascaraDe(forma, d1, d2, ang);
    const PERFIL p = perfil(forma, d1, d2, ang);
    ASSERT_EQ(p.lado, mascara.rows) << forma << " " << d1 << " " << d2 << " " << ang;
    if (p.lado == 0) continue;
    EXPECT_TRUE(iguais(pintado(p), mascara)) << forma << " " << d1 << " " << d2 << " " << ang;
    const double lado = ladoDaMascara(forma, d1, d2);
    EXPECT_TRUE(lado == p.lado || (forma == 'c' && d1 < 4.5 && lado > p.lado)) << forma << d1;
  }
}

TEST(Perfil, ForaDaImagemEDeLetraDesconhecidaNaoHaLinhas) {
  const PERFIL p = perfil('c', 9, 0, 0);
  EXPECT_GT(p.linha(-1).de, p.linha(-1).ate);
  EXPECT_GT(p.linha(p.lado).de, p.linha(p.lado).ate);
  EXPECT_EQ(perfil('x', 9, 9, 0).lado, 0);
  EXPECT_EQ(perfil('x', infinito, 9, 0).lado, 0);
}

TEST(LadoDaMascara, DizOQueNaoCabeSemDesenhar) {
  EXPECT_EQ(ladoDaMascara('q', infinito, 9), infinito);
  EXPECT_EQ(ladoDaMascara('c', 9, infinito), 11);
  EXPECT_EQ(ladoDaMascara('r', 9, std::nan("")), infinito);
  EXPECT_EQ(ladoDaMascara('x', infinito, 9), 0);
  EXPECT_GT(ladoDaMascara('e', 1e300, 9), 1e299);
  EXPECT_EQ(erroDe([&] { exigeLado(16385, 'e', 16384, 2, maiorLado, " (a.ho1)"); }),
            "Erro: Forma grande demais e 16384 2 (a.ho1)");
  EXPECT_EQ(exigeLado(16383, 'e', 16383, 2, maiorLado), 16383);
}
