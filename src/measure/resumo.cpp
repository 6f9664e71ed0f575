#include "measure/resumo.h"

#include <algorithm>

#include "pim/erro.h"

namespace measure {

void acumula(ACUMULADO& a, const FOTOGRAFIA& foto) {
  if (a.fotos == 0) a.unidade = foto.escala.unidade;
  if (a.unidade != foto.escala.unidade) {
    pim::erro("Erro: Fotografias com unidades diferentes: ", foto.nome,
              std::string(" em ") + nomeDaUnidade(foto.escala.unidade) + ", antes " +
                  nomeDaUnidade(a.unidade));
  }
  ++a.fotos;
  a.area += area(static_cast<double>(foto.rows) * foto.cols, foto.escala);
  for (const GRAO& g : foto.graos) {
    const auto* letra = std::find(letras.begin(), letras.end(), g.figura.forma);
    if (g.tocaBorda) ++a.naBorda;
    // Grains that were taken away are as many as the whole ones stand for.
    const double vezes = foto.borda == BORDA::exclui ? g.inteiro : g.vezes;
    a.quantos += vezes;
    a.coberta += vezes * area(g.area, foto.escala);
    if (g.vezes == 0) continue;
    if (letra != letras.end()) ++a.porForma[static_cast<std::size_t>(letra - letras.begin())];
    a.medidas.push_back(medida(g, foto.escala, a.grandeza, a.peso));
    a.medidas.back().foto = a.fotos;
  }
}

RESUMO resume(const ACUMULADO& a, const std::vector<double>& aberturas) {
  RESUMO r;
  r.grandeza = a.grandeza;
  r.peso = a.peso;
  r.unidade = a.unidade;
  r.fotos = a.fotos;
  r.graos = a.medidas.size();
  r.porForma = a.porForma;
  r.naBorda = a.naBorda;
  r.area = a.area;
  if (a.area > 0) {
    r.densidade = a.quantos / a.area;
    r.cobertura = a.coberta / a.area;
  }
  const CURVA c = curva(a.medidas);
  r.distribuicao = distribui(c, a.unidade);
  r.peneiras = peneira(c, aberturas);
  r.intervalos = intervalos(a.medidas, a.unidade, aberturas);
  return r;
}

RESUMO resume(const FOTOGRAFIA& foto, GRANDEZA grandeza, PESO peso,
              const std::vector<double>& aberturas) {
  ACUMULADO a;
  a.grandeza = grandeza;
  a.peso = peso;
  acumula(a, foto);
  return resume(a, aberturas);
}

}  // namespace measure
