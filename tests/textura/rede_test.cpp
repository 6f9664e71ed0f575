#include "textura/rede.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>

#include "apoio/erros.h"
#include "apoio/pasta.h"

namespace {

using textura::CAMADA;
using textura::REDE;

// A tiny network, whose weights are small numbers in turn.
std::string arquivoPequeno(const std::string& camadas =
                               "conv a foto 1 3 5 2 1\n"
                               "conv b a 3 4 3 2 1\n"
                               "dobra c b\n"
                               "junta d c a\n"
                               "conv e d 7 12 3 1 0\n",
                           std::size_t n = 78 + 112 + 768) {
  std::string s = "vorplex-mapa 1\n# um cartao\n" + camadas + "pesos " + std::to_string(n) + '\n';
  for (std::size_t i = 0; i < n; ++i) {
    const unsigned meia = (i % 3 == 0 ? 0x8000U : 0U) | 0x2C00U | (i * 37 % 1024);  // 1/16 to 1/8
    s += static_cast<char>(meia & 255U);
    s += static_cast<char>(meia >> 8U);
  }
  return s;
}

using PLANOS = std::vector<cv::Mat_<double>>;

// The convolution as its definition has it.
PLANOS convolui(const CAMADA& c, const std::vector<float>& pesos, const PLANOS& x) {
  const int rows = (x[0].rows + c.passo - 1) / c.passo;
  const int cols = (x[0].cols + c.passo - 1) / c.passo;
  const auto tamanho = static_cast<std::size_t>(c.lado * c.lado);
  const float* w = &pesos[c.onde];
  const float* b = w + x.size() * tamanho * static_cast<std::size_t>(c.sai);
  PLANOS y;
  for (int s = 0; s < c.sai; ++s) {
    y.emplace_back(rows, cols, static_cast<double>(b[s]));
    for (const auto& plano : x) {
      for (int l = 0; l < rows; ++l) {
        for (int k = 0; k < cols; ++k) {
          for (int i = 0; i < c.lado * c.lado; ++i) {
            const int ll = l * c.passo + i / c.lado - c.lado / 2;
            const int kk = k * c.passo + i % c.lado - c.lado / 2;
            const bool dentro = ll >= 0 && kk >= 0 && ll < plano.rows && kk < plano.cols;
            if (dentro) y.back()(l, k) += static_cast<double>(w[i]) * plano(ll, kk);
          }
        }
      }
      w += tamanho;
    }
    if (c.relu) y.back() = cv::max(y.back(), 0.0);
  }
  return y;
}

PLANOS aMao(const REDE& rede, const cv::Mat_<float>& foto) {
  std::map<std::string, PLANOS> feitos;
  feitos["foto"].emplace_back(foto);
  for (const CAMADA& c : rede.camadas) {
    PLANOS x;
    for (const std::string& e : c.entradas) {
      for (const auto& p : feitos.at(e)) x.push_back(p);
    }
    if (c.tipo == CAMADA::TIPO::conv) x = convolui(c, rede.pesos, x);
    if (c.tipo == CAMADA::TIPO::dobra) {
      for (auto& p : x) {
        cv::Mat_<double> grande(2 * p.rows, 2 * p.cols);
        for (int l = 0; l < grande.rows; ++l) {
          for (int k = 0; k < grande.cols; ++k) grande(l, k) = p(l / 2, k / 2);
        }
        p = grande;
      }
    }
    feitos[c.nome] = x;
  }
  return feitos.at(rede.camadas.back().nome);
}

TEST(Rede, OModuloCalculaOQueAsCamadasDizem) {
  const PASTA pasta;
  grava("p.pesos", arquivoPequeno());
  const REDE rede = textura::leRede("p.pesos");
  EXPECT_EQ(rede.cartao, std::vector<std::string>{"um cartao"});
  cv::Mat_<float> foto(32, 48);
  for (int l = 0; l < foto.rows; ++l) {
    for (int c = 0; c < foto.cols; ++c) foto(l, c) = static_cast<float>(std::sin(l * 5 + c * c));
  }
  const cv::Mat feito = textura::modulo().constroi(rede)(foto);
  const PLANOS certo = aMao(rede, foto);
  ASSERT_EQ(feito.size[1], 12);
  for (int p = 0; p < 12; ++p) {
    for (int l = 0; l < 16; ++l) {
      for (int c = 0; c < 24; ++c) {
        ASSERT_NEAR(feito.ptr<float>(0, p, l)[c], certo[static_cast<std::size_t>(p)](l, c), 1e-5);
      }
    }
  }
}

TEST(Rede, RecusaArquivosQueNaoSaoPesos) {
  const PASTA pasta;
  const auto recusado = [](const std::string& conteudo) {
    grava("x.pesos", conteudo);
    return erroDe([] { textura::leRede("x.pesos"); });
  };
  const std::string bom = arquivoPequeno();
  EXPECT_EQ(recusado(bom), "");
  EXPECT_NE(recusado(""), "");
  EXPECT_NE(recusado("P5 1 1 255\nx"), "");
  EXPECT_NE(recusado(bom.substr(0, bom.size() - 1)), "");
  EXPECT_NE(recusado(bom.substr(0, 60)), "");
  EXPECT_NE(recusado(bom + "zz"), "");
  EXPECT_NE(recusado(bom.substr(0, bom.size() - 1) + '\x7C'), "");  // an infinite weight
  EXPECT_NE(erroDe([] { textura::leRede("nao-ha.pesos"); }), "");
}

TEST(Rede, RecusaCamadasQueNaoSeEncaixam) {
  const PASTA pasta;
  const auto recusado = [](const std::string& camadas, std::size_t n) {
    grava("x.pesos", arquivoPequeno(camadas, n));
    return erroDe([] { textura::leRede("x.pesos"); }) != "";
  };
  EXPECT_FALSE(recusado("conv a foto 1 12 1 2 0\n", 24));
  EXPECT_TRUE(recusado("", 0));
  EXPECT_TRUE(recusado("conv a foto 1 12 1 1 0\n", 24));    // not halved
  EXPECT_TRUE(recusado("conv a foto 2 12 1 2 0\n", 36));    // planes that nobody gives
  EXPECT_TRUE(recusado("conv a b 1 12 1 2 0\n", 24));       // of an unknown layer
  EXPECT_TRUE(recusado("conv a foto 1 12 2 2 0\n", 60));    // an even side
  EXPECT_TRUE(recusado("conv a foto 1 12 1 2 0\n", 23));    // too few weights
  EXPECT_TRUE(recusado("conv a foto 1 99999 1 2 0\n", 0));  // too many planes
  EXPECT_TRUE(recusado("dobra a foto\n", 0));               // larger than the photograph
  EXPECT_TRUE(recusado("salta a foto\n", 0));               // no such kind
  EXPECT_TRUE(recusado("conv a foto 1 12 1 2 0\nconv a foto 1 12 1 2 0\n", 48));
}

TEST(Rede, OsPesosQueVemComOProgramaTemCartaoELicenca) {
  for (const char* qual : {"fotos", "cenas"}) {
    const REDE rede = textura::leRede(textura::arquivoDosPesos(qual));
    EXPECT_LE(2 * rede.pesos.size(), 800000U);
    std::string cartao;
    for (const std::string& linha : rede.cartao) cartao += linha + '\n';
    for (const char* parte : {"Data: ", "Learned on ", "Licence: ", "Limits: "}) {
      EXPECT_NE(cartao.find(parte), std::string::npos) << parte << cartao;
    }
  }
}

}  // namespace
