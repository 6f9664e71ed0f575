#include <gtest/gtest.h>

#include <csignal>

#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "confere.h"

namespace {

const std::string usoRelat = "Relat ent.ho2 sai.rel\n";
const std::string vazio = "Circulos:\n  area  quant\nRetangulos e quadrados:\n  area  quant\n";

std::string lendo(const std::string& nome, int quantos) {
  return cv::format("Lendo %s...\nNumero de maximos locais originais=%d\n", nome.c_str(), quantos);
}

MAXLOCAL forma(char letra, double d1, double d2) {
  return {0.5F, letra, 10, 10, d1, d2, 0};
}

TEST(ComandoRelat, NumeroErradoDeArgumentosMostraOUso) {
  const PASTA pasta;
  grava("a.ho2", listaHo({}));
  const std::string erro = "Erro: Numero de argumentos invalido";
  confereErro(executa({"relat"}), usoRelat, erro);
  confereErro(executa({"relat", "a.ho2"}), usoRelat, erro);
  confereErro(executa({"relat", "a.ho2", "b.rel", "extra"}), usoRelat, erro);
  EXPECT_FALSE(existe("b.rel"));
}

TEST(ComandoRelat, CirculosEQuadradosEmDuasTabelas) {
  const PASTA pasta;
  grava("a.ho2",
        listaHo({forma('c', 20, 20), forma('q', 20, 20), forma('c', 40, 40), forma('c', 20, 20),
                 forma('q', 20, 20), forma('e', 20, 20), forma('q', 20, 20)}));
  confereSucesso(executa({"Relat", "a.ho2", "b.rel"}), lendo("a.ho2", 7));
  EXPECT_EQ(leTudo("b.rel"),
            "Circulos:\n"
            "  area  quant\n"
            "   314      2\n"
            "  1257      1\n"
            "Retangulos e quadrados:\n"
            "  area  quant\n"
            "   400      3\n");
}

TEST(ComandoRelat, SemRegistrosSoAsQuatroLinhasFixas) {
  const PASTA pasta;
  grava("a.ho2", listaHo({}));
  confereSucesso(executa({"relat", "a.ho2", "b.rel"}), lendo("a.ho2", 0));
  EXPECT_EQ(leTudo("b.rel"), vazio);
}

TEST(ComandoRelat, SoElipsesDaAsMesmasQuatroLinhasEContaTodas) {
  const PASTA pasta;
  grava("a.ho2", listaHo({forma('e', 20, 10), forma('e', 30, 10), forma('y', 5, 5)}));
  confereSucesso(executa({"relat", "a.ho2", "b.rel"}), lendo("a.ho2", 3));
  EXPECT_EQ(leTudo("b.rel"), vazio);
}

TEST(ComandoRelat, AreasGrandesAlargamAColuna) {
  const PASTA pasta;
  grava("a.ho2", listaHo({forma('r', 1000, 1000), forma('c', 2000, 0), forma('q', 999, 1000)}));
  confereSucesso(executa({"relat", "a.ho2", "b.rel"}), lendo("a.ho2", 3));
  EXPECT_EQ(leTudo("b.rel"),
            "Circulos:\n"
            "  area  quant\n"
            "3141593      1\n"
            "Retangulos e quadrados:\n"
            "  area  quant\n"
            "999000      1\n"
            "1000000      1\n");
}

TEST(ComandoRelat, NomesComEspacosAcentosEPontos) {
  const PASTA pasta;
  std::filesystem::create_directory("p a.s");
  grava("p a.s/gr\xC3\xA3os.1.ho2", listaHo({forma('c', 1, 1)}));
  confereSucesso(executa({"relat", "p a.s/gr\xC3\xA3os.1.ho2", "p a.s/\xC3\xA1rea"}),
                 lendo("p a.s/gr\xC3\xA3os.1.ho2", 1));
  EXPECT_EQ(leTudo("p a.s/\xC3\xA1rea").substr(0, 38), "Circulos:\n  area  quant\n     1      1\n");
}

TEST(ComandoRelat, ListaQueFaltaOuMaFormadaEhErroSemRelatorio) {
  const PASTA pasta;
  confereErro(executa({"relat", "nao.ho2", "b.rel"}), "Lendo nao.ho2...\n",
              "Erro abertura arquivo nao.ho2");
  grava("a.ho2", "1\n//\n0.5 c um 1 1 1 0\n");
  const EXECUCAO e = executa({"relat", "a.ho2", "b.rel"});
  EXPECT_EQ(e.estado, 1);
  EXPECT_EQ(e.saida, titulo + "Lendo a.ho2...\n");
  EXPECT_TRUE(e.erro.starts_with("Erro: Numero invalido um")) << e.erro;
  EXPECT_FALSE(existe("b.rel"));
}

TEST(ComandoRelat, ContagemImpossivelTerminaOProcesso) {
  const PASTA pasta;
  for (const char* contagem : {"-1\n", "107374183\n"}) {
    grava("a.ho2", contagem);
    const EXECUCAO e = executa({"relat", "a.ho2", "b.rel"}, {}, 0);
    EXPECT_EQ(e.sinal, SIGABRT);
    EXPECT_EQ(e.saida, titulo + "Lendo a.ho2...\n");
    EXPECT_NE(e.erro.find("vector::reserve"), std::string::npos) << e.erro;
  }
}

TEST(ComandoRelat, AreaQueNaoCabeEhErro) {
  const PASTA pasta;
  grava("a.ho2", listaHo({forma('q', 1e6, 1e6)}));
  confereErro(executa({"relat", "a.ho2", "b.rel"}), lendo("a.ho2", 1),
              "Erro: Area fora do intervalo q 1e+06 1e+06 (a.ho2, registro 0)");
  EXPECT_FALSE(existe("b.rel"));
}

TEST(ComandoRelat, RelatorioQueNaoSePodeGravarEhErro) {
  const PASTA pasta;
  grava("a.ho2", listaHo({forma('c', 20, 20)}));
  confereErro(executa({"relat", "a.ho2", "sem/b.rel"}), lendo("a.ho2", 1),
              "Erro abertura sem/b.rel");
  confereErro(executa({"relat", "a.ho2", "/dev/full"}), lendo("a.ho2", 1),
              "Erro gravacao arquivo /dev/full");
}

}  // namespace
