#include <sstream>

#include "cenario.h"

namespace {

MODO comEntrada(const std::string& texto) {
  grava("nomes", texto);
  MODO modo;
  modo.entrada = "nomes";
  return modo;
}

TEST_F(Lote, OTracoLeOsNomesDaEntradaPadrao) {
  grava("fotos/notas.txt", "");
  EXPECT_NE(
      rodaLote(comando({"-"}), comEntrada("fotos/f1.pgm\nfotos/f0.pgm\n")).saida.find("feitas 2,"),
      std::string::npos);
  const std::string nulos("fotos/f1.pgm\0fotos/f0.pgm\0", 26);
  EXPECT_NE(rodaLote(comando({"-"}), comEntrada(nulos)).saida.find("ja prontas 2,"),
            std::string::npos);
  const CORRIDA nada = rodaLote(comando({"-"}), comEntrada("\n"));
  EXPECT_EQ(nada.estado, 2);
  EXPECT_EQ(nada.erro, "Erro: Nenhuma fotografia em -\n");
}

TEST_F(Lote, JsonSaiNaSaidaPadraoEOResumoNaDeErros) {
  grava("fotos/ruim.jpg", "nada");
  const CORRIDA c = rodaLote(comando({"--json", "fotos"}));
  EXPECT_EQ(c.estado, 1);
  EXPECT_TRUE(c.saida.starts_with("{\n  \"fotos\": [\n    {\n      \"foto\": \"f0\",\n"))
      << c.saida;
  EXPECT_TRUE(c.saida.ends_with("  },\n  \"falharam\": [\"ruim\"]\n}\n")) << c.saida;
  EXPECT_NE(c.erro.find("[1/3] "), std::string::npos);
  EXPECT_NE(c.erro.find("Resultados em resultado"), std::string::npos);
  // The names and numbers are those of the table.
  const std::string tabela = leTudo("resultado/resumo.csv");
  std::istringstream nomes(tabela.substr(0, tabela.find('\n')));
  std::istringstream valores(tabela.substr(tabela.rfind("\ntotal,") + 1));
  const std::string total = c.saida.substr(c.saida.find("\"total\": {"));
  std::string nome;
  std::string valor;
  while (std::getline(nomes, nome, ',') && std::getline(valores, valor, ',')) {
    if (valor.ends_with('\n')) valor.pop_back();
    if (valor.starts_with('"')) break;  // a text that may hold commas
    const bool palavra = valor.find_first_not_of("0123456789.-e") != std::string::npos;
    if (valor.empty()) continue;  // null, or a text without letters
    const std::string texto = palavra ? '"' + valor + '"' : valor;
    EXPECT_NE(total.find("\n    \"" + nome + "\": " + texto), std::string::npos) << nome;
  }
  const CORRIDA quieta = rodaLote(comando({"--json", "--quieto", "fotos/f0.pgm", "fotos/f1.pgm"}));
  EXPECT_TRUE(quieta.erro.starts_with("Aviso: 6 graos")) << quieta.erro;  // and nothing else
  EXPECT_EQ(std::count(quieta.erro.begin(), quieta.erro.end(), '\n'), 1);
  EXPECT_TRUE(quieta.saida.ends_with("\"falharam\": []\n}\n"));
}

TEST_F(Lote, SimulaDizOQueFariaENaoTocaEmNada) {
  CORRIDA c = rodaLote(comando({"--simula", "-j", "2", "fotos/f0.pgm", "fotos/f1.pgm"}));
  EXPECT_EQ(c.estado, 0);
  EXPECT_EQ(c.saida,
            "Fotografias: 2, ao mesmo tempo: 2\nKernels: 9\nf0: a procurar\nf1: a procurar\n"
            "Nada foi feito\n");
  EXPECT_FALSE(existe("resultado"));

  ASSERT_EQ(rodaLote(comando({"fotos/f0.pgm"})).estado, 0);
  const auto antes = arvore("resultado");
  const auto diz = [&](std::vector<std::string> mais) {
    mais.insert(mais.end(), {"--simula", "fotos/f0.pgm"});
    const std::string s = rodaLote(comando(mais)).saida;
    return s.substr(s.find("f0: "), s.rfind("Nada") - s.find("f0: "));
  };
  EXPECT_EQ(diz({}), "f0: ja pronta\n");
  EXPECT_EQ(diz({"--refaz"}), "f0: a procurar\n");
  EXPECT_EQ(diz({"-e", "1mm"}), "f0: a medir, a procura e a escolha servem\n");
  EXPECT_EQ(diz({"-f", "default 0.3 0.1"}), "f0: a escolher e medir, a procura serve\n");
  EXPECT_EQ(diz({"-c", "0.2"}), "f0: a procurar\n");
  EXPECT_EQ(arvore("resultado"), antes);

  grava("ruim.cfg", "triangulo 3");
  c = rodaLote({"--simula", "ruim.cfg", "fotos"});
  EXPECT_EQ(c.estado, 2);
  EXPECT_EQ(c.erro, "Erro: ruim.cfg: Palavra desconhecida triangulo\n");
  c = rodaLote(comando({"--simula", "fotos/nenhuma.pgm"}));
  EXPECT_EQ(c.estado, 1);
  EXPECT_NE(c.saida.find("nenhuma: falharia: Fotografia inexistente"), std::string::npos);
}

TEST_F(Lote, EmInglesTambemOsErrosDosSubprogramas) {
  grava("fotos/f0.pgm", "P5 9 9 255\n");
  grava("ruim.cfg", "passoang x");
  MODO modo;
  modo.ambiente = "en_US.UTF-8";
  EXPECT_EQ(rodaLote({"ruim.cfg", "fotos"}, modo).erro,
            "Error: ruim.cfg: Invalid number x (ruim.cfg, line 1)\n");
  const CORRIDA c = rodaLote(comando(), modo);
  EXPECT_NE(c.saida.find("FAILED: Can't read image "), std::string::npos) << c.saida;
  EXPECT_NE(c.erro.find("f0.pgm: file cut short\n"), std::string::npos) << c.erro;
  EXPECT_NE(leTudo("resultado/f0/mensagens.txt").find("Error: Can't read image "),
            std::string::npos);
}

}  // namespace
