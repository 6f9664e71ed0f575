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
#include "pim/imagem.h"

namespace {

constexpr std::array<std::string_view, 2> estilos = {"leaflet.css", "estilo.css"};
constexpr std::array<std::string_view, 8> scripts = {"chart.js",  "leaflet.js", "textos.js",
                                                     "medida.js", "barras.js",  "graficos.js",
                                                     "visor.js",  "pagina.js"};

void poe(PARCIAL& p, std::string_view texto) {
  p.pendente += texto;
  adianta(p);
}

template <class NOMES>
void poeElementos(PARCIAL& p, const char* elemento, const NOMES& nomes) {
  for (const std::string_view nome : nomes) {
    poe(p, std::string("<") + elemento + ">\n");
    poe(p, recurso(nome));
    poe(p, std::string("\n</") + elemento + ">\n");
  }
}

// The record and the picture of one photograph, each in an element of its own: the record is read
// when the page opens, the picture when its viewer is made.
void poeFoto(PARCIAL& p, const FOTO_DA_PAGINA& foto, std::size_t limite) {
  cv::Mat_<pim::VEC3B> img;
  pim::le(img, foto.arquivo);
  const cv::Size tamanho = foto.tamanho.empty() ? img.size() : foto.tamanho;
  constexpr int qualidade = 75;
  const std::string miniatura = emBase64(emJpeg(reduz(img, ladoDaMiniatura), qualidade));
  poe(p, "<script type=\"application/json\" class=\"foto\">");
  poe(p, fotoEmJson(foto, tamanho, miniatura));
  poe(p, "</script>\n<script type=\"text/plain\" class=\"figura\">");
  poe(p, emBase64(emJpegAte(img, limite)));
  poe(p, "</script>\n");
}

void preenche(PARCIAL& p, const PAGINA& pagina, std::string_view nome) {
  if (nome == "lang") poe(p, pagina.idioma == IDIOMA::en ? "en" : "pt-BR");
  if (nome == "titulo") poe(p, emHtml(pagina.titulo));
  if (nome == "semscript") {
    poe(p, pagina.idioma == IDIOMA::en ? "This page needs JavaScript."
                                       : "Esta página precisa de JavaScript.");
  }
  if (nome == "estilos") poeElementos(p, "style", estilos);
  if (nome == "ajustes") poe(p, ajustesEmJson(pagina));
  if (nome == "fotos") {
    const std::size_t limite = limiteDaFigura(pagina.fotos.size());
    for (const FOTO_DA_PAGINA& foto : pagina.fotos) poeFoto(p, foto, limite);
  }
  if (nome == "licencas") poe(p, emHtml(std::string(recurso("licencas.txt"))));
  if (nome == "scripts") poeElementos(p, "script", scripts);
}

}  // namespace

void impPagina(const PAGINA& pagina, const std::string& nome) {
  confereAberturas(pagina.peneiras);
  PARCIAL p = abreParcial(nome);
  expande(
      recurso("modelo.html"), [&p](std::string_view texto) { poe(p, texto); },
      [&](std::string_view marca) { preenche(p, pagina, marca); });
  conclui(std::move(p));
}
