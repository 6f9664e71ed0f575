#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <ostream>
#include <random>
#include <set>

#include "cenario.h"

namespace fs = std::filesystem;

namespace {

// The files below `pasta` while another process writes there.
std::size_t quantosArquivos(const std::string& pasta) {
  std::size_t n = 0;
  std::error_code erro;
  fs::recursive_directory_iterator i(pasta, erro);
  for (; !erro && i != fs::recursive_directory_iterator(); i.increment(erro)) {
    n += i->is_regular_file(erro) ? 1 : 0;
  }
  return n;
}

bool terminou(pid_t pid) {
  siginfo_t info{};
  return waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
         info.si_pid == pid;
}

// Kills a run some milliseconds after it has written so many files. Whether it had not ended yet.
bool mataComArquivos(const LANCADA& l, std::size_t arquivos, unsigned milissegundos) {
  while (quantosArquivos("resultado") < arquivos && !terminou(l.pid)) usleep(500);
  usleep(1000 * milissegundos);
  kill(l.pid, SIGKILL);
  return esperaLote(l).sinal == SIGKILL;
}

// The folders whose results were made anew since `antes`: renamed folders are other ones.
using PASTAS = std::map<std::string, fs::file_time_type>;

PASTAS feitas(const std::string& saida) {
  PASTAS m;
  for (const std::string& nome : dentroDe(saida)) {
    const std::string estado = saida + "/" + nome + "/.vorplex-lote";
    if (existe(estado)) m[nome] = fs::last_write_time(estado);
  }
  return m;
}

std::set<std::string> refeitas(const PASTAS& antes, const std::string& saida) {
  std::set<std::string> nomes;
  for (const auto& [nome, tempo] : feitas(saida)) {
    const auto posto = antes.find(nome);
    if (posto == antes.end() || posto->second != tempo) nomes.insert(nome);
  }
  return nomes;
}

using NOMES = std::set<std::string>;
const NOMES todas = {"f0", "f1"};

// How often it is killed. With the sanitizers, under which it runs many times longer, less often.
#ifdef VORPLEX_SANITIZE
constexpr std::size_t mortes = 3;
#else
constexpr std::size_t mortes = 12;
#endif

TEST_F(Lote, MortaEmQualquerInstanteERetomadaDaOsMesmosBytes) {
  foto("fotos/f2.pgm", 2);
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  const auto inteira = arvore("resultado");
  std::mt19937 sorteio(20240611);
  int interrompidas = 0;
  for (std::size_t vez = 0; vez < mortes; ++vez) {
    fs::remove_all("resultado");
    const std::size_t arquivos = vez * inteira.size() / mortes;
    interrompidas += mataComArquivos(lancaLote(comando()), arquivos, sorteio() % 8) ? 1 : 0;
    if (existe("resultado")) {
      // What has a name is whole.
      for (const auto& [nome, conteudo] : arvore("resultado")) {
        if (nome.starts_with(".vorplex-lote-obra/")) continue;
        ASSERT_TRUE(inteira.contains(nome)) << nome;
        EXPECT_TRUE(conteudo == inteira.at(nome)) << nome;
      }
    }
    const CORRIDA c = rodaLote(comando());
    ASSERT_EQ(c.estado, 0) << c.erro;
    EXPECT_TRUE(arvore("resultado") == inteira) << "vez " << vez;
  }
  EXPECT_GT(interrompidas, 0);
}

TEST_F(Lote, MortaEnquantoRefazNadaSePerde) {
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  const auto inteira = arvore("resultado");
  std::mt19937 sorteio(7);
  std::vector<std::string> refaz = comando();
  refaz.emplace_back("--refaz");
  for (std::size_t novos = 1; novos <= 4; ++novos) {
    mataComArquivos(lancaLote(refaz), inteira.size() + novos, sorteio() % 8);
    ASSERT_EQ(rodaLote(comando()).estado, 0);
    EXPECT_TRUE(arvore("resultado") == inteira) << "novos " << novos;
  }
}

TEST_F(Lote, OQueEstaProntoNaoEhRefeito) {
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  const PASTAS antes = feitas("resultado");
  EXPECT_EQ(antes.size(), 2U);
  for (const auto& foto : dentroDe("fotos")) {  // dates do not count
    fs::last_write_time("fotos/" + foto, fs::file_time_type::clock::now());
  }
  const CORRIDA c = rodaLote(comando());
  EXPECT_EQ(refeitas(antes, "resultado"), NOMES{});
  EXPECT_NE(c.saida.find("(feitas 0, ja prontas 2, falhas 0); graos: 6"), std::string::npos);
  ASSERT_EQ(rodaLote(comando({"--refaz", "fotos"})).estado, 0);
  EXPECT_EQ(refeitas(antes, "resultado"), todas);
}

TEST_F(Lote, SoAFotoMudadaEhRefeita) {
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  const PASTAS antes = feitas("resultado");
  const auto data = fs::last_write_time("fotos/f1.pgm");
  foto("fotos/f1.pgm", 9);
  fs::last_write_time("fotos/f1.pgm", data);  // neither size nor date tell
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  EXPECT_EQ(refeitas(antes, "resultado"), NOMES{"f1"});
  const auto retomada = arvore("resultado");
  fs::remove_all("resultado");
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  EXPECT_TRUE(arvore("resultado") == retomada);
}

TEST_F(Lote, SoOQueFaltaOuFoiEstragadoEhRefeito) {
  for (int i = 2; i < 4; ++i) foto("fotos/f" + std::to_string(i) + ".pgm", i);
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  const auto inteira = arvore("resultado");
  const PASTAS antes = feitas("resultado");
  fs::remove("resultado/f0/rois.zip");
  std::string lista = leTudo("resultado/f1/f1.ho2");
  lista[lista.size() - 2] = '9';
  grava("resultado/f1/f1.ho2", lista);
  fs::remove_all("resultado/f2");
  fs::remove("resultado/resumo.csv");
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  EXPECT_EQ(refeitas(antes, "resultado"), (NOMES{"f0", "f1", "f2"}));
  EXPECT_TRUE(arvore("resultado") == inteira);
}

struct MUDANCA {
  const char* nome;
  std::vector<std::string> args;
};
void PrintTo(const MUDANCA& m, std::ostream* s) {
  *s << m.nome;
}

struct MudancaDeOpcao : Lote, testing::WithParamInterface<MUDANCA> {
  static void refazTudo(std::vector<std::string> base);
};
struct MudancaDoApurado : MudancaDeOpcao {};

// What `base` has made is made again with the options that have changed, as from the start.
void MudancaDeOpcao::refazTudo(std::vector<std::string> base) {
  ASSERT_EQ(rodaLote(base).estado, 0);
  const PASTAS antes = feitas("resultado");
  base.insert(base.end(), GetParam().args.begin(), GetParam().args.end());
  ASSERT_EQ(rodaLote(base).estado, 0);
  EXPECT_EQ(refeitas(antes, "resultado"), todas);
  const auto mudada = arvore("resultado");
  fs::remove_all("resultado");
  ASSERT_EQ(rodaLote(base).estado, 0);
  EXPECT_TRUE(arvore("resultado") == mudada);
}

TEST_P(MudancaDeOpcao, RefazTudoComoSeFosseDoComeco) {
  refazTudo(comando());
}

TEST_P(MudancaDoApurado, RefazTudoComoSeFosseDoComeco) {
  refazTudo({"kernel.cfg", "fotos"});
}

const std::vector<MUDANCA> mudancas = {
    {"MinCorr", {"-c", "0.3"}}, {"Limiares", {"-f", "default 0.4 0.1"}},
    {"Escala", {"-e", "2um"}},  {"SemBorda", {"--sem-borda"}},
    {"Inverte", {"-i"}},        {"Idioma", {"--idioma", "en"}}};
INSTANTIATE_TEST_SUITE_P(CadaUma, MudancaDeOpcao, testing::ValuesIn(mudancas),
                         [](const auto& linha) { return linha.param.nome; });

const std::vector<MUDANCA> mudancasDoApurado = {{"MinCorr", {"-c", "0.1"}},
                                                {"Familias", {"--familias", "cq"}},
                                                {"Tamanhos", {"--tamanhos", "5-18"}},
                                                {"Sobreposicao", {"--sobreposicao", "0"}},
                                                {"SemLetras", {"--sem-letras"}},
                                                {"Sensibilidade", {"--sensibilidade", "0.9"}},
                                                {"Escala", {"-e", "2um"}},
                                                {"SemBorda", {"--sem-borda"}},
                                                {"Inverte", {"-i"}},
                                                {"Idioma", {"--idioma", "en"}},
                                                {"Metodo", {"--metodo", "classico"}}};
INSTANTIATE_TEST_SUITE_P(CadaUma, MudancaDoApurado, testing::ValuesIn(mudancasDoApurado),
                         [](const auto& linha) { return linha.param.nome; });

TEST_F(Lote, MudarSoOResumoNaoRefazFotos) {
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  const PASTAS antes = feitas("resultado");
  const std::string resumo = leTudo("resultado/resumo.csv");
  ASSERT_EQ(
      rodaLote(comando({"-g", "maior", "-w", "area", "-p", "10,20", "-j", "1", "fotos"})).estado,
      0);
  EXPECT_EQ(refeitas(antes, "resultado"), NOMES{});
  EXPECT_NE(leTudo("resultado/resumo.csv"), resumo);
}

// An archive without regions makes ImageJ wait for ever.
TEST_F(Lote, SemGraosNaoHaRoisEARetomadaSabe) {
  grava("fotos/f1.pgm", pgm(cv::Mat_<unsigned char>(80, 80, static_cast<unsigned char>(128))));
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  EXPECT_TRUE(existe("resultado/f0/rois.zip"));
  EXPECT_FALSE(existe("resultado/f1/rois.zip"));
  const PASTAS antes = feitas("resultado");
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  EXPECT_EQ(refeitas(antes, "resultado"), NOMES{});
  // With grains it is missed.
  fs::remove("resultado/f0/rois.zip");
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  EXPECT_EQ(refeitas(antes, "resultado"), NOMES{"f0"});
  EXPECT_TRUE(existe("resultado/f0/rois.zip"));
  // It goes when a photograph that had grains has none any more.
  foto("fotos/f1.pgm", 1);
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  EXPECT_TRUE(existe("resultado/f1/rois.zip"));
  grava("fotos/f1.pgm", pgm(cv::Mat_<unsigned char>(80, 80, static_cast<unsigned char>(128))));
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  EXPECT_FALSE(existe("resultado/f1/rois.zip"));
}

TEST_F(Lote, RoisVazioDeUmaVersaoAnteriorSai) {
  grava("fotos/f1.pgm", pgm(cv::Mat_<unsigned char>(80, 80, static_cast<unsigned char>(128))));
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  const auto inteira = arvore("resultado");
  // What is in it does not matter here, but its checksum stands in the state: as in that of a
  // table.
  grava("resultado/f1/rois.zip", leTudo("resultado/f1/graos.csv"));
  std::string estado = leTudo("resultado/f1/.vorplex-lote");
  const std::size_t de = estado.rfind("arquivo ", estado.find(" graos.csv"));
  const std::string soma = estado.substr(de, estado.find(" graos.csv") - de);
  estado.insert(estado.find("completo"), soma + " rois.zip\n");
  grava("resultado/f1/.vorplex-lote", estado);
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  EXPECT_TRUE(arvore("resultado") == inteira);
}

TEST_F(Lote, KernelMudadoRefazTudo) {
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  const PASTAS antes = feitas("resultado");
  grava("kernel.cfg", leTudo("kernel.cfg") + " circulo 15");
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  EXPECT_EQ(refeitas(antes, "resultado"), todas);
}

// A search costs the most; thresholds and scales are tried over and over.
TEST_F(Lote, MudarLimiaresOuEscalaNaoProcuraDeNovo) {
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  const auto mesmo = [](const char* a, const char* b) { return fs::equivalent(a, b); };
  fs::create_hard_link("resultado/f0/f0.ho1", "ho1");
  fs::create_hard_link("resultado/f0/f0.png", "png");
  ASSERT_EQ(rodaLote(comando({"-e", "2um", "fotos"})).estado, 0);
  EXPECT_TRUE(mesmo("ho1", "resultado/f0/f0.ho1"));
  EXPECT_TRUE(mesmo("png", "resultado/f0/f0.png"));
  ASSERT_EQ(rodaLote(comando({"-f", "default 0.4 0.1", "fotos"})).estado, 0);
  EXPECT_TRUE(mesmo("ho1", "resultado/f0/f0.ho1"));
  EXPECT_FALSE(mesmo("png", "resultado/f0/f0.png"));
}

TEST_F(Lote, InterrompidaSaiCom130ESemSobras) {
  for (const int sinal : {SIGINT, SIGTERM}) {
    const LANCADA l = lancaLote(comando({"-j", "2", "--refaz", "fotos"}));
    for (int i = 0; i < 500 && !existe("resultado/.vorplex-lote-obra/nova-f0"); ++i) usleep(2000);
    ASSERT_TRUE(existe("resultado/.vorplex-lote-obra/nova-f0"));
    kill(l.pid, sinal);
    const CORRIDA c = esperaLote(l);
    EXPECT_EQ(c.estado, 130);
    EXPECT_EQ(c.erro, "Interrompido; o mesmo comando continua de onde parou\n");
    EXPECT_FALSE(existe("resultado/.vorplex-lote-obra"));
  }
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  EXPECT_EQ(feitas("resultado").size(), 2U);
}

}  // namespace
