#include <gtest/gtest.h>

#include <random>

#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "confere.h"

namespace {

using FOTO = cv::Mat_<pim::VEC3B>;

const std::string usoTraca =
    "Traca imagem.ppm imagem.ho1 saida.ppm [c|C] [i] [p|P]\n"
    "  Mostra os maximos locais (ho1 ou ho2) sem filtrar\n"
    "  c=contorno C=contorno bold\n"
    "  i=indice da forma\n"
    "  p=ponto central P=ponto bold\n";

// A folder with a black image "a.ppm" of 9 by 7 pixels and a list "a.ho1" of one small circle.
struct ComandoTraca : testing::Test {
  PASTA pasta;

  ComandoTraca() {
    grava("a.ppm", ppm(FOTO(7, 9, pim::VEC3B(0, 0, 0))));
    grava("a.ho1", listaHo({{0.9F, 'c', 3, 4, 3, 3, 0}}));
  }
};

// The bytes of a colour image drawn as rows of '.', 'R' and 'G'.
std::string desenhada(const std::vector<std::string>& linhas) {
  FOTO img(static_cast<int>(linhas.size()), static_cast<int>(linhas[0].size()));
  for (int l = 0; l < img.rows; ++l) {
    for (int c = 0; c < img.cols; ++c) {
      const char letra = linhas[static_cast<std::size_t>(l)][static_cast<std::size_t>(c)];
      img(l, c) = pim::VEC3B(0, letra == 'G' ? 255 : 0, letra == 'R' ? 255 : 0);
    }
  }
  return ppm(img);
}

const std::string anel = desenhada({".........",  //
                                    ".........",  //
                                    "...RRR...",  //
                                    "...R.R...",  //
                                    "...RRR...",  //
                                    ".........",  //
                                    "........."});

TEST_F(ComandoTraca, ArgumentosDeMenosMostramOUsoEErro) {
  confereErro(executa({"traca"}), usoTraca, "Erro: Numero de argumentos invalido");
  confereErro(executa({"TRACA", "a.ppm"}), usoTraca, "Erro: Numero de argumentos invalido");
  confereErro(executa({"traca", "a.ppm", "a.ho1"}), usoTraca,
              "Erro: Numero de argumentos invalido");
}

TEST_F(ComandoTraca, SemOpcoesGravaSoContornosFinosVermelhosENaoDizNada) {
  confereSucesso(executa({"traca", "a.ppm", "a.ho1", "b.ppm"}), "");
  EXPECT_EQ(leTudo("b.ppm"), anel);
  EXPECT_EQ(leTudo("a.ppm"), ppm(FOTO(7, 9, pim::VEC3B(0, 0, 0))));
}

TEST_F(ComandoTraca, BoldEngrossaOContornoEOPontoBoldOCobre) {
  // The outline image is 5 by 5, and its last column stays out.
  confereSucesso(executa({"traca", "a.ppm", "a.ho1", "b.ppm", "C"}), "");
  EXPECT_EQ(leTudo("b.ppm"), desenhada({".........",  //
                                        "...RRR...",  //
                                        "..RRRR...",  //
                                        "..RRRR...",  //
                                        "..RRRR...",  //
                                        "...RRR...",  //
                                        "........."}));
  confereSucesso(executa({"traca", "a.ppm", "a.ho1", "b.ppm", "C", "P"}), "");
  EXPECT_EQ(leTudo("b.ppm"), desenhada({".........",  //
                                        "...RRR...",  //
                                        "..RGGG...",  //
                                        "..RGGG...",  //
                                        "..RGGG...",  //
                                        "...RRR...",  //
                                        "........."}));
}

TEST_F(ComandoTraca, IndiceVermelhoSobreBrancoComPontosPorCima) {
  grava("a.ppm", ppm(FOTO(40, 40, pim::VEC3B(0, 0, 0))));
  grava("a.ho1", listaHo({{0.9F, 'c', 20, 20, 30, 30, 0}}));
  confereSucesso(executa({"traca", "a.ppm", "a.ho1", "b.ppm", "c", "i", "p"}), "");
  const std::string bytes = leTudo("b.ppm");
  const auto cor = [&bytes](std::size_t l, std::size_t c) {
    return bytes.substr(std::string("P6\n40 40\n255\n").size() + 3 * (40 * l + c), 3);
  };
  EXPECT_EQ(cor(20, 20), std::string("\0\xFF\0", 3));
  EXPECT_EQ(cor(5, 20), std::string("\xFF\0\0", 3));
  int brancos = 0;
  int vermelhos = 0;
  for (std::size_t l = 12; l <= 28; ++l) {
    for (std::size_t c = 12; c <= 28; ++c) {
      if (cor(l, c) == "\xFF\xFF\xFF") ++brancos;
      if (cor(l, c) == std::string("\xFF\0\0", 3)) ++vermelhos;
    }
  }
  EXPECT_GT(brancos, vermelhos);
  EXPECT_GT(vermelhos, 10);
}

TEST_F(ComandoTraca, ListaSemRegistrosDaAImagemDeEntrada) {
  std::mt19937 sorteio(5);
  const std::string bytes = ppm(fotoSorteada(sorteio, 12, 17));
  grava("a.ppm", bytes);
  grava("vazia.ho2", listaHo({}));
  confereSucesso(executa({"traca", "a.ppm", "vazia.ho2", "b.ppm", "C", "i", "P"}), "");
  EXPECT_EQ(leTudo("b.ppm"), bytes);
}

TEST_F(ComandoTraca, OpcaoDesconhecidaEhIgnorada) {
  confereSucesso(executa({"traca", "a.ppm", "a.ho1", "b.ppm", "x", "", "--tudo"}), "");
  EXPECT_EQ(leTudo("b.ppm"), anel);
}

TEST_F(ComandoTraca, FotografiaCinzaSaiColorida) {
  grava("a.pgm", pgm(cv::Mat_<unsigned char>(7, 9, static_cast<unsigned char>(0))));
  confereSucesso(executa({"traca", "a.pgm", "a.ho1", "b.ppm"}), "");
  EXPECT_EQ(leTudo("b.ppm"), anel);
}

TEST_F(ComandoTraca, SaidaPngTemOsMesmosPixels) {
  confereSucesso(executa({"traca", "a.ppm", "a.ho1", "b.png"}), "");
  confereSucesso(executa({"traca", "b.png", "a.ho1", "c.ppm"}), "");
  EXPECT_EQ(leTudo("c.ppm"), anel);
}

TEST_F(ComandoTraca, NomesComEspacosAcentosEPontos) {
  const std::string base = "minha pasta.d/gr\xC3\xA3o de caf\xC3\xA9.v1.2";
  std::filesystem::create_directory("minha pasta.d");
  grava(base + ".ppm", leTudo("a.ppm"));
  grava(base + ".ho1", leTudo("a.ho1"));
  confereSucesso(executa({"traca", base + ".ppm", base + ".ho1", base + ".saida.PPM"}), "");
  EXPECT_EQ(leTudo(base + ".saida.PPM"), anel);
}

TEST_F(ComandoTraca, LetraDesconhecidaFinaNaoDesenhaNada) {
  grava("a.ho1", listaHo({{0.9F, 'x', 3, 4, 3, 3, 0}, {0.9F, 'c', 3, 4, 3, 3, 0}}));
  confereSucesso(executa({"traca", "a.ppm", "a.ho1", "b.ppm"}), "");
  EXPECT_EQ(leTudo("b.ppm"), anel);
}

TEST_F(ComandoTraca, LetraDesconhecidaBoldEhErroSemImagem) {
  grava("a.ho1", listaHo({{0.9F, 'x', 3, 4, 3, 3, 0}}));
  confereErro(executa({"traca", "a.ppm", "a.ho1", "b.ppm", "C"}), "",
              "Erro: IMG_::constructor _mat nulo");
  EXPECT_FALSE(existe("b.ppm"));
}

TEST_F(ComandoTraca, CirculoSemContornoEhErroSemImagem) {
  grava("a.ho1", listaHo({{0.9F, 'c', 3, 4, 0.5, 0.5, 0}}));
  confereErro(executa({"traca", "a.ppm", "a.ho1", "b.ppm"}), "",
              "Erro: IMG_::constructor _mat nulo");
  EXPECT_FALSE(existe("b.ppm"));
}

TEST_F(ComandoTraca, FormaSemImagemPossivelEhErroQueADiz) {
  grava("a.ho1", listaHo({{0.9F, 'q', 3, 4, 1e9, 1e9, 0}}));
  confereErro(executa({"traca", "a.ppm", "a.ho1", "b.ppm"}), "",
              "Erro: Forma grande demais q 1e+09 1e+09 (a.ho1, registro 0)");
}

TEST_F(ComandoTraca, EntradaQueFaltaOuNaoEhImagemEhErro) {
  confereErro(executa({"traca", "nao.ppm", "a.ho1", "b.ppm"}), "", "Erro abertura arquivo nao.ppm");
  confereErro(executa({"traca", "a.ppm", "nao.ho1", "b.ppm"}), "", "Erro abertura arquivo nao.ho1");
  confereErro(executa({"traca", ".", "a.ho1", "b.ppm"}), "", "Erro abertura arquivo .");
  grava("c.ppm", leTudo("a.ppm").substr(0, 100));
  confereErro(executa({"traca", "c.ppm", "a.ho1", "b.ppm"}), "",
              "Erro leitura imagem c.ppm: arquivo incompleto");
  const EXECUCAO e = executa({"traca", "a.ho1", "a.ho1", "b.ppm"});
  EXPECT_EQ(e.estado, 1);
  EXPECT_TRUE(e.erro.starts_with("Erro leitura imagem a.ho1: ")) << e.erro;
  EXPECT_FALSE(existe("b.ppm"));
}

TEST_F(ComandoTraca, ListaComNumeroMauOuCurtaEhErro) {
  grava("a.ho1", "1\n//\n0.9 c 3 quatro 3 3 0\n");
  const EXECUCAO mau = executa({"traca", "a.ppm", "a.ho1", "b.ppm"});
  EXPECT_EQ(mau.estado, 1);
  EXPECT_TRUE(mau.erro.starts_with("Erro: Numero invalido quatro")) << mau.erro;
  grava("a.ho1", "2\n//\n0.9 c 3 4 3 3 0\n");
  EXPECT_EQ(executa({"traca", "a.ppm", "a.ho1", "b.ppm"}).estado, 1);
  EXPECT_FALSE(existe("b.ppm"));
}

TEST_F(ComandoTraca, SaidaQueNaoSePodeGravarEhErro) {
  confereErro(executa({"traca", "a.ppm", "a.ho1", "sem/b.ppm"}), "",
              "Erro abertura arquivo sem/b.ppm");
  confereErro(executa({"traca", "a.ppm", "a.ho1", "b.xyz"}), "",
              "Erro: Formato de imagem desconhecido b.xyz");
  confereErro(executa({"traca", "a.ppm", "a.ho1", "b"}), "",
              "Erro: Formato de imagem desconhecido b");
  for (const std::string cheio : {"cheio.ppm", "cheio.png"}) {
    std::filesystem::create_symlink("/dev/full", cheio);
    confereErro(executa({"traca", "a.ppm", "a.ho1", cheio}), "", "Erro gravacao arquivo " + cheio);
  }
}

}  // namespace
