#include <csignal>

#include "entradas_ruins.h"
#include "figuras_binarias.h"

namespace {

struct ImagensRuins : ComEntradasRuins {};

TEST_P(ImagensRuins, AcabamLogoComUmaLinhaClara) {
  confere(GetParam());
}

const ARGS correla = {"correla", "a.pgm", "kernel.cfg", "b.ho1"};

const std::string leitura = "Erro leitura imagem a.pgm: ";

// A PNG or JPEG of the photograph, made by the program itself.
std::string fotoComo(const std::string& tipo) {
  grava("nada.ho1", "0\n");
  const std::string nome = "foto." + tipo;
  EXPECT_EQ(executa({"traca", "a.pgm", "nada.ho1", nome}).estado, 0);
  return leTudo(nome);
}

// The photograph as a JPEG of which the end is missing, but for its mark.
void jpegCortado() {
  const std::string inteiro = fotoComo("jpg");
  grava("a.pgm", inteiro.substr(0, inteiro.size() * 9 / 10) + "\xFF\xD9");
}

// One byte of the pixels of a PNG changed.
void pngCorrompido() {
  std::string png = fotoComo("png");
  png[png.size() / 2] = static_cast<char>(png[png.size() / 2] ^ 0x40);
  grava("a.pgm", png);
}

const std::vector<RUIM> arquivosDeImagem = {
    {"CorrelaFalta", [] { apaga("a.pgm"); }, correla, "Erro abertura arquivo a.pgm", "b.ho1"},
    {"CorrelaProibida", [] { proibe("a.pgm"); }, correla, "Erro abertura arquivo a.pgm", "b.ho1",
     true},
    {"CorrelaPasta", [] { fazPasta("a.pgm"); }, correla, "Erro abertura arquivo a.pgm", "b.ho1"},
    {"CorrelaVazia", [] { grava("a.pgm", ""); }, correla, leitura + "arquivo vazio", "b.ho1"},
    {"CorrelaCortada", [] { corta("a.pgm", 1000); }, correla, leitura + "arquivo incompleto",
     "b.ho1"},
    {"CorrelaTexto", [] { grava("a.pgm", "isto nao e' imagem\n"); }, correla,
     leitura + "nao e' uma imagem legivel", "b.ho1"},
    {"CorrelaEsparsa", [] { fazEsparso("a.pgm", 3 * gigas); }, correla,
     leitura + "nao e' uma imagem legivel", "b.ho1"},
    {"CorrelaEsparsaDemais", [] { fazEsparso("a.pgm", 5 * gigas, "P5 4 4 255\n"); }, correla,
     "Erro: Arquivo grande demais a.pgm", "b.ho1"},
    {"CorrelaSemFim",
     [] {},
     {"correla", "/dev/zero", "kernel.cfg", "b.ho1"},
     "Erro leitura arquivo /dev/zero",
     "b.ho1"},
    {"OldcorrelaFalta",
     [] { apaga("a.pgm"); },
     {"oldcorrela", "a.pgm", "kernel.cfg", "b.ho1"},
     "Erro abertura arquivo a.pgm",
     "oldcorrela.img"},
    {"OldcorrelaCortada",
     [] { corta("a.pgm", 9); },
     {"oldcorrela", "a.pgm", "kernel.cfg", "b.ho1"},
     leitura + "cabecalho invalido",
     "oldcorrela.img"},
    {"FiltraFalta", [] { apaga("a.pgm"); }, filtra, "Erro abertura arquivo a.pgm", "b.ho2"},
    {"FiltraProibida", [] { proibe("a.pgm"); }, filtra, "Erro abertura arquivo a.pgm", "b.ho2",
     true},
    {"ExtraiamFalta", [] { apaga("a.pgm"); }, extraiam, "Erro abertura arquivo a.pgm", "a0000.png"},
    {"ExtraiclaSemClasses", [] { apaga("a.mat"); }, extraicla, "Erro abertura arquivo a.mat",
     "01-0000.png"},
    {"ExtraiclaClassesVazias", [] { grava("a.mat", ""); }, extraicla,
     "Erro leitura imagem a.mat: arquivo vazio", "01-0000.png"},
    {"ExtraiclaClassesEsparsas", [] { fazEsparso("a.mat", 3 * gigas); }, extraicla,
     "Erro leitura imagem a.mat: ...", "01-0000.png"},
    {"ExtraiclaClassesProibidas", [] { proibe("a.mat"); }, extraicla, "Erro abertura arquivo a.mat",
     "01-0000.png", true},
};
INSTANTIATE_TEST_SUITE_P(Arquivo, ImagensRuins, testing::ValuesIn(arquivosDeImagem), nomeDaLinha);

const std::vector<RUIM> conteudos = {
    {"JpegCortadoComMarcaDeFim", jpegCortado, traca, leitura + "dados corrompidos", "b.png"},
    {"JpegCortado", [] { grava("a.pgm", fotoComo("jpg").substr(0, 700)); }, traca,
     leitura + "arquivo incompleto", "b.png"},
    {"PngCorrompido", pngCorrompido, traca, leitura + "nao e' uma imagem legivel", "b.png"},
    {"PngCortado", [] { grava("a.pgm", fotoComo("png").substr(0, 150)); }, traca,
     leitura + "nao e' uma imagem legivel", "b.png"},
    {"GifAnimado", [] { grava("a.pgm", gifAnimado()); }, traca,
     leitura + "nao e' uma imagem legivel", "b.png"},
    {"WebpAnimado", [] { grava("a.pgm", webpAnimado()); }, traca,
     leitura + "nao e' uma imagem legivel", "b.png"},
    {"TextoCortado", [] { grava("a.pgm", "P2\n3 1\n255\n10 20 "); }, traca,
     leitura + "arquivo incompleto", "b.png"},
    {"AmostraAcimaDoMaximo", [] { grava("a.pgm", "P2\n2 1\n9\n10 2\n"); }, traca,
     leitura + "amostra invalida", "b.png"},
    {"CabecalhoSemDados", [] { grava("a.pgm", "P6\n30000 30000\n255\n"); }, traca,
     leitura + "arquivo incompleto", "b.png"},
    {"LadoAlemDoMaior", [] { grava("a.pgm", "P5\n99999999999 1\n255\n1"); }, traca,
     leitura + "cabecalho invalido", "b.png"},
    {"LadoNegativo", [] { grava("a.pgm", "P5\n-4 4\n255\n1234"); }, traca,
     leitura + "cabecalho invalido", "b.png"},
};
INSTANTIATE_TEST_SUITE_P(Conteudo, ImagensRuins, testing::ValuesIn(conteudos), nomeDaLinha);

// Images without an inner pixel, in which nothing can be found.
struct ImagensMinimas : ComEntradasRuins {};

TEST_P(ImagensMinimas, AbortamSemLista) {
  const RUIM& r = GetParam();
  r.prepara();
  const EXECUCAO e = executa(r.args, {}, 0);
  EXPECT_EQ(e.sinal, SIGABRT);
  EXPECT_NE(e.erro.find(r.erro), std::string::npos) << e.erro;
  EXPECT_FALSE(existe("b.ho1"));
  confereCusto(e);
}

const std::vector<RUIM> minimas = {
    {"UmPixel", [] { grava("a.pgm", "P5\n1 1\n255\nx"); }, correla, "l<=r"},
    {"UmaLinha", [] { grava("a.pgm", "P5\n9 1\n255\n123456789"); }, correla, "l<=r"},
    {"UmaColuna",
     [] { grava("a.pgm", "P2\n1 5\n255\n0 9 0 9 0\n"); },
     {"oldcorrela", "a.pgm", "kernel.cfg", "b.ho1"},
     "l<=r"},
};
INSTANTIATE_TEST_SUITE_P(Minima, ImagensMinimas, testing::ValuesIn(minimas), nomeDaLinha);

// Images of unusual kinds, and the pixels that they must give.
struct ImagensEstranhas : ComEntradasRuins {
  // The binary PPM that a run drawing nothing makes of a.pgm.
  static std::string lida(const std::string& bytes) {
    grava("a.pgm", bytes);
    grava("nada.ho1", "0\n");
    const EXECUCAO e = executa({"traca", "a.pgm", "nada.ho1", "b.ppm"});
    EXPECT_EQ(e.estado, 0);
    EXPECT_EQ(e.erro, "");
    confereCusto(e);
    return leTudo("b.ppm");
  }
};

TEST_F(ImagensEstranhas, UmPixelUmaLinhaEUmaColunaServem) {
  EXPECT_EQ(lida("P5\n1 1\n255\nx"), "P6\n1 1\n255\nxxx");
  EXPECT_EQ(lida("P5\n3 1\n255\nxyz"), "P6\n3 1\n255\nxxxyyyzzz");
  EXPECT_EQ(lida("P5\n1 2\n255\nxy"), "P6\n1 2\n255\nxxxyyy");
}

TEST_F(ImagensEstranhas, DezesseisBitsViramOito) {
  EXPECT_EQ(lida(std::string("P5\n2 1\n65535\n\x80\x80\xFF\xFF", 17)),
            "P6\n2 1\n255\n\x80\x80\x80\xFF\xFF\xFF");
}

TEST_F(ImagensEstranhas, FimDeLinhaDuploNoCabecalhoDeTextoServe) {
  EXPECT_EQ(lida("P2\r\n2 1\r\n255\r\n120 121\r\n"), "P6\n2 1\n255\nxxxyyy");
}

TEST_F(ImagensEstranhas, JpegCmykVemEmCores) {
  const std::string cores = lida(jpegCmyk());
  ASSERT_EQ(cores.size(), std::string("P6\n8 8\n255\n").size() + 192);
  const auto vermelho = static_cast<unsigned char>(cores[11]);
  const auto verde = static_cast<unsigned char>(cores[12]);
  EXPECT_GT(vermelho, 240);
  EXPECT_LT(verde, 15);
}

TEST_F(ImagensEstranhas, TransparenteFicaSobreBranco) {
  const std::string cores = lida(pngTransparente());
  EXPECT_EQ(cores, std::string("P6\n2 1\n255\n\xFF\xFF\xFF\xFF\0\0", 17));
}

TEST_F(ImagensEstranhas, DaAnimadaVemAPrimeiraFigura) {
  EXPECT_EQ(lida(pngAnimado()), std::string("P6\n2 1\n255\n\xFF\0\0\xFF\0\0", 17));
}

}  // namespace
