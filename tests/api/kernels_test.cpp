#include "vorplex/kernels.h"

#include <gtest/gtest.h>

#include "api/fotos.h"
#include "apoio/pasta.h"

namespace {

const std::string textoDeNove =
    "passoang 90 escoitava 2 escala 0.5 a 1 piramide 2 circulo 20 elipse 30 12";

}  // namespace

TEST(Kernels, DoTextoEDoArquivoSaoOsMesmos) {
  const PASTA pasta;
  grava("k.cfg", textoDeNove);
  const auto doTexto = vorplex::list_kernels(vorplex::kernels_from_text(textoDeNove));
  const auto doArquivo = vorplex::list_kernels(vorplex::kernels_from_file("k.cfg"));
  ASSERT_EQ(doTexto.size(), 9U);  // three scales of a circle, and of an ellipse at two angles
  ASSERT_EQ(doArquivo.size(), 9U);
  for (std::size_t i = 0; i < doTexto.size(); ++i) {
    EXPECT_EQ(doTexto[i].shape, doArquivo[i].shape) << i;
    EXPECT_EQ(doTexto[i].d1, doArquivo[i].d1) << i;
    EXPECT_EQ(doTexto[i].angle, doArquivo[i].angle) << i;
  }
  EXPECT_EQ(doTexto[0].shape, 'c');
  EXPECT_EQ(doTexto[0].d1, 20);
  EXPECT_EQ(doTexto[0].levels, 2);  // scale 1, and 2 in the halved picture
  EXPECT_EQ(doTexto[6].shape, 'e');
  EXPECT_EQ(doTexto[6].d2, 12);
  EXPECT_EQ(doTexto[6].angle, 90);
}

TEST(Kernels, TextoVazioOuConjuntoNenhumNaoTemKernels) {
  EXPECT_TRUE(vorplex::list_kernels(vorplex::kernels_from_text("")).empty());
  EXPECT_TRUE(vorplex::list_kernels(vorplex::kernels_from_text("// nada\n")).empty());
  EXPECT_TRUE(vorplex::list_kernels({}).empty());
}

TEST(Kernels, ErrosDizemONomeEALinha) {
  using vorplex::kernels_from_text;
  EXPECT_EQ(erroDe([] { kernels_from_text("circulo vinte", "meus"); }),
            "Erro: Numero invalido vinte (meus, linha 1)");
  EXPECT_EQ(erroDe([] { kernels_from_text("\ncirculo", "meus"); }),
            "Erro: Falta numero no fim do texto (meus, linha 2)");
  EXPECT_EQ(erroDe([] { kernels_from_text("Triangulo 3"); }),
            "Erro: Palavra desconhecida triangulo");
  EXPECT_EQ(erroDe([] { kernels_from_text(std::string("circulo 20\0 lixo", 16), "meus"); }),
            "Erro: Caractere nulo em meus");
  EXPECT_EQ(erroDe([] { vorplex::kernels_from_file("nao/existe.cfg"); }),
            "Erro abertura arquivo nao/existe.cfg");
}

TEST(Kernels, SoSeLeOPedacoDoTextoQueEDado) {
  const std::string_view pedaco = std::string_view("circulo 20 quadrado 30").substr(0, 9);
  const auto lista = vorplex::list_kernels(vorplex::kernels_from_text(pedaco));
  ASSERT_FALSE(lista.empty());
  EXPECT_EQ(lista[0].d1, 2);
}
