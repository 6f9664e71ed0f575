#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "apoio/executa.h"
#include "apoio/pasta.h"
#include "entradas_ruins.h"
#include "kernels/comando.h"
#include "kernels/grupos.h"
#include "kernels/lekernels.h"
#include "pim/gruda.h"
#include "pim/imagem.h"

namespace {

using CINZA = cv::Mat_<unsigned char>;

EXECUCAO kernel(const std::string& cfg, const std::string& saida = "k.pgm") {
  grava("k.cfg", cfg);
  return executa({"kernel", "k.cfg", saida});
}

CINZA imagem(const std::string& nome) {
  CINZA img;
  pim::le(img, nome);
  return img;
}

// The kernels of a column in grey, one below the other in the middle, a black line between them.
CINZA coluna(const std::vector<MASCARA>& v, std::size_t de, std::size_t ate) {
  int rows = -1;
  int cols = 0;
  for (std::size_t i = de; i <= ate; ++i) {
    rows += v[i].kernel.rows + 1;
    cols = std::max(cols, v[i].kernel.cols);
  }
  CINZA img(rows, cols, static_cast<unsigned char>(0));
  for (std::size_t i = de, topo = 0; i <= ate; ++i) {
    const cv::Mat_<float>& K = v[i].kernel;
    for (int l = 0; l < K.rows; ++l) {
      for (int c = 0; c < K.cols; ++c) {
        const int tom = K(l, c) < 0 ? 0 : K(l, c) > 0 ? 255 : 128;
        img(static_cast<int>(topo) + l, (cols - K.cols) / 2 + c) = static_cast<unsigned char>(tom);
      }
    }
    topo += static_cast<std::size_t>(K.rows) + 1;
  }
  return img;
}

std::vector<MASCARA> conjunto() {
  std::vector<MASCARA> v;
  leKernels("k.cfg", v);
  return v;
}

bool iguais(const CINZA& a, const CINZA& b) {
  return a.size() == b.size() && cv::countNonZero(a != b) == 0;
}

void recusa(const std::string& cfg, const std::string& mensagem) {
  const PASTA pasta;
  const EXECUCAO e = kernel(cfg);
  EXPECT_EQ(e.estado, 1) << cfg;
  EXPECT_EQ(e.saida, titulo) << cfg;
  EXPECT_EQ(e.erro, mensagem + "\n") << cfg;
  confereCusto(e);
  EXPECT_FALSE(existe("k.pgm")) << cfg;
}

}  // namespace

TEST(ComandoKernel, CirculoPadraoListaSeisEscalasEDesenhaUmaColuna) {
  const PASTA pasta;
  const EXECUCAO e = kernel("circulo 21");
  EXPECT_EQ(e.estado, 0);
  EXPECT_EQ(e.erro, "");
  EXPECT_EQ(miolo(e),
            "Numero de kernels=6\n"
            "forma=c d1=21 d2=21 ang=0 esc=1 escPir=4 sPir=2 inic=0\n"
            "forma=c d1=18.2816 d2=18.2816 ang=0 esc=0.870551 escPir=4 sPir=2 inic=1\n"
            "forma=c d1=15.915 d2=15.915 ang=0 esc=0.757858 escPir=4 sPir=2 inic=1\n"
            "forma=c d1=13.8548 d2=13.8548 ang=0 esc=0.659754 escPir=4 sPir=2 inic=1\n"
            "forma=c d1=12.0613 d2=12.0613 ang=0 esc=0.574349 escPir=4 sPir=2 inic=1\n"
            "forma=c d1=10.5 d2=10.5 ang=0 esc=0.5 escPir=0.5 sPir=0 inic=2\n");
  EXPECT_TRUE(e.saida.ends_with(" segundos.\n"));
  EXPECT_TRUE(iguais(imagem("k.pgm"), coluna(conjunto(), 0, 5)));
}

TEST(ComandoKernel, QuadradoDePasso45TemDuasColunas) {
  const PASTA pasta;
  const EXECUCAO e = kernel("escoitava 1 passoang 45 quadrado 20");
  EXPECT_EQ(miolo(e),
            "Numero de kernels=4\n"
            "forma=q d1=20 d2=20 ang=0 esc=1 escPir=4 sPir=2 inic=0\n"
            "forma=q d1=10 d2=10 ang=0 esc=0.5 escPir=0.5 sPir=0 inic=2\n"
            "forma=q d1=20 d2=20 ang=45 esc=1 escPir=4 sPir=2 inic=0\n"
            "forma=q d1=10 d2=10 ang=45 esc=0.5 escPir=0.5 sPir=0 inic=2\n");
  const CINZA img = imagem("k.pgm");
  const CINZA esquerda = coluna(conjunto(), 0, 1);
  const CINZA direita = coluna(conjunto(), 2, 3);
  ASSERT_EQ(img.size(), cv::Size(esquerda.cols + 1 + direita.cols, esquerda.rows));
  EXPECT_TRUE(iguais(img.colRange(0, esquerda.cols), esquerda));
  EXPECT_EQ(cv::countNonZero(img.col(esquerda.cols)), 0);
  EXPECT_TRUE(iguais(img.colRange(esquerda.cols + 1, img.cols), direita));
}

TEST(ComandoKernel, MosaicoEhOMesmoQueGrudarUmAUm) {
  const PASTA pasta;
  EXPECT_EQ(kernel("escoitava 3 escala 0.4 a 1 circulo 21 passoang 25 quadrado 30 escala 1 a 1 "
                   "elipse 40 17 escala 0.2 a 1 retangulo 25 9 circulo 31 escala 1 a 1 circulo 5")
                .estado,
            0);
  CINZA tudo;
  const std::vector<MASCARA> todos = conjunto();
  for (const auto& [primeiro, ultimo] : kernels::grupos(todos)) {
    CINZA daVez;
    for (int i = primeiro; i <= ultimo; ++i) {
      CINZA cinza;
      kernelParaCinza(todos[static_cast<std::size_t>(i)].kernel, cinza);
      daVez = pim::grudaV(daVez, cinza, 1, 0);
    }
    tudo = pim::grudaH(tudo, daVez, 1, 0);
  }
  EXPECT_TRUE(iguais(imagem("k.pgm"), tudo));
}

TEST(ComandoKernel, SeparadorEhMaisEscuroQueOFundoDoKernel) {
  const PASTA pasta;
  kernel("escoitava 1 circulo 21");
  const CINZA img = imagem("k.pgm");
  const int n = conjunto()[0].kernel.rows;
  EXPECT_EQ(img(n - 1, 0), 128);
  EXPECT_EQ(img(n, 0), 0);
  EXPECT_EQ(img(n + 1, img.cols / 2), 128);
}

TEST(ComandoKernel, UmaEscalaSoDaMosaicoVazioEErro) {
  const PASTA pasta;
  const EXECUCAO e = kernel("escala 1 a 1 circulo 21");
  EXPECT_EQ(e.estado, 1);
  EXPECT_EQ(e.saida, titulo +
                         "Numero de kernels=1\n"
                         "forma=c d1=21 d2=21 ang=0 esc=1 escPir=4 sPir=2 inic=0\n");
  EXPECT_EQ(e.erro, "Erro: Imagem vazia k.pgm\n");
  EXPECT_FALSE(existe("k.pgm"));
}

TEST(ComandoKernel, ConfiguracaoVaziaListaZeroKernelsEEhErro) {
  const PASTA pasta;
  const EXECUCAO e = kernel("");
  EXPECT_EQ(e.saida, titulo + "Numero de kernels=0\n");
  EXPECT_EQ(e.erro, "Erro: Imagem vazia k.pgm\n");
}

TEST(ComandoKernel, EscalaUnicaSobeNaColunaSeguinteEAsDoFimFicamDeFora) {
  const PASTA pasta;
  const EXECUCAO e =
      kernel("escala 1 a 1 circulo 9 escala 0.5 a 1 escoitava 1 circulo 21 escala 1 a 1 circulo 7");
  EXPECT_TRUE(miolo(e).starts_with("Numero de kernels=4\n"));
  EXPECT_TRUE(iguais(imagem("k.pgm"), coluna(conjunto(), 0, 2)));
}

TEST(ComandoKernel, NomeDeSaidaEscolheOFormato) {
  const PASTA pasta;
  EXPECT_EQ(kernel("circulo 21", "um nome.v2.PNG").estado, 0);
  EXPECT_EQ(leTudo("um nome.v2.PNG").substr(1, 3), "PNG");
  EXPECT_TRUE(iguais(imagem("um nome.v2.PNG"), coluna(conjunto(), 0, 5)));
}

TEST(ComandoKernel, NumeroErradoDeArgumentosMostraOUso) {
  const PASTA pasta;
  grava("k.cfg", "circulo 21");
  const std::vector<std::vector<std::string>> casos = {
      {"kernel"}, {"kernel", "k.cfg"}, {"kernel", "k.cfg", "k.pgm", "mais"}};
  for (const std::vector<std::string>& args : casos) {
    const EXECUCAO e = executa(args);
    EXPECT_EQ(e.estado, 1);
    EXPECT_EQ(e.saida, titulo + "Kernel kernel.cfg kernel.pgm\n");
    EXPECT_EQ(e.erro, "Erro: Numero de argumentos invalido\n");
    EXPECT_FALSE(existe("k.pgm"));
  }
}

TEST(ComandoKernel, ConfiguracaoQueNaoAbreEhErro) {
  const PASTA pasta;
  const EXECUCAO e = executa({"kernel", "falta.cfg", "k.pgm"});
  EXPECT_EQ(e.estado, 1);
  EXPECT_EQ(e.saida, titulo);
  EXPECT_EQ(e.erro, "Erro abertura arquivo falta.cfg\n");
}

TEST(ComandoKernel, SaidaQueNaoSePodeGravarEhErro) {
  const PASTA pasta;
  EXPECT_EQ(kernel("circulo 21", "falta/k.pgm").erro, "Erro abertura arquivo falta/k.pgm\n");
  EXPECT_EQ(kernel("circulo 21", "k.xyz").erro, "Erro: Formato de imagem desconhecido k.xyz\n");
  EXPECT_EQ(kernel("circulo 21", "pgm").estado, 1);
}

TEST(ComandoKernel, PassoDeAnguloHostilTerminaLogo) {
  recusa("passoang 0 quadrado 21", "Erro: passoAng nao avanca em q 21 21 (k.cfg, linha 1)");
  recusa("passoang -10 elipse 30 12", "Erro: passoAng nao avanca em e 30 12 (k.cfg, linha 1)");
  recusa("passoang -inf retangulo 30 12", "Erro: passoAng nao avanca em r 30 12 (k.cfg, linha 1)");
  recusa("passoang 1e-20 retangulo 30 12", "Erro: Kernels demais em r 30 12 (k.cfg, linha 1)");
  recusa("passoang x quadrado 21", "Erro: Numero invalido x (k.cfg, linha 1)");
}

TEST(ComandoKernel, PassoNaoNumericoDaSoOAnguloZero) {
  const PASTA pasta;
  const EXECUCAO e = kernel("passoang nan quadrado 21");
  EXPECT_EQ(e.estado, 0);
  EXPECT_TRUE(miolo(e).starts_with("Numero de kernels=6\n"));
}

TEST(ComandoKernel, EscalaHostilTerminaLogo) {
  recusa("escmin 0 circulo 21", "Erro: IMG_::constructor _mat nulo");
  recusa("escmin 0 quadrado 21", "Erro: NegPosUm divisao zero");
  recusa("escoitava 1000000000 circulo 21", "Erro: Kernels demais em c 21 21 (k.cfg, linha 1)");
  recusa("escoitava 1000000000 escmin 0 circulo 21",
         "Erro: Kernels demais em c 21 21 (k.cfg, linha 1)");
  recusa("escoitava 2147483648", "Erro: Numero invalido 2147483648 (k.cfg, linha 1)");
  recusa("escmax inf escpir inf circulo 21", "Erro: Forma grande demais c 21 21 (k.cfg, linha 1)");
}

TEST(ComandoKernel, TamanhoHostilTerminaLogo) {
  const std::string zero = "Erro: NegPosUm divisao zero";
  for (const char* forma : {"circulo 0", "quadrado 0", "retangulo 0 0", "elipse 0 12", "circulo -5",
                            "quadrado -5", "retangulo 12 -5", "elipse -5 12"}) {
    recusa(forma, zero);
  }
  const std::string grande = "Erro: Forma grande demais ";
  recusa("circulo 1e300", grande + "c 1e+300 1e+300 (k.cfg, linha 1)");
  recusa("quadrado nan", grande + "q nan nan (k.cfg, linha 1)");
  recusa("retangulo 12 inf", grande + "r 12 inf (k.cfg, linha 1)");
  recusa("elipse -inf 12", grande + "e -inf 12 (k.cfg, linha 1)");
  recusa("circulo 1e400", "Erro: Numero invalido 1e400 (k.cfg, linha 1)");
}
