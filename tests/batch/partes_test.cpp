#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <new>
#include <opencv2/core.hpp>
#include <set>

#include "apoio/pasta.h"
#include "batch/avanco.h"
#include "batch/obra/cabecalho.h"
#include "batch/obra/estado.h"
#include "batch/obra/soma.h"
#include "batch/processo/processo.h"
#include "batch/processo/recursos.h"
#include "pim/erro.h"
#include "pim/imagem.h"

using namespace exporta;
using namespace batch;

namespace {

TEST(TamanhoNoCabecalho, EhODaImagemEmTodosOsFormatos) {
  const PASTA pasta;
  const cv::Mat_<unsigned char> cinza(37, 301, static_cast<unsigned char>(90));
  const cv::Mat_<pim::VEC3B> cor(37, 301, pim::VEC3B(1, 2, 3));
  for (const char* nome : {"a.pgm", "a.ppm", "a.png", "a.jpg", "a.tif", "a.bmp"}) {
    pim::imp(cinza, nome);
    EXPECT_EQ(tamanhoNoCabecalho(nome), cv::Size(301, 37)) << nome;
    pim::imp(cor, nome);
    EXPECT_EQ(tamanhoNoCabecalho(nome), cv::Size(301, 37)) << nome;
  }
}

TEST(TamanhoNoCabecalho, ComentariosEOutrasOrdensDeBytes) {
  const PASTA pasta;
  grava("a.pbm", "P1 # 5 5\n# 7\n12 # x\n 34 ");
  EXPECT_EQ(tamanhoNoCabecalho("a.pbm"), cv::Size(12, 34));
  const std::string mm(
      "MM\0*\0\0\0\x08\0\x02\x01\0\0\x03\0\0\0\x01\0\x0C\0\0"
      "\x01\x01\0\x04\0\0\0\x01\0\0\0\x22\0\0\0\0",
      38);
  grava("a.tif", mm);
  EXPECT_EQ(tamanhoNoCabecalho("a.tif"), cv::Size(12, 34));
  std::string bmp(54, '\0');
  bmp.replace(0, 2, "BM");
  bmp[18] = 12;
  bmp.replace(22, 4, "\xDE\xFF\xFF\xFF");  // -34: first row uppermost
  grava("a.bmp", bmp);
  EXPECT_EQ(tamanhoNoCabecalho("a.bmp"), cv::Size(12, 34));
}

TEST(TamanhoNoCabecalho, VazioParaOQueNaoOTem) {
  const PASTA pasta;
  std::filesystem::create_directory("pasta.png");
  grava("texto", "isto nao e' imagem");
  grava("vazio", "");
  grava("cortado.png", "\x89PNG\r\n\x1A\n");
  grava("cortado.jpg", "\xFF\xD8\xFF\xE0");
  grava("longe.tif", std::string("II*\0\xFF\xFF\xFF\x7F", 8));
  grava("enorme.pgm", "P5 99999999 99999999 255\n");
  for (const char* nome : {"pasta.png", "texto", "vazio", "cortado.png", "cortado.jpg", "longe.tif",
                           "enorme.pgm", "nenhum", "/dev/zero"}) {
    EXPECT_TRUE(tamanhoNoCabecalho(nome).empty()) << nome;
  }
}

std::string somaDe(std::string_view s) {
  SOMA soma;
  soma.poe(s);
  return soma.texto();
}

TEST(Soma, QualquerMudancaAMuda) {
  const std::string base(1000, 'a');
  std::set<std::string> vistas = {somaDe(base)};
  for (std::size_t i = 0; i < base.size(); ++i) {
    std::string s = base;
    s[i] = 'b';
    EXPECT_TRUE(vistas.insert(somaDe(s)).second) << i;
  }
  for (std::size_t n = 0; n < 30; ++n) {
    EXPECT_TRUE(vistas.insert(somaDe(std::string(n, '\0'))).second) << n;
  }
}

TEST(Soma, OsLimitesEntreTextosContam) {
  SOMA a;
  SOMA b;
  for (const char* s : {"a", "bc"}) a.poe(s);
  for (const char* s : {"ab", "c"}) b.poe(s);
  EXPECT_NE(a.texto(), b.texto());
}

TEST(Soma, DoArquivoSoDependeDoConteudo) {
  const PASTA pasta;
  const std::string grande(1000003, 'x');
  grava("a", grande);
  grava("b", grande);
  grava("c", grande + "x");
  ASSERT_TRUE(somaDoArquivo("a"));
  EXPECT_EQ(somaDoArquivo("a"), somaDoArquivo("b"));
  EXPECT_NE(somaDoArquivo("a"), somaDoArquivo("c"));
  EXPECT_FALSE(somaDoArquivo("nenhum"));
  EXPECT_FALSE(somaDoArquivo("."));
  EXPECT_FALSE(somaDoArquivo("/dev/zero"));
}

TEST(Estado, OQueFoiEscritoEhLido) {
  const PASTA pasta;
  ESTADO e;
  e.completo = true;
  e.origem = {"p", "f", "m"};
  e.rows = 12;
  e.cols = 34;
  e.graos = 56;
  e.arquivos = {{"com  dois espacos'\".ho1", "0123"}, {"graos.csv", "4567"}};
  impEstado(e, ".");
  const auto lido = leEstado(".");
  ASSERT_TRUE(lido);
  EXPECT_TRUE(lido->completo);
  EXPECT_EQ(lido->origem.procura + lido->origem.filtro + lido->origem.medida, "pfm");
  EXPECT_EQ(lido->rows, 12);
  EXPECT_EQ(lido->cols, 34);
  EXPECT_EQ(lido->graos, 56U);
  EXPECT_EQ(lido->arquivos, e.arquivos);
  EXPECT_TRUE(ehPastaDeResultados("."));
}

TEST(Estado, CortadoNaoEhCompleto) {
  const PASTA pasta;
  ESTADO e;
  e.completo = true;
  e.arquivos = {{"graos.csv", "4567"}};
  impEstado(e, ".");
  const std::string todo = leTudo(arquivoDoEstado);
  for (std::size_t n = 0; n + 1 < todo.size(); ++n) {
    grava(arquivoDoEstado, todo.substr(0, n));
    const auto lido = leEstado(".");
    EXPECT_FALSE(lido && lido->completo) << n;
  }
}

TEST(Estado, PastaAlheiaNaoTemEstado) {
  const PASTA pasta;
  EXPECT_FALSE(leEstado("."));
  EXPECT_FALSE(ehPastaDeResultados("."));
  grava(arquivoDoEstado, "outra coisa\n");
  EXPECT_FALSE(leEstado("."));
  EXPECT_FALSE(ehPastaDeResultados("."));
}

TEST(QuantasAoMesmoTempo, TantasQuantosProcessadoresEMemoria) {
  const std::uint64_t giga = std::uint64_t{1} << 30U;
  EXPECT_EQ(quantasAoMesmoTempo(8, 100 * giga, 3e6, 0), 8);
  EXPECT_EQ(quantasAoMesmoTempo(8, giga, 24e6, 0), 1);  // 40 bytes x 24 MP = 0.96 GB each
  EXPECT_EQ(quantasAoMesmoTempo(8, 4 * giga, 24e6, 0), 4);
  EXPECT_EQ(quantasAoMesmoTempo(8, 4 * giga, 24e6, giga), 1);
  EXPECT_EQ(quantasAoMesmoTempo(8, 1000, 24e6, 0), 1);
  EXPECT_EQ(quantasAoMesmoTempo(8, 0, 24e6, 0), 8);  // unknown
  EXPECT_GE(processadores(), 1);
  EXPECT_GT(memoriaLivre(), 0U);
}

TEST(Barra, DizFeitasFalhasRitmoEQuantoResta) {
  AVANCO a;
  a.total = 8;
  a.acabadas = 2;
  a.falharam = 1;
  a.pixelsTotal = 40e6;
  a.pixelsVistos = 10e6;
  a.pixelsFeitos = 10e6;
  EXPECT_EQ(barra(a, 20), "[#####               ] 2/8, falhas: 1, 0.5 MP/s, resta 60 s");
  a.pixelsEmCurso = 10e6;  // half of two that are running
  a.emCurso = 1;
  EXPECT_EQ(barra(a, 20), "[##########          ] 2/8, falhas: 1, 0.5 MP/s, resta 20 s");
  a.idioma = IDIOMA::en;
  a.emCurso = 0;
  a.pixelsTotal = 0;  // by the number of photographs
  EXPECT_EQ(barra(a, 20), "[#####               ] 2/8, failed: 1, 0.5 MP/s, 60 s left");
  a.acabadas = 0;
  EXPECT_EQ(barra(a, 0), "[                    ] 0/8, failed: 1, 0.0 MP/s, ? left");
}

TEST(Duracao, NaUnidadeQueSeLeMelhor) {
  EXPECT_EQ(duracao(0.4), "0 s");
  EXPECT_EQ(duracao(99), "99 s");
  EXPECT_EQ(duracao(150), "3 min");
  EXPECT_EQ(duracao(5940), "99 min");
  EXPECT_EQ(duracao(3 * 3600 + 5 * 60), "3 h 05 min");
}

TEST(Motivo, EhAUltimaLinhaDeErroOuOFim) {
  const auto deFala = [](const std::string& fala) {
    return motivo({1, 0, fala}, "correla", IDIOMA::pt);
  };
  EXPECT_EQ(deFala("Lendo a...\nErro: Um\nErro: Dois x\nfim\n"), "Dois x");
  EXPECT_EQ(deFala("Filtro...\nErro abertura arquivo a\x07\n"), "Erro abertura arquivo a?");
  EXPECT_EQ(deFala("nada\n"), "correla terminou com estado 1");
  EXPECT_EQ(motivo({-1, SIGKILL, "x"}, "traca", IDIOMA::pt),
            "traca terminou pelo sinal 9 (morto, talvez por falta de memoria)");
  EXPECT_EQ(motivo({2, 0, ""}, "traca", IDIOMA::en), "traca ended with status 2");
  EXPECT_EQ(motivo({-1, SIGKILL, "Filtro...\nMedida...\nx"}, "f0", IDIOMA::pt),
            "Medida terminou pelo sinal 9 (morto, talvez por falta de memoria)");
}

TEST(Motivo, DeUmaLinhaLongaEhOComecoEOFim) {
  const auto deFala = [](const std::string& fala) {
    return motivo({1, 0, fala}, "correla", IDIOMA::pt);
  };
  EXPECT_EQ(deFala("Erro: " + std::string(1000, 'x')), std::string(1000, 'x'));
  EXPECT_EQ(deFala("Erro: Palavra " + std::string(30000, 'x') + " fim"),
            "Palavra " + std::string(492, 'x') + "..." + std::string(496, 'x') + " fim");
  std::string acentos;  // never cut within a character
  for (int i = 0; i < 999; ++i) acentos += "\xC3\xA7";
  EXPECT_EQ(deFala("Erro: x" + acentos).find("\xEF\xBF\xBD"), std::string::npos);
}

TEST(ExecutaTarefas, UmaQueCaiNaoLevaAsOutras) {
  std::vector<TERMINO> fins(6);
  TAREFAS t;
  t.quantas = fins.size();
  t.aoMesmoTempo = 2;
  t.faz = [](std::size_t i) {
    std::printf("tarefa %zu\n", i);
    std::fflush(stdout);
    if (i == 1) std::raise(SIGSEGV);
    if (i == 2) throw std::bad_alloc();
    if (i == 3) std::fprintf(stderr, "%s", std::string(200000, 'z').c_str());
    if (i == 5) pim::erro("Erro: Palavra desconhecida ", std::string(300000, 'p'), " no fim");
    return static_cast<int>(i);
  };
  t.acabou = [&](std::size_t i, const TERMINO& fim) { fins[i] = fim; };
  ASSERT_TRUE(executaTarefas(t));
  EXPECT_EQ(fins[0].estado, 0);
  EXPECT_EQ(fins[0].fala, "tarefa 0\n");
  EXPECT_NE(fins[1].estado, 0);
  EXPECT_EQ(fins[2].estado, 1);
  EXPECT_EQ(fins[2].fala, "tarefa 2\nErro: Memoria insuficiente\n");
  EXPECT_EQ(fins[3].estado, 3);
  EXPECT_GE(fins[3].fala.size(), 65536U);
  EXPECT_LE(fins[3].fala.size(), 131072U);
  EXPECT_EQ(fins[4].estado, 4);
  EXPECT_EQ(fins[5].estado, 1);
  EXPECT_TRUE(fins[5].fala.starts_with("tarefa 5\nErro: Palavra desconhecida ppp"));
  EXPECT_TRUE(fins[5].fala.ends_with("ppp no fim\n"));
}

TEST(ExecutaTarefas, OndeEstaoEhDitoEmSeparado) {
  std::vector<std::vector<double>> partes(2);
  std::vector<std::string> falas(2);
  TAREFAS t;
  t.quantas = 2;
  t.faz = [](std::size_t i) {
    anuncia("um");
    anunciaParte(0.25);
    anuncia("dois");
    anunciaParte(i == 0 ? 0.5 : 7);
    return 0;
  };
  t.andou = [&](std::size_t i, double parte) { partes[i].push_back(parte); };
  t.acabou = [&](std::size_t i, const TERMINO& fim) { falas[i] = fim.fala; };
  ASSERT_TRUE(executaTarefas(t));
  ASSERT_FALSE(partes[0].empty() || partes[1].empty());
  EXPECT_EQ(partes[0].back(), 0.5);
  EXPECT_EQ(partes[1].back(), 1);
  EXPECT_EQ(falas, (std::vector<std::string>{"um...\ndois...\n", "um...\ndois...\n"}));
}

}  // namespace
