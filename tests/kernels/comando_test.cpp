#include "kernels/comando.h"

#include <gtest/gtest.h>

#include "apoio/figuras.h"
#include "referencia/formas.h"

using CINZA = cv::Mat_<unsigned char>;

TEST(KernelParaCinza, NegativoPretoZeroMeioTomPositivoBranco) {
  CINZA G;
  cv::Mat_<float> K = referencia::desenho("+0-/-+0");
  for (float& x : K) x *= 1e-30F;
  kernelParaCinza(K, G);
  const CINZA esperada = (CINZA(2, 3) << 255, 128, 0, 0, 255, 128);
  EXPECT_TRUE(iguais(G, esperada));
}

TEST(KernelParaCinza, ZeroExatoDeQualquerSinalEh128) {
  CINZA G;
  kernelParaCinza(cv::Mat_<float>(1, 1, -0.0F), G);
  EXPECT_EQ(G(0, 0), 128);
}

TEST(KernelParaCinza, ReusaAImagemDoMesmoTamanho) {
  CINZA G(2, 3, static_cast<unsigned char>(9));
  const CINZA copiaRasa = G;
  kernelParaCinza(referencia::desenho("+0-/-+0"), G);
  EXPECT_EQ(G.data, copiaRasa.data);
  kernelParaCinza(referencia::desenho("+0-"), G);
  EXPECT_NE(G.data, copiaRasa.data);
  EXPECT_EQ(G.size(), cv::Size(3, 1));
}

TEST(KernelParaCinza, KernelVazioDaImagemVazia) {
  CINZA G(2, 3, static_cast<unsigned char>(9));
  kernelParaCinza(cv::Mat_<float>(), G);
  EXPECT_TRUE(G.empty());
}
