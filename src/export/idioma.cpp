#include "export/idioma.h"

namespace exporta {

std::string nomeDaForma(char forma, IDIOMA idioma) {
  switch (forma) {
    case 'c':
      return diz(frases::circulo, idioma);
    case 'q':
      return diz(frases::quadrado, idioma);
    case 'r':
      return diz(frases::retangulo, idioma);
    case 'e':
      return diz(frases::elipse, idioma);
    default:
      return {forma};
  }
}

const char* nomeDaGrandeza(measure::GRANDEZA g, IDIOMA idioma) {
  if (g == measure::GRANDEZA::menor) return diz(frases::menor, idioma);
  if (g == measure::GRANDEZA::maior) return diz(frases::maior, idioma);
  return diz(frases::equivalente, idioma);
}

const char* nomeDoPeso(measure::PESO p, IDIOMA idioma) {
  if (p == measure::PESO::area) return diz(frases::area, idioma);
  if (p == measure::PESO::volume) return diz(frases::volume, idioma);
  return diz(frases::numero, idioma);
}

}  // namespace exporta
