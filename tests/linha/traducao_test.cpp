#include "linha/traducao.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "linha/linha.h"
#include "pim/erro.h"

namespace fs = std::filesystem;
using exporta::IDIOMA;
using namespace linha;

namespace {

std::string conteudo(const fs::path& nome) {
  std::ostringstream s;
  s << std::ifstream(nome).rdbuf();
  return s.str();
}

// What the first group of `padrao` is wherever it stands in the sources of the folders.
std::set<std::string> textos(const std::vector<std::string>& pastas, const char* padrao) {
  const std::regex r(padrao);
  std::set<std::string> achados;
  for (const std::string& pasta : pastas) {
    for (const auto& e : fs::recursive_directory_iterator(fs::path(VORPLEX_FONTES) / pasta)) {
      if (e.path().extension() != ".cpp" && e.path().extension() != ".h") continue;
      const std::string s = conteudo(e.path());
      for (std::sregex_iterator i(s.begin(), s.end(), r), fim; i != fim; ++i) {
        achados.insert((*i)[1].str());
      }
    }
  }
  return achados;
}

// All that lies below the programs that speak English too.
const std::vector<std::string> abaixo = {
    "pim",     "kernels", "motor", "detect", "draw",  "filter", "report",  "refine",
    "measure", "export",  "apura", "page",   "batch", "sugere", "estampa", "proposta"};

TEST(EmIngles, CadaErroQueOsSubprogramasDizemTemSuaTraducao) {
  const std::set<std::string> erros = textos(abaixo, "\n[^/\n]*\"(Erro[ :][^\"\n]*)\"");
  EXPECT_GT(erros.size(), 30U);
  for (const std::string& e : erros) {
    const bool soComeco = e == "Erro: " || e == "Erro ";
    const bool doProgramaVorplex = e == "Erro: Numero de argumentos invalido" ||
                                   e.starts_with("Erro: Indice fora da") ||
                                   e.starts_with("Erro: Mosaico grande demais") ||
                                   e.starts_with("Erro: Amostras grandes demais");
    EXPECT_TRUE(soComeco || doProgramaVorplex || emIngles(e)) << e;
  }
}

TEST(EmIngles, CadaMotivoDeUmaImagemRecusadaTemSuaTraducao) {
  std::set<std::string> motivos = textos({"pim"}, "\\{\\{\\}, \"([^\"]+)\"\\}");
  motivos.merge(textos({"pim"}, "return [^;{]*\"([a-z]+ [a-z ]+)\""));
  motivos.insert("amostra invalida");
  EXPECT_GT(motivos.size(), 12U);
  for (const std::string& m : motivos) {
    const std::optional<std::string> s = emIngles("Erro leitura imagem a.png: " + m);
    ASSERT_TRUE(s);
    EXPECT_EQ(s->find(m), std::string::npos) << m;
  }
}

TEST(EmIngles, NomesNumerosELugaresFicam) {
  EXPECT_EQ(emIngles("Erro leitura imagem a: b.png: arquivo incompleto"),
            "Error: Can't read image a: b.png: file cut short");
  EXPECT_EQ(emIngles("Erro: Numero invalido x7 (k.cfg, linha 3)"),
            "Error: Invalid number x7 (k.cfg, line 3)");
  EXPECT_EQ(emIngles("Erro: Numero invalido x7 (linha 3)"), "Error: Invalid number x7 (line 3)");
  EXPECT_EQ(emIngles("Erro: Forma grande demais c 1 1 (a.ho1, registro 12)"),
            "Error: Shape too large c 1 1 (a.ho1, record 12)");
  EXPECT_EQ(emIngles("Erro: Falta numero no fim do texto (k.cfg)"),
            "Error: A number is missing at the end of the text (k.cfg)");
  EXPECT_EQ(emIngles("Erro abertura arquivo linha 3)"), "Error: Can't open file linha 3)");
  EXPECT_EQ(emIngles("Erro: Imagem vazia"), "Error: Empty image");
  EXPECT_EQ(emIngles("Erro: Palavra desconhecida linha 5"), "Error: Unknown word linha 5");
  EXPECT_EQ(emIngles("Leitura da fotografia..."), std::nullopt);
  EXPECT_EQ(emIngles(""), std::nullopt);
}

TEST(Traduzida, SoEmIngles) {
  EXPECT_EQ(traduzida("Erro: Memoria insuficiente", IDIOMA::pt), "Erro: Memoria insuficiente");
  EXPECT_EQ(traduzida("Erro: Memoria insuficiente", IDIOMA::en), "Error: Not enough memory");
  EXPECT_EQ(traduzida("Erro: out of cheese", IDIOMA::en), "Error: out of cheese");
  EXPECT_EQ(traduzida("Error: done", IDIOMA::en), "Error: done");
}

TEST(ErroDoSistema, TemAsDuasLinguas) {
  EXPECT_EQ(erroDoSistema(ENOENT, IDIOMA::en), "No such file or directory");
  EXPECT_EQ(erroDoSistema(ENOENT, IDIOMA::pt), "nao existe");
  EXPECT_EQ(nomeDoSinal(SIGSEGV, IDIOMA::en), "Segmentation fault");
  EXPECT_EQ(nomeDoSinal(SIGSEGV, IDIOMA::pt), "acesso invalido a memoria");
}

TEST(EmSuaLingua, OQueEhLancadoPassaTraduzido) {
  const auto lanca = [] { pim::erro("Erro: Imagem vazia ", "a.png"); };
  for (const auto& [idioma, texto] : {std::pair{IDIOMA::pt, "Erro: Imagem vazia a.png"},
                                      {IDIOMA::en, "Error: Empty image a.png"}}) {
    try {
      emSuaLingua(idioma, lanca);
      ADD_FAILURE();
    } catch (const pim::ERRO& e) {
      EXPECT_EQ(e.mensagem, texto);
    }
  }
  EXPECT_THROW(emSuaLingua(IDIOMA::en, [] { throw std::bad_alloc(); }), pim::ERRO);
}

}  // namespace
