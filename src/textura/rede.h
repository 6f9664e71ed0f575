#pragma once

#include <cstddef>
#include <functional>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

namespace textura {

// A layer of the network, its values arranged in planes (channels).
struct CAMADA {
  enum class TIPO {
    conv,   // convolution with a square of odd side, zeros beyond the border
    dobra,  // every pixel becomes two by two
    junta   // the planes of several layers, one after the other
  };
  TIPO tipo = TIPO::conv;
  std::string nome;
  std::vector<std::string> entradas;  // names of earlier layers, or "foto"
  int entra = 0;                      // planes that go in and come out
  int sai = 0;
  int lado = 1;  // of a convolution: its side, its step, and whether negative sums become 0
  int passo = 1;
  bool relu = false;
  std::size_t onde = 0;  // its weights (sai x entra x lado x lado), then an offset for each plane
};

// The network as a file of weights tells it. The last layer gives four pixels of three maps at a
// time: planes 4m to 4m+3 are those of map m, row by row.
struct REDE {
  std::vector<std::string> cartao;  // what it was learned on, by whom and when: lines of text
  std::vector<CAMADA> camadas;
  std::vector<float> pesos;
};

// Sides of the pictures that go in are multiples of this.
inline constexpr int passoDaRede = 16;
inline constexpr int mapas = 3;

// Reads a file of weights: lines of text ("vorplex-mapa 1", the card, a line for each layer,
// "pesos" and their number), then the weights in 16 bits (IEEE 754, little-endian). pim::erro when
// it can't be read or isn't whole, or its layers don't fit each other.
REDE leRede(const std::string& nome);

// What a network at work takes of memory beside the maps: its tile.
inline constexpr std::size_t bytesDaRede = std::size_t{200} << 20U;

// A network that is ready: from a picture (normalised grey) to the last layer's values, 12 planes
// of half the sides. For one thread at a time.
using CALCULO = std::function<cv::Mat(const cv::Mat_<float>& foto)>;

// What the module "pimmapa.so" does.
struct MODULO {
  CALCULO (*constroi)(const REDE& rede);
};

// The module, which is opened at the first use; pim::erro when it isn't there.
const MODULO& modulo();

// The name of a set of weights that comes with the program ("fotos" or "cenas") as that of its
// file; any other name as it is.
std::string arquivoDosPesos(const std::string& nome);

}  // namespace textura
