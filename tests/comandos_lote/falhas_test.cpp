#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <ostream>
#include <sstream>

#include "apoio/executa.h"
#include "cenario.h"

namespace fs = std::filesystem;

namespace {

using TEXTOS = std::vector<std::string>;

// The element of the page that tells which photographs failed; empty when there is none.
std::string avisoDaPagina() {
  const std::string pagina = leTudo("resultado/relatorio.html");
  const std::size_t de = pagina.find("<p class=\"falharam\"");
  return de == std::string::npos ? "" : pagina.substr(de, pagina.find("</p>", de) - de);
}

TEST_F(Lote, FotosRuinsCustamSoASiMesmas) {
  grava("fotos/corrompida.png", "\x89PNG\r\n\x1A\nisto nao e' PNG");
  grava("fotos/cortada.pgm", pgm(imagem(0)).substr(0, 3000));
  grava("fotos/texto.jpg", "so texto\n");
  grava("fotos/vazia.tif", "");
  fs::create_symlink("nenhum", "fotos/solta.bmp");
  const CORRIDA c = rodaLote(comando({"fotos", "nao existe.jpg", "fotos/f0.pgm", "/dev/zero"}));
  EXPECT_EQ(c.estado, 1);
  EXPECT_NE(c.saida.find("Fotografias: 9 (feitas 2, ja prontas 0, falhas 7); graos: 6"),
            std::string::npos)
      << c.saida;
  for (const char* nome : {"corrompida", "cortada", "texto", "vazia", "solta", "nao existe"}) {
    const std::string n = nome;
    EXPECT_EQ(dentroDe("resultado/" + n), (TEXTOS{".vorplex-lote", "mensagens.txt"}));
    EXPECT_NE(leTudo("resultado/" + n + "/mensagens.txt").find("Erro"), std::string::npos) << n;
    EXPECT_NE(c.erro.find("/" + n + "."), std::string::npos) << c.erro;
  }
  EXPECT_NE(c.erro.find("fotos/cortada.pgm: Erro leitura imagem"), std::string::npos) << c.erro;
  EXPECT_NE(c.erro.find("arquivo incompleto"), std::string::npos);
  EXPECT_EQ(linhas(semAvisos(c.erro)), 8U);
  EXPECT_NE(leTudo("resultado/resumo.csv").find("\ntotal,2,6,"), std::string::npos);
  EXPECT_EQ(linhas(leTudo("resultado/resumo.csv")), 4U);
  // Whoever gets the page alone must know.
  const std::string aviso = avisoDaPagina();
  EXPECT_NE(aviso.find("7 de 9 fotografias falharam e não estão nos números"), std::string::npos)
      << aviso;
  for (const char* nome :
       {"corrompida", "cortada", "texto", "vazia", "solta", "nao existe", "zero"}) {
    EXPECT_NE(aviso.find("<bdi>" + std::string(nome) + "</bdi>"), std::string::npos) << aviso;
  }

  // Mended, they are done, and only they.
  for (const char* nome : {"corrompida.png", "cortada.pgm", "texto.jpg", "vazia.tif"}) {
    foto(std::string("fotos/") + nome, 2);
  }
  fs::remove("fotos/solta.bmp");
  const CORRIDA d = rodaLote(comando());
  EXPECT_EQ(d.estado, 0);
  EXPECT_NE(d.saida.find("(feitas 4, ja prontas 2, falhas 0)"), std::string::npos) << d.saida;
  EXPECT_FALSE(existe("resultado/texto/mensagens.txt"));
  EXPECT_EQ(avisoDaPagina(), "");
}

TEST_F(Lote, NomeHostilDeFotoQueFalhaNaoViraMarca) {
  grava("fotos/<img src=x onerror=mau()>.jpg", "nada");
  EXPECT_EQ(rodaLote(comando({"--idioma", "en", "fotos"})).estado, 1);
  EXPECT_NE(avisoDaPagina().find("1 of 3 photographs failed and is not in the numbers of this page:"
                                 "</strong> <bdi>&lt;img src=x onerror=mau()&gt;</bdi>"),
            std::string::npos)
      << avisoDaPagina();
}

// The last photograph is long enough for something to happen to the first, which is done by then.
struct FotoQueSeVai : Lote {
  LANCADA lancada;

  void lanca() {
    grava("fotos/g.pgm", pgm(cv::Mat_<unsigned char>(cv::repeat(imagem(0), 8, 8))));
    lancada = lancaLote(comando({"-j", "1", "fotos"}));
    for (int i = 0; i < 2000 && !existe("resultado/f1/.vorplex-lote"); ++i) usleep(1000);
    ASSERT_FALSE(existe("resultado/relatorio.html"));
  }

  // The page is there with all photographs, and no failure is told; so many pictures are lost.
  void confere(std::size_t perdidas) const {
    const CORRIDA c = esperaLote(lancada);
    EXPECT_EQ(c.estado, 0) << c.erro;
    EXPECT_EQ(semAvisos(c.erro), "");
    ASSERT_TRUE(existe("resultado/relatorio.html"));
    const std::string pagina = leTudo("resultado/relatorio.html");
    const auto vezes = [&](const std::string& parte) {
      std::size_t n = 0;
      for (std::size_t i = pagina.find(parte); i != std::string::npos;
           i = pagina.find(parte, i + 1))
        ++n;
      return n;
    };
    EXPECT_EQ(vezes("class=\"figura\">/9j/"), 3U);
    EXPECT_EQ(vezes("\"semFigura\":1"), perdidas);
    EXPECT_EQ(linhas(leTudo("resultado/resumo.csv")), 5U);
    EXPECT_FALSE(existe("resultado/.vorplex-lote-obra"));
  }
};

TEST_F(FotoQueSeVai, ApagadaDepoisDeFeitaFicaComOsContornos) {
  lanca();
  fs::remove("fotos/f0.pgm");
  confere(0);
}

TEST_F(FotoQueSeVai, EstragadaDepoisDeFeitaFicaComOsContornos) {
  lanca();
  grava("fotos/f0.pgm", "P5 100 100 255\ncortada");
  confere(0);
}

TEST_F(FotoQueSeVai, TrocadaPorUmCanoNaoPrendeACorrida) {
  lanca();
  fs::remove("fotos/f0.pgm");
  ASSERT_EQ(mkfifo("fotos/f0.pgm", 0600), 0);
  confere(0);
}

TEST_F(FotoQueSeVai, SemOsContornosTambemPerdeSoAFigura) {
  lanca();
  fs::remove("fotos/f0.pgm");
  grava("resultado/f0/f0.png", "\x89PNG\r\n\x1A\nnada");
  confere(1);
}

// The process that does the photograph; -1 when it has none.
pid_t filhoDe(pid_t pid) {
  const std::string p = std::to_string(pid);
  const std::string filhos = leTudo("/proc/" + p + "/task/" + p + "/children");
  return filhos.empty() ? -1 : std::stoi(filhos);
}

// Hundredths of a second of processor that a process has taken.
int centesimos(pid_t pid) {
  const std::string estado = leTudo("/proc/" + std::to_string(pid) + "/stat");
  std::istringstream campos(estado.substr(estado.rfind(')') + 2));
  const std::vector<std::string> v(std::istream_iterator<std::string>(campos), {});
  return std::stoi(v.at(11)) + std::stoi(v.at(12));
}

TEST_F(FotoQueSeVai, ComOProcessoDelaMortoCustaSoASiMesmaEDizEmQueEstava) {
  lanca();
  const std::string obra = "resultado/.vorplex-lote-obra/nova-g";
  for (int i = 0; i < 2000 && !existe(obra); ++i) usleep(1000);
  const pid_t filho = filhoDe(lancada.pid);
  ASSERT_GT(filho, 0);
  while (centesimos(filho) < 5) usleep(1000);  // of some tens that it takes
  kill(filho, SIGKILL);
  const CORRIDA c = esperaLote(lancada);
  EXPECT_EQ(c.estado, 1);
  EXPECT_NE(c.saida.find("(feitas 2, ja prontas 0, falhas 1); graos: 6"), std::string::npos);
  EXPECT_NE(c.erro.find(" terminou pelo sinal 9 (morto"), std::string::npos) << c.erro;
  EXPECT_EQ(c.erro.find("vorplex-lote terminou"), std::string::npos) << c.erro;
  EXPECT_NE(leTudo("resultado/g/mensagens.txt").find("Leitura da fotografia...\n"),
            std::string::npos);
}

TEST_F(Lote, ErroDeUmaPalavraEnormeChegaCortado) {
  grava("enorme.cfg", "circulo 21\n" + std::string(300000, 'w') + " 3\n");
  const CORRIDA c = rodaLote({"enorme.cfg", "fotos"});
  EXPECT_EQ(c.estado, 2);
  EXPECT_TRUE(c.erro.starts_with("Erro: enorme.cfg: Palavra desconhecida www")) << c.erro;
  EXPECT_LT(c.erro.size(), 1100U);
}

TEST_F(Lote, FotoQuePassaAFalharPerdeOsResultadosVelhos) {
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  grava("fotos/f1.pgm", "estragada");
  EXPECT_EQ(rodaLote(comando()).estado, 1);
  EXPECT_EQ(dentroDe("resultado/f1"), (TEXTOS{".vorplex-lote", "mensagens.txt"}));
  EXPECT_NE(leTudo("resultado/resumo.csv").find("\ntotal,1,3,"), std::string::npos);
}

TEST_F(Lote, FotoQueSumiuFalhaMasSeusResultadosFicam) {
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  const std::string lista = leTudo("resultado/f1/f1.ho2");
  fs::remove("fotos/f1.pgm");
  EXPECT_EQ(rodaLote(comando({"fotos", "fotos/f1.pgm"})).estado, 1);
  EXPECT_EQ(leTudo("resultado/f1/f1.ho2"), lista);
  EXPECT_NE(leTudo("resultado/resumo.csv").find("\ntotal,1,3,"), std::string::npos);
}

TEST_F(Lote, FotoApagadaAntesDaSuaVezFalhaSozinha) {
  const LANCADA l = lancaLote(comando({"-j", "1", "fotos"}));
  for (int i = 0; i < 500 && !existe("resultado/.vorplex-lote-obra/nova-f0"); ++i) usleep(2000);
  fs::remove("fotos/f1.pgm");
  const CORRIDA c = esperaLote(l);
  EXPECT_EQ(c.estado, 1);
  EXPECT_NE(c.erro.find("fotos/f1.pgm: Fotografia inexistente ou ilegivel"), std::string::npos)
      << c.erro;
  EXPECT_NE(leTudo("resultado/resumo.csv").find("\ntotal,1,3,"), std::string::npos);
}

TEST_F(Lote, FotoMudadaEnquantoEhFeitaFalha) {
  // A large one, so that there is time.
  grava("grande.pgm", pgm(cv::Mat_<unsigned char>(cv::repeat(imagem(0), 8, 8))));
  const LANCADA l = lancaLote(comando({"grande.pgm"}));
  for (int i = 0; i < 1000 && !existe("resultado/.vorplex-lote-obra/nova-grande"); ++i)
    usleep(1000);
  grava("outra", pgm(cv::Mat_<unsigned char>(cv::repeat(imagem(1), 8, 8))));
  fs::rename("outra", "grande.pgm");  // never to be seen half written
  const CORRIDA c = esperaLote(l);
  EXPECT_EQ(c.estado, 1);
  EXPECT_NE(c.erro.find("A fotografia mudou durante o processamento"), std::string::npos) << c.erro;
}

TEST_F(Lote, PastaAlheiaComONomeDaFotoFicaIntacta) {
  fs::create_directories("resultado/f1");
  grava("resultado/f1/tese.txt", "de alguem");
  const CORRIDA c = rodaLote(comando());
  EXPECT_EQ(c.estado, 1);
  EXPECT_NE(c.erro.find("f1 existe e nao foi feita por vorplex-lote"), std::string::npos) << c.erro;
  EXPECT_EQ(dentroDe("resultado/f1"), TEXTOS{"tese.txt"});
}

struct USO {
  std::string nome;
  TEXTOS args;
  std::string erro;  // the first line
};

void PrintTo(const USO& uso, std::ostream* s) {
  *s << uso.nome;
}

struct UsoErrado : Lote, testing::WithParamInterface<USO> {};

TEST_P(UsoErrado, SaiCom2EUmaLinhaClaraSemDeixarNada) {
  grava("ruim.cfg", "circulo 21\ntriangulo 3\n");
  grava("sem grupo.cfg", "escala 1 a 1 circulo 21");
  fs::create_directory("vazia");
  const CORRIDA c = rodaLote(GetParam().args);
  EXPECT_EQ(c.estado, 2);
  EXPECT_EQ(c.saida, "");
  EXPECT_EQ(c.erro.substr(0, c.erro.find('\n')), GetParam().erro);
  EXPECT_FALSE(existe("resultado"));
}

const std::vector<USO> usos = {
    {"Nada", {}, "Erro: Falta fotografia ou pasta"},
    {"SemFoto", {"kernel.cfg"}, "Erro: Falta fotografia ou pasta"},
    {"Opcao", {"--nada", "kernel.cfg", "fotos"}, "Erro: Opcao desconhecida --nada"},
    {"SemKernel", {"nenhum.cfg", "fotos"}, "Erro: nenhum.cfg inexistente ou ilegivel (nao existe)"},
    {"KernelRuim", {"ruim.cfg", "fotos"}, "Erro: ruim.cfg: Palavra desconhecida triangulo"},
    {"KernelSemGrupo",
     {"sem grupo.cfg", "fotos"},
     "Erro: sem grupo.cfg: Nenhum grupo de kernels (falta uma forma com pelo menos duas escalas)"},
    {"FiltraPalavra",
     {"--metodo", "classico", "-f", "oval 1 2", "kernel.cfg", "fotos"},
     "Erro: --filtra: Palavra desconhecida oval"},
    {"FiltraNumero",
     {"--metodo", "classico", "-f", "default 0.3", "kernel.cfg", "fotos"},
     "Erro: --filtra: Falta numero no fim dos parametros"},
    {"FiltraSemMetodo",
     {"-f", "default 0.3 0.1", "kernel.cfg", "fotos"},
     "Erro: -f (--filtra) pertence ao metodo classico: use tambem --metodo classico, ou tire -f"},
    {"PastaVazia", {"kernel.cfg", "vazia"}, "Erro: Nenhuma fotografia em vazia"},
    {"Ingles", {"--idioma", "en", "kernel.cfg", "vazia"}, "Error: No photograph in vazia"},
    {"SaidaSobArquivo",
     {"-o", "kernel.cfg/s", "kernel.cfg", "fotos"},
     "Erro: Nada pode ser feito na pasta de saida kernel.cfg/s (nao e' uma pasta)"},
};
INSTANTIATE_TEST_SUITE_P(Tabela, UsoErrado, testing::ValuesIn(usos),
                         [](const auto& linha) { return linha.param.nome; });

TEST_F(Lote, AjudaEVersaoSaemComZero) {
  for (const char* opcao : {"-h", "--ajuda", "--help"}) {
    const CORRIDA ajuda = rodaLote({opcao});
    EXPECT_EQ(ajuda.estado, 0);
    EXPECT_TRUE(ajuda.saida.starts_with("vorplex-lote [opcoes] [kernel.cfg] FOTO|PASTA...\n"));
    for (const char* nome : {"-o, --saida PASTA", "--sensibilidade", "-w, --peso", "-h, --ajuda"}) {
      EXPECT_NE(ajuda.saida.find(nome), std::string::npos) << nome;
    }
  }
  for (const char* opcao : {"-V", "--versao", "--version"}) {
    EXPECT_EQ(rodaLote({opcao}).saida, "vorplex-lote " VORPLEX_VERSAO "\n");
  }
}

TEST_F(Lote, ALinguaEhADoAmbienteSeNaoForDita) {
  MODO modo;
  modo.ambiente = "en_GB.UTF-8";
  EXPECT_TRUE(rodaLote({"--help"}, modo).saida.starts_with("vorplex-lote [options]"));
  EXPECT_EQ(rodaLote({"--outptu", "s"}, modo).erro,
            "Error: Unknown option --outptu; did you mean --output?\n"
            "(vorplex-lote --help shows the options)\n");
  EXPECT_TRUE(
      rodaLote({"--help", "--idioma", "pt"}, modo).saida.starts_with("vorplex-lote [opcoes]"));
  modo.ambiente = "pt_BR.UTF-8";
  EXPECT_TRUE(rodaLote({"--help"}, modo).saida.starts_with("vorplex-lote [opcoes]"));
}

TEST_F(Lote, SaidaSoDeLeituraEhDitaComEstado2) {
  if (!perdePoderes()) GTEST_SKIP() << "the superuser can't give up powers here";
  fs::create_directory("fechada");
  fs::permissions("fechada", fs::perms::owner_read | fs::perms::owner_exec);
  MODO modo;
  modo.semPoderes = true;
  for (const char* saida : {"fechada", "fechada/dentro"}) {
    const CORRIDA c = rodaLote(comando({"-o", saida, "fotos"}), modo);
    EXPECT_EQ(c.estado, 2);
    EXPECT_EQ(c.erro, std::string("Erro: Nada pode ser feito na pasta de saida ") + saida +
                          " (sem permissao)\n");
  }
  EXPECT_TRUE(dentroDe("fechada").empty());
}

TEST_F(Lote, FotoProibidaFalhaSozinha) {
  if (!perdePoderes()) GTEST_SKIP() << "the superuser can't give up powers here";
  fs::permissions("fotos/f1.pgm", fs::perms::none);
  MODO modo;
  modo.semPoderes = true;
  const CORRIDA c = rodaLote(comando(), modo);
  EXPECT_EQ(c.estado, 1);
  EXPECT_NE(c.erro.find("fotos/f1.pgm: Fotografia inexistente ou ilegivel"), std::string::npos);
  EXPECT_NE(c.saida.find("(feitas 1, ja prontas 0, falhas 1)"), std::string::npos);
}

// A limit for files stands for a full disk: writes fail in the same way.
TEST_F(Lote, SemLugarParaAFotoElaFalhaESeDiz) {
  MODO modo;
  modo.maiorArquivo = 4096;
  const CORRIDA c = rodaLote(comando(), modo);
  EXPECT_EQ(c.estado, 1);
  EXPECT_NE(c.erro.find("fotos/f0.pgm: Erro gravacao arquivo ./f0.png"), std::string::npos)
      << c.erro;
  EXPECT_FALSE(existe("resultado/f0/f0.ho2"));
  ASSERT_EQ(rodaLote(comando()).estado, 0);
}

TEST_F(Lote, SemLugarParaAPaginaFicamAsTabelasVelhas) {
  ASSERT_EQ(rodaLote(comando({"fotos/f0.pgm"})).estado, 0);
  const std::string resumo = leTudo("resultado/resumo.csv");
  MODO modo;
  modo.maiorArquivo = 100000;
  const CORRIDA c = rodaLote(comando(), modo);
  EXPECT_EQ(c.estado, 1);
  EXPECT_NE(c.erro.find("Erro: Tabelas e relatorio nao foram escritos: Erro gravacao arquivo"),
            std::string::npos)
      << c.erro;
  EXPECT_EQ(leTudo("resultado/resumo.csv"), resumo);
  EXPECT_EQ(dentroDe("resultado").size(), 7U);  // two folders, five files of the set
}

TEST_F(Lote, DiscoCheio) {
  fs::create_directory("disco");
  if (mount("tmpfs", "disco", "tmpfs", 0, "size=32k") != 0) {
    GTEST_SKIP() << "no file system can be mounted here";
  }
  const CORRIDA c = rodaLote(comando({"-o", "disco/s", "fotos"}));
  EXPECT_EQ(c.estado, 1);
  EXPECT_NE(c.erro.find("Falharam:"), std::string::npos) << c.erro;
  EXPECT_NE(c.erro.find("Erro gravacao"), std::string::npos) << c.erro;
  EXPECT_FALSE(existe("disco/s/.vorplex-lote-obra"));
  for (const auto& [nome, conteudo] : arvore("disco/s")) {
    if (nome.ends_with("/.vorplex-lote") && conteudo.find("completo") != std::string::npos) {
      EXPECT_EQ(dentroDe("disco/s/" + nome.substr(0, 2)).size(), 8U) << nome;
    }
  }
  umount2("disco", MNT_DETACH);
}

TEST_F(Lote, SaidaPadraoCheiaEhErro) {
  const int estado =
      std::system((std::string(VORPLEX_LOTE) + " --versao >/dev/full 2>erro").c_str());
  EXPECT_EQ(WEXITSTATUS(estado), 1);
  EXPECT_EQ(leTudo("erro"), "Erro: Gravacao da saida padrao\n");
}

}  // namespace
