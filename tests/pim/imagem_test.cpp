#include "pim/imagem.h"

#include <sys/stat.h>

#include <cstring>
#include <filesystem>
#include <limits>
#include <opencv2/imgcodecs.hpp>
#include <thread>

#include "apoio/erros.h"
#include "apoio/pasta.h"
#include "fabrica.h"

using CINZA = cv::Mat_<unsigned char>;
using COR = cv::Mat_<pim::VEC3B>;

namespace {

CINZA leCinza(const std::string& nome) {
  CINZA img;
  pim::le(img, nome);
  return img;
}

COR leCor(const std::string& nome) {
  COR img;
  pim::le(img, nome);
  return img;
}

void exigeErroDeLeitura(const std::string& nome) {
  const std::string inicio = "Erro leitura imagem " + nome + ": ";
  const std::string erro = erroDe([&] { leCinza(nome); });
  EXPECT_TRUE(erro.starts_with(inicio) && erro.size() > inicio.size()) << erro;
  EXPECT_EQ(erro.find('\n'), std::string::npos) << erro;
}

}  // namespace

TEST(Imp, FormatosSemPerdaDevolvemCinzaECorIguais) {
  const PASTA pasta;
  const CINZA cinza = aleatoria(31, 17, CV_8UC1, 1);
  const COR cor = aleatoria(31, 17, CV_8UC3, 2);
  for (const char* sufixo : {"png", "bmp", "tif", "tiff", "pnm", "PNG", "Tif"}) {
    const std::string nome = std::string("a b.x.") + sufixo;
    pim::imp(cinza, nome);
    EXPECT_EQ(maiorDiferenca(leCinza(nome), cinza), 0) << sufixo;
    pim::imp(cor, nome);
    EXPECT_EQ(maiorDiferenca(leCor(nome), cor), 0) << sufixo;
  }
  pim::imp(cinza, "a.pgm");
  EXPECT_EQ(maiorDiferenca(leCinza("a.pgm"), cinza), 0);
  pim::imp(cor, "a.PPM");
  EXPECT_EQ(maiorDiferenca(leCor("a.PPM"), cor), 0);
}

TEST(Imp, NaoMudaAImagemGravada) {
  const PASTA pasta;
  for (const char* nome : {"a.ppm", "a.pnm", "a.png", "a.jpg", "a.bmp", "a.tif", "a.pgm"}) {
    const COR cor = cenaColorida(9, 11);
    pim::imp(cor, nome);
    EXPECT_EQ(maiorDiferenca(cor, cenaColorida(9, 11)), 0) << nome;
  }
}

TEST(Imp, JpegPerdePouco) {
  const PASTA pasta;
  pim::imp(cenaCinza(50, 60), "a.jpg");
  EXPECT_LE(maiorDiferenca(leCinza("a.jpg"), cenaCinza(50, 60)), 8);
  pim::imp(cenaColorida(50, 60), "b.jpeg");
  EXPECT_LE(cv::norm(leCor("b.jpeg"), cenaColorida(50, 60), cv::NORM_L1) / (50 * 60 * 3), 3);
}

TEST(Imp, PgmEhSempreCinzaEPpmSempreColorido) {
  const PASTA pasta;
  const COR cor = cenaColorida(5, 7);
  pim::imp(cor, "a.pgm");
  EXPECT_TRUE(leTudo("a.pgm").starts_with("P5\n7 5\n255\n"));
  pim::imp(cenaCinza(5, 7), "a.ppm");
  EXPECT_TRUE(leTudo("a.ppm").starts_with("P6\n7 5\n255\n"));
  EXPECT_EQ(maiorDiferenca(leCinza("a.ppm"), cenaCinza(5, 7)), 0);
}

TEST(Le, EmCinzaEhOQueConverteFazDaLidaEmCores) {
  const PASTA pasta;
  pim::imp(COR(aleatoria(31, 17, CV_8UC3, 2)), "a.png");
  pim::imp(COR(aleatoria(31, 17, CV_8UC3, 3)), "a.jpg");
  pim::imp(CINZA(aleatoria(31, 17, CV_8UC1, 4)), "a.pgm");
  cv::imwrite("b.png", aleatoria(31, 17, CV_16UC3, 5));
  cv::imwrite("c.png", aleatoria(31, 17, CV_16UC1, 6));
  cv::imwrite("d.png", aleatoria(31, 17, CV_8UC4, 7));
  for (const char* nome : {"a.png", "a.jpg", "a.pgm", "b.png", "c.png", "d.png"}) {
    CINZA cinza;
    pim::converte(leCor(nome), cinza);
    EXPECT_EQ(maiorDiferenca(leCinza(nome), cinza), 0) << nome;
  }
}

TEST(Le, CorViraCinzaComOsPesosUsuais) {
  const PASTA pasta;
  const COR cor = aleatoria(40, 40, CV_8UC3, 3);
  pim::imp(cor, "a.png");
  const CINZA lida = leCinza("a.png");
  for (int l = 0; l < cor.rows; ++l) {
    for (int c = 0; c < cor.cols; ++c) {
      const double certo = 0.114 * cor(l, c)[0] + 0.587 * cor(l, c)[1] + 0.299 * cor(l, c)[2];
      ASSERT_NEAR(lida(l, c), certo, 0.51);
    }
  }
}

TEST(Le, CinzaViraCorComTresCanaisIguais) {
  const PASTA pasta;
  pim::imp(cenaCinza(6, 9), "a.png");
  COR certa;
  pim::converte(cenaCinza(6, 9), certa);
  EXPECT_EQ(maiorDiferenca(leCor("a.png"), certa), 0);
}

TEST(Le, SubstituiAImagemSemTocarNaAntiga) {
  const PASTA pasta;
  pim::imp(CINZA(2, 2, 7), "a.pgm");
  CINZA img(2, 2, 1);
  const CINZA outra = img;
  pim::le(img, "a.pgm");
  EXPECT_EQ(outra(0, 0), 1);
  EXPECT_EQ(img(0, 0), 7);
}

TEST(Le, FormatoEhReconhecidoPeloConteudoENaoPeloNome) {
  const PASTA pasta;
  const CINZA cena = cenaCinza(8, 8);
  pim::imp(cena, "a.png");
  std::filesystem::rename("a.png", "a.jpg");
  EXPECT_EQ(maiorDiferenca(leCinza("a.jpg"), cena), 0);
  pim::imp(cena, "b.pgm");
  std::filesystem::rename("b.pgm", "b");
  EXPECT_EQ(maiorDiferenca(leCinza("b"), cena), 0);
}

TEST(Le, TuboEhLidoComoArquivo) {
  const PASTA pasta;
  ASSERT_EQ(mkfifo("tubo.png", 0600), 0);
  const CINZA ruido = aleatoria(400, 400, CV_8UC1, 4);  // more than a pipe holds at once
  const BYTES png = codificada("png", ruido);
  std::thread escritor([&] { gravaBytesEm("tubo.png", png); });
  const CINZA lida = leCinza("tubo.png");
  escritor.join();
  EXPECT_EQ(maiorDiferenca(lida, ruido), 0);
}

TEST(Le, MatEmTuboEhErroENaoEspera) {
  const PASTA pasta;
  ASSERT_EQ(mkfifo("tubo.mat", 0600), 0);
  const auto acao = [] {
    std::thread escritor([] { grava("tubo.mat", "MATLAB 5.0 MAT-file"); });
    const std::string erro = erroDe([] { leCinza("tubo.mat"); });
    escritor.join();
    return erro;
  };
  EXPECT_EQ(acao(), "Erro leitura imagem tubo.mat: MAT-file precisa ser arquivo comum");
}

TEST(Le, ArquivoAusenteOuPastaTerminaComONome) {
  const PASTA pasta;
  std::filesystem::create_directory("d.png");
  EXPECT_EQ(erroDe([&] { leCinza("nada.png"); }), "Erro abertura arquivo nada.png");
  EXPECT_EQ(erroDe([&] { leCor("nada.png"); }), "Erro abertura arquivo nada.png");
  EXPECT_EQ(erroDe([&] { leCinza("d.png"); }), "Erro abertura arquivo d.png");
}

TEST(Le, ArquivoVazioOuQueNaoEhImagemTerminaComONome) {
  const PASTA pasta;
  grava("vazio.png", "");
  EXPECT_EQ(erroDe([&] { leCinza("vazio.png"); }), "Erro leitura imagem vazio.png: arquivo vazio");
  grava("texto.png", "isto nao e' uma imagem");
  EXPECT_EQ(erroDe([&] { leCinza("texto.png"); }),
            "Erro leitura imagem texto.png: nao e' uma imagem legivel");
}

TEST(Le, ArquivoTruncadoTerminaComONomeENadaMaisNoErroPadrao) {
  const PASTA pasta;
  for (const char* sufixo : {"png", "jpg", "tiff", "bmp", "pgm", "ppm"}) {
    pim::imp(cenaColorida(40, 37), std::string("inteiro.") + sufixo);
    const BYTES inteiro = deTexto(leTudo(std::string("inteiro.") + sufixo));
    for (const std::size_t n : {inteiro.size() / 4, inteiro.size() / 2, inteiro.size() - 4}) {
      const std::string nome = std::string("curto.") + sufixo;
      gravaBytesEm(nome, corta(inteiro, n));
      exigeErroDeLeitura(nome);
    }
  }
}

TEST(Le, LadoEnormeDeclaradoEhErro) {
  const PASTA pasta;
  gravaBytesEm("largo.png", montaPng({2000000, 1, 8, 0, {{1, 2, 3}}, {}, {}}));
  exigeErroDeLeitura("largo.png");
  gravaBytesEm("grande.png", montaPng({60000, 60000, 8, 2, {{1, 2, 3}}, {}, {}}));
  exigeErroDeLeitura("grande.png");
}

TEST(ImpReais, ValoresVoltamBitABit) {
  const PASTA pasta;
  cv::Mat_<float> img = (cv::Mat_<float>(2, 4) << 0.1F, -3.75F, 1e-42F, 3e38F, -0.0F, 1.0F / 3.0F,
                         std::numeric_limits<float>::infinity(), -1e-30F);
  pim::imp(img, "oldcorrela.img");
  const cv::Mat lida = cv::imread("oldcorrela.img", cv::IMREAD_UNCHANGED);
  ASSERT_EQ(lida.type(), CV_32FC1);
  ASSERT_EQ(lida.size(), img.size());
  for (int l = 0; l < img.rows; ++l) EXPECT_EQ(std::memcmp(lida.ptr(l), img.ptr(l), 16), 0);
}

TEST(ImpReais, GravaUmTiffSemCompressao) {
  const PASTA pasta;
  pim::imp(cv::Mat_<float>(100, 100, 0.0F), "oldcorrela.img");
  EXPECT_EQ(leTudo("oldcorrela.img").substr(0, 4), std::string("II*\0", 4));
  EXPECT_GE(std::filesystem::file_size("oldcorrela.img"), 40000U);
}

TEST(ImpReais, OutroSufixoOuImagemVaziaEhErro) {
  const PASTA pasta;
  const cv::Mat_<float> img(2, 2, 0.0F);
  EXPECT_EQ(erroDe([&] { pim::imp(img, "a.png"); }), "Erro: Formato de imagem desconhecido a.png");
  EXPECT_EQ(erroDe([&] { pim::imp(cv::Mat_<float>(), "a.img"); }), "Erro: Imagem vazia a.img");
  EXPECT_FALSE(existe("a.png"));
  EXPECT_FALSE(existe("a.img"));
}

TEST(Imp, SufixoDesconhecidoOuAusenteEhErroENaoTocaNoArquivo) {
  const PASTA pasta;
  grava("a.xyz", "antigo");
  EXPECT_EQ(erroDe([&] { pim::imp(cenaCinza(4, 4), "a.xyz"); }),
            "Erro: Formato de imagem desconhecido a.xyz");
  EXPECT_EQ(erroDe([&] { pim::imp(cenaColorida(4, 4), "a"); }),
            "Erro: Formato de imagem desconhecido a");
  EXPECT_EQ(erroDe([&] { pim::imp(cenaColorida(4, 4), "d.png/a"); }),
            "Erro: Formato de imagem desconhecido d.png/a");
  EXPECT_EQ(leTudo("a.xyz"), "antigo");
}

TEST(Imp, ImagemVaziaEhErro) {
  const PASTA pasta;
  for (const char* nome : {"a.png", "a.pgm", "a.ppm"}) {
    EXPECT_EQ(erroDe([&] { pim::imp(CINZA(), nome); }), std::string("Erro: Imagem vazia ") + nome);
    EXPECT_EQ(erroDe([&] { pim::imp(COR(), nome); }), std::string("Erro: Imagem vazia ") + nome);
    EXPECT_FALSE(existe(nome));
  }
}

TEST(Imp, PastaInexistenteEhErro) {
  const PASTA pasta;
  EXPECT_EQ(erroDe([&] { pim::imp(cenaCinza(4, 4), "nada/a.png"); }),
            "Erro abertura arquivo nada/a.png");
  EXPECT_EQ(erroDe([&] { pim::imp(cenaCinza(4, 4), "nada/a.pgm"); }),
            "Erro abertura arquivo nada/a.pgm");
  EXPECT_EQ(erroDe([&] { pim::imp(cv::Mat_<float>(2, 2, 0.0F), "nada/a.img"); }),
            "Erro abertura arquivo nada/a.img");
}

TEST(Imp, DiscoCheioEhErroENaoSilencio) {
  const PASTA pasta;
  for (const char* nome : {"cheio.png", "cheio.pgm", "cheio.ppm", "cheio.jpg"}) {
    std::filesystem::create_symlink("/dev/full", nome);
    EXPECT_EQ(erroDe([&] { pim::imp(cenaCinza(100, 100), nome); }),
              std::string("Erro gravacao arquivo ") + nome);
  }
}
