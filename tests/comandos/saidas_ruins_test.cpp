#include "entradas_ruins.h"

namespace {

struct SaidasRuins : ComEntradasRuins {};

TEST_P(SaidasRuins, AcabamLogoComUmaLinhaClara) {
  confere(GetParam());
}

// A folder in which nothing may be made.
void soLeitura() {
  std::filesystem::create_directory("fechada");
  std::filesystem::permissions(
      "fechada", std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
}

// A name whose disk is full.
void cheio(const char* nome) {
  std::filesystem::create_symlink("/dev/full", nome);
}

const std::vector<RUIM> semPasta = {
    {"Kernel", [] {}, {"kernel", "kernel.cfg", "sem/k.pgm"}, "Erro abertura arquivo sem/k.pgm"},
    {"KernelPng", [] {}, {"kernel", "kernel.cfg", "sem/k.png"}, "Erro abertura arquivo sem/k.png"},
    {"Correla",
     [] {},
     {"correla", "a.pgm", "kernel.cfg", "sem/b.ho1"},
     "Erro abertura arquivo sem/b.ho1"},
    {"Oldcorrela",
     [] {},
     {"oldcorrela", "a.pgm", "kernel.cfg", "sem/b.ho1"},
     "Erro abertura arquivo sem/b.ho1"},
    {"Filtra", [] {}, {"filtra", "a.pgm", "a.ho1", "sem/b.ho2"}, "Erro abertura arquivo sem/b.ho2"},
    {"Traca", [] {}, {"traca", "a.pgm", "a.ho1", "sem/b.tif"}, "Erro abertura arquivo sem/b.tif"},
    {"Relat", [] {}, {"relat", "a.ho2", "sem/b.rel"}, "Erro abertura sem/b.rel"},
};
INSTANTIATE_TEST_SUITE_P(SemPasta, SaidasRuins, testing::ValuesIn(semPasta), nomeDaLinha);

const std::vector<RUIM> fechadas = {
    {"Kernel",
     soLeitura,
     {"kernel", "kernel.cfg", "fechada/k.pgm"},
     "Erro abertura arquivo fechada/k.pgm",
     "fechada/k.pgm",
     true},
    {"Correla",
     soLeitura,
     {"correla", "a.pgm", "kernel.cfg", "fechada/b.ho1"},
     "Erro abertura arquivo fechada/b.ho1",
     "fechada/b.ho1",
     true},
    {"Filtra",
     soLeitura,
     {"filtra", "a.pgm", "a.ho1", "fechada/b.png"},
     "Erro abertura arquivo fechada/b.png",
     "fechada/b.png",
     true},
    {"Relat",
     soLeitura,
     {"relat", "a.ho2", "fechada/b.rel"},
     "Erro abertura fechada/b.rel",
     "fechada/b.rel",
     true},
    {"ArquivoProtegido",
     [] {
       grava("b.rel", "meu");
       proibe("b.rel");
     },
     {"relat", "a.ho2", "b.rel"},
     "Erro abertura b.rel",
     "",
     true},
    {"ImgDaOldcorrela",
     [] {
       grava("oldcorrela.img", "");
       proibe("oldcorrela.img");
     },
     {"oldcorrela", "a.pgm", "kernel.cfg", "b.ho1"},
     "Erro abertura arquivo oldcorrela.img",
     "b.ho1",
     true},
};
INSTANTIATE_TEST_SUITE_P(Fechada, SaidasRuins, testing::ValuesIn(fechadas), nomeDaLinha);

const std::vector<RUIM> cheias = {
    {"Kernel",
     [] { cheio("k.pgm"); },
     {"kernel", "kernel.cfg", "k.pgm"},
     "Erro gravacao arquivo k.pgm"},
    {"Correla",
     [] { cheio("b.ho1"); },
     {"correla", "a.pgm", "kernel.cfg", "b.ho1"},
     "Erro gravacao arquivo b.ho1"},
    {"Oldcorrela",
     [] { cheio("oldcorrela.img"); },
     {"oldcorrela", "a.pgm", "kernel.cfg", "b.ho1"},
     "Erro gravacao arquivo oldcorrela.img",
     "b.ho1"},
    {"FiltraLista",
     [] { cheio("b.ho2"); },
     {"filtra", "a.pgm", "a.ho1", "b.ho2"},
     "Erro gravacao arquivo b.ho2"},
    {"FiltraImagem",
     [] { cheio("b.jpg"); },
     {"filtra", "a.pgm", "a.ho1", "b.jpg"},
     "Erro gravacao arquivo b.jpg"},
    {"Traca",
     [] { cheio("b.bmp"); },
     {"traca", "a.pgm", "a.ho1", "b.bmp"},
     "Erro gravacao arquivo b.bmp"},
    {"Extraiam",
     [] { cheio("a0000.png"); },
     {"extraiam", "a.pgm", "1"},
     "Erro gravacao arquivo a0000.png",
     "a0001.png"},
    {"Extraicla",
     [] { cheio("02-0001.png"); },
     {"extraicla", "a.pgm", "1", "1", "0"},
     "Erro gravacao arquivo 02-0001.png",
     "01-0000.png"},
    {"Relat", [] { cheio("b.rel"); }, {"relat", "a.ho2", "b.rel"}, "Erro gravacao arquivo b.rel"},
};
INSTANTIATE_TEST_SUITE_P(Cheia, SaidasRuins, testing::ValuesIn(cheias), nomeDaLinha);

const std::vector<RUIM> formatos = {
    {"Desconhecido",
     [] {},
     {"traca", "a.pgm", "a.ho1", "b.xyz"},
     "Erro: Formato de imagem desconhecido b.xyz",
     "b.xyz"},
    {"SemSufixo",
     [] {},
     {"kernel", "kernel.cfg", "k"},
     "Erro: Formato de imagem desconhecido k",
     "k"},
    {"AltoDemaisParaJpeg",
     [] { grava("kernel.cfg", "escoitava 5000 circulo 9"); },
     {"kernel", "kernel.cfg", "k.jpg"},
     "Erro: Imagem nao cabe no formato de k.jpg",
     "k.jpg"},
    {"SaidaEhPasta", [] {}, {"correla", "a.pgm", "kernel.cfg", "."}, "Erro abertura arquivo ."},
};
INSTANTIATE_TEST_SUITE_P(Formato, SaidasRuins, testing::ValuesIn(formatos), nomeDaLinha);

// A run that fails before it writes leaves what was there.
struct SaidasQueFicam : ComEntradasRuins {};

TEST_P(SaidasQueFicam, OArquivoAnteriorNaoMuda) {
  const RUIM& r = GetParam();
  grava(r.saida, "de antes");
  r.prepara();
  const EXECUCAO e = executa(r.args);
  EXPECT_EQ(e.estado, 1);
  confereLinha(e.erro, r.erro);
  EXPECT_EQ(leTudo(r.saida), "de antes");
}

const std::vector<RUIM> ficam = {
    {"Kernel",
     [] { grava("kernel.cfg", "circulo x"); },
     {"kernel", "kernel.cfg", "k.pgm"},
     "Erro: Numero invalido x (kernel.cfg, linha 1)",
     "k.pgm"},
    {"KernelVazio",
     [] { grava("kernel.cfg", ""); },
     {"kernel", "kernel.cfg", "k.png"},
     "Erro: Imagem vazia k.png",
     "k.png"},
    {"Correla",
     [] { corta("a.pgm", 99); },
     {"correla", "a.pgm", "kernel.cfg", "b.ho1"},
     "Erro leitura imagem a.pgm: arquivo incompleto",
     "b.ho1"},
    {"Filtra",
     [] { corta("a.ho1", 60); },
     {"filtra", "a.pgm", "a.ho1", "b.ho2"},
     "Erro: Falta numero no fim do texto (a.ho1, linha 3)",
     "b.ho2"},
    {"Traca",
     [] { corta("a.ho1", 60); },
     {"traca", "a.pgm", "a.ho1", "b.ppm"},
     "Erro: Falta numero no fim do texto (a.ho1, linha 3)",
     "b.ppm"},
    {"TracaFormato",
     [] {},
     {"traca", "a.pgm", "a.ho1", "b.xyz"},
     "Erro: Formato de imagem desconhecido b.xyz",
     "b.xyz"},
    {"Extraiam",
     [] {},
     {"extraiam", "a.pgm", "1e300"},
     "Erro: Forma grande demais...",
     "a0000.png"},
    {"Relat",
     [] { grava("a.ho2", "1\n0 q 1 1 1e9 1e9 0\n"); },
     {"relat", "a.ho2", "b.rel"},
     "Erro: Area fora do intervalo q 1e+09 1e+09 (a.ho2, registro 0)",
     "b.rel"},
};
INSTANTIATE_TEST_SUITE_P(Fica, SaidasQueFicam, testing::ValuesIn(ficam), nomeDaLinha);

}  // namespace
