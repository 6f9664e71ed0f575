#include <sys/wait.h>

#include <cstdlib>

#include "apoio/executa.h"
#include "cenario.h"

namespace fs = std::filesystem;

namespace {

using TEXTOS = std::vector<std::string>;

// What vorplex-apura makes of the list in its folder of results.
std::string aMao(const std::string& foto, const std::string& nome, const std::string& saida,
                 const std::string& opcoes = "") {
  const std::string linha = std::string(VORPLEX_APURA) + " --quieto " + opcoes + " '" + foto +
                            "' 'resultado/" + nome + '/' + nome + ".ho1' " + saida;
  EXPECT_EQ(std::system(linha.c_str()), 0) << linha;
  return leTudo(saida);
}

std::string deixado(const std::string& nome, const std::string& arquivo) {
  return leTudo("resultado/" + nome + '/' + arquivo);
}

TEST_F(Lote, SemOutraOrdemOsGraosSaoOsDoVorplexApura) {
  const CORRIDA c = rodaLote({"kernel.cfg", "fotos"});
  ASSERT_EQ(c.estado, 0) << c.erro;
  EXPECT_EQ(semAvisos(c.erro), "");
  EXPECT_NE(c.saida.find("f0: 3 graos"), std::string::npos) << c.saida;
  for (const char* nome : {"f0", "f1"}) {
    const std::string foto = std::string("fotos/") + nome + ".pgm";
    ASSERT_EQ(executa({"correla", foto, "kernel.cfg", "mao.ho1", "0.02"}).estado, 0);
    EXPECT_EQ(deixado(nome, std::string(nome) + ".ho1"), leTudo("mao.ho1"));
    EXPECT_EQ(deixado(nome, "graos.csv"), aMao(foto, nome, "mao.csv"));
    EXPECT_EQ(deixado(nome, std::string(nome) + ".ho2"), aMao(foto, nome, "mao.ho2"));
    ASSERT_EQ(executa({"relat", "mao.ho2", "mao.rel"}).estado, 0);
    EXPECT_EQ(deixado(nome, std::string(nome) + ".rel"), leTudo("mao.rel"));
    ASSERT_EQ(executa({"traca", foto, "mao.ho2", "mao.png", "C", "i"}).estado, 0);
    EXPECT_TRUE(deixado(nome, std::string(nome) + ".png") == leTudo("mao.png"));
  }
  EXPECT_EQ(dentroDe("resultado/f1"),
            (TEXTOS{".vorplex-apurado", ".vorplex-candidatos", ".vorplex-lote", "f1.ho1", "f1.ho2",
                    "f1.png", "f1.rel", "graos.csv", "graos.geojson", "graos.qml", "rois.zip"}));
}

TEST_F(Lote, AsOpcoesDoVorplexApuraValemTambemAqui) {
  ASSERT_EQ(rodaLote({"--familias", "e", "--sensibilidade", "0.8", "--idioma", "en", "kernel.cfg",
                      "fotos/f0.pgm"})
                .estado,
            0);
  EXPECT_EQ(deixado("f0", "graos.csv"),
            aMao("fotos/f0.pgm", "f0", "mao.csv", "--familias e --sensibilidade 0.8 --idioma en"));
}

TEST_F(Lote, TabelasEPaginaTemApoioEErros) {
  ASSERT_EQ(rodaLote({"-e", "0.5mm", "kernel.cfg", "fotos"}).estado, 0);
  const std::string todos = leTudo("resultado/graos.csv");
  EXPECT_EQ(linhas(todos), 7U);
  const std::string fim =
      ",diametro_maior_mm,apoio,contraste,erro_linha_px,erro_coluna_px,erro_d1_px,erro_d2_px,"
      "erro_angulo_graus,erro_linha_mm,erro_coluna_mm,erro_d1_mm,erro_d2_mm\n";
  EXPECT_NE(todos.find(fim), std::string::npos);
  const std::string um = deixado("f1", "graos.csv");
  EXPECT_NE(todos.find("\nf1," + um.substr(um.find('\n') + 1, 60)), std::string::npos);
  EXPECT_NE(leTudo("resultado/relatorio.html").find("\"apurado\":1,"), std::string::npos);
  EXPECT_NE(deixado("f0", "graos.geojson").find("\"erro_d1_mm\":"), std::string::npos);
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  EXPECT_NE(leTudo("resultado/relatorio.html").find("\"apurado\":0,"), std::string::npos);
  EXPECT_EQ(leTudo("resultado/graos.csv").find("apoio"), std::string::npos);
}

TEST_F(Lote, OApuradoProntoNaoEhRefeitoEOEstragadoSim) {
  const TEXTOS base = {"kernel.cfg", "fotos"};
  ASSERT_EQ(rodaLote(base).estado, 0);
  const auto inteira = arvore("resultado");
  EXPECT_NE(rodaLote(base).saida.find("(feitas 0, ja prontas 2, falhas 0); graos: 6"),
            std::string::npos);
  grava("resultado/f0/.vorplex-apurado", leTudo("resultado/f0/.vorplex-apurado") + '\n');
  fs::remove("resultado/f1/.vorplex-apurado");
  EXPECT_NE(rodaLote(base).saida.find("(feitas 2, "), std::string::npos);
  EXPECT_TRUE(arvore("resultado") == inteira);
}

TEST_F(Lote, OutraEscalaNaoApuraDeNovoNemOutroModoProcura) {
  ASSERT_EQ(rodaLote({"kernel.cfg", "fotos"}).estado, 0);
  const auto mesmo = [](const char* a, const char* b) { return fs::equivalent(a, b); };
  fs::create_hard_link("resultado/f0/f0.ho1", "ho1");
  fs::create_hard_link("resultado/f0/.vorplex-apurado", "apurado");
  ASSERT_EQ(rodaLote({"-e", "2um", "kernel.cfg", "fotos"}).estado, 0);
  EXPECT_TRUE(mesmo("ho1", "resultado/f0/f0.ho1"));
  EXPECT_TRUE(mesmo("apurado", "resultado/f0/.vorplex-apurado"));
  ASSERT_EQ(rodaLote({"--sensibilidade", "0.4", "kernel.cfg", "fotos"}).estado, 0);
  EXPECT_TRUE(mesmo("ho1", "resultado/f0/f0.ho1"));
  EXPECT_FALSE(mesmo("apurado", "resultado/f0/.vorplex-apurado"));
  // The search of the one method serves the other, at the same smallest correlation.
  ASSERT_EQ(rodaLote({"--metodo", "classico", "-c", "0.02", "kernel.cfg", "fotos"}).estado, 0);
  EXPECT_TRUE(mesmo("ho1", "resultado/f0/f0.ho1"));
  EXPECT_FALSE(existe("resultado/f0/.vorplex-apurado"));
}

TEST_F(Lote, ApuradoInvertidoVeGraosClaros) {
  ASSERT_EQ(rodaLote({"kernel.cfg", "fotos/f0.pgm"}).estado, 0);
  const std::string escuros = deixado("f0", "graos.csv");
  fs::create_directory("claros");
  grava("claros/f0.pgm", pgm(cv::Mat_<unsigned char>(255 - imagem(0))));
  ASSERT_EQ(rodaLote({"-i", "kernel.cfg", "claros"}).estado, 0);
  EXPECT_EQ(deixado("f0", "graos.csv"), escuros);
}

TEST_F(Lote, ApuradoSemDeteccoesSaoZeroGraos) {
  grava("lisa.pgm", pgm(cv::Mat_<unsigned char>(80, 80, static_cast<unsigned char>(128))));
  const CORRIDA c = rodaLote({"kernel.cfg", "lisa.pgm"});
  EXPECT_EQ(c.estado, 0) << c.erro;
  EXPECT_NE(c.saida.find("lisa: 0 graos"), std::string::npos) << c.saida;
  EXPECT_EQ(deixado("lisa", "lisa.ho2"), listaHo({}));
  EXPECT_EQ(linhas(deixado("lisa", "graos.csv")), 1U);
  EXPECT_FALSE(existe("resultado/lisa/rois.zip"));
  EXPECT_NE(rodaLote({"kernel.cfg", "lisa.pgm"}).saida.find("ja pronta"), std::string::npos);
}

TEST_F(Lote, ApuradoNaoDependeDeQuantasAoMesmoTempo) {
  ASSERT_EQ(rodaLote({"-j", "1", "kernel.cfg", "fotos"}).estado, 0);
  auto umaSo = arvore("resultado");
  fs::remove_all("resultado");
  ASSERT_EQ(rodaLote({"-j", "2", "kernel.cfg", "fotos"}).estado, 0);
  auto duas = arvore("resultado");
  umaSo.erase("relatorio.html");  // it tells the command, as proveniencia.json does
  duas.erase("relatorio.html");
  umaSo.erase("proveniencia.json");
  duas.erase("proveniencia.json");
  EXPECT_TRUE(umaSo == duas);
}

TEST_F(Lote, ApuradoSemBordaDeixaOsIndicesComoEstao) {
  const cv::Mat_<unsigned char> toda = imagem(0);
  grava("cortada.pgm", pgm(toda.rowRange(24, 90).clone()));  // through the large disc
  const TEXTOS base = {"--sensibilidade", "1", "kernel.cfg", "cortada.pgm"};
  ASSERT_EQ(rodaLote(base).estado, 0);
  const std::string com = deixado("cortada", "graos.csv");
  const std::string lista = deixado("cortada", "cortada.ho2");
  TEXTOS sem = base;
  sem.emplace_back("--sem-borda");
  ASSERT_EQ(rodaLote(sem).estado, 0);
  const std::string csv = deixado("cortada", "graos.csv");
  EXPECT_LT(linhas(csv), linhas(com));
  EXPECT_GT(linhas(csv), 1U);
  EXPECT_EQ(deixado("cortada", "cortada.ho2"), lista);
  for (std::size_t i = csv.find('\n') + 1; i < csv.size(); i = csv.find('\n', i) + 1) {
    EXPECT_NE(com.find(csv.substr(i, csv.find('\n', i) - i)), std::string::npos);
  }
}

}  // namespace
