#include "motor/avaliacao/avaliacao.h"

#include <gtest/gtest.h>

#include <random>
#include <type_traits>

using namespace motor;

namespace {

constexpr unsigned sementeDePlanos = 20;

// Random planes and terms, evaluated pixel by pixel and by every instruction set of this machine.
// Kernels of few and of many terms are evaluated in different ways.
template <class T>
void compara(AVALIA<T>* avalia, const char* nome, unsigned maximoDeTermos) {
  std::mt19937 g(sementeDePlanos);
  constexpr int passo = 400;
  std::vector<T> plano(std::size_t{passo} * 60);
  for (T& x : plano) {
    x = std::is_integral_v<T> ? static_cast<T>(g()) : static_cast<T>(g() % 100000);
  }
  std::vector<KERNELPRONTO> kernels(3);
  for (std::size_t k = 0; k < kernels.size(); ++k) {
    KERNELPRONTO& x = kernels[k];
    x.partes.resize(sizeof(T) == 2 ? k + 1 : 1);
    for (SOMAS& s : x.partes) {
      for (auto* lista : {&s.tudo.mais, &s.tudo.menos, &s.nucleo.mais, &s.nucleo.menos}) {
        for (auto i = g() % (maximoDeTermos + 1); i > 0; --i) {
          const auto linha = static_cast<std::int32_t>(g() % 20);
          lista->push_back(linha * passo + static_cast<std::int32_t>(g() % 20));
        }
      }
    }
    x.nAnel = 40;
    x.nNucleo = 30;
    x.escala = 1e-12;
    x.indice = static_cast<int>(k) + 7;
  }
  for (const int colunas : {1, 3, 31, 32, 33, 64, 100, 200}) {
    std::vector<float> esperada(std::size_t{passo} * 10, 9.0F);
    std::vector<float> obtida = esperada;
    std::vector<std::int32_t> qualEsperado(esperada.size(), 9);
    std::vector<std::int32_t> qualObtido = qualEsperado;
    avaliaSimples(BLOCO<T>{plano.data(), passo, 10, colunas, esperada.data(), passo,
                           qualEsperado.data(), passo},
                  kernels);
    avalia(
        BLOCO<T>{plano.data(), passo, 10, colunas, obtida.data(), passo, qualObtido.data(), passo},
        kernels);
    // Equal to the last bit, and nothing written beyond the block.
    ASSERT_EQ(obtida, esperada) << nome << " colunas=" << colunas;
    ASSERT_EQ(qualObtido, qualEsperado) << nome << " colunas=" << colunas;
  }
}

}  // namespace

TEST(Avaliacao, TodosOsConjuntosDeInstrucoesDaoOMesmoQuePixelAPixel) {
  const std::vector<AVALIADOR> todos = avaliadores();
  ASSERT_FALSE(todos.empty());
  for (const AVALIADOR& a : todos) {
    for (const unsigned maximoDeTermos : {6U, 20U, 80U}) {
      compara(a.curtos, a.nome, maximoDeTermos);
      compara(a.inteiros, a.nome, maximoDeTermos);
      compara(a.reais, a.nome, maximoDeTermos);
    }
  }
}
