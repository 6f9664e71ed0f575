#include "mapa/saida.h"

#include <limits>

#include "apura/saida.h"
#include "export/graoscsv.h"
#include "export/parcial.h"
#include "mapa/frases.h"
#include "measure/resumo.h"
#include "pim/arquivo.h"
#include "pim/codecs.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/texto.h"

namespace mapa {
namespace {

void impRotulos(const OPCOES& o, const textura::ACHADOS& a) {
  constexpr std::size_t maior = std::numeric_limits<std::uint16_t>::max();
  if (a.graos.size() > maior) {
    const std::string quantos = std::to_string(a.graos.size());
    pim::erro("Erro: ", cv::format(diz(falas::demais, o.idioma), quantos.c_str()));
  }
  cv::Mat_<std::uint16_t> rotulos;
  a.rotulos.convertTo(rotulos, CV_16U);
  std::vector<unsigned char> bytes;
  if (!pim::codecs().codifica("png", rotulos, bytes)) pim::erro("Erro gravacao arquivo ", o.saida);
  exporta::gravaAparte(o.saida, [&](const std::string& aparte) { pim::gravaBytes(aparte, bytes); });
}

// The three maps as the colours of a picture: distance red, inside green, limit blue.
void impMapa(const OPCOES& o, const textura::MAPA& m) {
  cv::Mat_<pim::VEC3B> cores(m.dentro.size());
  for (int l = 0; l < cores.rows; ++l) {
    for (int c = 0; c < cores.cols; ++c) {
      cores(l, c) = pim::VEC3B(m.limite(l, c), m.dentro(l, c), m.distancia(l, c));
    }
  }
  exporta::gravaAparte(o.saida, [&](const std::string& aparte) { pim::imp(cores, aparte); });
}

}  // namespace

TIPO tipoDaSaida(const std::string& nome) {
  const std::string baixo = pim::minuscula(nome);
  if (baixo.ends_with("_labels.png")) return TIPO::rotulos;
  if (baixo.ends_with("_mapa.png")) return TIPO::mapa;
  switch (apura::tipoDaSaida(nome)) {
    case apura::TIPO::tabela:
      return TIPO::tabela;
    case apura::TIPO::lista:
      return TIPO::lista;
    case apura::TIPO::imagem:
      return TIPO::imagem;
    default:
      return TIPO::desconhecido;
  }
}

void impSaida(const OPCOES& o, TIPO tipo, const textura::ACHADOS& a, cv::Mat_<pim::VEC3B> cores) {
  if (tipo == TIPO::rotulos) return impRotulos(o, a);
  if (tipo == TIPO::mapa) return impMapa(o, a.mapa);
  apura::OPCOES como;
  como.saida = o.saida;
  como.indices = o.indices;
  como.idioma = o.idioma;
  const int rows = a.rotulos.rows;
  const int cols = a.rotulos.cols;
  const measure::FOTOGRAFIA foto{
      o.foto, rows, cols, {}, measure::medeApurados(a.graos, rows, cols), measure::METODO::apurado};
  const auto porque = tipo == TIPO::tabela  ? apura::TIPO::tabela
                      : tipo == TIPO::lista ? apura::TIPO::lista
                                            : apura::TIPO::imagem;
  apura::impSaida(como, porque, foto, cores);
}

}  // namespace mapa
