#include "corrige/correcoes.h"

#include <gtest/gtest.h>

#include "apoio/erros.h"

using namespace corrige;

namespace {

constexpr const char* boa = R"({"formato": "vorplex correcoes 1", "fotos": [
  {"soma": "0123456789abcdef", "nome": "areia \"fina\".jpg", "correcoes": [
    {"gesto": "rejeita", "forma": "c", "linha": 10.5, "coluna": 20, "d1": 30, "d2": 30, "angulo": 0},
    {"gesto": "desenha", "forma": "r", "linha": 1e2, "coluna": -3, "d1": 40, "d2": 20, "angulo": 15}]},
  {"soma": "ffffffffffffffff", "nome": "", "correcoes": []}]})";

// A file with one correction, `de` in it replaced.
std::string com(const std::string& de, const std::string& para) {
  std::string s = boa;
  const std::size_t i = s.find(de);
  EXPECT_NE(i, std::string::npos) << de;
  return s.replace(i, de.size(), para);
}

std::string recusa(const std::string& texto) {
  const std::string comeco = "Erro: Correcoes invalidas: ";
  const std::string erro = erroDe([&] { leCorrecoes(texto); });
  return erro.compare(0, comeco.size(), comeco) == 0 ? erro.substr(comeco.size()) : "nao: " + erro;
}

TEST(Correcoes, SaoLidasNaOrdemEmQueForamFeitas) {
  const std::vector<CORRECOES> v = leCorrecoes(boa);
  ASSERT_EQ(v.size(), 2U);
  EXPECT_EQ(v[0].soma, "0123456789abcdef");
  EXPECT_EQ(v[0].nome, "areia \"fina\".jpg");
  ASSERT_EQ(v[0].lista.size(), 2U);
  EXPECT_EQ(v[0].lista[0].gesto, GESTO::rejeita);
  const CORRECAO& c = v[0].lista[1];
  EXPECT_EQ(c.gesto, GESTO::desenha);
  EXPECT_EQ(c.figura.forma, 'r');
  EXPECT_EQ(c.figura.l, 100);
  EXPECT_EQ(c.figura.c, -3);
  EXPECT_EQ(c.figura.d1, 40);
  EXPECT_EQ(c.figura.d2, 20);
  EXPECT_EQ(c.figura.ang, 15);
  EXPECT_TRUE(v[1].lista.empty());
}

TEST(Correcoes, EscritasELidasSaoAsMesmas) {
  const std::vector<CORRECOES> v = leCorrecoes(boa);
  const std::string texto = emTexto(v);
  const std::vector<CORRECOES> outras = leCorrecoes(texto);
  EXPECT_EQ(emTexto(outras), texto);
  EXPECT_EQ(outras[0].nome, v[0].nome);
  const std::vector<CORRECOES> nenhuma;
  EXPECT_EQ(emTexto(leCorrecoes(emTexto(nenhuma))), emTexto(nenhuma));
}

TEST(Correcoes, CirculosEQuadradosTemUmTamanhoSo) {
  const auto v =
      leCorrecoes(com(R"("d1": 30, "d2": 30, "angulo": 0)", R"("d1": 30, "d2": 7, "angulo": 9)"));
  EXPECT_EQ(v[0].lista[0].figura.d2, 30);
  EXPECT_EQ(v[0].lista[0].figura.ang, 0);
}

TEST(Correcoes, SaoAchadasPelaSoma) {
  const std::vector<CORRECOES> v = leCorrecoes(boa);
  EXPECT_EQ(acha(v, "ffffffffffffffff"), &v[1]);
  EXPECT_EQ(acha(v, "0000000000000000"), nullptr);
}

TEST(Correcoes, TudoOMaisEhRecusado) {
  EXPECT_EQ(recusa("[]"), "arquivo nao e' um objeto");
  EXPECT_EQ(recusa("{}"), "arquivo sem formato");
  EXPECT_EQ(recusa(com("correcoes 1", "correcoes 2")), "formato nao e' vorplex correcoes 1");
  EXPECT_EQ(recusa(com("\"fotos\"", "\"mais\": 1, \"fotos\"")), "arquivo com membro desconhecido");
  EXPECT_EQ(recusa(com("\"soma\": \"0123456789abcdef\"", "\"soma\": 5")), "soma nao e' um texto");
  EXPECT_EQ(recusa(com("0123456789abcdef", "0123456789ABCDEF")),
            "soma nao tem 16 digitos hexadecimais");
  EXPECT_EQ(recusa(com("ffffffffffffffff", "0123456789abcdef")),
            "fotografia repetida 0123456789abcdef");
  EXPECT_EQ(recusa(com("rejeita", "apaga")), "gesto desconhecido");
  EXPECT_EQ(recusa(com("\"forma\": \"c\"", "\"forma\": \"x\"")), "forma desconhecida");
  EXPECT_EQ(recusa(com("\"d1\": 30", "\"d1\": 0")), "d1 fora dos limites");
  EXPECT_EQ(recusa(com("\"d1\": 30", "\"d1\": 1e7")), "d1 fora dos limites");
  EXPECT_EQ(recusa(com("\"d1\": 30", "\"d1\": \"30\"")), "d1 nao e' um numero");
  EXPECT_EQ(recusa(com("\"linha\": 10.5,", "")), "correcao sem linha");
  EXPECT_EQ(recusa(com("\"correcoes\": []", "\"correcoes\": {}")), "correcoes nao e' uma lista");
}

TEST(Correcoes, TextoQueNaoEhJsonEhRecusado) {
  for (const std::string s :
       {"", "{", "{\"formato\": nan}", "{} {}", "\xFF", "{\"formato\": \"\xFF\"}"}) {
    EXPECT_EQ(recusa(s).find("nao: "), std::string::npos) << s;
  }
  EXPECT_NE(recusa(com("10.5", "1e999")).find("number"), std::string::npos);
}

TEST(Correcoes, ProfundidadeETamanhoTemLimite) {
  EXPECT_EQ(recusa(std::string(1'000'000, '[')), "aninhadas demais");
  EXPECT_EQ(recusa(std::string(maiorTexto + 1, ' ')), "mais de 16 MiB");
  std::string muitas =
      "{\"formato\": \"vorplex correcoes 1\", \"fotos\": [{\"soma\": "
      "\"0123456789abcdef\", \"nome\": \"\", \"correcoes\": [";
  const std::string uma =
      R"({"gesto":"rejeita","forma":"c","linha":1,"coluna":1,"d1":1,"d2":1,"angulo":0})";
  for (std::size_t i = 0; i < maisCorrecoes + 1; ++i) muitas += (i > 0 ? "," : "") + uma;
  EXPECT_EQ(recusa(muitas + "]}]}"), "sao mais de 20000");
}

}  // namespace
