#include "cenario.h"

TEST_F(Sugere, AjudaEVersao) {
  for (const char* opcao : {"-h", "--ajuda", "--help"}) {
    const CORRIDA c = rodaSugere({opcao});
    EXPECT_EQ(c.estado, 0);
    EXPECT_TRUE(c.saida.starts_with("vorplex-sugere [opcoes] FOTO|PASTA...\n")) << c.saida;
  }
  for (const char* opcao : {"-V", "--versao", "--version"}) {
    EXPECT_TRUE(rodaSugere({opcao}).saida.starts_with("vorplex-sugere 1."));
  }
}

TEST_F(Sugere, UsoErrado) {
  const auto erro = [](const std::vector<std::string>& args) {
    const CORRIDA c = rodaSugere(args);
    EXPECT_EQ(c.estado, 2);
    EXPECT_EQ(c.saida, "");
    return c.erro.substr(0, c.erro.find('\n'));
  };
  std::filesystem::create_directory("vazia");
  EXPECT_EQ(erro({}), "Erro: Falta fotografia ou pasta");
  EXPECT_EQ(erro({"vazia"}), "Erro: Nenhuma fotografia em vazia");
  EXPECT_EQ(erro({"--amostra", "0", "fotos"}), "Erro: Amostra invalida 0 (1 a 1000)");
  EXPECT_EQ(erro({"--familias", "x", "fotos"}), "Erro: Familias invalidas x (letras de c q r e)");
  EXPECT_EQ(erro({"-j", "x", "fotos"}), "Erro: Numero de fios invalido x (1 a 1024)");
  EXPECT_EQ(erro({"-d", "figura.xyz", "fotos"}),
            "Erro: Sufixo desconhecido em figura.xyz (use uma imagem: png, jpg, tif...)");
  EXPECT_EQ(erro({"-d", "fotos/a.pgm", "fotos"}),
            "Erro: A figura fotos/a.pgm apagaria uma das fotografias");
  EXPECT_EQ(leTudo("fotos/a.pgm"), pgm(foto()));
}

TEST_F(Sugere, NenhumaLidaFalha) {
  grava("ruim.png", "isto nao e' uma imagem");
  const CORRIDA c = rodaSugere({"ruim.png", "falta.png"});
  EXPECT_EQ(c.estado, 1);
  EXPECT_EQ(c.saida, "");
  EXPECT_TRUE(tem(c.erro, "Erro: Nenhuma das 2 fotografias olhadas pode ser lida\n")) << c.erro;
}

TEST_F(Sugere, FiguraQueNaoSeGravaFalha) {
  const CORRIDA c = rodaSugere({"-d", "falta/figura.png", "fotos"});
  EXPECT_EQ(c.estado, 1);
  EXPECT_EQ(c.saida, "");
  EXPECT_TRUE(tem(c.erro, "falta/figura.png")) << c.erro;
}

TEST_F(Sugere, SaidaPadraoCheiaFalha) {
  const CORRIDA c = rodaSugere({"fotos"}, ">/dev/full");
  EXPECT_EQ(c.estado, 1);
  EXPECT_TRUE(tem(c.erro, "Erro: Gravacao da saida padrao\n")) << c.erro;
}
