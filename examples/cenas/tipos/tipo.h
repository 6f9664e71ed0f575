#pragma once

#include <string_view>

#include "examples/cenas/tipos/faixa.h"

// What a kind of scene is made from. Every range is drawn anew for each scene or each grain, so
// that two seeds of one kind differ in more than places. Brightness is in shares of white, lengths
// are in pixels.
namespace cenas {

enum class FEITIO {
  exato,        // the shape of its letter
  superelipse,  // between an ellipse and a rectangle
  ondulado,     // radius perturbed by waves
  pedra,        // convex, of a few corners
  oblongo,      // two parallel sides and two half circles
};

struct POPULACAO {
  std::string_view familias = "cqre";
  FAIXA quantos = {60, 90};  // over the kind's own picture size
  FAIXA tamanho = {12, 50};  // geometric mean of both sizes
  double espalha = 0;        // deviation of the logarithm about the middle; 0: all as likely
  FAIXA razao = {1.4, 2.6};  // of the sizes of 'r' and 'e'
  FEITIO feitio = FEITIO::exato;
  FAIXA irregular = {};    // exponent of a superellipse, share of the radius of waves
  double juntos = 0;       // share of the grains set against another
  FAIXA partilha = {};     // of the smaller one's area that such a pair shares
  double folga = 3;        // ground about the others
  double cortados = 0.06;  // share of the grains that the border cuts
};

struct ASPECTO {
  FAIXA contraste = {0.4, 0.7};  // share of the ground's light that a grain lacks
  double claros = 0;             // share of the grains brighter than the ground
  bool clarosContam = false;     // they are grains too, not only disturbance
  bool translucido = false;      // what lies below shines through
  FAIXA foco = {};               // deviation of a blur of each grain's own
  double relevo = 0.04;          // paler toward the rim
  double manchas = 0.04;         // mottles inside, share of the contrast
  double passoManchas = 4;
  double brilho = 0;         // highlight toward the light
  double bisel = 0;          // rim bright on the lit side, dark on the other
  double aro = 0;            // bright line along the outline
  double cunho = 0;          // figures struck on it: strong edges inside
  FAIXA furo = {};           // inner over outer size of rings
  FAIXA sombra = {};         // share of light that a shadow takes
  FAIXA alcanceSombra = {};  // length of the shadow
};

struct CHAO {
  double claro = 0.78;
  double fina = 0.01;  // texture of 2, 8 and 90 pixels, share of the light
  double media = 0.01;
  double larga = 0.03;
  double trama = 0;  // woven threads
  double pauta = 0;  // ruled lines
  double quadricula = 0;
  double fibroso = 0;  // wavy streaks
};

// What lies about and is no grain, in numbers for the kind's own picture size.
struct SUJEIRA {
  int pontos = 0;
  int fibras = 0;
  int riscos = 0;
  int letras = 0;
  bool corpos = false;  // a grey body about every grain
};

struct CAMERA {
  FAIXA gradiente = {0, 0.12};
  FAIXA vinheta = {0, 0.15};
  FAIXA desfoque = {0.6, 1.1};  // deviation of the lens
  FAIXA ruido = {1, 3};         // grey levels of 255, whatever the light
  FAIXA fotons = {0, 0.06};     // variance for each grey level of light
  FAIXA jpeg = {};              // quality; 0: not compressed
};

struct TIPO {
  std::string_view nome = {};
  std::string_view descricao = {};
  bool reservado = false;  // never learned from
  int linhas = 600;
  int colunas = 800;
  POPULACAO populacao = {};
  ASPECTO aspecto = {};
  CHAO chao = {};
  SUJEIRA sujeira = {};
  CAMERA camera = {};
};

}  // namespace cenas
