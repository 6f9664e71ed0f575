#include "entradas_ruins.h"

namespace {

struct KernelsRuins : ComEntradasRuins {};

TEST_P(KernelsRuins, AcabamLogoComUmaLinhaClara) {
  confere(GetParam());
}

void cfg(const std::string& texto) {
  grava("kernel.cfg", texto);
}

const std::vector<std::string> gera = {"kernel", "kernel.cfg", "k.pgm"};
constexpr const char* png = "k.pgm";

const std::vector<RUIM> arquivosDeKernels = {
    {"Falta", [] { apaga("kernel.cfg"); }, gera, "Erro abertura arquivo kernel.cfg", png},
    {"Proibido", [] { proibe("kernel.cfg"); }, gera, "Erro abertura arquivo kernel.cfg", png, true},
    {"Pasta", [] { fazPasta("kernel.cfg"); }, gera, "Erro abertura arquivo kernel.cfg", png},
    {"Vazio", [] { cfg(""); }, gera, "Erro: Imagem vazia k.pgm", png},
    {"SoComentario", [] { cfg("// circulo 21\n//"); }, gera, "Erro: Imagem vazia k.pgm", png},
    {"Binario", [] { cfg(std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16)); }, gera,
     "Erro: Palavra desconhecida \x89png", png},
    {"Esparso", [] { fazEsparso("kernel.cfg", std::uintmax_t{3} << 30U); }, gera,
     "Erro: Palavra grande demais (kernel.cfg, linha 1)", png},
    {"SemFim",
     [] {},
     {"kernel", "/dev/zero", "k.pgm"},
     "Erro: Palavra grande demais (/dev/zero)",
     png},
    {"IlegivelDepoisDeAberto",
     [] {},
     {"kernel", "/proc/self/mem", "k.pgm"},
     "Erro leitura arquivo /proc/self/mem",
     png},
    {"CortadoNaForma", [] { cfg("escoitava 2\nretangulo 30"); }, gera,
     "Erro: Falta numero no fim do texto (kernel.cfg, linha 2)", png},
    {"CortadoNoAjuste", [] { cfg("circulo 9\nescala\n\n"); }, gera,
     "Erro: Falta numero no fim do texto (kernel.cfg, linha 4)", png},
};
INSTANTIATE_TEST_SUITE_P(Arquivo, KernelsRuins, testing::ValuesIn(arquivosDeKernels), nomeDaLinha);

const std::vector<RUIM> numerosDeKernels = {
    {"Palavra", [] { cfg("circulo\nvinte"); }, gera,
     "Erro: Numero invalido vinte (kernel.cfg, linha 2)", png},
    {"FimDeLinhaDuplo", [] { cfg("escoitava 2\r\ncirculo 2l\r\n"); }, gera,
     "Erro: Numero invalido 2l (kernel.cfg, linha 2)", png},
    {"VirgulaDecimal",
     [] {
       cfg("\xEF\xBB\xBF"
           "circulo 2,5");
     },
     gera, "Erro: Numero invalido 2,5 (kernel.cfg, linha 1)", png},
    {"Longo", [] { cfg("circulo " + std::string(5000, '7') + "x"); }, gera,
     "Erro: Numero invalido " + std::string(80, '7') + "... (kernel.cfg, linha 1)", png},
    {"ComControles", [] { cfg(std::string("circulo 1\x1B[2J\0\x07", 15)); }, gera,
     std::string("Erro: Numero invalido 1\x1B[2J\0\x07 (kernel.cfg, linha 1)", 51), png},
    {"Transborda", [] { cfg("circulo 1e400"); }, gera,
     "Erro: Numero invalido 1e400 (kernel.cfg, linha 1)", png},
    {"InteiroTransborda", [] { cfg("\n\nescoitava 2147483648"); }, gera,
     "Erro: Numero invalido 2147483648 (kernel.cfg, linha 3)", png},
    {"InteiroComDecimais", [] { cfg("escoitava 5.0"); }, gera,
     "Erro: Numero invalido 5.0 (kernel.cfg, linha 1)", png},
    {"PalavraDesconhecida", [] { cfg("escoitava 2 HEXAGONO 9"); }, gera,
     "Erro: Palavra desconhecida hexagono", png},
    {"PalavraSemFim", [] { cfg(std::string(1000000, 'x')); }, gera,
     "Erro: Palavra desconhecida " + std::string(1000000, 'x'), png},
    {"NumeroAMais", [] { cfg("circulo 21 22"); }, gera, "Erro: Palavra desconhecida 22", png},
    {"EscOitavaZero", [] { cfg("escoitava 0"); }, gera, "Erro: deve ter 1<=escOitava", png},
    {"EscMinNegativa", [] { cfg("escmin -1e-300"); }, gera, "Erro: deve ter 0<=escMin", png},
    {"EscMinNan", [] { cfg("escmin nan"); }, gera, "Erro: deve ter 0<=escMin", png},
    {"EscMaxMenor", [] { cfg("escmax 0.1"); }, gera, "Erro: deve ter escMin<=escMax", png},
    {"EscPirMenor", [] { cfg("escpir -inf"); }, gera, "Erro: deve ter escMax<=escPir", png},
};
INSTANTIATE_TEST_SUITE_P(Numero, KernelsRuins, testing::ValuesIn(numerosDeKernels), nomeDaLinha);

const std::vector<RUIM> tamanhosDeKernels = {
    {"Nan", [] { cfg("escoitava 2\nquadrado nan"); }, gera,
     "Erro: Forma grande demais q nan nan (kernel.cfg, linha 2)", png},
    {"Infinito", [] { cfg("retangulo 12\ninf"); }, gera,
     "Erro: Forma grande demais r 12 inf (kernel.cfg, linha 2)", png},
    {"MenosInfinito", [] { cfg("elipse -inf 12"); }, gera,
     "Erro: Forma grande demais e -inf 12 (kernel.cfg, linha 1)", png},
    {"Enorme", [] { cfg("circulo 1e300"); }, gera,
     "Erro: Forma grande demais c 1e+300 1e+300 (kernel.cfg, linha 1)", png},
    {"PoucoAcimaDoMaior", [] { cfg("quadrado 4096"); }, gera,
     "Erro: Forma grande demais q 4096 4096 (kernel.cfg, linha 1)", png},
    {"EscalaEnorme", [] { cfg("escpir 1e9 escmax 1e9 circulo 21"); }, gera,
     "Erro: Forma grande demais c 21 21 (kernel.cfg, linha 1)", png},
    {"EscalaInfinita", [] { cfg("escmax inf escpir inf circulo 21"); }, gera,
     "Erro: Forma grande demais c 21 21 (kernel.cfg, linha 1)", png},
    {"Zero", [] { cfg("elipse 0 12"); }, gera, "Erro: NegPosUm divisao zero", png},
    {"Negativo", [] { cfg("retangulo 12 -5"); }, gera, "Erro: NegPosUm divisao zero", png},
    {"MuitoNegativo", [] { cfg("circulo -1e300"); }, gera, "Erro: NegPosUm divisao zero", png},
    {"PequenoDemais", [] { cfg("quadrado 2"); }, gera, "Erro: NegPosUm divisao zero", png},
    {"CirculoQueSome", [] { cfg("escala 0.01 a 1 circulo 9"); }, gera,
     "Erro: IMG_::constructor _mat nulo", png},
};
INSTANTIATE_TEST_SUITE_P(Tamanho, KernelsRuins, testing::ValuesIn(tamanhosDeKernels), nomeDaLinha);

const std::vector<RUIM> semFim = {
    {"PassoZero", [] { cfg("passoang 0\nquadrado 21"); }, gera,
     "Erro: passoAng nao avanca em q 21 21 (kernel.cfg, linha 2)", png},
    {"PassoNegativo", [] { cfg("passoang -10 elipse 30 12"); }, gera,
     "Erro: passoAng nao avanca em e 30 12 (kernel.cfg, linha 1)", png},
    {"PassoQueMalAvanca", [] { cfg("passoang 1e-300 retangulo 30 12"); }, gera,
     "Erro: Kernels demais em r 30 12 (kernel.cfg, linha 1)", png},
    {"PassoMiudo", [] { cfg("passoang 0.001 elipse 30 12"); }, gera,
     "Erro: Kernels demais em e 30 12 (kernel.cfg, linha 1)", png},
    {"EscalaAteZero", [] { cfg("escmin 0 circulo 21"); }, gera, "Erro: IMG_::constructor _mat nulo",
     png},
    {"EscalaAteQuaseZero", [] { cfg("escmin 1e-300 quadrado 21"); }, gera,
     "Erro: NegPosUm divisao zero", png},
    {"EscalasDemais", [] { cfg("escoitava 1000000000\ncirculo 21"); }, gera,
     "Erro: Kernels demais em c 21 21 (kernel.cfg, linha 2)", png},
    {"EscalasDemaisAteZero", [] { cfg("escoitava 100000 escmin 0 circulo 21"); }, gera,
     "Erro: Kernels demais em c 21 21 (kernel.cfg, linha 1)", png},
    {"EscalasGrandes", [] { cfg("escoitava 10000 circulo 5000"); }, gera,
     "Erro: Pixels de kernels demais em c 5000 5000 (kernel.cfg, linha 1)", png},
    {"EscalasEAngulos", [] { cfg("escoitava 170000 passoang 30 retangulo 30 12"); }, gera,
     "Erro: Kernels demais em r 30 12 (kernel.cfg, linha 1)", png},
    {"PixelsDemais", [] { cfg("escala 1 a 1 passoang 0.5 quadrado 4000"); }, gera,
     "Erro: Pixels de kernels demais em q 4000 4000 (kernel.cfg, linha 1)", png},
    {"AosPoucos",
     [] {
       std::string texto = "escoitava 20000\n";
       for (int i = 0; i < 14; ++i) texto += "circulo 5\n";
       cfg(texto);
     },
     gera, "Erro: Kernels demais em c 5 5 (kernel.cfg, linha 15)", png},
    {"MosaicoAlto", [] { cfg("escoitava 50000 circulo 21"); }, gera,
     "Erro: Mosaico grande demais k.pgm (33 x 1272391 pixels)", png},
};
INSTANTIATE_TEST_SUITE_P(SemFim, KernelsRuins, testing::ValuesIn(semFim), nomeDaLinha);

// The other two sub-programs that read the file end in the same way.
const std::vector<RUIM> outros = {
    {"CorrelaComKernelsDemais",
     [] { cfg("escoitava 10000 circulo 5000"); },
     {"correla", "a.pgm", "kernel.cfg", "b.ho1"},
     "Erro: Pixels de kernels demais em c 5000 5000 (kernel.cfg, linha 1)",
     "b.ho1"},
    {"OldCorrelaComKernelsDemais",
     [] { cfg("escoitava 10000 circulo 5000"); },
     {"oldcorrela", "a.pgm", "kernel.cfg", "b.ho1"},
     "Erro: Pixels de kernels demais em c 5000 5000 (kernel.cfg, linha 1)",
     "b.ho1"},
    {"CorrelaSemKernels",
     [] { apaga("kernel.cfg"); },
     {"correla", "a.pgm", "kernel.cfg", "b.ho1"},
     "Erro abertura arquivo kernel.cfg",
     "b.ho1"},
    {"OldCorrelaComKernelsProibidos",
     [] { proibe("kernel.cfg"); },
     {"oldcorrela", "a.pgm", "kernel.cfg", "b.ho1"},
     "Erro abertura arquivo kernel.cfg",
     "b.ho1",
     true},
    {"CorrelaComPasta",
     [] {},
     {"correla", "a.pgm", ".", "b.ho1"},
     "Erro abertura arquivo .",
     "b.ho1"},
    {"CorrelaComEsparso",
     [] { fazEsparso("kernel.cfg", std::uintmax_t{3} << 30U); },
     {"correla", "a.pgm", "kernel.cfg", "b.ho1"},
     "Erro: Palavra grande demais (kernel.cfg, linha 1)",
     "b.ho1"},
};
INSTANTIATE_TEST_SUITE_P(Outros, KernelsRuins, testing::ValuesIn(outros), nomeDaLinha);

// What no sensible user should notice of the limits.
struct KernelsGrandes : ComEntradasRuins {};

TEST_F(KernelsGrandes, CentenasDeKernelsDe240PixelsServem) {
  cfg("passoang 1.08 quadrado 240 circulo 240");
  const EXECUCAO e = executa(gera);
  EXPECT_EQ(e.estado, 0) << e.erro;
  EXPECT_TRUE(miolo(e).starts_with("Numero de kernels=510\n"));
  EXPECT_TRUE(existe("k.pgm"));
  confereCusto(e);
}

TEST_F(KernelsGrandes, ColunaDeMilharesDeKernelsEhDesenhadaLogo) {
  cfg("escoitava 12000 circulo 12");
  const EXECUCAO e = executa(gera);
  EXPECT_EQ(e.estado, 0) << e.erro;
  const std::string cabeca = leTudo("k.pgm").substr(0, 20);
  EXPECT_TRUE(cabeca.starts_with("P5\n19 ")) << cabeca;
  confereCusto(e);
}

}  // namespace
