#include "cenario.h"
#include "kernels/grupos.h"
#include "kernels/lekernels.h"

TEST_F(Sugere, EscreveUmKernelCfgQueSeLe) {
  const CORRIDA c = rodaSugere({"fotos"});
  ASSERT_EQ(c.estado, 0) << c.erro;
  EXPECT_TRUE(tem(c.saida, "fotografias olhadas: 3\n")) << c.saida;
  EXPECT_TRUE(tem(c.saida, "// Graos mais escuros que o fundo"));
  EXPECT_TRUE(tem(c.saida, "\n// vorplex-lote: -c 0.02\n"));
  EXPECT_TRUE(tem(c.erro, "Escolhido por 3 de 3 fotografias: graos escuros de ")) << c.erro;
  std::vector<MASCARA> v;
  kernels::leKernelsDoTexto(c.saida, "kernel.cfg", v, IMAGENS::nenhuma);
  EXPECT_FALSE(kernels::grupos(v).empty());
}

TEST_F(Sugere, GraosClaros) {
  grava("negativo.pgm", pgm(negativo()));
  const CORRIDA c = rodaSugere({"negativo.pgm", "--language", "en"});
  ASSERT_EQ(c.estado, 0) << c.erro;
  EXPECT_TRUE(tem(c.saida, "// Grains brighter than their ground"));
  EXPECT_TRUE(tem(c.saida, "\n// vorplex-lote: -i -c 0.02\n"));
  EXPECT_TRUE(tem(c.erro, "bright grains of")) << c.erro;
}

TEST_F(Sugere, AOrdemEOsFiosNaoImportam) {
  grava("fotos/b.pgm", pgm(fotoDeGraos()));
  const CORRIDA umas = rodaSugere({"--quieto", "-j", "1", "--amostra", "2", "fotos"});
  const CORRIDA outras = rodaSugere(
      {"--quiet", "-j3", "--sample=2", "fotos/c.pgm", "fotos/a.pgm", "fotos/b.pgm", "fotos/a.pgm"});
  EXPECT_EQ(umas.estado, 0);
  EXPECT_EQ(umas.erro, "");
  EXPECT_EQ(umas.saida, outras.saida);
}

TEST_F(Sugere, FotografiaQueDestoaEhDita) {
  grava("fotos/b.pgm", pgm(negativo()));
  const CORRIDA c = rodaSugere({"--quieto", "fotos"});
  EXPECT_EQ(c.estado, 0);
  EXPECT_TRUE(tem(c.erro, "fotos/b.pgm destoa da escolha: seus graos parecem claros\n")) << c.erro;
  EXPECT_FALSE(tem(c.erro, "a.pgm"));
  EXPECT_TRUE(tem(c.erro, "Aviso: ha' graos claros e escuros; os claros ficam fora (3")) << c.erro;
}

TEST_F(Sugere, FiguraDoQueSeAchou) {
  const CORRIDA c = rodaSugere({"-d", "figura.ppm", "fotos"});
  EXPECT_EQ(c.estado, 0) << c.erro;
  const std::string figura = leTudo("figura.ppm");
  EXPECT_TRUE(figura.starts_with("P6\n")) << figura.size();
  EXPECT_GT(figura.size(), 3U * 3 * 180 * 240);
}

TEST_F(Sugere, FotografiaEstragadaEhDitaEDeixada) {
  grava("fotos/b.pgm", "P5\n300 300\n255\nnada");
  const CORRIDA c = rodaSugere({"fotos"});
  EXPECT_EQ(c.estado, 0);
  EXPECT_TRUE(tem(c.erro, "Aviso: ") && tem(c.erro, "fotos/b.pgm nao pode ser lida\n")) << c.erro;
}

TEST_F(Sugere, SemGraosOsAjustesGeraisComAviso) {
  grava("um.pgm", "P5\n1 1\n255\nx");
  grava("cinza.pgm", pgm(cv::Mat_<unsigned char>(60, 80, static_cast<unsigned char>(99))));
  for (const char* nome : {"um.pgm", "cinza.pgm"}) {
    const CORRIDA c = rodaSugere({nome});
    EXPECT_EQ(c.estado, 0) << c.erro;
    EXPECT_TRUE(tem(c.erro, "Aviso: nenhum grao foi visto")) << c.erro;
    EXPECT_TRUE(tem(c.saida, "// Nenhum grao foi visto")) << c.saida;
    EXPECT_TRUE(tem(c.saida, "circulo 16\n")) << c.saida;
  }
}
