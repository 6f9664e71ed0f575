#include "sugere/texto.h"

#include <algorithm>
#include <opencv2/core.hpp>

#include "sugere/recado.h"

namespace sugere {
namespace {

struct FRASE {
  const char* pt;
  const char* en;
};

constexpr FRASE titulo = {"// kernel.cfg escolhido pelo vorplex-sugere; fotografias olhadas: %zu\n",
                          "// kernel.cfg chosen by vorplex-sugere; photographs looked at: %zu\n"};
constexpr FRASE nada = {
    "// Nenhum grao foi visto: estes sao os ajustes gerais, sem polaridade certa.\n",
    "// No grain was seen: these are the general settings, of no certain polarity.\n"};
constexpr FRASE escuros = {"// Graos mais escuros que o fundo (%.2f do que se viu).\n",
                           "// Grains darker than their ground (%.2f of what was seen).\n"};
constexpr FRASE claros = {"// Graos mais claros que o fundo (%.2f do que se viu).\n",
                          "// Grains brighter than their ground (%.2f of what was seen).\n"};
constexpr FRASE ambas = {
    "// Ha' graos claros e escuros: os da outra polaridade ficam fora.\n",
    "// There are bright and dark grains: those of the other polarity are left out.\n"};
constexpr FRASE tamanhos = {
    "// Diametros equivalentes vistos: %.3g a %.3g pixels; procura-se com folga.\n",
    "// Equivalent diameters seen: %.3g to %.3g pixels; the search goes somewhat beyond.\n"};
constexpr FRASE familias = {"// Parte dos graos:", "// Share of the grains:"};
constexpr FRASE sobreORecado = {
    "// O vorplex-lote le a linha abaixo: -i, graos claros; -c, menor correlacao.\n",
    "// vorplex-lote reads the line below: -i, bright grains; -c, smallest correlation.\n"};

const char* nome(char forma, LINGUA l) {
  const bool pt = l == LINGUA::pt;
  switch (forma) {
    case 'q':
      return pt ? "quadrado" : "square";
    case 'r':
      return pt ? "retangulo" : "rectangle";
    case 'e':
      return pt ? "elipse" : "ellipse";
    default:
      return pt ? "circulo" : "circle";
  }
}

// " circulo 0.62, elipse 1.6:1 0.30": shares of a hundredth or more.
std::string partes(const ESCOLHA& e, LINGUA l) {
  std::string s;
  for (const QUINHAO& q : e.familias) {
    if (q.parte < 0.01) continue;
    s += s.empty() ? " " : ", ";
    s += nome(q.forma, l);
    if (q.proporcao > 1) s += cv::format(" %.2g:1", q.proporcao);
    s += cv::format(" %.2f", q.parte);
  }
  return s;
}

}  // namespace

std::string emKernelCfg(const ESCOLHA& e, LINGUA lingua) {
  const auto diz = [&](const FRASE& f) { return lingua == LINGUA::pt ? f.pt : f.en; };
  std::string s = cv::format(diz(titulo), e.fotos.size());
  if (e.geral) {
    s += diz(nada);
  } else {
    s += cv::format(diz(e.inverte ? claros : escuros), e.parte);
    if (temAmbas(e)) s += diz(ambas);
    s += cv::format(diz(tamanhos), e.menor, e.maior);
    s += diz(familias) + partes(e, lingua) + "\n";
  }
  s += diz(sobreORecado);
  s += linhaDoRecado({e.inverte, e.minCorr}) + "\n";
  return s + texto(e.linhas, e.passos);
}

}  // namespace sugere
