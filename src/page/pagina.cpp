#include "page/pagina.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "export/parcial.h"
#include "measure/peneira.h"
#include "page/dados.h"
#include "page/figura.h"
#include "page/html.h"
#include "page/recursos.h"

namespace page {
namespace {

constexpr std::array<std::string_view, 2> estilos = {"leaflet.css", "estilo.css"};
// In the order in which they run.
constexpr std::array<std::string_view, 34> scripts = {
    "chart.js",    "leaflet.js",      "textos.js",    "apoio.js",   "phi.js",
    "contorno.js", "medida.js",       "intervalo.js", "tabela.js",  "comparacao.js",
    "formas.js",   "correcoes.js",    "cores.js",     "classes.js", "plugins.js",
    "eixos.js",    "barras.js",       "curva.js",     "rosa.js",    "filtro.js",
    "medidas.js",  "graficos.js",     "figuras.js",   "desenho.js", "ferramentas.js",
    "visor.js",    "fotos.js",        "galeria.js",   "papel.js",   "resumo.js",
    "grupos.js",   "proveniencia.js", "barra.js",     "pagina.js"};

void poe(exporta::PARCIAL& p, std::string_view texto) {
  p.pendente += texto;
  adianta(p);
}

template <class NOMES>
void poeElementos(exporta::PARCIAL& p, const char* elemento, const NOMES& nomes) {
  for (const std::string_view nome : nomes) {
    poe(p, std::string("<") + elemento + ">\n");
    poe(p, recurso(nome));
    poe(p, std::string("\n</") + elemento + ">\n");
  }
}

// The record and the picture of one photograph, each in an element of its own: the record is read
// when the page opens, the picture when its viewer is made.
void poeFoto(exporta::PARCIAL& p, const FOTO_DA_PAGINA& foto) {
  const FIGURA figura = foto.figura.empty() ? figuraVazia(foto.tamanho) : leFigura(foto.figura);
  poe(p, "<script type=\"application/json\" class=\"foto\">");
  poe(p, fotoEmJson(foto, emBase64(figura.miniatura)));
  poe(p, "</script>\n<script type=\"text/plain\" class=\"figura\">");
  poe(p, emBase64(figura.jpeg));
  poe(p, "</script>\n");
}

// Which photographs are missing; nothing when none is. It needs no script to be seen.
void poeFalharam(exporta::PARCIAL& p, const PAGINA& pagina) {
  const std::size_t quantas = pagina.falharam.size();
  if (quantas == 0) return;
  const bool uma = quantas == 1;
  const bool en = pagina.idioma == exporta::IDIOMA::en;
  const char* verbo = uma ? "falhou e não está" : "falharam e não estão";
  if (en) verbo = uma ? "failed and is not" : "failed and are not";
  const std::size_t todas = quantas + pagina.fotos.size();
  const std::string numeros = std::to_string(quantas) + (en ? " of " : " de ") +
                              std::to_string(todas) + (en ? " photograph" : " fotografia") +
                              (todas == 1 ? " " : "s ");
  poe(p, "<p class=\"falharam\" id=\"falharam\"><strong>" + numeros + verbo +
             (en ? " in the numbers of this page:" : " nos números desta página:") + "</strong>");
  const char* separador = " ";
  for (const std::string& nome : pagina.falharam) {
    poe(p, separador + ("<bdi>" + emHtml(nome)) + "</bdi>");
    separador = ", ";
  }
  poe(p, "</p>\n");
}

// What makes the numbers doubtful; it needs no script to be seen.
void poeAvisos(exporta::PARCIAL& p, const PAGINA& pagina) {
  if (pagina.avisos.empty()) return;
  poe(p, "<ul class=\"aviso\" id=\"avisos\">\n");
  for (const std::string& aviso : pagina.avisos) poe(p, "<li>" + emHtml(aviso) + "</li>\n");
  poe(p, "</ul>\n");
}

void preenche(exporta::PARCIAL& p, const PAGINA& pagina, std::string_view nome) {
  if (nome == "lang") poe(p, pagina.idioma == exporta::IDIOMA::en ? "en" : "pt-BR");
  if (nome == "titulo") poe(p, emHtml(pagina.titulo));
  if (nome == "semscript") {
    poe(p, pagina.idioma == exporta::IDIOMA::en ? "This page needs JavaScript."
                                                : "Esta página precisa de JavaScript.");
  }
  if (nome == "estilos") poeElementos(p, "style", estilos);
  if (nome == "ajustes") poe(p, ajustesEmJson(pagina));
  if (nome == "falharam") poeFalharam(p, pagina);
  if (nome == "proveniencia") {
    poe(p, emScript(pagina.proveniencia.empty() ? "null" : pagina.proveniencia));
  }
  if (nome == "avisos") poeAvisos(p, pagina);
  if (nome == "fotos") {
    for (const FOTO_DA_PAGINA& foto : pagina.fotos) poeFoto(p, foto);
  }
  if (nome == "licencas") poe(p, emHtml(std::string(recurso("licencas.txt"))));
  if (nome == "scripts") poeElementos(p, "script", scripts);
}

}  // namespace

void impPagina(const PAGINA& pagina, const std::string& nome) {
  measure::confereAberturas(pagina.peneiras);
  exporta::PARCIAL p = exporta::abreParcial(nome);
  expande(
      recurso("modelo.html"), [&p](std::string_view texto) { poe(p, texto); },
      [&](std::string_view marca) { preenche(p, pagina, marca); });
  conclui(std::move(p));
}

}  // namespace page
