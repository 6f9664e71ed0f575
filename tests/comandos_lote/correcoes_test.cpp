#include <sstream>

#include "cenario.h"

namespace {

// The rows of a table, and a field of one.
std::vector<std::vector<std::string>> tabela(const std::string& nome) {
  std::istringstream texto(leTudo(nome));
  std::vector<std::vector<std::string>> v;
  for (std::string linha; std::getline(texto, linha);) {
    std::istringstream campos(linha);
    std::vector<std::string> r;
    for (std::string campo; std::getline(campos, campo, ',');) r.push_back(campo);
    v.push_back(r);
  }
  return v;
}

// The checksum that a page tells of a photograph.
std::string somaDa(const std::string& nome) {
  const std::string pagina = leTudo("resultado/relatorio.html");
  const std::size_t foto = pagina.find("\"nome\":\"" + nome + "\"");
  const std::size_t soma = pagina.find("\"soma\":\"", foto) + 8;
  return pagina.substr(soma, 16);
}

// A correction of the grain in a row of graos.csv of a photograph.
std::string correcao(const std::string& gesto, const std::vector<std::string>& r) {
  return "{\"gesto\": \"" + gesto + "\", \"forma\": \"" + r[1] + "\", \"linha\": " + r[3] +
         ", \"coluna\": " + r[4] + ", \"d1\": " + r[5] + ", \"d2\": " + r[6] +
         ", \"angulo\": " + r[7] + "}";
}

std::string arquivo(const std::string& soma, const std::string& correcoes) {
  return "{\"formato\": \"vorplex correcoes 1\", \"fotos\": [{\"soma\": \"" + soma +
         "\", \"nome\": \"qualquer\", \"correcoes\": [" + correcoes + "]}]}";
}

TEST_F(Lote, CorrecoesValemPeloConteudoDaFotografia) {
  ASSERT_EQ(rodaLote({"kernel.cfg", "fotos"}).estado, 0);
  const auto antes = tabela("resultado/f0/graos.csv");
  ASSERT_EQ(antes.size(), 4U);
  const std::string outra = leTudo("resultado/f1/graos.csv");
  grava("c.json",
        arquivo(somaDa("f0"), correcao("rejeita", antes[2]) + "," + correcao("rejeita", antes[3]) +
                                  "," + correcao("desenha", antes[3])));
  std::filesystem::rename("fotos/f0.pgm", "fotos/renomeada.pgm");
  const CORRIDA c = rodaLote({"--correcoes", "c.json", "kernel.cfg", "fotos"});
  ASSERT_EQ(c.estado, 0) << c.erro;
  EXPECT_NE(
      c.saida.find("Corrigido a mao: rejeitados 2, trazidos de volta 0, desenhados 1, sem par 0"),
      std::string::npos)
      << c.saida;
  const auto depois = tabela("resultado/renomeada/graos.csv");
  ASSERT_EQ(depois.size(), 3U);
  EXPECT_EQ(depois[1], antes[1]);
  EXPECT_EQ(depois[2][1], antes[3][1]);
  EXPECT_NEAR(std::stod(depois[2][5]), std::stod(antes[3][5]), 0.2);
  EXPECT_EQ(leTudo("resultado/f1/graos.csv"), outra);
  const std::string pagina = leTudo("resultado/relatorio.html");
  EXPECT_NE(pagina.find("\"correcoes\":{\"rejeita\":2,\"recupera\":0,\"desenha\":1,\"semPar\":0}"),
            std::string::npos);
  // Done already, with the same corrections; without them all is as it was.
  const CORRIDA pronta = rodaLote({"--correcoes", "c.json", "kernel.cfg", "fotos"});
  EXPECT_NE(pronta.saida.find("ja prontas 2"), std::string::npos) << pronta.saida;
  EXPECT_NE(pronta.saida.find("rejeitados 2, "), std::string::npos) << pronta.saida;
  ASSERT_EQ(rodaLote({"kernel.cfg", "fotos"}).estado, 0);
  EXPECT_EQ(tabela("resultado/renomeada/graos.csv"), antes);
}

TEST_F(Lote, CorrecoesDeOutrasFotografiasSaoDitas) {
  grava("c.json", arquivo("0000000000000000", ""));
  const CORRIDA c = rodaLote({"--correcoes", "c.json", "kernel.cfg", "fotos/f0.pgm"});
  EXPECT_EQ(c.estado, 0);
  EXPECT_TRUE(
      c.erro.starts_with("Aviso: ha correcoes de 1 fotografias que nao estao nesta corrida\n"))
      << c.erro;
}

TEST_F(Lote, CorrecoesRuinsSaoRecusadasAntesDeTudo) {
  grava("c.json", "{}");
  const CORRIDA c = rodaLote({"--correcoes", "c.json", "kernel.cfg", "fotos"});
  EXPECT_EQ(c.estado, 2);
  EXPECT_EQ(c.erro, "Erro: c.json: Correcoes invalidas: arquivo sem formato\n");
  EXPECT_FALSE(std::filesystem::exists("resultado"));
  const CORRIDA ingles =
      rodaLote({"--language", "en", "--corrections", "c.json", "kernel.cfg", "fotos"});
  EXPECT_EQ(ingles.erro.substr(0, 36), "Error: c.json: Invalid corrections: ");
  EXPECT_EQ(rodaLote({"--correcoes", "nada.json", "kernel.cfg", "fotos"}).estado, 2);
  const CORRIDA classico = rodaLote(comando({"--correcoes", "c.json", "fotos"}));
  EXPECT_EQ(classico.estado, 2);
  EXPECT_NE(classico.erro.find("--correcoes pertence ao metodo apurado"), std::string::npos);
}

TEST_F(Lote, CadaFotografiaTemOSeuGrupoESuaEscala) {
  cv::Mat_<unsigned char> negativo(imagem(1).size());
  cv::bitwise_not(imagem(1), negativo);
  grava("fotos/f1.pgm", pgm(negativo));
  grava("g.csv",
        "foto,grupo,escala,polaridade\nf0.pgm,\"rio, norte\",0.5mm,\nf1,sul,0.1cm,claros\n");
  const CORRIDA c = rodaLote({"--grupos", "g.csv", "kernel.cfg", "fotos"});
  ASSERT_EQ(c.estado, 0) << c.erro;
  const std::string pagina = leTudo("resultado/relatorio.html");
  EXPECT_NE(pagina.find("\"grupo\":\"rio, norte\",\"lado\":0.5,"), std::string::npos);
  EXPECT_NE(pagina.find("\"grupo\":\"sul\",\"lado\":1,"), std::string::npos);
  const auto f0 = tabela("resultado/f0/graos.csv");
  const auto f1 = tabela("resultado/f1/graos.csv");
  ASSERT_EQ(f0.size(), 4U);
  ASSERT_EQ(f1.size(), 4U) << "bright grains";
  const auto d1 = [](const std::vector<std::vector<std::string>>& t, const std::string& nome) {
    const auto k = std::find(t[0].begin(), t[0].end(), nome) - t[0].begin();
    return std::stod(t[1][static_cast<std::size_t>(k)]);
  };
  EXPECT_NEAR(d1(f0, "d1_mm"), 0.5 * d1(f0, "d1_px"), 1e-9);
  EXPECT_NEAR(d1(f1, "d1_mm"), d1(f1, "d1_px"), 1e-9);
}

TEST_F(Lote, PastasSaoGruposETabelasRuinsSaoRecusadas) {
  std::filesystem::create_directories("areia/norte");
  std::filesystem::copy_file("fotos/f0.pgm", "areia/norte/a.pgm");
  ASSERT_EQ(rodaLote({"--grupos", "pastas", "kernel.cfg", "fotos", "areia/norte"}).estado, 0);
  const std::string pagina = leTudo("resultado/relatorio.html");
  EXPECT_NE(pagina.find("\"grupo\":\"fotos\""), std::string::npos);
  EXPECT_NE(pagina.find("\"grupo\":\"norte\""), std::string::npos);
  const auto recusa = [](const std::string& csv) {
    grava("g.csv", csv);
    const CORRIDA c = rodaLote({"--grupos", "g.csv", "kernel.cfg", "fotos"});
    EXPECT_EQ(c.estado, 2);
    return c.erro;
  };
  EXPECT_EQ(recusa(""), "Erro: g.csv: Grupos: tabela vazia\n");
  EXPECT_EQ(recusa("a,b\n"),
            "Erro: g.csv: Grupos, linha 1: a primeira deve ser foto,grupo,escala,polaridade\n");
  EXPECT_EQ(recusa("foto,grupo\nf9,a\n"),
            "Erro: g.csv: Grupos, linha 2: nenhuma fotografia e' f9\n");
  EXPECT_EQ(recusa("foto,grupo\nf0,a\nf0.pgm,b\n"),
            "Erro: g.csv: Grupos, linha 3: a fotografia ja tem uma linha: f0.pgm\n");
  EXPECT_EQ(recusa("foto,grupo\nf0,\n"), "Erro: g.csv: Grupos, linha 2: grupo sem nome\n");
  EXPECT_EQ(recusa("foto,grupo,escala,polaridade\nf0,a,,azuis\n"),
            "Erro: g.csv: Grupos, linha 2: polaridade azuis nao e' escuros nem claros\n");
  EXPECT_NE(recusa("foto,grupo,escala\nf0,a,1mm\n").find("Grupos: sem escala: "),
            std::string::npos);
  EXPECT_EQ(recusa("foto,grupo\nf0,\"a\n"), "Erro: g.csv: CSV, linha 2: aspas que nao fecham\n");
}

}  // namespace
