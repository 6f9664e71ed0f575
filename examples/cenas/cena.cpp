#include "examples/cenas/cena.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "examples/cenas/imagem/camera.h"
#include "examples/cenas/imagem/chao.h"
#include "examples/cenas/imagem/pintura.h"
#include "examples/cenas/imagem/sujeira.h"
#include "pim/arquivo.h"

namespace cenas {

namespace {

// Each part of a scene draws from a stream of its own, so that a change of one leaves the others.
SORTEIO fluxo(const TIPO& tipo, std::uint64_t semente, std::uint64_t parte) {
  std::uint64_t h = SORTEIO::mistura(semente + 1) ^ parte;
  for (const char letra : tipo.nome) h = SORTEIO::mistura(h + static_cast<unsigned char>(letra));
  return {h};
}

double anguloAntiHorario(const GRAO& g) {
  if (g.forma == 'c') return 0;
  const double periodo = g.forma == 'q' ? 90 : 180;
  const double x = std::fmod(-g.ang, periodo);
  return x < 0 ? x + periodo : x + 0.0;
}

}  // namespace

CENA renderiza(const TIPO& tipo, std::uint64_t semente, cv::Size tamanho) {
  SORTEIO lugares = fluxo(tipo, semente, 1);
  SORTEIO tintas = fluxo(tipo, semente, 2);
  SORTEIO terra = fluxo(tipo, semente, 3);
  SORTEIO sensor = fluxo(tipo, semente, 4);
  std::vector<OBJETO> objetos = arranja(tipo, tamanho, lugares);
  const double direcao = tintas.uniforme(0, volta);
  const cv::Point2d luz(std::cos(direcao), std::sin(direcao));

  cv::Mat_<float> imagem = pintaChao(tipo.chao, tamanho, terra);
  sombreia(imagem, tipo, objetos, luz, tintas);
  pintaCorpos(imagem, tipo, objetos, terra);
  for (const OBJETO& o : objetos) pinta(imagem, tipo, o, sorteiaTinta(tipo, o, luz, tintas));
  pintaSujeira(imagem, tipo, terra);
  if (!tipo.aspecto.clarosContam) {
    objetos.erase(
        std::remove_if(objetos.begin(), objetos.end(), [](const OBJETO& o) { return o.claro; }),
        objetos.end());
  }
  return {fotografa(imagem, tipo.camera, sensor), std::move(objetos)};
}

void gravaVerdade(const std::vector<OBJETO>& graos, const std::string& nome) {
  pim::ARQUIVO arquivo = pim::abre(nome, "wt");
  std::fprintf(arquivo.get(), "letter,row,col,d1,d2,ang,edge\n");
  for (const OBJETO& o : graos) {
    const GRAO& g = o.verdade;
    std::fprintf(arquivo.get(), "%c,%.3f,%.3f,%.3f,%.3f,%.3f,%d\n", g.forma, g.linha, g.coluna,
                 g.d1, g.d2, anguloAntiHorario(g), o.cortado ? 1 : 0);
  }
  pim::fechaEscrita(std::move(arquivo), nome);
}

}  // namespace cenas
