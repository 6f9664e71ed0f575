#include <csignal>

#include "entradas_ruins.h"

namespace {

struct ListasRuins : ComEntradasRuins {};

TEST_P(ListasRuins, AcabamLogoComUmaLinhaClara) {
  confere(GetParam());
}

const ARGS relat = {"relat", "a.ho2", "b.rel"};
const ARGS contaform = {"contaform"};

void ho1(const std::string& texto) {
  grava("a.ho1", texto);
}
void ho2(const std::string& texto) {
  grava("a.ho2", texto);
}

const std::string lixo("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16);

const std::vector<RUIM> arquivosDeLista = {
    {"FiltraFalta", [] { apaga("a.ho1"); }, filtra, "Erro abertura arquivo a.ho1", "b.ho2"},
    {"FiltraProibida", [] { proibe("a.ho1"); }, filtra, "Erro abertura arquivo a.ho1", "b.ho2",
     true},
    {"FiltraPasta", [] { fazPasta("a.ho1"); }, filtra, "Erro abertura arquivo a.ho1", "b.ho2"},
    {"FiltraVazia", [] { ho1(""); }, filtra, "Erro: Falta numero no fim do texto (a.ho1, linha 1)",
     "b.ho2"},
    {"FiltraBinaria", [] { ho1(lixo); }, filtra, "Erro: Numero invalido \x89PNG (a.ho1, linha 1)",
     "b.ho2"},
    {"FiltraEsparsa", [] { fazEsparso("a.ho1", 3 * gigas, "1 "); }, filtra,
     "Erro: Palavra grande demais (a.ho1, linha 1)", "b.ho2"},
    {"TracaFalta", [] { apaga("a.ho1"); }, traca, "Erro abertura arquivo a.ho1", "b.png"},
    {"TracaProibida", [] { proibe("a.ho1"); }, traca, "Erro abertura arquivo a.ho1", "b.png", true},
    {"TracaPasta", [] { fazPasta("a.ho1"); }, traca, "Erro abertura arquivo a.ho1", "b.png"},
    {"TracaCortada", [] { corta("a.ho1", 55); }, traca,
     "Erro: Falta numero no fim do texto (a.ho1, linha 3)", "b.png"},
    {"TracaIlegivel",
     [] {},
     {"traca", "a.pgm", "/proc/self/mem", "b.png"},
     "Erro leitura arquivo /proc/self/mem",
     "b.png"},
    {"TracaEsparsa", [] { fazEsparso("a.ho1", 3 * gigas, "1\n//\n0.5 "); }, traca,
     "Erro: Palavra grande demais (a.ho1, linha 3)", "b.png"},
    {"ExtraiamFalta", [] { apaga("a.ho2"); }, extraiam, "Erro abertura arquivo a.ho2", "a0000.png"},
    {"ExtraiamProibida", [] { proibe("a.ho2"); }, extraiam, "Erro abertura arquivo a.ho2",
     "a0000.png", true},
    {"ExtraiamVazia", [] { ho2(""); }, extraiam,
     "Erro: Falta numero no fim do texto (a.ho2, linha 1)", "a0000.png"},
    {"ExtraiamBinaria", [] { ho2("1\n" + lixo); }, extraiam,
     "Erro: Numero invalido \x89PNG (a.ho2, linha 2)", "a0000.png"},
    {"ExtraiclaFalta", [] { apaga("a.ho2"); }, extraicla, "Erro abertura arquivo a.ho2",
     "01-0000.png"},
    {"ExtraiclaCortada", [] { corta("a.ho2", 60); }, extraicla,
     "Erro: Falta numero no fim do texto (a.ho2, linha 3)", "01-0000.png"},
    {"RelatFalta", [] { apaga("a.ho2"); }, relat, "Erro abertura arquivo a.ho2", "b.rel"},
    {"RelatProibida", [] { proibe("a.ho2"); }, relat, "Erro abertura arquivo a.ho2", "b.rel", true},
    {"RelatPasta", [] { fazPasta("a.ho2"); }, relat, "Erro abertura arquivo a.ho2", "b.rel"},
    {"RelatVazia", [] { ho2("\n\n"); }, relat,
     "Erro: Falta numero no fim do texto (a.ho2, linha 3)", "b.rel"},
    {"RelatEsparsa", [] { fazEsparso("a.ho2", 3 * gigas); }, relat,
     "Erro: Palavra grande demais (a.ho2, linha 1)", "b.rel"},
    {"ContaformProibida", [] { proibe("a.ho2"); }, contaform, "Erro abertura arquivo a.ho2", "",
     true},
};
INSTANTIATE_TEST_SUITE_P(Arquivo, ListasRuins, testing::ValuesIn(arquivosDeLista), nomeDaLinha);

// A list of one record.
void um(const std::string& registro) {
  ho1("1\n//\n" + registro + "\n");
  ho2("1\n//\n" + registro + "\n");
}

const std::vector<RUIM> numerosDeLista = {
    {"ContagemMaiorQueALista", [] { ho2("3\n//\n0.5 c 1 1 9 9 0\n0.4 c 5 5 9 9 0\n"); }, relat,
     "Erro: Falta numero no fim do texto (a.ho2, linha 5)", "b.rel"},
    {"ContagemAlemDeInt", [] { ho2("3000000000\n//\n"); }, relat,
     "Erro: Numero invalido 3000000000 (a.ho2, linha 1)", "b.rel"},
    {"ContagemComDecimais", [] { ho1("2.0\n//\n"); }, filtra,
     "Erro: Numero invalido 2.0 (a.ho1, linha 1)", "b.ho2"},
    {"ContagemMaximaSemRegistros", [] { ho1("107374182\n//\n"); }, filtra,
     "Erro: Falta numero no fim do texto (a.ho1, linha 3)", "b.ho2"},
    {"LinhaAlemDeInt", [] { um("0.5 c 2147483648 1 9 9 0"); }, traca,
     "Erro: Numero invalido 2147483648 (a.ho1, linha 3)", "b.png"},
    {"ColunaComDecimais", [] { um("0.5 c 1 1.5 9 9 0"); }, extraiam,
     "Erro: Numero invalido 1.5 (a.ho2, linha 3)", "a0000.png"},
    {"TamanhoTransborda", [] { um("0.5 c 1 1 1e999 9 0"); }, filtra,
     "Erro: Numero invalido 1e999 (a.ho1, linha 3)", "b.ho2"},
    {"CorrelacaoTransborda", [] { um("1e39 c 1 1 9 9 0"); }, traca,
     "Erro: Numero invalido 1e39 (a.ho1, linha 3)", "b.png"},
    {"FimDeLinhaDuplo", [] { ho2("1\r\n//\r\n0.5 c 1 1 9 9,0 0\r\n"); }, relat,
     "Erro: Numero invalido 9,0 (a.ho2, linha 3)", "b.rel"},
    {"LetraQueFalta", [] { um("0.5 1 1 9 9 0"); }, relat,
     "Erro: Falta numero no fim do texto (a.ho2, linha 4)", "b.rel"},
};
INSTANTIATE_TEST_SUITE_P(Numero, ListasRuins, testing::ValuesIn(numerosDeLista), nomeDaLinha);

// Many records, all of them as large as can be drawn and no two alike.
void enormes(const std::string& nome, int quantos) {
  std::vector<MAXLOCAL> v;
  for (int i = 0; i < quantos; ++i) v.push_back({0.9F, 'q', 20, 20, 11000.0 + 0.01 * i, 9, 45});
  grava(nome, listaHo(v));
}

const std::string registro0 = " (a.ho1, registro 0)";

const std::vector<RUIM> tamanhosDeLista = {
    {"TracaNan", [] { um("0.5 c 1 1 nan 9 0"); }, traca,
     "Erro: Forma grande demais c nan 9" + registro0, "b.png"},
    {"TracaInfinito", [] { um("0.5 r 1 1 9 inf 0"); }, traca,
     "Erro: Forma grande demais r 9 inf" + registro0, "b.png"},
    {"TracaZero", [] { um("0.5 c 1 1 0 0 0"); }, traca, "Erro: IMG_::constructor _mat nulo",
     "b.png"},
    {"TracaNegativo", [] { um("0.5 q 1 1 -9 -9 0"); }, traca, "Erro: IMG_::constructor _mat nulo",
     "b.png"},
    {"FiltraMenosInfinito", [] { um("0.5 e 1 1 9 -inf 0"); }, filtra,
     "Erro: Forma grande demais e 9 -inf" + registro0, "b.ho2"},
    {"FiltraEnorme", [] { um("0.5 q 1 1 1e300 9 0"); }, filtra,
     "Erro: Forma grande demais q 1e+300 9" + registro0, "b.ho2"},
    {"FiltraMuitasEnormes", [] { enormes("a.ho1", 1000); }, filtra,
     "Erro: Formas grandes demais em a.ho1", "b.ho2"},
    {"ExtraiamEnorme", [] { um("0.5 q 1 1 1e300 9 0"); }, extraiam,
     "Erro: Forma grande demais q 1e+300 9 (a.ho2, registro 0)", "a0000.png"},
    {"ExtraiamMuitasEnormes", [] { enormes("a.ho2", 1000); }, extraiam,
     "Erro: Amostras grandes demais em a.ho2", "a0000.png"},
    {"ExtraiclaMuitasEnormes", [] { enormes("a.ho2", 1000); }, extraicla,
     "Erro: Amostras grandes demais em a.ho2", "01-0000.png"},
    {"RelatNan", [] { um("0.5 c 1 1 nan 9 0"); }, relat,
     "Erro: Area fora do intervalo c nan 9 (a.ho2, registro 0)", "b.rel"},
    {"RelatTransborda", [] { ho2("2\n0 c 1 1 9 9 0\n0 r 1 1 1e200 1e200 0\n"); }, relat,
     "Erro: Area fora do intervalo r 1e+200 1e+200 (a.ho2, registro 1)", "b.rel"},
};
INSTANTIATE_TEST_SUITE_P(Tamanho, ListasRuins, testing::ValuesIn(tamanhosDeLista), nomeDaLinha);

const std::vector<RUIM> argumentos = {
    {"IndiceAlemDaLista",
     [] {},
     {"extraiam", "a.pgm", "1", "2"},
     "Erro: Indice fora da lista 2",
     "a0002.png"},
    {"IndiceNegativo",
     [] {},
     {"extraicla", "a.pgm", "1", "-1"},
     "Erro: Indice fora da lista -1",
     "01-0000.png"},
    {"IndiceAlemDeInt",
     [] {},
     {"extraiam", "a.pgm", "1", "2147483648"},
     "Erro: Numero invalido 2147483648",
     "a0000.png"},
    {"IndiceSemClasse",
     [] { grava("a.mat", "P2\n1 1\n255\n7\n"); },
     {"extraicla", "a.pgm", "1", "1"},
     "Erro: Indice fora da imagem de classes 1",
     "00-0001.png"},
    {"ZoomNan",
     [] {},
     {"extraiam", "a.pgm", "nan"},
     "Erro: Forma grande demais c nan nan (a.ho2, registro 0)",
     "a0000.png"},
    {"ZoomInfinito",
     [] {},
     {"extraicla", "a.pgm", "inf", "1"},
     "Erro: Forma grande demais c inf inf (a.ho2, registro 1)",
     "02-0001.png"},
    {"ZoomEnorme",
     [] {},
     {"extraiam", "a.pgm", "1e300"},
     "Erro: Forma grande demais c 1.5e+301 1.5e+301 (a.ho2, registro 0)",
     "a0000.png"},
    {"ZoomTransborda",
     [] {},
     {"extraiam", "a.pgm", "1e309"},
     "Erro: Numero invalido 1e309",
     "a0000.png"},
    {"ParametroDesconhecido",
     [] {},
     {"filtra", "a.pgm", "a.ho1", "b.ho2", "hexagono", "1", "1"},
     "Erro: Palavra desconhecida hexagono",
     "b.ho2"},
    {"ParametroSemNumero",
     [] {},
     {"filtra", "a.pgm", "a.ho1", "b.ho2", "circulo", "1"},
     "Erro: Falta numero no fim dos parametros",
     "b.ho2"},
    {"MinCorrQueNaoEhNumero",
     [] {},
     {"correla", "a.pgm", "kernel.cfg", "b.ho1", "0.1.2"},
     "Erro: Numero invalido 0.1.2",
     "b.ho1"},
    {"MinCorrTransborda",
     [] {},
     {"oldcorrela", "a.pgm", "kernel.cfg", "b.ho1", "-1e999"},
     "Erro: Numero invalido -1e999",
     "b.ho1"},
    {"MinCorrVazio",
     [] {},
     {"correla", "a.pgm", "kernel.cfg", "b.ho1", ""},
     "Erro: Numero invalido ",
     "b.ho1"},
};
INSTANTIATE_TEST_SUITE_P(Argumento, ListasRuins, testing::ValuesIn(argumentos), nomeDaLinha);

// Runs that the program ends by aborting: still soon, in little memory and without output.
struct ListasQueAbortam : ComEntradasRuins {};

TEST_P(ListasQueAbortam, AcabamLogoSemSaida) {
  const RUIM& r = GetParam();
  r.prepara();
  const EXECUCAO e = executa(r.args, {}, 0);
  EXPECT_EQ(e.sinal, SIGABRT);
  EXPECT_NE(e.erro.find(r.erro), std::string::npos) << e.erro;
  EXPECT_FALSE(existe(r.saida));
  confereCusto(e);
}

const std::vector<RUIM> abortos = {
    {"ContagemNegativa", [] { ho2("-1\n//\n"); }, relat,
     "Erro: Numero de registros impossivel -1 (a.ho2, linha 1)\n", "b.rel"},
    {"ContagemGrandeDemais", [] { ho1("\n107374183\n//\n"); }, filtra,
     "Erro: Numero de registros impossivel 107374183 (a.ho1, linha 2)\n", "b.ho2"},
    {"ContagemMaiorInteiro", [] { ho1("2147483647\n//\n"); }, traca, "vector::reserve", "b.png"},
    {"LetraDesconhecida", [] { um("0.5 x 1 1 9 9 0"); }, extraiam, "g.rows%2==1 && g.cols%2==1",
     "a0000.png"},
    {"ZoomZero", [] {}, {"extraicla", "a.pgm", "0"}, "g.rows%2==1 && g.cols%2==1", "01-0000.png"},
    {"ZoomNegativo", [] {}, {"extraiam", "a.pgm", "-1"}, "g.rows%2==1 && g.cols%2==1", "a0000.png"},
    {"MinCorrInfinito", [] {}, {"correla", "a.pgm", "kernel.cfg", "b.ho1", "inf"}, "l<=r", "b.ho1"},
    {"MinCorrEnorme",
     [] {},
     {"oldcorrela", "a.pgm", "kernel.cfg", "b.ho1", "1e300"},
     "l<=r",
     "b.ho1"},
};
INSTANTIATE_TEST_SUITE_P(Aborto, ListasQueAbortam, testing::ValuesIn(abortos), nomeDaLinha);

// Odd inputs that are good all the same: `erro` is a text that the output must hold.
struct ListasEstranhas : ComEntradasRuins {};

TEST_P(ListasEstranhas, ServemLogo) {
  const RUIM& r = GetParam();
  r.prepara();
  const EXECUCAO e = executa(r.args);
  EXPECT_EQ(e.estado, 0);
  EXPECT_EQ(e.erro, "");
  EXPECT_NE((r.saida.empty() ? e.saida : leTudo(r.saida)).find(r.erro), std::string::npos);
  confereCusto(e);
}

const std::string lista = "2\n0.9 c 24 32 15 15 0\n0.5 c 9 9 9 9 0\n";

const std::vector<RUIM> estranhas = {
    {"ContagemMenorQueALista", [] { ho2("1" + lista.substr(1)); }, relat, "\n   177      1\nR",
     "b.rel"},
    {"FimDeLinhaDuploEMarca",
     [] {
       ho2("\xEF\xBB\xBF"
           "1\r\n//\r\n0.9 c 24 32 15 15 0\r\n");
     },
     relat, "\n   177      1\nR", "b.rel"},
    {"SemFimDeLinha", [] { ho2("1 0.9 c 24 32 15 15 0"); }, relat, "\n   177      1\nR", "b.rel"},
    {"LetraDesconhecida", [] { ho1("1\n0.9 z 24 32 15 15 0\n"); }, filtra, "0.900000 z   24",
     "b.ho2"},
    {"CentroLonge", [] { ho1("1\n0.9 c -2147483648 2147483647 15 15 0\n"); }, traca, "PNG",
     "b.png"},
    {"AnguloNan", [] { ho1("1\n0.9 r 24 32 15 9 nan\n"); }, traca, "PNG", "b.png"},
    {"AnguloEnorme", [] { ho1("1\n0.9 e 24 32 15 9 1e300\n"); }, traca, "PNG", "b.png"},
    {"CorrelacaoNan", [] { ho1("1\nnan c 24 32 15 15 0\n"); }, filtra, "nan c   24", "b.ho2"},
    {"FracaEEnorme", [] { ho1("1\n0.01 c 24 32 1e300 15 0\n"); }, filtra, "0\n//correl", "b.ho2"},
    {"MuitasEnormesTracadas", [] { enormes("a.ho1", 1000); }, traca, "PNG", "b.png"},
    {"EnormesIguaisFiltradas",
     [] {
       ho1(listaHo(std::vector<MAXLOCAL>(500, {0.9F, 'q', 20, 20, 11000, 9, 45})));
     },
     filtra, "0\n//correl", "b.ho2"},
    {"ContaformDePalavraLonga",
     [] {
       ho2(std::string(2U << 20U, '9'));
       grava("b.ho2", "7");
     },
     contaform, "a.ho2 " + std::string(2U << 20U, '9') + "\nb.ho2 7\n"},
};
INSTANTIATE_TEST_SUITE_P(Estranha, ListasEstranhas, testing::ValuesIn(estranhas), nomeDaLinha);

}  // namespace
