#include "export/qml.h"

#include <array>
#include <utility>

#include "export/parcial.h"
#include "measure/resumo.h"

namespace exporta {
namespace {

// Red, green, blue: told apart by readers of every colour vision, in the order of measure::letras.
constexpr std::array<const char*, measure::letras.size()> cores = {"0,114,178", "213,94,0",
                                                                   "0,158,115", "204,121,167"};

std::string atributo(const char* nome, const std::string& valor) {
  return std::string(" ") + nome + "=\"" + valor + '"';
}

std::string propriedade(const char* nome, const std::string& valor) {
  return "<prop" + atributo("k", nome) + atributo("v", valor) + "/>";
}

std::string simbolo(std::size_t i) {
  const std::string cor = cores[i];
  return "<symbol type=\"fill\" alpha=\"1\" clip_to_extent=\"1\"" +
         atributo("name", std::to_string(i)) +
         "><layer class=\"SimpleFill\" enabled=\"1\" locked=\"0\" pass=\"0\">" +
         propriedade("style", "solid") + propriedade("color", cor + ",64") +
         propriedade("outline_style", "solid") + propriedade("outline_color", cor + ",255") +
         propriedade("outline_width", "0.4") + propriedade("outline_width_unit", "MM") +
         "</layer></symbol>\n";
}

std::string familia(std::size_t i, IDIOMA idioma) {
  const std::string nome = nomeDaForma(measure::letras[i], idioma);
  return "<category render=\"true\"" + atributo("symbol", std::to_string(i)) +
         atributo("value", nome) + atributo("label", nome) + "/>\n";
}

}  // namespace

void impEstiloQgis(const std::string& nome, IDIOMA idioma) {
  PARCIAL p = abreParcial(nome);
  std::string& s = p.pendente;
  s += "<!DOCTYPE qgis>\n<qgis version=\"3.22\" styleCategories=\"Symbology\">\n"
       "<renderer-v2 type=\"categorizedSymbol\" symbollevels=\"0\" forceraster=\"0\"" +
       atributo("attr", diz(frases::forma, idioma)) + ">\n<categories>\n";
  for (std::size_t i = 0; i < cores.size(); ++i) s += familia(i, idioma);
  s += "</categories>\n<symbols>\n";
  for (std::size_t i = 0; i < cores.size(); ++i) s += simbolo(i);
  s += "</symbols>\n</renderer-v2>\n</qgis>\n";
  conclui(std::move(p));
}

}  // namespace exporta
