#include "cenario.h"

namespace fs = std::filesystem;

namespace {

using TEXTOS = std::vector<std::string>;

const TEXTOS certos = {"foto.pgm", "lista.ho1", "g.csv"};

// A run that fails in one line and leaves nothing.
void falha(const TEXTOS& args, const std::string& texto, int estado = 1) {
  const CORRIDA c = rodaApura(args);
  EXPECT_EQ(c.estado, estado) << c.erro;
  EXPECT_NE(c.erro.find(texto), std::string::npos) << c.erro;
  EXPECT_EQ(c.saida, "");
  for (const auto& e : fs::directory_iterator(".")) {
    EXPECT_FALSE(e.path().filename().string().starts_with("g.")) << e.path();
  }
}

TEST_F(Apura, SufixoDesconhecidoEhRecusadoAntesDeTudo) {
  for (const char* nome : {"g.xyz", "g.ho1", "g", "g.", "pasta.csv/g", "g.csv.gz", "g.mat"}) {
    falha({"nao-ha.pgm", "nem.ho1", nome}, "Sufixo desconhecido em", 2);
  }
}

TEST_F(Apura, ASaidaNaoApagaAEntrada) {
  fs::rename("lista.ho1", "lista.ho2");
  falha({"foto.pgm", "lista.ho2", "./foto.pgm"}, "apagaria", 2);
  falha({"foto.pgm", "lista.ho2", "lista.ho2"}, "apagaria", 2);
  fs::create_symlink("lista.ho2", "outra.ho2");
  falha({"foto.pgm", "lista.ho2", "outra.ho2"}, "apagaria", 2);
  EXPECT_EQ(leTudo("lista.ho2"), listaHo(deteccoes()));
}

TEST_F(Apura, EntradasRuins) {
  falha({"nao-ha.pgm", "lista.ho1", "g.csv"}, "nao-ha.pgm");
  falha({"foto.pgm", "nao-ha.ho1", "g.csv"}, "nao-ha.ho1");
  fs::create_directory("pasta");
  falha({"pasta", "lista.ho1", "g.csv"}, "pasta");
  falha({"foto.pgm", "pasta", "g.csv"}, "pasta");
  grava("cortada.pgm", leTudo("foto.pgm").substr(0, 500));
  falha({"cortada.pgm", "lista.ho1", "g.png"}, "cortada.pgm");
  grava("lixo.png", std::string(3000, 'x'));
  falha({"lixo.png", "lista.ho1", "g.csv"}, "lixo.png");
  grava("vazia.pgm", "");
  falha({"vazia.pgm", "lista.ho1", "g.ho2"}, "vazia.pgm");
  grava("curta.ho1", "3\n0.5 c 30 35 20 20 0\n");
  falha({"foto.pgm", "curta.ho1", "g.csv"}, "curta.ho1");
  for (const char* n : {"-1", "999999999", "x"}) {
    grava("conta.ho1", std::string(n) + "\n");
    falha({"foto.pgm", "conta.ho1", "g.csv"}, "conta.ho1");
  }
}

TEST_F(Apura, SaidasRuins) {
  falha({"foto.pgm", "lista.ho1", "sem/g.csv"}, "Nao ha pasta para sem/g.csv");
  fs::create_directory("pasta.csv");
  falha({"foto.pgm", "lista.ho1", "pasta.csv"}, "pasta.csv e' uma pasta");
  EXPECT_TRUE(fs::is_empty("pasta.csv"));
  for (const char* nome : {"cheia.csv", "cheia.ho2", "cheia.png"}) {
    fs::create_symlink("/dev/full", nome);
    falha({"foto.pgm", "lista.ho1", nome}, "Erro gravacao arquivo");
    EXPECT_TRUE(fs::is_symlink(nome));
    EXPECT_TRUE(fs::is_character_file(nome));
  }
}

TEST_F(Apura, DiscoCheioDeixaOQueHavia) {
  std::vector<MAXLOCAL> muitas = deteccoes();
  for (const char* nome : {"g.csv", "g.ho2", "g.png", "g.ppm"}) {
    grava(nome, "antes");
    const CORRIDA c = rodaApura({"foto.pgm", "lista.ho1", nome}, "", "trap '' XFSZ; ulimit -f 0;");
    EXPECT_EQ(c.estado, 1) << nome << c.erro;
    EXPECT_EQ(leTudo(nome), "antes");
  }
  EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 6);
}

TEST_F(Apura, UmLinkContinuaLinkEAlvoRecebeTudo) {
  fs::create_directory("longe");
  for (const char* sufixo : {"csv", "ho2", "png"}) {
    const std::string nome = std::string("g.") + sufixo;
    fs::create_symlink("longe/" + nome, nome);
    EXPECT_FALSE(feito({}, nome).empty());
    EXPECT_TRUE(fs::is_symlink(nome));
    EXPECT_TRUE(fs::is_regular_file("longe/" + nome));
  }
  EXPECT_EQ(std::distance(fs::directory_iterator("longe"), fs::directory_iterator()), 3);
}

TEST_F(Apura, EntradasESaidasPadraoFechadas) {
  for (const char* mais : {"<&-", "<&- >&-", "<&- >&- 2>&-"}) {
    fs::remove("g.csv");
    EXPECT_EQ(rodaApura(certos, mais).estado, 0) << mais;
    EXPECT_EQ(linhas(leTudo("g.csv")), 4U) << mais;
  }
  const CORRIDA c = rodaApura(certos, ">/dev/full");
  EXPECT_EQ(c.estado, 1);
  EXPECT_EQ(c.erro, "Erro: Gravacao da saida padrao\n");
}

TEST_F(Apura, FotoPorUmCano) {
  const std::string direto = feito({});
  const CORRIDA c =
      rodaApura({"cano", "lista.ho1", "g.png"}, "", "mkfifo cano; cat foto.pgm >cano &");
  EXPECT_EQ(c.estado, 0) << c.erro;
  EXPECT_EQ(rodaApura({"/dev/stdin", "lista.ho1", "g.csv"}, "<foto.pgm").estado, 0);
  EXPECT_EQ(leTudo("g.csv"), direto);
}

TEST_F(Apura, ListaDeOutraFotografia) {
  std::vector<MAXLOCAL> v = deteccoes();
  for (MAXLOCAL& m : v) m.li += 500;
  grava("lista.ho1", listaHo(v));
  falha(certos, "Nenhuma deteccao de lista.ho1 cabe na fotografia foto.pgm");
  v[0].li -= 500;
  grava("lista.ho1", listaHo(v));
  const CORRIDA c = rodaApura(certos);
  EXPECT_EQ(c.estado, 0);
  EXPECT_EQ(c.erro,
            "Aviso: 5 de 6 deteccoes deixadas fora (centro fora da fotografia ou forma sem "
            "medida)\n");
}

TEST_F(Apura, RegistrosAbsurdosFicamForaComAContagem) {
  const std::string ruins[] = {
      "nan c 30 35 20 20 0",   "0.5 c 30 35 nan nan 0",      "0.5 r 30 35 20 inf 0",
      "0.5 e 30 35 20 10 nan", "0.5 x 30 35 20 20 0",        "0.5 c 30 35 -20 -20 0",
      "0.5 c 30 35 0 0 0",     "0.5 c 30 35 1e9 1e9 0",      "0.5 r 30 35 20 1e300 0",
      "0.5 c -1 35 20 20 0",   "0.5 c 30 2147483647 20 20 0"};
  std::string lista = std::to_string(std::size(ruins) + 1) + "\n";
  for (const std::string& r : ruins) lista += r + '\n';
  grava("lista.ho1", lista + "0.5 c 30 35 20 20 0\n");
  const CORRIDA c =
      rodaApura({"--idioma", "en", "--sensibilidade", "1", "foto.pgm", "lista.ho1", "g.csv"});
  EXPECT_EQ(c.estado, 0) << c.erro;
  EXPECT_EQ(c.erro.find("Warning: 11 of 12 detections left out"), 0U) << c.erro;
  EXPECT_EQ(linhas(leTudo("g.csv")), 2U);
}

TEST_F(Apura, FotosMinusculas) {
  grava("lista.ho1", "1\n0.5 c 0 0 1 1 0\n");
  for (const cv::Size t : {cv::Size(1, 1), cv::Size(1, 9), cv::Size(9, 1), cv::Size(2, 3)}) {
    grava("foto.pgm", pgm(cv::Mat_<unsigned char>(t, 100)));
    for (const char* nome : {"g.csv", "g.ho2", "g.png"}) feito({}, nome);
  }
}

}  // namespace
