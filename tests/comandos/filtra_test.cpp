#include <gtest/gtest.h>

#include <csignal>
#include <random>

#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "confere.h"

namespace {

using CINZA = cv::Mat_<unsigned char>;

const std::string usoFiltra =
    "Filtra imagem.pgm imagem.ho1 saida.ppm|saida.ho2 parametros\n"
    "  parametros: default   minCorrDef maxInterDef (0.1 e 0.3)\n"
    "              circulo   minCorrCir maxInterCir\n"
    "              retangulo minCorrRet maxInterRet\n"
    "              quadrado  minCorrQua maxInterQua\n"
    "              elipse    minCorrEli maxInterEli\n";
const std::string cabecalho = "//correl f    l    c       d1       d2 deg\n";

std::string mensagens(int originais, int mantidos) {
  return cv::format(
      "Lendo a.pgm...\nLendo a.ho1...\nNumero de maximos locais originais=%d\n"
      "Filtrando os maximos locais com interseccao>maxInter...\n"
      "Numero de maximos locais apos filtro interseccao=%d\n",
      originais, mantidos);
}

// A folder with a grey image and four detections: two circles that overlap by more than half, a
// weak ellipse and a weaker square, both apart.
struct ComandoFiltra : testing::Test {
  PASTA pasta;

  ComandoFiltra() {
    grava("a.pgm", pgm(CINZA(60, 80, static_cast<unsigned char>(90))));
    grava("a.ho1", listaHo({{0.9F, 'c', 20, 20, 12, 12, 0},
                            {0.8F, 'c', 20, 23, 12, 12, 0},
                            {0.25F, 'e', 40, 50, 14, 8, 157.5},
                            {0.125F, 'q', 10, 60, 8, 8, 30}}));
  }

  // The shape letters of the records of a list file, in order.
  static std::string letras(const std::string& nome) {
    std::string achadas;
    for (const char c : leTudo(nome).substr(leTudo(nome).find("deg") + 3)) {
      if (c >= 'a' && c <= 'z') achadas += c;
    }
    return achadas;
  }

  static std::string filtra(std::vector<std::string> parametros) {
    parametros.insert(parametros.begin(), {"filtra", "a.pgm", "a.ho1", "b.ho2"});
    EXPECT_EQ(executa(parametros).estado, 0);
    return letras("b.ho2");
  }
};

TEST_F(ComandoFiltra, ArgumentosDeMenosMostramOUsoEErro) {
  const std::string erro = "Erro: Numero de argumentos invalido";
  confereErro(executa({"filtra"}), usoFiltra, erro);
  confereErro(executa({"filtra", "a.pgm", "a.ho1"}), usoFiltra, erro);
}

TEST_F(ComandoFiltra, SemParametrosUsa01E03EGravaOHo2) {
  confereSucesso(executa({"filtra", "a.pgm", "a.ho1", "b.ho2"}), mensagens(4, 3));
  EXPECT_EQ(leTudo("b.ho2"), "3\n" + cabecalho +
                                 "0.900000 c   20   20 12.00000 12.00000   0\n"
                                 "0.250000 e   40   50 14.00000  8.00000 158\n"
                                 "0.125000 q   10   60  8.00000  8.00000  30\n");
}

TEST_F(ComandoFiltra, ParametrosDeCadaForma) {
  EXPECT_EQ(filtra({"elipse", "0.5", "0.2"}), "cq");
  EXPECT_EQ(filtra({"circulo", "0.1", "1"}), "cceq");
  EXPECT_EQ(filtra({"default", "0.2", "1"}), "cce");
  EXPECT_EQ(filtra({"default", "0.2", "1", "quadrado", "0.1", "0"}), "cceq");
  EXPECT_EQ(filtra({"quadrado", "0.1", "0", "default", "0.2", "1"}), "cce");
}

TEST_F(ComandoFiltra, PalavrasEmMaiusculasEParametrosNumSoArgumento) {
  EXPECT_EQ(filtra({"ELIPSE", "0.5", "0.2"}), "cq");
  EXPECT_EQ(filtra({"Elipse 0.5 0.2 Quadrado 0.2 0.2"}), "c");
  EXPECT_EQ(filtra({"eof", "triangulo"}), "ceq");
}

TEST_F(ComandoFiltra, PalavraDesconhecidaEhErroAntesDeLerQualquerCoisa) {
  confereErro(executa({"filtra", "nao.pgm", "nao.ho1", "b.ho2", "Triangulo", "1", "2"}), "",
              "Erro: Palavra desconhecida triangulo");
  EXPECT_FALSE(existe("b.ho2"));
}

TEST_F(ComandoFiltra, NumeroQueFaltaOuNaoEhNumeroEhErro) {
  const std::vector<std::string> base = {"filtra", "a.pgm", "a.ho1", "b.ho2", "elipse", "0.5"};
  const EXECUCAO falta = executa(base);
  EXPECT_EQ(falta.estado, 1);
  EXPECT_EQ(falta.saida, titulo);
  EXPECT_TRUE(falta.erro.starts_with("Erro: Falta numero")) << falta.erro;
  std::vector<std::string> mau = base;
  mau.emplace_back("0,2");
  confereErro(executa(mau), "", "Erro: Numero invalido 0,2");
  EXPECT_FALSE(existe("b.ho2"));
}

TEST_F(ComandoFiltra, OutroSufixoRecebeAImagemComContornosVermelhos) {
  grava("a.pgm", pgm(CINZA(5, 6, static_cast<unsigned char>(90))));
  grava("a.ho1", listaHo({{0.9F, 'c', 2, 2, 3, 3, 0}, {0.8F, 'c', 2, 3, 3, 3, 0}}));
  confereSucesso(executa({"filtra", "a.pgm", "a.ho1", "b.ppm"}),
                 mensagens(2, 1) + "Tracando contornos...\n");
  cv::Mat_<pim::VEC3B> esperada(5, 6, pim::VEC3B(90, 90, 90));
  for (int l = 1; l <= 3; ++l) {
    for (int c = 1; c <= 3; ++c) {
      if (l != 2 || c != 2) esperada(l, c) = pim::VEC3B(0, 0, 255);
    }
  }
  EXPECT_EQ(leTudo("b.ppm"), ppm(esperada));
}

TEST_F(ComandoFiltra, ListaVaziaDaListaOuImagemSemNada) {
  grava("a.ho1", listaHo({}));
  confereSucesso(executa({"filtra", "a.pgm", "a.ho1", "b.ho2"}), mensagens(0, 0));
  EXPECT_EQ(leTudo("b.ho2"), "0\n" + cabecalho);
  confereSucesso(executa({"filtra", "a.pgm", "a.ho1", "b.pgm"}),
                 mensagens(0, 0) + "Tracando contornos...\n");
  EXPECT_EQ(leTudo("b.pgm"), leTudo("a.pgm"));
}

TEST_F(ComandoFiltra, LetraDesconhecidaFicaNoHo2ENaoSeDesenha) {
  grava("a.ho1", listaHo({{-5, 'x', -900, 20, 12, 12, 0}}));
  confereSucesso(executa({"filtra", "a.pgm", "a.ho1", "b.ho2"}), mensagens(1, 1));
  EXPECT_EQ(letras("b.ho2"), "x");
  confereSucesso(executa({"filtra", "a.pgm", "a.ho1", "b.pgm"}),
                 mensagens(1, 1) + "Tracando contornos...\n");
  EXPECT_EQ(leTudo("b.pgm"), leTudo("a.pgm"));
}

TEST_F(ComandoFiltra, NomesComEspacosAcentosEPontos) {
  const std::string base = "minha pasta.d/gr\xC3\xA3o de caf\xC3\xA9.v1.2";
  std::filesystem::create_directory("minha pasta.d");
  grava(base + ".pgm", leTudo("a.pgm"));
  grava(base + ".ho1", leTudo("a.ho1"));
  const EXECUCAO e = executa({"filtra", base + ".pgm", base + ".ho1", base + ".x.ho2"});
  EXPECT_EQ(e.estado, 0);
  EXPECT_TRUE(miolo(e).starts_with("Lendo " + base + ".pgm...\nLendo " + base + ".ho1...\n"));
  EXPECT_EQ(letras(base + ".x.ho2"), "ceq");
}

TEST_F(ComandoFiltra, OSufixoEhODaUltimaParteDoNomeEmMinusculas) {
  std::filesystem::create_directory("pasta.ho2");
  confereErro(executa({"filtra", "a.pgm", "a.ho1", "pasta.ho2/saida"}),
              mensagens(4, 3) + "Tracando contornos...\n",
              "Erro: Formato de imagem desconhecido pasta.ho2/saida");
  confereErro(executa({"filtra", "a.pgm", "a.ho1", "b.HO2"}),
              mensagens(4, 3) + "Tracando contornos...\n",
              "Erro: Formato de imagem desconhecido b.HO2");
}

TEST_F(ComandoFiltra, EntradaQueNaoSePodeLerEhErro) {
  confereErro(executa({"filtra", "nao.pgm", "a.ho1", "b.ho2"}), "Lendo nao.pgm...\n",
              "Erro abertura arquivo nao.pgm");
  confereErro(executa({"filtra", "a.pgm", "nao.ho1", "b.ho2"}),
              "Lendo a.pgm...\nLendo nao.ho1...\n", "Erro abertura arquivo nao.ho1");
  grava("a.pgm", leTudo("a.pgm").substr(0, 1000));
  confereErro(executa({"filtra", "a.pgm", "a.ho1", "b.ho2"}), "Lendo a.pgm...\n",
              "Erro leitura imagem a.pgm: arquivo incompleto");
  EXPECT_FALSE(existe("b.ho2"));
}

TEST_F(ComandoFiltra, SaidaQueNaoSePodeGravarEhErro) {
  confereErro(executa({"filtra", "a.pgm", "a.ho1", "sem/b.ho2"}), mensagens(4, 3),
              "Erro abertura arquivo sem/b.ho2");
  std::filesystem::create_symlink("/dev/full", "cheio.ho2");
  confereErro(executa({"filtra", "a.pgm", "a.ho1", "cheio.ho2"}), mensagens(4, 3),
              "Erro gravacao arquivo cheio.ho2");
  std::filesystem::create_symlink("/dev/full", "cheio.ppm");
  confereErro(executa({"filtra", "a.pgm", "a.ho1", "cheio.ppm"}),
              mensagens(4, 3) + "Tracando contornos...\n", "Erro gravacao arquivo cheio.ppm");
}

TEST_F(ComandoFiltra, RetiradaComMascaraMaiorQueAImagemAborta) {
  grava("a.pgm", pgm(CINZA(5, 5, static_cast<unsigned char>(90))));
  grava("a.ho1", listaHo({{0.9F, 'c', 2, 2, 1, 1, 0}, {0.8F, 'q', 2, 2, 20, 20, 0}}));
  const EXECUCAO e = executa(
      {"filtra", "a.pgm", "a.ho1", "b.ho2", "circulo", "0", "0.5", "quadrado", "0", "1"}, {}, 0);
  EXPECT_EQ(e.sinal, SIGABRT);
  const std::string ditas = mensagens(2, 0);
  EXPECT_EQ(e.saida, titulo + ditas.substr(0, ditas.find("Numero de maximos locais apos")));
  confereAfirmacao(e.erro, "pimvet", "T& MATRIZ<T>::operator()(unsigned int, unsigned int)",
                   "l<rows && c<cols");
  EXPECT_FALSE(existe("b.ho2"));
}

}  // namespace
