#include "kernels/normaliza.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "apoio/erros.h"
#include "apoio/figuras.h"
#include "referencia/formas.h"

namespace {

using FLOAT = cv::Mat_<float>;

FLOAT kernelDe(char forma, double d1, double d2, double ang) {
  FLOAT K;
  if (forma == 'c') kernelCirculo(K, d1);
  if (forma == 'q') kernelQuadrado(K, d1, ang);
  if (forma == 'r') kernelRetangulo(K, d1, d2, ang);
  if (forma == 'e') kernelElipse(K, d1, d2, ang);
  return K;
}

FLOAT tabela(const std::string& linhas) {
  FLOAT K = referencia::desenho(linhas);
  NegPosUm(K);
  return K;
}

struct SOMAS {
  double positivos = 0;
  double negativos = 0;
};

SOMAS somas(const FLOAT& K) {
  SOMAS s;
  for (const float x : K) (x > 0 ? s.positivos : s.negativos) += static_cast<double>(x);
  return s;
}

constexpr const char* divisaoZero = "Erro: NegPosUm divisao zero";

}  // namespace

TEST(KernelCirculo, DiametrosDe1A4SaoTabelasFixas) {
  EXPECT_TRUE(iguais(kernelDe('c', 1, 0, 0), tabela("+++/+-+/+++")));
  EXPECT_TRUE(iguais(kernelDe('c', 2, 0, 0), tabela("00+00/0+-+0/+---+/0+-+0/00+00")));
  EXPECT_TRUE(iguais(kernelDe('c', 3, 0, 0),
                     tabela("0000000/0+++++0/0+---+0/0+---+0/0+---+0/0+++++0/0000000")));
  EXPECT_TRUE(iguais(kernelDe('c', 4, 0, 0),
                     tabela("000000000/0000+0000/000+-+000/00+---+00/0+-----+0/00+---+00/"
                            "000+-+000/0000+0000/000000000")));
}

TEST(KernelCirculo, Diametro1TemUmOitavoNoAnel) {
  const FLOAT K = kernelDe('c', 1, 0, 0);
  EXPECT_EQ(K(0, 0), 0.125F);
  EXPECT_EQ(K(1, 1), -1.0F);
}

TEST(KernelCirculo, MeioArredondaParaOPar) {
  EXPECT_TRUE(iguais(kernelDe('c', 4.5, 0, 0), kernelDe('c', 4, 0, 0)));
  EXPECT_TRUE(iguais(kernelDe('c', 2.5, 0, 0), kernelDe('c', 2, 0, 0)));
  EXPECT_TRUE(iguais(kernelDe('c', 3.5, 0, 0), kernelDe('c', 4, 0, 0)));
}

TEST(KernelCirculo, PoucoAcimaDe4EMeioTemRaios3E2) {
  const FLOAT K = kernelDe('c', 4.51, 0, 0);
  EXPECT_EQ(K.size(), cv::Size(9, 9));
  EXPECT_LT(K(4, 6), 0);
  EXPECT_GT(K(4, 7), 0);
  EXPECT_EQ(K(4, 8), 0);
  EXPECT_FALSE(iguais(K, kernelDe('c', 4, 0, 0)));
}

TEST(KernelCirculo, TabelaTomaSempreMemoriaNova) {
  FLOAT K = kernelDe('c', 4, 0, 0);
  const FLOAT copiaRasa = K;
  kernelCirculo(K, 4);
  EXPECT_NE(K.data, copiaRasa.data);
  EXPECT_TRUE(iguais(K, copiaRasa));
}

TEST(KernelCirculo, CasoGeralDesenhaSobreATabelaDoMesmoTamanho) {
  FLOAT K = kernelDe('c', 4, 0, 0);
  const FLOAT copiaRasa = K;
  kernelCirculo(K, 4.51);
  EXPECT_EQ(K.data, copiaRasa.data);
  EXPECT_TRUE(iguais(copiaRasa, referencia::kernel('c', 4.51, 4.51, 0)));
}

TEST(KernelCirculo, QueArredondaParaZeroDeixaOKernelAnterior) {
  for (const double d : {0.5, 0.0, -3.0}) {
    FLOAT K = kernelDe('c', 10, 0, 0);
    const FLOAT antes = K.clone();
    const unsigned char* dados = K.data;
    kernelCirculo(K, d);
    EXPECT_EQ(K.data, dados) << d;
    EXPECT_LE(cv::norm(K, antes, cv::NORM_INF), 1e-8) << d;
  }
}

TEST(KernelCirculo, QueArredondaParaZeroComKernelVazioEhErro) {
  EXPECT_EQ(erroDe([&] { kernelDe('c', 0.5, 0, 0); }), divisaoZero);
}

TEST(Kernels, LadosEMeiosLadosDosExemplos) {
  const FLOAT q = kernelDe('q', 10, 0, 0);
  EXPECT_EQ(q.size(), cv::Size(21, 21));
  EXPECT_LT(q(10, 15), 0);
  EXPECT_GT(q(10, 16), 0);
  EXPECT_GT(q(10, 17), 0);
  EXPECT_EQ(q(10, 18), 0);
  EXPECT_EQ(kernelDe('c', 10, 0, 0).rows, 17);
  EXPECT_EQ(kernelDe('e', 20, 10, 0).rows, 31);  // 2 ceil((28.28 - 1) / 2) + 3
}

TEST(KernelRetangulo, De30Por12TemLado61EMeiosLados21E8E15E6) {
  const FLOAT K = kernelDe('r', 30, 12, 0);
  EXPECT_EQ(K.size(), cv::Size(61, 61));
  EXPECT_LT(K(30, 45), 0);
  EXPECT_GT(K(30, 46), 0);
  EXPECT_GT(K(30, 51), 0);
  EXPECT_EQ(K(30, 52), 0);
  EXPECT_LT(K(36, 30), 0);
  EXPECT_GT(K(37, 30), 0);
  EXPECT_GT(K(38, 30), 0);
  EXPECT_EQ(K(39, 30), 0);
}

TEST(Kernels, SaoOsDaVersaoIngenuaESomamZero) {
  constexpr unsigned semente = 20230;
  SCOPED_TRACE(semente);
  std::mt19937 g(semente);
  std::uniform_real_distribution<double> tamanho(4.3, 40);
  std::uniform_real_distribution<double> angulo(-200, 400);
  for (int i = 0; i < 400; ++i) {
    const char forma = "cqre"[i % 4];
    const double d1 = forma == 'c' ? tamanho(g) - 3.5 : tamanho(g);
    const double d2 = forma == 'c' || forma == 'q' ? d1 : tamanho(g);
    const double ang = i % 3 == 0 ? 15.0 * (i % 24) : angulo(g);
    const FLOAT K = kernelDe(forma, d1, d2, ang);
    ASSERT_TRUE(iguais(K, referencia::kernel(forma, d1, d2, ang)))
        << forma << ' ' << d1 << ' ' << d2 << ' ' << ang;
    const SOMAS s = somas(K);
    ASSERT_NEAR(s.positivos, 1, 1e-5);
    ASSERT_NEAR(s.negativos, -1, 1e-5);
  }
}

TEST(Kernels, DoMesmoTamanhoReusamAMemoria) {
  FLOAT K = kernelDe('q', 10, 0, 0);
  const FLOAT copiaRasa = K;
  kernelQuadrado(K, 10, 45);
  EXPECT_EQ(K.data, copiaRasa.data);
  kernelQuadrado(K, 12, 45);
  EXPECT_NE(K.data, copiaRasa.data);
  EXPECT_TRUE(iguais(copiaRasa, referencia::kernel('q', 10, 10, 45)));
}

TEST(Kernels, NucleoQueCobreOAnelEhErro) {
  EXPECT_EQ(erroDe([&] { kernelDe('q', 1, 0, 0); }), divisaoZero);
  EXPECT_EQ(erroDe([&] { kernelDe('q', 2.5, 0, 0); }), divisaoZero);  // half-sides 1 and 1
  EXPECT_EQ(erroDe([&] { kernelDe('r', 1.2, 0.3, 10); }), divisaoZero);
  EXPECT_EQ(erroDe([&] { kernelDe('e', 0, 0, 0); }), divisaoZero);
}

TEST(Kernels, TamanhoNegativoEhErro) {
  EXPECT_EQ(erroDe([&] { kernelDe('q', -5, 0, 0); }), divisaoZero);
  EXPECT_EQ(erroDe([&] { kernelDe('r', 20, -5, 0); }), divisaoZero);
  EXPECT_EQ(erroDe([&] { kernelDe('e', -5, 20, 0); }), divisaoZero);
}

TEST(Kernels, TamanhoQueNaoCabeEhErroComAForma) {
  EXPECT_EQ(erroDe([&] { kernelDe('c', 1e300, 0, 0); }),
            "Erro: Forma grande demais c 1e+300 1e+300");
  EXPECT_EQ(erroDe([&] { kernelDe('q', 5000, 0, 0); }), "Erro: Forma grande demais q 5000 5000");
  EXPECT_EQ(erroDe([&] { kernelDe('r', HUGE_VAL, 3, 0); }), "Erro: Forma grande demais r inf 3");
  EXPECT_EQ(erroDe([&] { kernelDe('e', 3, NAN, 0); }), "Erro: Forma grande demais e 3 nan");
}

TEST(NegPosUm, DuasVezesEhComoUma) {
  for (const char forma : {'c', 'q', 'r', 'e'}) {
    FLOAT K = kernelDe(forma, 17, 11, 30);
    const FLOAT antes = K.clone();
    NegPosUm(K);
    EXPECT_LE(cv::norm(K, antes, cv::NORM_INF), 1e-8) << forma;
  }
}

TEST(NegPosUm, DividePelasSomasEmDouble) {
  constexpr unsigned semente = 77;
  SCOPED_TRACE(semente);
  std::mt19937 g(semente);
  std::normal_distribution<float> peso(0.0F, 3.0F);
  for (int i = 0; i < 50; ++i) {
    FLOAT inteira(9, 13);
    for (float& x : inteira) x = g() % 5 == 0 ? 0.0F : peso(g);
    const FLOAT antes = inteira.clone();
    FLOAT K = inteira(cv::Rect(2, 1, 7, 6));  // rows that do not follow each other in memory
    const SOMAS s = somas(K);
    NegPosUm(K);
    for (int l = 0; l < 9; ++l) {
      for (int c = 0; c < 13; ++c) {
        const bool na = l >= 1 && l < 7 && c >= 2 && c < 9;
        const double x = static_cast<double>(antes(l, c));
        const double y = !na ? x : x > 0 ? x / s.positivos : x / -s.negativos;
        ASSERT_EQ(inteira(l, c), static_cast<float>(y));
      }
    }
  }
}

TEST(NegPosUm, SemPositivosOuSemNegativosEhErro) {
  FLOAT zeros(3, 3, 0.0F);
  FLOAT positivos(3, 3, 1.0F);
  FLOAT negativos(3, 3, -1.0F);
  FLOAT vazio;
  for (FLOAT* K : {&zeros, &positivos, &negativos, &vazio}) {
    EXPECT_EQ(erroDe([&] { NegPosUm(*K); }), divisaoZero);
  }
}
