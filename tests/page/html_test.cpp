#include "page/html.h"

#include <gtest/gtest.h>

#include <regex>

#include "apoio/erros.h"
#include "page/recursos.h"

using namespace page;

namespace {

TEST(Html, TextoNaoAbreElementosNemFechaAtributos) {
  EXPECT_EQ(emHtml("<b title='a' id=\"x\"> & fim"),
            "&lt;b title=&#39;a&#39; id=&quot;x&quot;&gt; &amp; fim");
}

TEST(Html, AcentosFicamEBytesQueNaoSaoUtf8SaoTrocados) {
  EXPECT_EQ(emHtml("grão\n\xFF\xC3"), "grão\n\uFFFD\uFFFD");
  EXPECT_EQ(emHtml(std::string("a\0b", 3)),
            "a\uFFFD"
            "b");
}

TEST(Html, JsonNaoFechaOScript) {
  EXPECT_EQ(emScript(R"({"nome":"</script><!--"})"), R"({"nome":"\u003c/script>\u003c!--"})");
}

std::string expandido(const std::string& modelo) {
  std::string s;
  expande(
      modelo, [&s](std::string_view texto) { s += texto; },
      [&s](std::string_view nome) { s += '[' + std::string(nome) + "{{a}}]"; });
  return s;
}

TEST(Html, MarcasSaoTrocadasUmaVezSo) {
  EXPECT_EQ(expandido("x{{a}}y{{bc}}"), "x[a{{a}}]y[bc{{a}}]");
  EXPECT_EQ(expandido("sem marcas"), "sem marcas");
  EXPECT_EQ(expandido("{{a}} aberta {{b"), "[a{{a}}] aberta {{b");
}

TEST(Recursos, BibliotecasNaoPedemOutrosArquivos) {
  const std::regex pedido(R"(url\((?!#)|@import)");
  for (const char* nome : {"leaflet.css", "estilo.css"}) {
    const std::string texto(recurso(nome));
    EXPECT_GT(texto.size(), 1000U) << nome;
    EXPECT_FALSE(std::regex_search(texto, pedido)) << nome;
  }
  for (const char* nome : {"leaflet.js", "chart.js"}) {
    const std::string_view texto = recurso(nome);
    EXPECT_GT(texto.size(), 100000U) << nome;
    EXPECT_EQ(texto.find("sourceMappingURL"), std::string_view::npos) << nome;
  }
}

TEST(Recursos, QuemNaoExisteEhErro) {
  EXPECT_EQ(erroDe([&] { recurso("nada.js"); }), "Erro: Pagina sem nada.js");
}

}  // namespace
