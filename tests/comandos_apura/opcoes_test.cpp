#include "cenario.h"

namespace {

using TEXTOS = std::vector<std::string>;

std::string letras(const std::string& csv) {
  std::string s;
  for (std::size_t i = csv.find('\n'); i + 1 < csv.size(); i = csv.find('\n', i + 1)) {
    s += csv[csv.find(',', i) + 1];
  }
  return s;
}

TEST_F(Apura, FamiliasDizemAsLetrasPossiveis) {
  const std::string e = letras(feito({"--familias", "e"}));
  EXPECT_FALSE(e.empty());
  EXPECT_EQ(e.find_first_not_of('e'), std::string::npos) << e;
  const std::string cr = letras(feito({"--familias=cr"}));
  EXPECT_FALSE(cr.empty());
  EXPECT_EQ(cr.find_first_not_of("cr"), std::string::npos) << cr;
}

TEST_F(Apura, TamanhosDeixamForaOsOutros) {
  EXPECT_EQ(linhas(feito({"--tamanhos", "10-40"})), 4U);
  EXPECT_EQ(linhas(feito({"--tamanhos", "17-40"})), 3U);  // without the disc of 14.4
  EXPECT_EQ(linhas(feito({"--tamanhos", "5-17"})), 2U);
  EXPECT_EQ(linhas(feito({"--tamanhos", "100-1e3"})), 1U);
}

TEST_F(Apura, SensibilidadeVaiDePoucosAMuitos) {
  const std::size_t poucos = linhas(feito({"--sensibilidade", "0"}));
  const std::size_t usual = linhas(feito({}));
  const std::size_t muitos = linhas(feito({"--sensibilidade", "1"}));
  EXPECT_LE(poucos, usual);
  EXPECT_LE(usual, muitos);
  EXPECT_EQ(feito({"--sensibilidade", "0.5"}), feito({}));
}

TEST_F(Apura, SobreposicaoZeroNaoDeixaGraosSeCobrirem) {
  cv::Mat_<unsigned char> foto(80, 120, 200);
  for (int l = 0; l < 80; ++l) {
    for (int c = 0; c < 120; ++c) {
      const bool um = (l - 40) * (l - 40) + (c - 50) * (c - 50) <= 225;
      const bool dois = (l - 40) * (l - 40) + (c - 72) * (c - 72) <= 225;
      if (um || dois) foto(l, c) = 60;
    }
  }
  grava("foto.pgm", pgm(foto));
  grava("lista.ho1", listaHo({{0.5F, 'c', 40, 50, 30, 30, 0}, {0.5F, 'c', 40, 72, 30, 30, 0}}));
  EXPECT_EQ(linhas(feito({"--sensibilidade", "1", "--sobreposicao", "0.5"})), 3U);
  EXPECT_EQ(linhas(feito({"--sensibilidade", "1", "--sobreposicao", "0"})), 2U);
}

TEST_F(Apura, SemLetrasFicaAFormaDaLista) {
  grava("lista.ho1", listaHo({{0.5F, 'q', 30, 35, 18, 18, 0}}));
  EXPECT_EQ(letras(feito({"--sem-letras", "--sensibilidade", "1"})), "q");
  EXPECT_EQ(letras(feito({"--sensibilidade", "1"})), "c");
}

TEST_F(Apura, InverteAchaGraosClaros) {
  grava("clara.pgm", pgm(cv::Mat_<unsigned char>(255 - fotoDeGraos())));
  const std::string escuros = feito({});
  EXPECT_EQ(feito({"--inverte"}, "g.csv", "clara.pgm"), escuros);
  EXPECT_EQ(feito({"-i"}, "g.csv", "clara.pgm"), escuros);
  EXPECT_NE(feito({}, "g.csv", "clara.pgm"), escuros);
}

TEST_F(Apura, NomesInglesesFazemOMesmo) {
  const std::string pt =
      feito({"--familias", "cq", "--tamanhos", "5-80", "--sobreposicao", "0.2", "--sensibilidade",
             "0.6", "--sem-letras", "--idioma", "en", "--fios", "1"});
  EXPECT_EQ(feito({"--families", "cq", "--sizes", "5-80", "--overlap", "0.2", "--sensitivity",
                   "0.6", "--keep-letters", "--language", "en", "--threads", "1"}),
            pt);
}

TEST_F(Apura, QuietoSoDizErros) {
  const TEXTOS nomes = {"foto.pgm", "lista.ho1", "g.csv"};
  EXPECT_EQ(rodaApura(nomes).saida, "3 graos de 6 deteccoes em g.csv\n");
  for (const char* opcao : {"--quieto", "--quiet"}) {
    TEXTOS args = nomes;
    args.insert(args.begin(), opcao);
    const CORRIDA c = rodaApura(args);
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.saida, "");
  }
}

TEST_F(Apura, AjudaEVersao) {
  for (const char* opcao : {"-h", "--ajuda", "--help"}) {
    const CORRIDA c = rodaApura({opcao});
    EXPECT_EQ(c.estado, 0);
    for (const char* nome : {"--familias", "--tamanhos", "--sobreposicao", "--sensibilidade",
                             "--sem-letras", "--inverte", "--idioma", "--quieto", "-j"}) {
      EXPECT_NE(c.saida.find(nome), std::string::npos) << nome;
    }
  }
  EXPECT_TRUE(
      rodaApura({"--help"}, "", "LC_ALL=de_DE").saida.starts_with("vorplex-apura [options]"));
  const CORRIDA en = rodaApura({"--help", "--language", "en"});
  for (const char* nome : {"--families", "--sizes", "--overlap", "--sensitivity", "--keep-letters",
                           "--invert", "--language", "--quiet", "-j"}) {
    EXPECT_NE(en.saida.find(nome), std::string::npos) << nome;
  }
  for (const char* opcao : {"-V", "--versao", "--version"}) {
    EXPECT_EQ(rodaApura({opcao}).saida, "vorplex-apura " VORPLEX_VERSAO "\n");
  }
}

TEST_F(Apura, UsoErradoTerminaEm2ComUmaDica) {
  const TEXTOS nomes = {"foto.pgm", "lista.ho1", "g.csv"};
  const std::vector<std::pair<TEXTOS, std::string>> casos = {
      {{"--familias", "cx"}, "Familias invalidas cx"},
      {{"--familias", ""}, "Familias invalidas"},
      {{"--tamanhos", "80-5"}, "Tamanhos invalidos 80-5"},
      {{"--tamanhos", "5"}, "Tamanhos invalidos 5"},
      {{"--tamanhos", "5-inf"}, "Tamanhos invalidos 5-inf"},
      {{"--tamanhos", "nan-5"}, "Tamanhos invalidos nan-5"},
      {{"--sobreposicao", "1.5"}, "Sobreposicao invalida 1.5"},
      {{"--sobreposicao", "nan"}, "Sobreposicao invalida nan"},
      {{"--sensibilidade", "-0.1"}, "Sensibilidade invalida -0.1"},
      {{"--sensibilidade", "muita"}, "Sensibilidade invalida muita"},
      {{"-j", "0"}, "Numero de fios invalido 0"},
      {{"-j", "2x"}, "Numero de fios invalido 2x"},
      {{"--idioma", "fr"}, "Idioma invalido fr"},
      {{"--nada"}, "Opcao desconhecida --nada"},
      {{"-x"}, "Opcao desconhecida -x"},
      {{"--quieto=1"}, "A opcao nao leva valor: --quieto=1"},
      {{"mais"}, "Argumento a mais: g.csv"}};
  for (const auto& [opcoes, texto] : casos) {
    TEXTOS args = opcoes;
    args.insert(args.end(), nomes.begin(), nomes.end());
    const CORRIDA c = rodaApura(args);
    EXPECT_EQ(c.estado, 2) << texto;
    EXPECT_EQ(c.erro.find("Erro: " + texto), 0U) << c.erro;
    EXPECT_NE(c.erro.find("\n(vorplex-apura --ajuda mostra as opcoes)\n"), std::string::npos);
    EXPECT_EQ(c.saida, "");
    EXPECT_FALSE(existe("g.csv"));
  }
  EXPECT_EQ(rodaApura({}).estado, 2);
  EXPECT_NE(rodaApura({"foto.pgm"}).erro.find("Falta a lista"), std::string::npos);
  EXPECT_NE(rodaApura({"foto.pgm", "lista.ho1"}).erro.find("Falta o arquivo de saida"),
            std::string::npos);
  EXPECT_NE(rodaApura({"--language", "en", "-j"}).erro.find("Error: -j lacks its value\n(vorplex"),
            std::string::npos);
}

TEST_F(Apura, DepoisDeDoisTracosTudoEhNome) {
  std::filesystem::rename("foto.pgm", "-i");
  EXPECT_EQ(rodaApura({"--", "-i", "lista.ho1", "g.csv"}).estado, 0);
  EXPECT_EQ(linhas(leTudo("g.csv")), 4U);
}

}  // namespace
