#include "cenario.h"

namespace fs = std::filesystem;

namespace {

using TEXTOS = std::vector<std::string>;

std::string proveniencia(const std::string& pasta) {
  return leTudo(pasta + "/proveniencia.json");
}

bool contem(const std::string& s, const std::string& parte) {
  return s.find(parte) != std::string::npos;
}

TEST_F(Lote, AProvenienciaDizDeQueSeFez) {
  ASSERT_EQ(rodaLote({"-e", "0.05mm", "--idioma", "en", "kernel.cfg", "fotos"}).estado, 0);
  const std::string p = proveniencia("resultado");
  EXPECT_TRUE(contem(p, "\"formato\": \"vorplex proveniencia 1\""));
  EXPECT_TRUE(contem(p, "\"titulo\": \"Granulometry of fotos\""));
  EXPECT_TRUE(contem(p, "\"escala\": \"0.05mm\""));
  EXPECT_TRUE(contem(p, "\"kernel\": \"passoang 45 "));
  EXPECT_TRUE(contem(p, "\"arquivo\": \"f1.pgm\""));
  EXPECT_TRUE(contem(p, "\"f0/graos.csv\": \""));
  EXPECT_TRUE(contem(p, "\"relatorio.html\": \""));
  const std::string pagina = leTudo("resultado/relatorio.html");
  EXPECT_TRUE(contem(pagina, "id=\"proveniencia\">{\n \"formato\""));
  EXPECT_FALSE(contem(pagina, "\"resultados\":"));
}

TEST_F(Lote, ARepeticaoDaOsMesmosBytes) {
  grava("g.csv", "foto,grupo,escala\nf0,a,0.5mm\nf1,b,1mm\n");
  ASSERT_EQ(rodaLote({"--grupos", "g.csv", "-o", "antes", "--sensibilidade", "0.7", "kernel.cfg",
                      "fotos"})
                .estado,
            0);
  const std::string p = proveniencia("antes");
  // Somewhere else, from the file and the photographs alone, and dated anew.
  fs::create_directory("outro");
  fs::create_directory("outro/copias");
  for (const char* f : {"f0.pgm", "f1.pgm"})
    grava(std::string("outro/copias/") + f, leTudo(std::string("fotos/") + f));
  grava("outro/p.json", p);
  fs::current_path("outro");
  const CORRIDA c = rodaLote({"--repete", "p.json", "copias"});
  EXPECT_EQ(c.estado, 0) << c.erro;
  EXPECT_FALSE(contem(c.erro, "Difere")) << c.erro;
  EXPECT_TRUE(contem(c.saida, "Repetido: ")) << c.saida;
  fs::current_path("..");
  auto antes = arvore("antes");
  auto depois = arvore("outro/repeticao");
  for (auto* a : {&antes, &depois}) {
    std::erase_if(*a, [](const auto& par) { return par.first.ends_with("/.vorplex-lote"); });
  }
  EXPECT_GT(antes.size(), 15U);
  EXPECT_TRUE(antes == depois);
}

TEST_F(Lote, ARepeticaoDizOQueDifere) {
  ASSERT_EQ(rodaLote({"kernel.cfg", "fotos"}).estado, 0);
  foto("fotos/f1.pgm", 7);
  const CORRIDA c = rodaLote({"--repete", "resultado/proveniencia.json", "-o", "de-novo"});
  EXPECT_EQ(c.estado, 1);
  EXPECT_TRUE(contem(c.erro, "Difere (antes / agora):\n")) << c.erro;
  EXPECT_TRUE(contem(c.erro, "\n  f1.pgm: ")) << c.erro;
  EXPECT_TRUE(contem(c.erro, "\n  f1/graos.csv: ")) << c.erro;
  EXPECT_TRUE(contem(c.erro, "\n  relatorio.html: ")) << c.erro;
  EXPECT_FALSE(contem(c.erro, "\n  f0")) << c.erro;
  fs::remove("fotos/f1.pgm");
  const CORRIDA falta = rodaLote({"--repete", "resultado/proveniencia.json", "-o", "de-novo"});
  EXPECT_EQ(falta.estado, 1);
  EXPECT_TRUE(contem(falta.erro, "\n  f1/graos.csv: ")) << falta.erro;
}

TEST_F(Lote, ProvenienciaRuimEhRecusada) {
  const auto recusa = [](const std::string& texto) {
    grava("p.json", texto);
    const CORRIDA c = rodaLote({"--repete", "p.json"});
    EXPECT_EQ(c.estado, 2);
    return c.erro;
  };
  EXPECT_EQ(recusa("[]"),
            "Erro: p.json: Proveniencia invalida: formato nao e' vorplex proveniencia 1\n");
  EXPECT_EQ(recusa("{}"), "Erro: p.json: Proveniencia invalida: falta o texto formato\n");
  EXPECT_EQ(recusa("{\"formato\": \"vorplex proveniencia 1\"}"),
            "Erro: p.json: Proveniencia invalida: falta o texto versao\n");
  EXPECT_EQ(recusa("[[[[[["), "Erro: p.json: Proveniencia invalida: aninhada demais\n");
  EXPECT_EQ(rodaLote({"--repete", "nada.json"}).estado, 2);
  EXPECT_FALSE(fs::exists("repeticao"));
}

}  // namespace
