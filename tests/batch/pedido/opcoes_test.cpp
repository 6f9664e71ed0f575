#include "batch/pedido/opcoes.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace measure;
using namespace exporta;
using namespace batch;

namespace {

OPCOES_LOTE lidas(const std::vector<std::string>& args) {
  OPCOES_LOTE o;
  EXPECT_EQ(leOpcoes(args, o), "");
  return o;
}

std::string recusa(const std::vector<std::string>& args) {
  OPCOES_LOTE o;
  return leOpcoes(args, o);
}

TEST(LeOpcoes, SemOpcoesValemOsDefaults) {
  const OPCOES_LOTE o = lidas({"k.cfg", "a.jpg", "pasta"});
  EXPECT_EQ(o.kernel, "k.cfg");
  EXPECT_EQ(o.entradas, (std::vector<std::string>{"a.jpg", "pasta"}));
  EXPECT_EQ(o.saida, "resultado");
  EXPECT_FALSE(calibrada(o.escala));
  EXPECT_EQ(o.filtra, "");
  EXPECT_EQ(o.minCorr, "");
  EXPECT_EQ(o.metodo, METODO::apurado);
  EXPECT_EQ(minCorrDaProcura(o), "0.02");
  EXPECT_EQ(o.grandeza, GRANDEZA::equivalente);
  EXPECT_EQ(o.peso, PESO::numero);
  EXPECT_TRUE(o.peneiras.empty());
  EXPECT_EQ(o.processos, 0);
  EXPECT_EQ(o.idioma, IDIOMA::pt);
  EXPECT_EQ(o.borda, BORDA::corrige);
  EXPECT_FALSE(o.inverte || o.recursivo || o.refaz || o.quieto || o.ajuda || o.versao);
}

TEST(LeOpcoes, SemKernelQuandoAPrimeiraPalavraEhEntrada) {
  OPCOES_LOTE o;
  const auto ehEntrada = [](const std::string& s) { return s == "fotos"; };
  EXPECT_EQ(leOpcoes({"--amostra", "3", "fotos", "k.cfg"}, o, ehEntrada), "");
  EXPECT_EQ(o.kernel, "");
  EXPECT_EQ(o.entradas, (std::vector<std::string>{"fotos", "k.cfg"}));
  EXPECT_EQ(o.amostra, 3U);
  OPCOES_LOTE p;
  EXPECT_EQ(leOpcoes({"k.cfg", "fotos"}, p, ehEntrada), "");
  EXPECT_EQ(p.kernel, "k.cfg");
  EXPECT_EQ(recusa({"--sample", "0", "fotos"}), "Amostra invalida 0 (1 a 1000)");
}

TEST(LeOpcoes, LetrasENomesDizemOMesmo) {
  const std::vector<std::vector<std::string>> formas = {
      {"--metodo", "classico", "-o", "s",     "-e", "0.05mm", "-f", "default 0.3 0.1",
       "-c",       "0.2",      "-g", "menor", "-w", "volume", "-p", "0.5,1,2",
       "-i",       "-j",       "3",  "-r",    "k",  "f"},
      {"--metodo=classico",
       "--saida",
       "s",
       "--escala",
       "0.05mm",
       "--filtra",
       "default 0.3 0.1",
       "--min-corr",
       "0.2",
       "--grandeza",
       "menor",
       "--peso",
       "volume",
       "--peneiras",
       "0.5,1,2",
       "--inverte",
       "--processos",
       "3",
       "--recursivo",
       "k",
       "f"},
      {"--saida=s", "k", "--metodo", "classico", "-e0.05mm", "--filtra=default 0.3 0.1", "f",
       "-c0.2", "--grandeza=menor", "-wvolume", "-p0.5,1,2", "-irj3"}};
  for (const auto& args : formas) {
    const OPCOES_LOTE o = lidas(args);
    EXPECT_EQ(o.saida, "s");
    EXPECT_EQ(o.escala.unidade, UNIDADE::mm);
    EXPECT_DOUBLE_EQ(o.escala.lado, 0.05);
    EXPECT_EQ(o.filtra, "default 0.3 0.1");
    EXPECT_EQ(o.minCorr, "0.2");
    EXPECT_EQ(o.grandeza, GRANDEZA::menor);
    EXPECT_EQ(o.peso, PESO::volume);
    EXPECT_EQ(o.peneiras, (std::vector<double>{0.5, 1, 2}));
    EXPECT_EQ(o.processos, 3);
    EXPECT_TRUE(o.inverte && o.recursivo);
    EXPECT_EQ(o.borda, BORDA::corrige);
    EXPECT_FALSE(o.refaz || o.quieto);
    EXPECT_EQ(o.kernel, "k");
    EXPECT_EQ(o.entradas, std::vector<std::string>{"f"});
  }
}

TEST(LeOpcoes, OsNomesInglesesDizemOMesmo) {
  const OPCOES_LOTE o = lidas({"--output",    "s",           "--scale",
                               "0.05mm",      "--method",    "classic",
                               "--filter",    "x",           "--min-corr",
                               "0.2",         "--diameter",  "lesser",
                               "--weight",    "area",        "--sieves",
                               "1,2",         "--no-border", "--invert",
                               "--processes", "3",           "--recursive",
                               "--redo",      "--language",  "en",
                               "--quiet",     "k",           "f"});
  EXPECT_EQ(o.saida, "s");
  EXPECT_EQ(o.escala.unidade, UNIDADE::mm);
  EXPECT_EQ(o.metodo, METODO::classico);
  EXPECT_EQ(o.filtra, "x");
  EXPECT_EQ(o.minCorr, "0.2");
  EXPECT_EQ(o.grandeza, GRANDEZA::menor);
  EXPECT_EQ(o.peso, PESO::area);
  EXPECT_EQ(o.peneiras, (std::vector<double>{1, 2}));
  EXPECT_EQ(o.processos, 3);
  EXPECT_EQ(o.borda, BORDA::exclui);
  EXPECT_TRUE(o.inverte && o.recursivo && o.refaz && o.quieto);
  EXPECT_EQ(o.idioma, IDIOMA::en);
}

TEST(LeOpcoes, AsPalavrasValemNasDuasLinguas) {
  EXPECT_EQ(lidas({"--metodo", "refined", "k", "f"}).metodo, METODO::apurado);
  EXPECT_EQ(lidas({"-g", "equivalent", "k", "f"}).grandeza, GRANDEZA::equivalente);
  EXPECT_EQ(lidas({"-g", "greater", "k", "f"}).grandeza, GRANDEZA::maior);
  EXPECT_EQ(lidas({"-w", "number", "k", "f"}).peso, PESO::numero);
  EXPECT_EQ(lidas({"-w", "volume", "k", "f"}).peso, PESO::volume);
}

TEST(LeOpcoes, OpcoesSoComNomeLongo) {
  const OPCOES_LOTE o = lidas({"--sem-borda", "--refaz", "--quieto", "--idioma", "en", "k", "f"});
  EXPECT_EQ(o.borda, BORDA::exclui);
  EXPECT_EQ(lidas({"--borda", "inclui", "k", "f"}).borda, BORDA::inclui);
  EXPECT_EQ(lidas({"--border", "exclude", "k", "f"}).borda, BORDA::exclui);
  EXPECT_EQ(lidas({"--borda", "corrige", "k", "f"}).borda, BORDA::corrige);
  EXPECT_TRUE(o.refaz && o.quieto);
  EXPECT_EQ(o.idioma, IDIOMA::en);
  EXPECT_TRUE(lidas({"--ajuda"}).ajuda);
  EXPECT_TRUE(lidas({"--versao"}).versao);
}

TEST(LeOpcoes, OModoDoApuradoTemAsOpcoesDoVorplexApura) {
  const OPCOES_LOTE o = lidas({"--familias", "cr", "--sizes", "5-80", "--sobreposicao", "0.2",
                               "--sensitivity=0.7", "--sem-letras", "k", "f"});
  EXPECT_EQ(o.modo.familias, "cr");
  EXPECT_EQ(o.modo.menor, 5);
  EXPECT_EQ(o.modo.maior, 80);
  EXPECT_EQ(o.modo.sobreposicao, 0.2);
  EXPECT_EQ(o.modo.sensibilidade, 0.7);
  EXPECT_TRUE(o.modo.semLetras);
}

TEST(LeOpcoes, ACorrelacaoMinimaConvemAoMetodo) {
  EXPECT_EQ(minCorrDaProcura(lidas({"--metodo", "classico", "k", "f"})), "");
  EXPECT_EQ(minCorrDaProcura(lidas({"-c", "0.3", "k", "f"})), "0.3");
}

TEST(LeOpcoes, DepoisDeDoisTracosTudoEhNome) {
  const OPCOES_LOTE o = lidas({"--", "-k", "-r", "--refaz"});
  EXPECT_EQ(o.kernel, "-k");
  EXPECT_EQ(o.entradas, (std::vector<std::string>{"-r", "--refaz"}));
  EXPECT_FALSE(o.recursivo || o.refaz);
}

TEST(LeOpcoes, AUltimaVezVale) {
  EXPECT_EQ(lidas({"-g", "maior", "-g", "menor", "k", "f"}).grandeza, GRANDEZA::menor);
  EXPECT_EQ(lidas({"-p", "1,2,3", "-p", "4", "k", "f"}).peneiras, std::vector<double>{4});
}

struct CASO {
  const char* nome;
  std::vector<std::string> args;
  std::string mensagem;
};

void PrintTo(const CASO& caso, std::ostream* s) {
  *s << caso.nome;
}

struct OpcoesRuins : testing::TestWithParam<CASO> {};

TEST_P(OpcoesRuins, SaoRecusadasComSeuNome) {
  EXPECT_EQ(recusa(GetParam().args), GetParam().mensagem);
}

const std::vector<CASO> ruins = {
    {"Nada", {}, "Falta fotografia ou pasta"},
    {"Metodo", {"--metodo", "novo", "k", "f"}, "Metodo invalido novo (apurado ou classico)"},
    {"FiltraDoApurado",
     {"-f", "default 0.3 0.1", "k", "f"},
     "-f (--filtra) pertence ao metodo classico: use tambem --metodo classico, ou tire -f"},
    {"ModoDoClassico",
     {"--sem-letras", "--metodo", "classico", "k", "f"},
     "--familias, --tamanhos, --sobreposicao, --sensibilidade e --sem-letras pertencem ao metodo "
     "apurado"},
    {"Sensibilidade", {"--sensibilidade", "2", "k", "f"}, "Sensibilidade invalida 2 (0 a 1)"},
    {"SoOpcao", {"-r"}, "Falta fotografia ou pasta"},
    {"SoKernel", {"k.cfg"}, "Falta fotografia ou pasta"},
    {"LetraDesconhecida", {"-x", "k", "f"}, "Opcao desconhecida -x"},
    {"LetraDesconhecidaNoMeio", {"--quieto", "-rx", "k", "f"}, "Opcao desconhecida -x"},
    {"NomeParecido", {"--sadia", "s", "k", "f"}, "Opcao desconhecida --sadia; quis dizer --saida?"},
    {"NomeParecidoComValor",
     {"--peneira5=1", "k", "f"},
     "Opcao desconhecida --peneira5=1; quis dizer --peneiras?"},
    {"NomeAmbiguo", {"--pe=1", "k", "f"}, "Opcao ambigua --pe=1; quis dizer --peso ou --peneiras?"},
    {"PalavraParecida",
     {"--metodo", "clasico", "k", "f"},
     "Metodo invalido clasico (apurado ou classico); quis dizer classico?"},
    {"NomeDesconhecido", {"--nada", "k", "f"}, "Opcao desconhecida --nada"},
    {"ValorAMais", {"--inverte=3", "k", "f"}, "A opcao nao leva valor: --inverte=3"},
    {"LetraSemValor", {"k", "f", "-o"}, "Falta o valor de -o"},
    {"NomeSemValor", {"k", "f", "--escala"}, "Falta o valor de --escala"},
    {"SaidaVazia", {"-o", "", "k", "f"}, "Pasta de saida sem nome"},
    {"EscalaSemUnidade",
     {"-e", "0.05", "k", "f"},
     "Escala invalida 0.05 (numero de 1e-9 a 1e9 e um, mm, cm, m ou in, como 0.05mm ou 20px/mm)"},
    {"EscalaNegativa",
     {"-e", "-1mm", "k", "f"},
     "Escala invalida -1mm (numero de 1e-9 a 1e9 e um, mm, cm, m ou in, como 0.05mm ou 20px/mm)"},
    {"CorrelacaoPalavra", {"-c", "alta", "k", "f"}, "Correlacao minima invalida alta (0 a 1)"},
    {"CorrelacaoNan", {"-c", "nan", "k", "f"}, "Correlacao minima invalida nan (0 a 1)"},
    {"CorrelacaoComVirgula", {"-c", "0,3", "k", "f"}, "Correlacao minima invalida 0,3 (0 a 1)"},
    {"CorrelacaoAcimaDe1", {"-c", "1.5", "k", "f"}, "Correlacao minima invalida 1.5 (0 a 1)"},
    {"CorrelacaoNegativa", {"-c", "-0.1", "k", "f"}, "Correlacao minima invalida -0.1 (0 a 1)"},
    {"Borda", {"--borda", "corta", "k", "f"}, "Borda invalida corta (corrige, inclui ou exclui)"},
    {"Grandeza",
     {"-g", "media", "k", "f"},
     "Grandeza invalida media (equivalente, menor ou maior)"},
    {"Peso", {"-w", "massa", "k", "f"}, "Peso invalido massa (numero, area ou volume)"},
    {"PesoEmIngles",
     {"-w", "numbr", "--idioma", "en", "k", "f"},
     "Invalid weight numbr (number, area or volume); did you mean number?"},
    {"PeneirasVazias",
     {"-p", "", "k", "f"},
     "Peneiras invalidas  (aberturas crescentes, acima de 0, como 0.5,1,2,4)"},
    {"PeneiraQueFalta",
     {"-p", "1,,2", "k", "f"},
     "Peneiras invalidas 1,,2 (aberturas crescentes, acima de 0, como 0.5,1,2,4)"},
    {"PeneirasIguais",
     {"-p", "2,2", "k", "f"},
     "Peneiras invalidas 2,2 (aberturas crescentes, acima de 0, como 0.5,1,2,4)"},
    {"PeneiraZero",
     {"-p", "0,1", "k", "f"},
     "Peneiras invalidas 0,1 (aberturas crescentes, acima de 0, como 0.5,1,2,4)"},
    {"PeneiraInfinita",
     {"-p", "1,inf", "k", "f"},
     "Peneiras invalidas 1,inf (aberturas crescentes, acima de 0, como 0.5,1,2,4)"},
    {"ProcessosZero", {"-j", "0", "k", "f"}, "Numero de processos invalido 0 (1 a 1024)"},
    {"ProcessosComLetra", {"-j", "2x", "k", "f"}, "Numero de processos invalido 2x (1 a 1024)"},
    {"ProcessosDemais", {"-j", "1025", "k", "f"}, "Numero de processos invalido 1025 (1 a 1024)"},
    {"Idioma", {"--idioma", "fr", "k", "f"}, "Idioma invalido fr (pt ou en)"},
    {"OPrimeiroErro",
     {"-g", "x", "-w", "y", "k", "f"},
     "Grandeza invalida x (equivalente, menor ou maior)"},
    {"EmIngles",
     {"-j", "0", "k", "f", "--idioma", "en"},
     "Invalid number of processes 0 (1 to 1024)"},
};
INSTANTIATE_TEST_SUITE_P(Tabela, OpcoesRuins, testing::ValuesIn(ruins),
                         [](const auto& linha) { return linha.param.nome; });

TEST(LeOpcoes, QuemPedeAjudaATemComErroEmVolta) {
  EXPECT_TRUE(lidas({"-j", "0", "--ajuda"}).ajuda);
}

}  // namespace
