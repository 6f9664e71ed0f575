#include "page/pagina.h"

#include <gtest/gtest.h>

#include <regex>

#include "apoio/erros.h"
#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "page/dados.h"
#include "page/figura.h"
#include "pim/imagem.h"

using namespace measure;
using namespace exporta;
using namespace page;

namespace {

std::vector<GRAO> doisGraos() {
  return medeTodos({{0.523733F, 'r', 8, 20, 40, 10, 90}, {0.1F, 'c', 30, 25, 12, 12, 0}}, 50, 60);
}

FOTO_DA_PAGINA novaFoto(const std::string& nome) {
  std::mt19937 sorteio(4);
  pim::imp(fotoSorteada(sorteio, 50, 60), "foto.png");
  impFigura("foto.png", 100000, "figura");
  return {nome, "figura", {60, 50}, doisGraos()};
}

PAGINA umaFoto(const std::string& nome = "foto.jpg") {
  PAGINA p;
  p.titulo = "Areia";
  p.fotos = {novaFoto(nome)};
  return p;
}

std::string escrita(const PAGINA& p) {
  impPagina(p, "p.html");
  return leTudo("p.html");
}

bool contem(const std::string& s, const std::string& parte) {
  return s.find(parte) != std::string::npos;
}

std::size_t vezes(const std::string& s, const std::string& parte) {
  std::size_t n = 0;
  for (std::size_t i = s.find(parte); i != std::string::npos; i = s.find(parte, i + 1)) ++n;
  return n;
}

// What the browser takes for markup: the page without the contents of scripts and styles.
std::string soMarcas(const std::string& pagina) {
  std::string s;
  std::size_t i = 0;
  for (;;) {
    const std::size_t de = std::min(pagina.find("<script", i), pagina.find("<style", i));
    if (de == std::string::npos) return s + pagina.substr(i);
    const std::size_t abre = pagina.find('>', de) + 1;
    const std::string fim = pagina[de + 2] == 'c' ? "</script>" : "</style>";
    s += pagina.substr(i, abre - i);
    i = pagina.find(fim, abre);
    if (i == std::string::npos) return s + " ABERTO";
  }
}

TEST(Ajustes, TudoQueOsScriptsLeem) {
  PAGINA p;
  p.titulo = "A \"b\"";
  p.escala = {0.05, UNIDADE::mm};
  p.grandeza = GRANDEZA::menor;
  p.peso = PESO::volume;
  p.peneiras = {0.5, 1};
  p.limiares = {0.1, 0.2, 0.3, 0.4};
  p.comando = "vorplex-lote x";
  const std::string json = ajustesEmJson(p);
  const std::string comeco =
      R"({"idioma":"pt","titulo":"A \"b\"","comando":"vorplex-lote x",)"
      R"("escala":{"lado":0.05,"unidade":"mm"},"grandeza":"menor","peso":"volume",)"
      R"("peneiras":[0.5,1],"limiares":{"correl":{"c":0.1,"q":0.2,"r":0.3,"e":0.4}},"borda":"inclui","apurado":0,)"
      R"("colunas":["foto","indice","letra",)";
  EXPECT_EQ(json.substr(0, comeco.size()), comeco);
  EXPECT_TRUE(contem(json, "\"diametro_maior_mm\"],\"formas\":{\"c\":\"circulo\","));
}

TEST(Ajustes, EmInglesAsPalavrasDaTabelaTambem) {
  PAGINA p;
  p.idioma = IDIOMA::en;
  const std::string json = ajustesEmJson(p);
  EXPECT_TRUE(contem(json, R"("colunas":["photograph","index","letter",)"));
  EXPECT_TRUE(contem(json, R"("grandeza":"equivalente","peso":"numero","peneiras":[])"));
  EXPECT_TRUE(
      contem(json, R"("formas":{"c":"circle","q":"square","r":"rectangle","e":"ellipse"}})"));
}

TEST(Foto, CadaGraoEhUmVetorEmPixels) {
  const FOTO_DA_PAGINA foto{"a", "figura", {60, 50}, doisGraos()};
  EXPECT_EQ(fotoEmJson(foto, "bWluaQ=="),
            R"({"nome":"a","rows":50,"cols":60,"miniatura":"bWluaQ==","graos":[)"
            R"([0,"r",8,20,40,10,90,0.523733,400,22.5675833,100,10,40,4,1],)"
            R"([1,"c",30,25,12,12,0,0.1,113.097336,12,37.6991118,12,12,1,0]]})");
}

TEST(Foto, SemGraosTemVetorVazio) {
  EXPECT_EQ(fotoEmJson({"", "figura", {3, 2}, {}}, ""),
            R"({"nome":"","rows":2,"cols":3,"miniatura":"","graos":[]})");
}

TEST(Foto, SemFiguraEhDito) {
  EXPECT_EQ(fotoEmJson({"", "", {3, 2}, {}}, ""),
            R"({"nome":"","rows":2,"cols":3,"miniatura":"","semFigura":1,"graos":[]})");
}

TEST(Foto, OQueHaDeMaisVaiAntesDosGraos) {
  FOTO_DA_PAGINA foto{"a", "figura", {60, 50}, doisGraos()};
  foto.candidatos = {foto.graos[1]};
  foto.graos.clear();
  foto.soma = "0123456789abcdef";
  foto.grupo = "</script>";
  foto.escala = ESCALA{0.5, UNIDADE::mm};
  foto.correcoes = {{corrige::GESTO::rejeita, {'q', 1, 2, 3, 3, 4}}};
  EXPECT_EQ(fotoEmJson(foto, ""),
            R"({"nome":"a","rows":50,"cols":60,"miniatura":"","soma":"0123456789abcdef",)"
            R"("grupo":"\u003c/script>","lado":0.5,"correcoes":[{"angulo":4.0,"coluna":2.0,)"
            R"("d1":3.0,"d2":3.0,"forma":"q","gesto":"rejeita","linha":1.0}],"candidatos":)"
            R"([[1,"c",30,25,12,12,0,0.1,113.097336,12,37.6991118,12,12,1,0]],"graos":[]})");
}

TEST(Ajustes, OQueFoiCorrigidoAMao) {
  PAGINA p;
  EXPECT_FALSE(contem(ajustesEmJson(p), "correcoes"));
  p.corrigidas = {3, 1, 2, 0};
  EXPECT_TRUE(contem(ajustesEmJson(p),
                     R"("correcoes":{"rejeita":3,"recupera":1,"desenha":2,"semPar":0},)"));
}

TEST(Pagina, NomesHostisNaoViramMarcas) {
  const PASTA pasta;
  PAGINA p = umaFoto("<img src=x onerror='mau()'>\"\n</script><script>mau()</script>\xFF");
  p.titulo = "</title><script>mau()</script>\" onload=\"mau()\xC3";
  p.comando = "--><script>mau()</script>";
  const PAGINA mansa = umaFoto();
  const std::string pagina = escrita(p);
  const std::string marcas = soMarcas(pagina);
  EXPECT_EQ(vezes(marcas, "<script"), vezes(soMarcas(escrita(mansa)), "<script"));
  EXPECT_FALSE(contem(marcas, "<img"));
  EXPECT_FALSE(contem(marcas, "ABERTO"));
  EXPECT_TRUE(contem(marcas,
                     "<title>&lt;/title&gt;&lt;script&gt;mau()&lt;/script&gt;&quot; "
                     "onload=&quot;mau()\uFFFD</title>"));
  EXPECT_FALSE(contem(pagina, "\xFF"));
}

TEST(Pagina, NadaNelaPedeArquivos) {
  const PASTA pasta;
  const std::string pagina = escrita(umaFoto());
  const std::string marcas = soMarcas(pagina);
  const std::regex pedido(R"re(\s(src|href|srcset|data|action|poster)\s*=\s*"(?!data:))re",
                          std::regex::icase);
  EXPECT_FALSE(std::regex_search(marcas, pedido));
  EXPECT_FALSE(contem(marcas, "http:"));
  EXPECT_FALSE(contem(marcas, "https:"));
  EXPECT_TRUE(contem(marcas, "content=\"default-src 'none'; img-src data: blob:;"));
}

TEST(Pagina, AvisosEstaoNaPagina) {
  const PASTA pasta;
  PAGINA p = umaFoto();
  p.avisos = {"3 graos <b>", "desfoque"};
  EXPECT_TRUE(contem(soMarcas(escrita(p)), "<li>3 graos &lt;b&gt;</li>\n<li>desfoque</li>"));
  p.avisos.clear();
  EXPECT_FALSE(contem(soMarcas(escrita(p)), "id=\"avisos\""));
}

TEST(Pagina, TemAsLicencasDasBibliotecas) {
  const PASTA pasta;
  const std::string marcas = soMarcas(escrita(PAGINA{}));
  EXPECT_TRUE(contem(marcas, "Copyright (c) 2014-2022 Chart.js Contributors"));
  EXPECT_TRUE(contem(marcas, "Copyright (c) 2010-2019 Vladimir Agafonkin"));
}

TEST(Pagina, IdiomaDoDocumento) {
  const PASTA pasta;
  PAGINA p;
  EXPECT_TRUE(contem(escrita(p), "<html lang=\"pt-BR\">"));
  p.idioma = IDIOMA::en;
  EXPECT_TRUE(contem(escrita(p), "<html lang=\"en\">"));
}

TEST(Pagina, UmRegistroEUmaFiguraPorFotografia) {
  const PASTA pasta;
  PAGINA p = umaFoto();
  p.fotos.push_back(novaFoto("outra"));
  const std::string pagina = escrita(p);
  EXPECT_EQ(vezes(pagina, "class=\"foto\">{\"nome\":"), 2U);
  EXPECT_EQ(vezes(pagina, "class=\"figura\">/9j/"), 2U);
  const std::string vazia = escrita(PAGINA{});
  EXPECT_EQ(vezes(vazia, "class=\"foto\">"), 0U);
  EXPECT_TRUE(contem(vazia, "</html>"));
}

TEST(Pagina, FotografiaSemFiguraTemUmaCinzentaEOsSeusGraos) {
  const PASTA pasta;
  PAGINA p = umaFoto();
  p.fotos[0].figura = "";
  const std::string pagina = escrita(p);
  EXPECT_TRUE(contem(pagina, "\"semFigura\":1,\"graos\":[[0,\"r\","));
  EXPECT_EQ(vezes(pagina, "class=\"figura\">/9j/"), 1U);
  EXPECT_FALSE(contem(escrita(umaFoto()), "\"semFigura\":1"));
}

// What a reader sees without any script: the text of the element, or nothing.
std::string aviso(const std::string& pagina) {
  const std::string marcas = soMarcas(pagina);
  const std::size_t de = marcas.find("id=\"falharam\"");
  if (de == std::string::npos) return "";
  const std::string texto = marcas.substr(de, marcas.find("</p>", de) - de);
  return std::regex_replace(texto.substr(texto.find('>') + 1), std::regex("<[^>]*>"), "");
}

TEST(Pagina, DizQuaisFotografiasFaltamNosNumeros) {
  const PASTA pasta;
  PAGINA p = umaFoto();
  EXPECT_EQ(aviso(escrita(p)), "");
  p.falharam = {"norte"};
  EXPECT_EQ(aviso(escrita(p)),
            "1 de 2 fotografias falhou e não está nos números desta página: norte");
  p.falharam = {"norte", "sul"};
  EXPECT_EQ(aviso(escrita(p)),
            "2 de 3 fotografias falharam e não estão nos números desta página: norte, sul");
  p.idioma = IDIOMA::en;
  EXPECT_EQ(aviso(escrita(p)),
            "2 of 3 photographs failed and are not in the numbers of this page: norte, sul");
  p.fotos.clear();
  p.falharam = {"sul"};
  EXPECT_EQ(aviso(escrita(p)),
            "1 of 1 photograph failed and is not in the numbers of this page: sul");
}

TEST(Pagina, NomesHostisDasQueFaltamNaoViramMarcas) {
  const PASTA pasta;
  PAGINA p = umaFoto();
  p.falharam = {"</p></main><script>mau()</script>", "<img src=x onerror=mau()>", "\xFF{{fotos}}"};
  const std::string pagina = escrita(p);
  EXPECT_EQ(vezes(soMarcas(pagina), "<script"), vezes(soMarcas(escrita(umaFoto())), "<script"));
  EXPECT_FALSE(contem(soMarcas(pagina), "<img"));
  EXPECT_TRUE(contem(aviso(pagina),
                     ": &lt;/p&gt;&lt;/main&gt;&lt;script&gt;mau()&lt;/script&gt;, "
                     "&lt;img src=x onerror=mau()&gt;, \uFFFD{{fotos}}"))
      << aviso(pagina);
}

TEST(Pagina, MesmosDadosMesmosBytes) {
  const PASTA pasta;
  EXPECT_EQ(escrita(umaFoto()), escrita(umaFoto()));
}

TEST(Pagina, FiguraIlegivelNaoTocaAPaginaAnterior) {
  const PASTA pasta;
  grava("p.html", "anterior");
  PAGINA p = umaFoto();
  p.fotos[0].figura = "nenhuma";
  EXPECT_EQ(erroDe([&] { impPagina(p, "p.html"); }), "Erro abertura arquivo nenhuma");
  EXPECT_EQ(leTudo("p.html"), "anterior");
}

TEST(Pagina, PeneirasForaDeOrdemSaoRecusadas) {
  const PASTA pasta;
  PAGINA p;
  p.peneiras = {2, 1};
  EXPECT_EQ(erroDe([&] { impPagina(p, "p.html"); }),
            "Erro: Aberturas de peneira devem ser crescentes e maiores que zero: 1");
}

TEST(Pagina, PastaInexistenteEhErro) {
  const PASTA pasta;
  EXPECT_EQ(erroDe([&] { impPagina(PAGINA{}, "nada/p.html"); }),
            "Erro abertura arquivo nada/p.html.parcial");
}

}  // namespace
