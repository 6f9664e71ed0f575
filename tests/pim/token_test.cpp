#include "pim/token.h"

#include <sys/stat.h>

#include <array>
#include <random>
#include <sstream>
#include <thread>

#include "apoio/erros.h"
#include "apoio/pasta.h"
#include "fabrica.h"
#include "pim/arquivo.h"

using pim::ISTR;

namespace {

pim::ARQUIVO texto(const std::string& conteudo) {
  grava("t.txt", conteudo);
  return pim::abre("t.txt", "rt");
}

// The tokens of a text by splitting lines and words apart.
std::vector<std::string> separa(const std::string& conteudo) {
  std::vector<std::string> tokens;
  std::istringstream linhas(conteudo);
  for (std::string linha; std::getline(linhas, linha);) {
    std::istringstream palavras(linha);
    for (std::string p; palavras >> p && !p.starts_with("//");) tokens.push_back(p);
  }
  return tokens;
}

std::string primeiraPalavra(const std::string& conteudo) {
  const auto f = texto(conteudo);
  const pim::ARQUIVO saida = pim::abre("saida", "wb");
  pim::pulaBrancos(f.get());
  pim::copiaPalavra(f.get(), saida.get());
  std::fflush(saida.get());
  return leTudo("saida");
}

std::string sorteiaTexto(std::mt19937& sorteio) {
  static const std::array<const char*, 16> pecas = {"a",    "/",  "//", " ",  "\t", "\n",
                                                    "\r\n", "7",  "\f", "\v", "-1", "x//",
                                                    " ",    "\n", "eo", "//c"};
  std::string s;
  for (auto n = sorteio() % 40; n > 0; --n) s += pecas[sorteio() % pecas.size()];
  return s;
}

}  // namespace

TEST(LeStr, FluxoVazioDaEofLogo) {
  ISTR s;
  s.arg2str(0, nullptr);
  EXPECT_EQ(pim::leStr(s), "eof");
  EXPECT_EQ(pim::leStr(s), "eof");
}

TEST(LeStr, ArquivoVazioOuSoDeBrancosDaEof) {
  const PASTA pasta;
  for (const char* conteudo : {"", " \t\r\n\n", "// so comentario", "//x\n  //y\n"}) {
    const auto f = texto(conteudo);
    EXPECT_EQ(pim::leStr(f.get()), "eof");
    EXPECT_EQ(pim::leStr(f.get()), "eof");
  }
}

TEST(LeStr, ComentarioSoComecaNoInicioDoToken) {
  const PASTA pasta;
  const auto f = texto("a//b //c d\n/ /x //\ne//");
  for (const char* t : {"a//b", "/", "/x", "e//", "eof"}) EXPECT_EQ(pim::leStr(f.get()), t);
}

TEST(LeStr, ComentarioNoFimSemFimDeLinha) {
  ISTR s{"fim //resto"};
  EXPECT_EQ(pim::leStr(s), "fim");
  EXPECT_EQ(pim::leStr(s), "eof");
}

TEST(LeStr, MarcaUtf8SoEhSaltadaNoInicioDoArquivo) {
  const PASTA pasta;
  const std::string marca = "\xEF\xBB\xBF";
  const auto f = texto(marca + "//correl\nok " + marca + "junto\n" + marca + " " + marca + "//x");
  for (const std::string& t : {std::string("ok"), marca + "junto", marca, marca + "//x"}) {
    EXPECT_EQ(pim::leStr(f.get()), t);
  }
  EXPECT_EQ(pim::leStr(f.get()), "eof");
  EXPECT_EQ(pim::leStr(texto(marca + " so").get()), "so");
  EXPECT_EQ(pim::leStr(texto(marca).get()), "eof");
  EXPECT_EQ(pim::leStr(texto(marca + marca + "dupla").get()), marca + "dupla");
  EXPECT_EQ(pim::leStr(texto(" " + marca + "tarde").get()), marca + "tarde");
}

TEST(LeStr, MarcaUtf8NaoEhSaltadaNosParametros) {
  const std::string marca = "\xEF\xBB\xBF";
  ISTR s{marca + "circulo"};
  EXPECT_EQ(pim::leStr(s), marca + "circulo");
}

TEST(LeStr, MarcaUtf8EhSaltadaNumTubo) {
  const PASTA pasta;
  ASSERT_EQ(mkfifo("tubo", 0600), 0);
  std::thread escritor([] { grava("tubo", "\xEF\xBB\xBFok"); });
  const auto f = pim::abre("tubo", "rt");
  escritor.join();
  EXPECT_EQ(pim::leStr(f.get()), "ok");
}

TEST(LeStr, TokenDeQualquerTamanhoEByteNulo) {
  const PASTA pasta;
  const std::string longo(1000000, 'z');
  const std::string nulo("a\0b", 3);
  const auto f = texto(longo + "\n" + nulo + " \xFF");
  EXPECT_EQ(pim::leStr(f.get()), longo);
  EXPECT_EQ(pim::leStr(f.get()), nulo);
  EXPECT_EQ(pim::leStr(f.get()), "\xFF");
}

TEST(LeStr, IgualASeparacaoIngenuaEmTextosSorteados) {
  const PASTA pasta;
  SCOPED_TRACE("seed 77");
  std::mt19937 sorteio(77);
  for (int vez = 0; vez < 500; ++vez) {
    const std::string conteudo = sorteiaTexto(sorteio);
    const auto f = texto(conteudo);
    ISTR s{conteudo};
    for (const std::string& t : separa(conteudo)) {
      ASSERT_EQ(pim::leStr(f.get()), t) << conteudo;
      ASSERT_EQ(pim::leStr(s), t) << conteudo;
    }
    ASSERT_EQ(pim::leStr(f.get()), "eof") << conteudo;
    ASSERT_EQ(pim::leStr(s), "eof") << conteudo;
  }
}

TEST(LeNum, SaltaALinhaInteiraQueComecaComDuasBarras) {
  const PASTA pasta;
  const auto f = texto("//correl forma 1 2 3\n  12 // 13\n//\n-0.5\n1e2");
  int i = 0;
  double d = 0;
  float x = 0;
  pim::leNum(f.get(), i);
  pim::leNum(f.get(), d);
  pim::leNum(f.get(), x);
  EXPECT_EQ(i, 12);
  EXPECT_EQ(d, -0.5);
  EXPECT_EQ(x, 100.0F);
}

TEST(LeNum, FluxoDeParametros) {
  std::array<std::string, 3> args = {"default", "0.25", "3"};
  std::array<char*, 3> v = {args[0].data(), args[1].data(), args[2].data()};
  ISTR s{"velho", 3};
  s.arg2str(3, v.data());
  EXPECT_EQ(s.texto, "default 0.25 3");
  EXPECT_EQ(pim::leStr(s), "default");
  double d = 0;
  pim::leNum(s, d);
  EXPECT_EQ(d, 0.25);
  pim::leNum(s, d);
  EXPECT_EQ(d, 3);
  EXPECT_EQ(erroDe([&] { pim::leNum(s, d); }), "Erro: Falta numero no fim dos parametros");
}

TEST(LeNum, PalavraEmVezDeNumeroTerminaComElaEOLugar) {
  const PASTA pasta;
  const auto f = texto("1\n// comentario\nxis 2");
  int i = 0;
  pim::leNum(f.get(), i);
  EXPECT_EQ(erroDe([&] { pim::leNum(f.get(), i); }), "Erro: Numero invalido xis (linha 3)");
  const auto outro = texto("1\n// comentario\nxis 2");
  pim::leNum(outro.get(), i);
  EXPECT_EQ(erroDe([&] { pim::leNum(outro.get(), i, "t.txt"); }),
            "Erro: Numero invalido xis (t.txt, linha 3)");
  ISTR s{"xis"};
  double d = 0;
  EXPECT_EQ(erroDe([&] { pim::leNum(s, d); }), "Erro: Numero invalido xis");
}

TEST(LeNum, FaltaDeNumeroEInteiroForaDaFaixaSaoErros) {
  const PASTA pasta;
  int i = 0;
  const auto vazio = texto("//so isto\n");
  EXPECT_EQ(erroDe([&] { pim::leNum(vazio.get(), i, "t.txt"); }),
            "Erro: Falta numero no fim do texto (t.txt, linha 2)");
  const auto fracao = texto("1.5");
  EXPECT_EQ(erroDe([&] { pim::leNum(fracao.get(), i); }), "Erro: Numero invalido 1.5 (linha 1)");
  const auto grande = texto("3000000000");
  EXPECT_EQ(erroDe([&] { pim::leNum(grande.get(), i); }),
            "Erro: Numero invalido 3000000000 (linha 1)");
}

TEST(CopiaPalavra, CopiaAPrimeiraPalavraMesmoDeComentario) {
  const PASTA pasta;
  EXPECT_EQ(primeiraPalavra("\n //correl x"), "//correl");
  EXPECT_EQ(primeiraPalavra(" \n"), "");
  EXPECT_EQ(primeiraPalavra("\xEF\xBB\xBF"
                            "1"),
            "\xEF\xBB\xBF"
            "1");
}

TEST(CopiaPalavra, NaoTemLimiteDeTamanho) {
  const PASTA pasta;
  const std::string longa = std::string(3U << 20U, '7') + '\0' + '8';
  EXPECT_EQ(primeiraPalavra(longa + "\t9"), longa);
}

TEST(Lugar, NaoMudaAPosicaoDeLeitura) {
  const PASTA pasta;
  const auto f = texto("a\nb\nc d");
  pim::leStr(f.get());
  pim::leStr(f.get());
  EXPECT_EQ(pim::lugar(f.get(), "n"), " (n, linha 2)");
  EXPECT_EQ(pim::leStr(f.get()), "c");
  EXPECT_EQ(pim::lugar(f.get(), ""), " (linha 3)");
}

TEST(Lugar, TuboNaoTemLinha) {
  const PASTA pasta;
  ASSERT_EQ(mkfifo("tubo", 0600), 0);
  std::thread escritor([] { grava("tubo", "1 2"); });
  const auto f = pim::abre("tubo", "rt");
  escritor.join();
  int i = 0;
  pim::leNum(f.get(), i);
  EXPECT_EQ(i, 1);
  EXPECT_EQ(pim::lugar(f.get(), "tubo"), " (tubo)");
  EXPECT_EQ(pim::lugar(f.get(), ""), "");
}

TEST(LeStr, FalhaDeLeituraEhErroENaoFim) {
  const PASTA pasta;
  grava("t.txt", "x");
  // A file opened for writing only can't be read.
  const pim::ARQUIVO f(std::fopen("t.txt", "a"));
  EXPECT_EQ(erroDe([&] { pim::leStr(f.get()); }), "Erro leitura arquivo");
  EXPECT_EQ(erroDe([&] { pim::pulaBrancos(f.get()); }), "Erro leitura arquivo");
  EXPECT_EQ(erroDe([&] { pim::leStr(f.get(), "t.txt"); }), "Erro leitura arquivo t.txt");
  EXPECT_EQ(erroDe([&] { pim::pulaBrancos(f.get(), "t.txt"); }), "Erro leitura arquivo t.txt");
  EXPECT_EQ(erroDe([&] { pim::copiaPalavra(f.get(), stderr, "t.txt"); }),
            "Erro leitura arquivo t.txt");
  double d = 0;
  EXPECT_EQ(erroDe([&] { pim::leNum(f.get(), d, "t.txt"); }), "Erro leitura arquivo t.txt");
}

TEST(LeStr, PalavraDeMaisDeUmMebibyteEhErro) {
  const PASTA pasta;
  const std::string maior(std::size_t{1} << 20U, 'a');
  EXPECT_EQ(pim::leStr(texto("\n" + maior + " b").get()), maior);
  const auto f = texto("\n" + maior + "a b");
  EXPECT_EQ(erroDe([&] { pim::leStr(f.get(), "t.txt"); }),
            "Erro: Palavra grande demais (t.txt, linha 2)");
}

TEST(LeNum, PalavraLongaEhMostradaEmParte) {
  const PASTA pasta;
  int i = 0;
  const std::string longa(81, 'x');
  EXPECT_EQ(erroDe([&] { pim::leNum(texto(longa).get(), i); }),
            "Erro: Numero invalido " + longa.substr(1) + "... (linha 1)");
  EXPECT_EQ(erroDe([&] { pim::leNum(texto(longa.substr(1)).get(), i); }),
            "Erro: Numero invalido " + longa.substr(1) + " (linha 1)");
  const std::string controles("1\0\x1B[m\xC3\xA1\x7F", 8);
  EXPECT_EQ(erroDe([&] { pim::leNum(texto(controles).get(), i); }),
            "Erro: Numero invalido " + controles + " (linha 1)");
}
