#include "export/idioma.h"

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

const char* nomeDaGrandeza(GRANDEZA g, IDIOMA idioma) {
  if (g == GRANDEZA::menor) return diz(frases::menor, idioma);
  if (g == GRANDEZA::maior) return diz(frases::maior, idioma);
  return diz(frases::equivalente, idioma);
}

const char* nomeDoPeso(PESO p, IDIOMA idioma) {
  if (p == PESO::area) return diz(frases::area, idioma);
  if (p == PESO::volume) return diz(frases::volume, idioma);
  return diz(frases::numero, idioma);
}
