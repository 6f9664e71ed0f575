#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>

#include "apoio/pasta.h"
#include "tem.h"

// The manual pages beside what the programs themselves say.

namespace fs = std::filesystem;

namespace {

std::string saidaDe(const std::string& comando, int estado = 0) {
  std::string saida;
  FILE* f = popen(comando.c_str(), "r");
  for (int c = 0; (c = std::fgetc(f)) != EOF;) saida += static_cast<char>(c);
  EXPECT_EQ(pclose(f), estado) << comando << '\n' << saida;
  return saida;
}

std::set<std::string> achados(const std::string& texto, const char* padrao) {
  const std::regex r(padrao);
  std::set<std::string> s;
  for (std::sregex_iterator i(texto.begin(), texto.end(), r), fim; i != fim; ++i) {
    s.insert((*i)[1].str());
  }
  return s;
}

std::string semEscapes(std::string s) {
  for (std::size_t i = 0; (i = s.find("\\-", i)) != std::string::npos;) s.erase(i, 1);
  return s;
}

std::vector<fs::path> paginas() {
  std::vector<fs::path> v;
  for (const auto& e : fs::recursive_directory_iterator(fs::path(VORPLEX_SHARE) / "man")) {
    if (!e.is_directory()) v.push_back(e.path());
  }
  return v;
}

std::string ajuda(const std::string& programa, const char* idioma) {
  return saidaDe(std::string(VORPLEX_BIN) + "/" + programa + " --help --idioma " + idioma);
}

TEST(Paginas, TemAsOpcoesQueAAjudaMostraENenhumaOutra) {
  for (const auto& e : fs::directory_iterator(fs::path(VORPLEX_SHARE) / "bash")) {
    const std::string programa = e.path().filename().string();
    if (programa == "Vorplex") continue;  // it has no options
    const char* opcao = "\n  ...  ?(--[a-z-]+)";
    const std::set<std::string> pt = achados(ajuda(programa, "pt"), opcao);
    const std::set<std::string> en = achados(ajuda(programa, "en"), opcao);
    EXPECT_GT(pt.size(), 2U);
    EXPECT_EQ(pt.size(), en.size());
    std::set<std::string> todas = pt;
    todas.insert(en.begin(), en.end());
    for (const char* lingua : {"", "pt/"}) {
      const fs::path nome = fs::path(VORPLEX_SHARE) / "man" / lingua / "man1" / (programa + ".1");
      EXPECT_EQ(achados(semEscapes(leTudo(nome.string())), "\\\\fB(--[a-z-]+)\\\\fR"), todas)
          << nome;
    }
  }
}

TEST(Paginas, HaUmaEmCadaLinguaENenhumaLacuna) {
  std::set<std::string> en;
  std::set<std::string> pt;
  for (const fs::path& p : paginas()) {
    const bool emPortugues = p.parent_path().parent_path().filename() == "pt";
    (emPortugues ? pt : en).insert(p.filename().string());
    const std::string texto = leTudo(p.string());
    EXPECT_TRUE(achados(texto, "(@[A-Z]+@)").empty()) << p;
    EXPECT_NE(texto.find("\"Vorplex " VORPLEX_VERSAO "\""), std::string::npos) << p;
  }
  EXPECT_EQ(en, pt);
  EXPECT_TRUE(en.contains("Vorplex.1") && en.contains("kernel.cfg.5"));
}

TEST(Paginas, SemQueixaDoMandoc) {
  if (!tem("mandoc")) GTEST_SKIP() << "there is no mandoc here";
  for (const fs::path& p : paginas()) {
    EXPECT_EQ(saidaDe("mandoc -T lint -W warning " + p.string() + " 2>&1"), "");
  }
}

TEST(Paginas, SemQueixaDoGroff) {
  if (!tem("groff")) GTEST_SKIP() << "there is no groff here";
  for (const fs::path& p : paginas()) {
    EXPECT_EQ(saidaDe("groff -k -ww -man -Tutf8 " + p.string() + " 2>&1 >/dev/null"), "");
  }
}

}  // namespace
