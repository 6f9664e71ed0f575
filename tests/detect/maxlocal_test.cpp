#include "detect/maxlocal.h"

#include <gtest/gtest.h>
#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>

#include <limits>
#include <random>

#include "apoio/detector.h"
#include "apoio/erros.h"
#include "apoio/pasta.h"

namespace {

using CINZA = cv::Mat_<unsigned char>;

const std::string cabecalho = "//correl f    l    c       d1       d2 deg\n";

MAXLOCAL registro(float correl, char forma, int li, int ci, double d1, double d2, double ang) {
  return {correl, forma, li, ci, d1, d2, ang};
}

std::vector<MAXLOCAL> leDe(const std::string& texto) {
  const PASTA pasta;
  grava("a.ho1", texto);
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, "a.ho1");
  return v;
}

std::string escrito(const std::vector<MAXLOCAL>& v) {
  const PASTA pasta;
  impMaxLocais(v, "a.ho1");
  return leTudo("a.ho1");
}

}  // namespace

TEST(ImpMaxLocais, ArquivoDeExemploByteAByte) {
  EXPECT_EQ(escrito({registro(0.912345F, 'c', 120, 45, 20, 20, 0),
                     registro(-0.05F, 'r', 3, 1234, 12.5, 7.25, 22.5)}),
            "2\n" + cabecalho + "0.912345 c  120   45 20.00000 20.00000   0\n" +
                "-0.050000 r    3 1234 12.50000  7.25000  22\n");
}

TEST(ImpMaxLocais, NumerosSaoOsDoPrintf) {
  const PASTA pasta;
  constexpr double infinito = std::numeric_limits<double>::infinity();
  std::vector<MAXLOCAL> v = {
      {-0.0F, '#', INT_MIN, INT_MAX, -0.0, 1e300, -infinito},
      {NAN, '\xE9', -1, 0, -NAN, infinito, 0.5},
      {1e38F, 'c', 10000, 123456, -1.7976931348623157e308, 4.9e-324, 1.5},
      {0.0000005F, 'e', 5, -12345, 0.000005, 0.000015, 2.5},
  };
  std::mt19937_64 g(17);
  for (int i = 0; i < 3000; ++i) {
    const auto f = std::bit_cast<float>(static_cast<std::uint32_t>(g()));
    const double perto = static_cast<double>(g() % 2000000) / 1e4;
    v.push_back({f, 'q', static_cast<int>(g()), static_cast<int>(g() % 5000),
                 std::bit_cast<double>(g()), perto, std::ldexp(static_cast<double>(g() % 99), -1)});
  }
  std::string esperado =
      cv::format("%d\n//correl f    l    c       d1       d2 deg\n", static_cast<int>(v.size()));
  for (const MAXLOCAL& m : v) {
    esperado += cv::format("%8.6f %c %4d %4d %8.5f %8.5f %3.0f\n", static_cast<double>(m.correl),
                           m.forma, m.li, m.ci, m.d1, m.d2, m.ang);
  }
  impMaxLocais(v, "a.ho1");
  EXPECT_EQ(leTudo("a.ho1"), esperado);
}

TEST(ImpMaxLocais, ListaVaziaSaoDuasLinhas) {
  EXPECT_EQ(escrito({}), "0\n" + cabecalho);
  EXPECT_EQ(cabecalho.size(), 43U);
}

TEST(ImpMaxLocais, CorrelacaoNegativaAlargaALinhaDeUm) {
  const std::string texto = escrito({registro(-0.05F, 'q', 1, 2, 3, 4, 5)});
  const std::string linha = texto.substr(2 + cabecalho.size());
  EXPECT_EQ(linha, "-0.050000 q    1    2  3.00000  4.00000   5\n");
  EXPECT_EQ(linha.size(), cabecalho.size() + 1);
}

TEST(ImpMaxLocais, ArquivoAnteriorEhTrocado) {
  const PASTA pasta;
  grava("a.ho1", std::string(1000, 'x'));
  impMaxLocais({}, "a.ho1");
  EXPECT_EQ(leTudo("a.ho1"), "0\n" + cabecalho);
}

TEST(ImpMaxLocais, PastaQueNaoExisteEhErroComOCaminho) {
  EXPECT_EQ(erroDe([&] { impMaxLocais({}, "nao/existe/a.ho1"); }),
            "Erro abertura arquivo nao/existe/a.ho1");
}

TEST(ImpMaxLocais, DiscoCheioEhErroComOCaminho) {
  if (!existe("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  EXPECT_EQ(erroDe([&] { impMaxLocais({}, "/dev/full"); }), "Erro gravacao arquivo /dev/full");
}

TEST(LeMaxLocais, ListaVaziaNaoLeOCabecalho) {
  EXPECT_TRUE(leDe("0\n" + cabecalho).empty());
  EXPECT_TRUE(leDe("0 nada disto eh lido").empty());
}

TEST(LeMaxLocais, AnguloVoltaArredondadoAoParMaisProximo) {
  const std::vector<MAXLOCAL> v =
      leDe(escrito({registro(1, 'r', 0, 0, 9, 5, 22.5), registro(1, 'r', 0, 0, 9, 5, 157.5)}));
  ASSERT_EQ(v.size(), 2U);
  EXPECT_EQ(v[0].ang, 22.0);
  EXPECT_EQ(v[1].ang, 158.0);
}

TEST(LeMaxLocais, PosicoesDeCincoAlgarismosVoltamInteiras) {
  const MAXLOCAL m = registro(0.5F, 'e', 10000, 2147483647, 123456.78125, 7, 170);
  const std::string texto = escrito({m});
  EXPECT_NE(texto.find("0.500000 e 10000 2147483647 123456.78125  7.00000 170\n"),
            std::string::npos);
  EXPECT_EQ(primeiraDiferenca(leDe(texto), {m}), -1);
}

TEST(LeMaxLocais, IdaEVoltaDeListasSorteadas) {
  constexpr unsigned semente = 31000;
  SCOPED_TRACE(semente);
  std::mt19937 g(semente);
  for (int vez = 0; vez < 20; ++vez) {
    std::vector<MAXLOCAL> v(g() % 200);
    for (MAXLOCAL& m : v) {
      // Values that the decimals of the file hold exactly.
      m.correl = static_cast<float>(static_cast<int>(g() % 129) - 64) / 64.0F;
      m.forma = "cqrex"[g() % 5];
      m.li = static_cast<int>(g());
      m.ci = static_cast<int>(g() % 3000) - 1000;
      m.d1 = static_cast<double>(g() % 32000) / 32;
      m.d2 = -static_cast<double>(g() % 320) / 32;
      m.ang = static_cast<double>(g() % 400) - 200;
    }
    ASSERT_EQ(primeiraDiferenca(leDe(escrito(v)), v), -1);
  }
}

TEST(LeMaxLocais, AcrescentaNoFimDaLista) {
  const PASTA pasta;
  grava("a.ho1", "1 0.5 c 1 2 3 4 5");
  std::vector<MAXLOCAL> v = {registro(1, 'q', 9, 9, 9, 9, 9)};
  leMaxLocais(v, "a.ho1");
  ASSERT_EQ(v.size(), 2U);
  EXPECT_EQ(v[0].forma, 'q');
  EXPECT_TRUE(iguais(v[1], registro(0.5F, 'c', 1, 2, 3, 4, 5)));
}

TEST(LeMaxLocais, ContagemMenorLeSoOsPrimeiros) {
  const std::vector<MAXLOCAL> v = leDe("1\n" + cabecalho + "0.5 c 1 2 3 4 5\n0.4 q 6 7 8 9 10\n");
  ASSERT_EQ(v.size(), 1U);
  EXPECT_EQ(v[0].forma, 'c');
}

TEST(LeMaxLocais, DaPalavraDaFormaSoALetraInicialConta) {
  EXPECT_EQ(leDe("1 0.5 ret 1 2 3 4 5")[0].forma, 'r');
  EXPECT_EQ(leDe("1 0.5 circulo 1 2 3 4 5")[0].forma, 'c');
}

TEST(LeMaxLocais, LetraDesconhecidaETamanhosEstranhosSaoAceitos) {
  EXPECT_TRUE(
      iguais(leDe("1 -7 x -1 99999 -3 0 1e9")[0], registro(-7, 'x', -1, 99999, -3, 0, 1e9)));
}

TEST(LeMaxLocais, ComentarioEntreRegistrosEhPulado) {
  EXPECT_EQ(leDe("2 //a b\n0.5 c 1 2 3 4 5 // q 1\n//\n0.4 q 1 2 3 4 5").size(), 2U);
}

TEST(LeMaxLocais, FimDeLinhaDeOutrosSistemasEhAceito) {
  EXPECT_EQ(leDe("1\r\n//correl f\r\n0.5 c 1 2 3 4 5\r\n").size(), 1U);
}

TEST(LeMaxLocais, ContagemNegativaOuGrandeDemaisEhErroDeTamanho) {
  for (const char* n : {"-1", "-2147483648", "107374183", "2147483647"}) {
    try {
      leDe(std::string(n) + "\n" + cabecalho);
      ADD_FAILURE() << n;
    } catch (const pim::CONTAGEM_IMPOSSIVEL& e) {
      EXPECT_EQ(e.what(),
                cv::format("Erro: Numero de registros impossivel %s (a.ho1, linha 1)", n));
    }
  }
}

TEST(LeMaxLocais, MaiorContagemAceitaFalhaSoPorFaltaDeRegistros) {
  EXPECT_EQ(erroDe([&] { leDe("107374182\n" + cabecalho); }),
            "Erro: Falta numero no fim do texto (a.ho1, linha 3)");
}

TEST(LeMaxLocais, ContagemMaiorQueOsRegistrosAcabaNoNumeroQueFalta) {
  EXPECT_EQ(erroDe([&] { leDe("2\n" + cabecalho + "0.5 c 1 2 3 4 5\n"); }),
            "Erro: Falta numero no fim do texto (a.ho1, linha 4)");
  // Past the end the letter reads as the "e" of "eof"; the number after it stops the reading.
  EXPECT_EQ(erroDe([&] { leDe("1\n0.5"); }), "Erro: Falta numero no fim do texto (a.ho1, linha 2)");
}

TEST(LeMaxLocais, NumeroInvalidoMostraTextoArquivoELinha) {
  EXPECT_EQ(erroDe([&] { leDe("1\n" + cabecalho + "0.5 c 1 2.5 3 4 5\n"); }),
            "Erro: Numero invalido 2.5 (a.ho1, linha 3)");
  EXPECT_EQ(erroDe([&] { leDe("dois"); }), "Erro: Numero invalido dois (a.ho1, linha 1)");
}

TEST(LeMaxLocais, ArquivoQueNaoAbreEhErroComONome) {
  std::vector<MAXLOCAL> v;
  EXPECT_EQ(erroDe([&] { leMaxLocais(v, "nao-existe.ho1"); }),
            "Erro abertura arquivo nao-existe.ho1");
}

TEST(MostraMaxLocal, ImprimeUmaLinhaCurta) {
  testing::internal::CaptureStdout();
  mostraMaxLocal(registro(0.5F, 'e', -3, 12345, 12.5, 1e-7, 22.5));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "0.500000 e -3 12345 12.5 1e-07 22.5\n");
}

TEST(MascaraMaxLocal, LetraEscolheAFormaEOsTamanhos) {
  // With d1 13, d2 7 and angle 30 every family has an image of its own.
  const auto mascara = [](char forma) {
    CINZA out;
    mascaraMaxLocal(registro(1, forma, 0, 0, 13, 7, 30), out);
    return out;
  };
  EXPECT_EQ(mascara('c').rows, 15);
  EXPECT_EQ(mascara('q').rows, 19);
  EXPECT_EQ(mascara('r').rows, 19);
  EXPECT_EQ(mascara('e').rows, 13);
  EXPECT_GT(cv::countNonZero(mascara('r')), cv::countNonZero(mascara('q')));
  EXPECT_EQ(mascara('e')(6, 6), 0);
}

TEST(MascaraMaxLocal, LetraDesconhecidaNaoTocaASaida) {
  CINZA cheia(4, 4, static_cast<unsigned char>(77));
  const CINZA copiaRasa = cheia;
  mascaraMaxLocal(registro(1, 'x', 0, 0, 13, 7, 30), cheia);
  EXPECT_EQ(cheia.data, copiaRasa.data);
  EXPECT_EQ(cv::norm(cheia, CINZA(4, 4, static_cast<unsigned char>(77)), cv::NORM_INF), 0);
  CINZA vazia;
  mascaraMaxLocal(registro(1, 'C', 0, 0, 13, 7, 30), vazia);
  EXPECT_TRUE(vazia.empty());
}
