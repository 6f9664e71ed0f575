#include "export/qml.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <vector>

#include "apoio/pasta.h"

using namespace exporta;

namespace {

std::vector<std::string> achadosDe(const std::string& texto, const char* padrao) {
  const std::regex r(padrao);
  std::vector<std::string> v;
  for (std::sregex_iterator i(texto.begin(), texto.end(), r), fim; i != fim; ++i) {
    v.push_back((*i)[1]);
  }
  return v;
}

// Every tag is closed, in order.
void exigeBemFormado(const std::string& xml) {
  const std::regex r("<(/?)([a-z0-9-]+)((?: [a-z_A-Z]+=\"[^\"<&]*\")*)(/?)>");
  std::vector<std::string> abertas;
  for (std::sregex_iterator i(xml.begin(), xml.end(), r), fim; i != fim; ++i) {
    if ((*i)[4] == "/") continue;
    if ((*i)[1] != "/") {
      abertas.push_back((*i)[2]);
      continue;
    }
    ASSERT_FALSE(abertas.empty());
    EXPECT_EQ(abertas.back(), (*i)[2]);
    abertas.pop_back();
  }
  EXPECT_TRUE(abertas.empty());
  std::string resto = std::regex_replace(xml, r, "");
  std::erase(resto, '\n');
  EXPECT_EQ(resto, "<!DOCTYPE qgis>");
}

TEST(EstiloQgis, CadaFormaTemUmaCor) {
  for (const IDIOMA idioma : {IDIOMA::pt, IDIOMA::en}) {
    const PASTA pasta;
    impEstiloQgis("graos.qml", idioma);
    const std::string s = leTudo("graos.qml");
    exigeBemFormado(s);
    std::vector<std::string> nomes;
    for (const char forma : {'c', 'q', 'r', 'e'}) nomes.push_back(nomeDaForma(forma, idioma));
    EXPECT_EQ(achadosDe(s, "<category[^>]* value=\"([^\"]*)\""), nomes);
    EXPECT_EQ(achadosDe(s, "<category[^>]* symbol=\"([^\"]*)\""),
              achadosDe(s, "<symbol [^>]*name=\"([^\"]*)\""));
    EXPECT_EQ(achadosDe(s, "<renderer-v2[^>]* attr=\"([^\"]*)\""),
              std::vector<std::string>{idioma == IDIOMA::en ? "shape" : "forma"});
    const std::vector<std::string> cores = achadosDe(s, "k=\"outline_color\" v=\"([^\"]*)\"");
    EXPECT_EQ(std::set<std::string>(cores.begin(), cores.end()).size(), 4U);
  }
}

}  // namespace
