#include "page/dados.h"

#include <array>

#include "export/colunas.h"
#include "export/valor.h"
#include "measure/resumo.h"
#include "page/html.h"

namespace page {
namespace {

// Appends a member of an object, its value written by `poeJson`.
void poeMembro(std::string& s, const char* nome, const exporta::VALOR& v) {
  s += s.back() == '{' ? "\"" : ",\"";
  s += nome;
  s += "\":";
  exporta::poeJson(s, v);
}

// Opens a member whose value the caller writes.
void abreMembro(std::string& s, const char* nome, char abre) {
  s += s.back() == '{' ? "\"" : ",\"";
  s += nome;
  s += "\":";
  s += abre;
}

template <class LISTA>
void poeLista(std::string& s, const char* nome, const LISTA& lista) {
  abreMembro(s, nome, '[');
  for (const auto& v : lista) {
    if (s.back() != '[') s += ',';
    exporta::poeJson(s, v);
  }
  s += ']';
}

const char* chaveDaGrandeza(measure::GRANDEZA g) {
  if (g == measure::GRANDEZA::menor) return "menor";
  return g == measure::GRANDEZA::maior ? "maior" : "equivalente";
}

const char* chaveDoPeso(measure::PESO p) {
  if (p == measure::PESO::area) return "area";
  return p == measure::PESO::volume ? "volume" : "numero";
}

using POR_FAMILIA = std::array<double, measure::letras.size()>;

void poePorFamilia(std::string& s, const char* nome, const POR_FAMILIA& valores) {
  abreMembro(s, nome, '{');
  for (std::size_t k = 0; k < valores.size(); ++k) {
    poeMembro(s, std::string(1, measure::letras[k]).c_str(), valores[k]);
  }
  s += '}';
}

// Where the slider stands at first, for each family.
void poeLimiares(std::string& s, const PAGINA& pagina) {
  abreMembro(s, "limiares", '{');
  if (pagina.metodo == measure::METODO::apurado) {
    poePorFamilia(s, "apoio", pagina.limiares);
    POR_FAMILIA iguais;
    iguais.fill(pagina.minCorr);
    poePorFamilia(s, "correl", iguais);
  } else {
    poePorFamilia(s, "correl", pagina.limiares);
  }
  s += '}';
}

// The values in px without the name of the shape, which the letter tells.
void poeGrao(std::string& s, const measure::GRAO& g, std::vector<exporta::VALOR>& valores) {
  constexpr std::size_t nomeDaFormaEm = 2;
  valoresDoGrao(g, measure::ESCALA{}, exporta::IDIOMA::pt, valores);
  s += s.back() == '[' ? "[" : ",[";
  for (std::size_t k = 0; k < valores.size(); ++k) {
    if (k == nomeDaFormaEm) continue;
    if (k > 0) s += ',';
    const bool* verdade = std::get_if<bool>(&valores[k]);
    exporta::poeJson(s, verdade != nullptr ? exporta::VALOR(*verdade ? 1 : 0) : valores[k]);
  }
  s += ']';
}

template <class LISTA>
void poeGraos(std::string& s, const char* nome, const LISTA& graos) {
  std::vector<exporta::VALOR> valores;
  abreMembro(s, nome, '[');
  for (const measure::GRAO& g : graos) poeGrao(s, g, valores);
  s += ']';
}

// As the file of corrections has them.
void poeCorrecoes(std::string& s, const std::vector<corrige::CORRECAO>& v) {
  abreMembro(s, "correcoes", '[');
  for (const corrige::CORRECAO& c : v) {
    s += s.back() == '[' ? "" : ",";
    s += corrige::emTexto(c);
  }
  s += ']';
}

void poeFeitas(std::string& s, const corrige::FEITAS& f) {
  abreMembro(s, "correcoes", '{');
  poeMembro(s, "rejeita", f.rejeitados);
  poeMembro(s, "recupera", f.recuperados);
  poeMembro(s, "desenha", f.desenhados);
  poeMembro(s, "semPar", f.semPar);
  s += '}';
}

}  // namespace

std::string ajustesEmJson(const PAGINA& pagina) {
  std::string s = "{";
  poeMembro(s, "idioma", std::string(pagina.idioma == exporta::IDIOMA::en ? "en" : "pt"));
  poeMembro(s, "titulo", pagina.titulo);
  poeMembro(s, "comando", pagina.comando);
  abreMembro(s, "escala", '{');
  poeMembro(s, "lado", pagina.escala.lado);
  poeMembro(s, "unidade", std::string(nomeDaUnidade(pagina.escala.unidade)));
  s += '}';
  poeMembro(s, "grandeza", std::string(chaveDaGrandeza(pagina.grandeza)));
  poeMembro(s, "peso", std::string(chaveDoPeso(pagina.peso)));
  poeLista(s, "peneiras", pagina.peneiras);
  poeLimiares(s, pagina);
  constexpr std::array<const char*, 3> bordas = {"corrige", "inclui", "exclui"};
  poeMembro(s, "borda", std::string(bordas.at(static_cast<std::size_t>(pagina.borda))));
  poeMembro(s, "apurado", pagina.metodo == measure::METODO::apurado ? 1 : 0);
  if (pagina.corrigidas) poeFeitas(s, *pagina.corrigidas);
  std::vector<std::string> colunas =
      nomesDoGrao(pagina.metodo, pagina.escala.unidade, pagina.idioma);
  colunas.insert(colunas.begin(), diz(exporta::frases::foto, pagina.idioma));
  poeLista(s, "colunas", colunas);
  abreMembro(s, "formas", '{');
  for (const char letra : measure::letras) {
    poeMembro(s, std::string(1, letra).c_str(), nomeDaForma(letra, pagina.idioma));
  }
  s += "}}";
  return emScript(s);
}

std::string fotoEmJson(const FOTO_DA_PAGINA& foto, const std::string& miniatura) {
  std::string s = "{";
  poeMembro(s, "nome", foto.nome);
  poeMembro(s, "rows", foto.tamanho.height);
  poeMembro(s, "cols", foto.tamanho.width);
  poeMembro(s, "miniatura", miniatura);
  if (foto.figura.empty()) poeMembro(s, "semFigura", 1);
  if (!foto.soma.empty()) poeMembro(s, "soma", foto.soma);
  if (!foto.grupo.empty()) poeMembro(s, "grupo", foto.grupo);
  if (foto.escala) poeMembro(s, "lado", foto.escala->lado);
  if (!foto.correcoes.empty()) poeCorrecoes(s, foto.correcoes);
  if (!foto.candidatos.empty()) poeGraos(s, "candidatos", foto.candidatos);
  poeGraos(s, "graos", foto.graos);
  s += '}';
  return emScript(s);
}

}  // namespace page
