#include "export/graoscsv.h"

#include <utility>

#include "export/colunas.h"
#include "pim/erro.h"

namespace exporta {
namespace {

void poeCabecalho(std::string& s, measure::METODO metodo, measure::UNIDADE unidade, IDIOMA idioma,
                  bool comFoto) {
  const char* separador = "";
  if (comFoto) {
    s += diz(frases::foto, idioma);
    separador = ",";
  }
  for (const std::string& nome : nomesDoGrao(metodo, unidade, idioma)) {
    s += separador;
    s += nome;
    separador = ",";
  }
  s += '\n';
}

// One row for each grain; `prefixo` stands before each.
void poeLinhas(PARCIAL& p, const measure::FOTOGRAFIA& foto, IDIOMA idioma,
               const std::string& prefixo) {
  std::vector<VALOR> valores;
  for (const measure::GRAO& g : foto.graos) {
    valoresDoGrao(g, foto.escala, idioma, valores);
    p.pendente += prefixo;
    for (const VALOR& v : valores) {
      poeCsv(p.pendente, v);
      p.pendente += ',';
    }
    p.pendente.back() = '\n';
    adianta(p);
  }
}

}  // namespace

void impGraosCsv(const measure::FOTOGRAFIA& foto, const std::string& nome, IDIOMA idioma) {
  PARCIAL p = abreParcial(nome);
  poeCabecalho(p.pendente, foto.metodo, foto.escala.unidade, idioma, false);
  poeLinhas(p, foto, idioma, "");
  conclui(std::move(p));
}

TABELA_GRAOS abreGraosCsv(const std::string& nome, measure::UNIDADE unidade, IDIOMA idioma,
                          measure::METODO metodo) {
  TABELA_GRAOS t{abreParcial(nome), unidade, idioma, metodo};
  poeCabecalho(t.saida.pendente, metodo, unidade, idioma, true);
  return t;
}

void acrescenta(TABELA_GRAOS& t, const measure::FOTOGRAFIA& foto) {
  if (foto.escala.unidade != t.unidade) {
    pim::erro("Erro: Fotografias com unidades diferentes: ", foto.nome);
  }
  if (foto.metodo != t.metodo) pim::erro("Erro: Fotografia medida de outro modo: ", foto.nome);
  std::string prefixo;
  poeCsv(prefixo, foto.nome);
  prefixo += ',';
  poeLinhas(t.saida, foto, t.idioma, prefixo);
}

void conclui(TABELA_GRAOS t) {
  conclui(std::move(t.saida));
}

}  // namespace exporta
