#include "cenario.h"

namespace {

// Photographs large enough to choose by.
cv::Mat_<unsigned char> ladrilhos(bool claros = false) {
  cv::Mat_<unsigned char> img;
  cv::repeat(fotoDeGraos(), 2, 2, img);
  for (unsigned char& p : img) p = static_cast<unsigned char>(claros ? 255 - p : p);
  return img;
}

bool tem(const std::string& texto, const std::string& parte) {
  return texto.find(parte) != std::string::npos;
}

std::map<std::string, std::string> resultados(const std::string& pasta) {
  std::map<std::string, std::string> m = arvore(pasta);
  // They tell the command.
  std::erase_if(m, [](const auto& x) {
    return tem(x.first, "relatorio.html") || tem(x.first, "proveniencia.json");
  });
  return m;
}

}  // namespace

struct SemKernel : Lote {
  void SetUp() override {
    std::filesystem::create_directory("fotos");
    grava("fotos/a.pgm", pgm(ladrilhos()));
    grava("fotos/b.pgm", pgm(ladrilhos()));
  }
};

TEST_F(SemKernel, EscolheDizEGrava) {
  const CORRIDA c = rodaLote({"fotos"});
  ASSERT_EQ(c.estado, 0) << c.erro;
  EXPECT_TRUE(tem(c.saida, "Escolhido por 2 de 2 fotografias: graos escuros de ")) << c.saida;
  EXPECT_EQ(semAvisos(c.erro), "");
  EXPECT_TRUE(tem(leTudo("resultado/kernel.cfg"), "\n// vorplex-lote: -c 0.02\n"));
  EXPECT_EQ(linhas(leTudo("resultado/a/graos.csv")), 13U);  // three grains, four times
}

TEST_F(SemKernel, AEscolhaDadaDeVoltaDaOMesmo) {
  grava("fotos/a.pgm", pgm(ladrilhos(true)));
  grava("fotos/b.pgm", pgm(ladrilhos(true)));
  const CORRIDA c = rodaLote({"-j", "1", "fotos"});
  ASSERT_EQ(c.estado, 0) << c.erro;
  EXPECT_TRUE(tem(c.saida, "graos claros")) << c.saida;
  grava("dado.cfg", leTudo("resultado/kernel.cfg"));
  const CORRIDA outra = rodaLote({"-o", "outro", "-j", "2", "dado.cfg", "fotos"});
  ASSERT_EQ(outra.estado, 0) << outra.erro;
  EXPECT_TRUE(tem(outra.saida, "graos claros")) << outra.saida;
  std::map<std::string, std::string> esperado = resultados("resultado");
  EXPECT_EQ(esperado.erase("kernel.cfg"), 1U);
  EXPECT_EQ(resultados("outro"), esperado);
}

TEST_F(SemKernel, MaisFotografiasNaoMudamAEscolha) {
  ASSERT_EQ(rodaLote({"fotos/a.pgm"}).estado, 0);
  const std::string antes = leTudo("resultado/kernel.cfg");
  const CORRIDA c = rodaLote({"fotos"});
  EXPECT_EQ(c.estado, 0) << c.erro;
  EXPECT_TRUE(tem(c.saida, "Usando resultado/kernel.cfg, escolhido antes")) << c.saida;
  EXPECT_TRUE(tem(c.saida, "a: 12 graos, ja pronta")) << c.saida;
  EXPECT_EQ(leTudo("resultado/kernel.cfg"), antes);
}

TEST_F(SemKernel, EscolhaMudadaAMaoVale) {
  ASSERT_EQ(rodaLote({"fotos/a.pgm"}).estado, 0);
  grava("resultado/kernel.cfg", "// vorplex-lote: -c 0.1\npassoang 45 escoitava 2 circulo 21");
  ASSERT_EQ(rodaLote({"fotos/a.pgm"}).estado, 0);
  EXPECT_TRUE(tem(leTudo("resultado/kernel.cfg"), "circulo 21"));
  for (const char* opcao : {"--refaz", "--redo"}) {
    const CORRIDA c = rodaLote({opcao, "fotos/a.pgm"});
    EXPECT_TRUE(tem(c.saida, "Escolhido por 1 de 1 fotografias")) << c.saida;
    EXPECT_TRUE(tem(leTudo("resultado/kernel-anterior.cfg"), "circulo 21"));
  }
}

TEST_F(SemKernel, FotografiaQueDestoaEhDita) {
  grava("fotos/c.pgm", pgm(ladrilhos()));
  grava("fotos/b.pgm", pgm(ladrilhos(true)));
  const CORRIDA c = rodaLote({"fotos"});
  EXPECT_EQ(c.estado, 0);
  EXPECT_TRUE(tem(c.erro, "b.pgm destoa da escolha: seus graos parecem claros\n")) << c.erro;
}

TEST_F(SemKernel, SemGraosOsAjustesGerais) {
  grava("um.pgm", "P5\n1 1\n255\nx");
  const CORRIDA c = rodaLote({"um.pgm"});
  EXPECT_EQ(c.estado, 0) << c.erro;
  EXPECT_TRUE(tem(c.erro, "Aviso: nenhum grao foi visto")) << c.erro;
}

TEST_F(SemKernel, NenhumaLidaFalha) {
  grava("ruim.png", "circulo de nada");
  const CORRIDA c = rodaLote({"ruim.png"});
  EXPECT_EQ(c.estado, 1);
  EXPECT_TRUE(tem(c.erro, "Erro: Nenhuma das 1 fotografias olhadas pode ser lida")) << c.erro;
}

TEST_F(SemKernel, KernelPorConteudoNaoPorNome) {
  const std::string texto = "passoang 45 escoitava 2 circulo 21";
  grava("kernel.png", texto);
  EXPECT_FALSE(tem(rodaLote({"kernel.png", "fotos/a.pgm"}).saida, "Escolhido"));
  grava("foto", pgm(ladrilhos()));
  EXPECT_TRUE(tem(rodaLote({"-o", "outro", "foto"}).saida, "Escolhido"));
}

TEST_F(SemKernel, KernelQueFaltaEhOErroDeSempre) {
  const CORRIDA c = rodaLote({"falta.cfg", "fotos"});
  EXPECT_EQ(c.estado, 2);
  EXPECT_EQ(c.erro, "Erro: falta.cfg inexistente ou ilegivel (nao existe)\n");
}

TEST_F(SemKernel, RecadoErradoEhErro) {
  grava("k.cfg", "// vorplex-lote: -e 3\npassoang 45 escoitava 2 circulo 21");
  const CORRIDA c = rodaLote({"k.cfg", "fotos"});
  EXPECT_EQ(c.estado, 2);
  EXPECT_EQ(c.erro, "Erro: k.cfg: Palavra desconhecida -e (k.cfg, linha 1)\n");
}
