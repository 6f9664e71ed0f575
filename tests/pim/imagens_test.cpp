#include <algorithm>
#include <limits>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>
#include <random>

#include "apoio/pasta.h"
#include "fabrica.h"

#include "pim/modulo/formatos.h"
#include "pim/oitobits.h"

using pim::decodificaImagem;
using pim::para8BitsSemAlfa;
using pim::RESULTADO;

namespace {

// What decoding says on standard error, besides its result.
struct LEITURA {
  RESULTADO resultado;
  std::string dito;
};

LEITURA decodificaOuvindo(const BYTES& bytes) {
  testing::internal::CaptureStderr();
  LEITURA leitura{decodificaImagem(bytes), ""};
  leitura.dito = testing::internal::GetCapturedStderr();
  return leitura;
}

// Cut at every `passo`-th byte, the file must give an error in one line and nothing else.
void exigeErroEmTodoCorte(const BYTES& inteiro, std::size_t fim, std::size_t passo) {
  ASSERT_TRUE(decodificaImagem(inteiro).erro.empty());
  for (std::size_t n = 0; n < fim; n += passo) {
    const LEITURA l = decodificaOuvindo(corta(inteiro, n));
    EXPECT_NE(l.resultado.erro, "") << "cut after " << n << " of " << inteiro.size();
    EXPECT_EQ(l.resultado.erro.find('\n'), std::string::npos) << l.resultado.erro;
    EXPECT_EQ(l.dito, "") << "cut after " << n;
  }
}

cv::Mat decodificada(const BYTES& bytes) {
  const RESULTADO r = decodificaImagem(bytes);
  EXPECT_EQ(r.erro, "");
  return r.imagem;
}

}  // namespace

TEST(DecodificaImagem, PngTruncadoEmQualquerByteEhErroSilencioso) {
  const BYTES png = codificada("png", cenaColorida(13, 17));
  exigeErroEmTodoCorte(png, png.size(), 1);
}

TEST(DecodificaImagem, PngGrandeTruncadoEhErroSilencioso) {
  const BYTES png = codificada("png", aleatoria(150, 140, CV_8UC3, 1));
  exigeErroEmTodoCorte(png, png.size(), 997);
}

TEST(DecodificaImagem, JpegTruncadoEmQualquerByteEhErroSilencioso) {
  const BYTES jpeg = codificada("jpg", cenaColorida(40, 33));
  exigeErroEmTodoCorte(jpeg, jpeg.size(), 1);
}

TEST(DecodificaImagem, JpegCortadoComMarcaDeFimEhErroSilencioso) {
  // The library fills what is missing with grey and goes on.
  const BYTES jpeg = codificada("jpg", cenaColorida(80, 90));
  for (const std::size_t decimos : {5U, 7U, 9U}) {
    BYTES cortado = corta(jpeg, jpeg.size() * decimos / 10);
    anexa(cortado, {0xFF, 0xD9});
    const LEITURA l = decodificaOuvindo(cortado);
    EXPECT_EQ(l.resultado.erro, "dados corrompidos") << decimos;
    EXPECT_EQ(l.dito, "");
  }
}

TEST(DecodificaImagem, JpegSemParteDosReiniciosEhErro) {
  BYTES jpeg;
  cv::imencode(".jpg", cenaCinza(96, 96), jpeg, {cv::IMWRITE_JPEG_RST_INTERVAL, 3});
  ASSERT_EQ(decodificaImagem(jpeg).erro, "");
  const auto marca = [&](unsigned char qual) {
    const std::array<unsigned char, 2> bytes = {0xFF, qual};
    return std::search(jpeg.begin(), jpeg.end(), bytes.begin(), bytes.end());
  };
  jpeg.erase(marca(0xD1), marca(0xD4));
  EXPECT_EQ(decodificaImagem(jpeg).erro, "dados corrompidos");
}

TEST(DecodificaImagem, BytesSoltosAntesDoFimDoJpegNaoImportam) {
  const BYTES jpeg = codificada("jpg", cenaCinza(40, 33));
  BYTES solto = corta(jpeg, jpeg.size() - 2);
  anexa(solto, {0, 0, 0, 0, 0xFF, 0xD9});
  EXPECT_EQ(maiorDiferenca(decodificada(solto), decodificada(jpeg)), 0);
}

// The limit of the image library itself is more than a test can hold.
TEST(DecodificaAte, ArquivoMaiorQueOLimiteEhErroENoLimiteEhLido) {
  const BYTES bytes = codificada("png", aleatoria(9, 7, CV_8UC1, 5));
  EXPECT_EQ(pim::decodificaAte(bytes, bytes.size()).erro, "");
  const RESULTADO maior = pim::decodificaAte(bytes, bytes.size() - 1);
  EXPECT_EQ(maior.erro, "arquivo grande demais para este formato");
  EXPECT_TRUE(maior.imagem.empty());
}

TEST(ReconheceImagem, OlhaSoOsPrimeirosBytes) {
  const PASTA pasta;
  const BYTES png = codificada("png", cenaCinza(9, 9));
  gravaBytesEm("cortado", corta(png, 20));
  EXPECT_TRUE(pim::reconheceImagem("cortado"));
  grava("zeros", std::string(1000, '\0'));
  EXPECT_FALSE(pim::reconheceImagem("zeros"));
  EXPECT_FALSE(pim::reconheceImagem("nao existe"));
}

TEST(DecodificaImagem, TiffTruncadoEmQualquerByteEhErroSilencioso) {
  const BYTES tiff = codificada("tiff", cenaColorida(13, 17));
  exigeErroEmTodoCorte(tiff, tiff.size(), 1);
}

TEST(DecodificaImagem, TiffSemCompressaoTruncadoEhErroSilencioso) {
  BYTES tiff;
  cv::imencode(".tiff", aleatoria(90, 70, CV_8UC1, 2), tiff, {cv::IMWRITE_TIFF_COMPRESSION, 1});
  exigeErroEmTodoCorte(tiff, tiff.size(), 37);
}

TEST(DecodificaImagem, BmpTruncadoEmQualquerByteEhErroSilencioso) {
  // A width of three leaves padding at the end of every row, the last included.
  const BYTES bmp = codificada("bmp", cenaColorida(9, 3));
  exigeErroEmTodoCorte(bmp, bmp.size() - 3, 1);
  const BYTES cinza = codificada("bmp", cenaCinza(9, 8));
  exigeErroEmTodoCorte(cinza, cinza.size(), 1);
}

TEST(DecodificaImagem, FormatoMedicoNaoEhAberto) {
  // The library's reader ends the process on such a file.
  std::vector<unsigned char> bytes(135, 0x0A);
  const std::string marca = "DICM\x7F\xFF\xD9";
  std::copy(marca.begin(), marca.end(), bytes.begin() + 128);
  EXPECT_EQ(pim::decodificaImagem(bytes).erro, "nao e' uma imagem legivel");
  for (const std::string comeco : {"\x89PNG", "BM", "\xFF\x4F\xFF\x51"}) {
    std::copy(comeco.begin(), comeco.end(), bytes.begin());
    EXPECT_EQ(pim::decodificaImagem(bytes).erro, "nao e' uma imagem legivel");
  }
}

TEST(DecodificaImagem, LixoEhErroSilencioso) {
  for (unsigned semente = 1; semente <= 200; ++semente) {
    const cv::Mat ruido = aleatoria(1, static_cast<int>(semente), CV_8UC1, semente);
    const LEITURA l = decodificaOuvindo(BYTES(ruido.data, ruido.data + ruido.cols));
    EXPECT_NE(l.resultado.erro, "") << "seed " << semente;
    EXPECT_EQ(l.dito, "") << "seed " << semente;
  }
  EXPECT_EQ(decodificaImagem({}).erro, "arquivo vazio");
}

TEST(DecodificaImagem, BytesTrocadosNuncaDerrubamNemFalamNoErroPadrao) {
  const cv::Mat cena = cenaColorida(24, 20);
  std::mt19937 sorteio(20240517);
  SCOPED_TRACE("seed 20240517");
  for (const char* tipo : {"png", "jpg", "tiff", "bmp"}) {
    const BYTES inteiro = codificada(tipo, cena);
    for (int vez = 0; vez < 150; ++vez) {
      BYTES bytes = inteiro;
      for (int k = 0; k < 3; ++k) {
        bytes[sorteio() % bytes.size()] = static_cast<unsigned char>(sorteio());
      }
      const LEITURA l = decodificaOuvindo(bytes);
      EXPECT_EQ(l.dito, "") << tipo << " " << vez;
      EXPECT_NE(l.resultado.erro.empty(), l.resultado.imagem.empty()) << tipo << " " << vez;
    }
  }
}

TEST(DecodificaImagem, JpegEhPostoEmPeNasOitoOrientacoes) {
  const cv::Mat crua = decodificada(codificada("jpg", cenaColorida(32, 48)));
  const BYTES jpeg = codificada("jpg", cenaColorida(32, 48));
  const auto transposta = [&](int virada) {
    cv::Mat t;
    cv::transpose(crua, t);
    if (virada != 2) cv::flip(t, t, virada);
    return t;
  };
  const auto virada = [&](int como) {
    cv::Mat v;
    cv::flip(crua, v, como);
    return v;
  };
  // Exif: 2 mirrored, 3 half turn, 4 upside down, 5 transposed, 6 to turn 90 degrees clockwise,
  // 7 transposed across the other diagonal, 8 to turn 90 degrees anticlockwise.
  const std::vector<cv::Mat> emPe = {crua,          virada(1),     virada(-1),     virada(0),
                                     transposta(2), transposta(1), transposta(-1), transposta(0)};
  for (unsigned char o = 1; o <= 8; ++o) {
    for (const bool littleEndian : {true, false}) {
      const cv::Mat lida = decodificada(comOrientacao(jpeg, o, littleEndian));
      EXPECT_EQ(maiorDiferenca(lida, emPe[o - 1U]), 0) << "orientation " << int{o};
    }
  }
}

TEST(DecodificaImagem, OrientacaoTambemValeParaJpegCinza) {
  const BYTES jpeg = codificada("jpg", cenaCinza(16, 40));
  const cv::Mat lida = decodificada(comOrientacao(jpeg, 6, true));
  EXPECT_EQ(lida.type(), CV_8UC1);
  EXPECT_EQ(lida.size(), cv::Size(16, 40));
}

TEST(DecodificaImagem, JpegCmykEhLidoEmCores) {
  const cv::Mat branco = decodificada(jpegCmyk({255, 255, 255, 255}));
  EXPECT_LE(maiorDiferenca(branco, cv::Mat(8, 8, CV_8UC3, cv::Scalar::all(255))), 2);
  const cv::Mat ciano = decodificada(jpegCmyk({0, 255, 255, 255}));
  EXPECT_LE(maiorDiferenca(ciano, cv::Mat(8, 8, CV_8UC3, cv::Scalar(255, 255, 0))), 2);
  const cv::Mat amareloEscuro = decodificada(jpegCmyk({255, 255, 0, 128}));
  EXPECT_LE(maiorDiferenca(amareloEscuro, cv::Mat(8, 8, CV_8UC3, cv::Scalar(0, 128, 128))), 2);
}

TEST(DecodificaImagem, PngDeUmBitViraPretoEBranco) {
  const cv::Mat lida = decodificada(montaPng({10, 2, 1, 0, {{0xA5, 0x40}, {0x00, 0x80}}, {}, {}}));
  const cv::Mat_<unsigned char> certa =
      (cv::Mat_<unsigned char>(2, 10) << 255, 0, 255, 0, 0, 255, 0, 255, 0, 255,  //
       0, 0, 0, 0, 0, 0, 0, 0, 255, 0);
  EXPECT_EQ(maiorDiferenca(lida, certa), 0);
}

TEST(DecodificaImagem, PngCinzaDeDoisEQuatroBitsUsaTodaAEscala) {
  const cv::Mat dois = decodificada(montaPng({4, 1, 2, 0, {{0x1B}}, {}, {}}));
  EXPECT_EQ(maiorDiferenca(dois, (cv::Mat_<unsigned char>(1, 4) << 0, 85, 170, 255)), 0);
  const cv::Mat quatro = decodificada(montaPng({2, 1, 4, 0, {{0x1F}}, {}, {}}));
  EXPECT_EQ(maiorDiferenca(quatro, (cv::Mat_<unsigned char>(1, 2) << 17, 255)), 0);
}

TEST(DecodificaImagem, PngDePaletaTemAsCoresDaPaleta) {
  const BYTES paleta = {255, 0, 0, 0, 200, 0, 10, 20, 30};
  const cv::Mat lida = decodificada(montaPng({3, 1, 8, 3, {{0, 1, 2}}, paleta, {}}));
  ASSERT_EQ(lida.type(), CV_8UC3);
  EXPECT_EQ(lida.at<cv::Vec3b>(0, 0), cv::Vec3b(0, 0, 255));
  EXPECT_EQ(lida.at<cv::Vec3b>(0, 1), cv::Vec3b(0, 200, 0));
  EXPECT_EQ(lida.at<cv::Vec3b>(0, 2), cv::Vec3b(30, 20, 10));
}

TEST(DecodificaImagem, PaletaTransparenteFicaSobreBranco) {
  const BYTES paleta = {0, 0, 0, 0, 0, 0, 0, 0, 0};
  const cv::Mat lida = decodificada(montaPng({3, 1, 8, 3, {{0, 1, 2}}, paleta, {0, 128, 255}}));
  ASSERT_EQ(lida.type(), CV_8UC3);
  EXPECT_EQ(lida.at<cv::Vec3b>(0, 0), cv::Vec3b(255, 255, 255));
  EXPECT_EQ(lida.at<cv::Vec3b>(0, 1), cv::Vec3b(127, 127, 127));
  EXPECT_EQ(lida.at<cv::Vec3b>(0, 2), cv::Vec3b(0, 0, 0));
}

TEST(DecodificaImagem, CinzaComAlfaFicaSobreBranco) {
  const cv::Mat lida = decodificada(montaPng({3, 1, 8, 4, {{100, 255, 100, 0, 0, 51}}, {}, {}}));
  cv::Mat cinza;
  cv::cvtColor(lida, cinza, cv::COLOR_BGR2GRAY);
  EXPECT_EQ(maiorDiferenca(cinza, (cv::Mat_<unsigned char>(1, 3) << 100, 255, 204)), 0);
}

TEST(DecodificaImagem, DezesseisBitsComAlfaFicamSobreBranco) {
  const cv::Mat lida = decodificada(montaPng(
      {2, 1, 16, 6, {{0xFF, 0xFF, 0, 0, 0, 0, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0}}, {}, {}}));
  EXPECT_EQ(lida.at<cv::Vec3b>(0, 0), cv::Vec3b(0, 0, 255));
  EXPECT_EQ(lida.at<cv::Vec3b>(0, 1), cv::Vec3b(255, 255, 255));
}

TEST(DecodificaImagem, DezesseisBitsSaoEscaladosEArredondados) {
  cv::Mat_<ushort> niveis(1, 65536);
  cv::Mat_<unsigned char> certos(1, 65536);
  for (int v = 0; v < 65536; ++v) {
    niveis(0, v) = static_cast<ushort>(v);
    certos(0, v) = static_cast<unsigned char>((v * 255LL * 2 + 65535) / (2 * 65535LL));
  }
  EXPECT_EQ(maiorDiferenca(decodificada(codificada("png", niveis)), certos), 0);
  EXPECT_EQ(maiorDiferenca(decodificada(codificada("tiff", niveis)), certos), 0);
}

TEST(DecodificaImagem, TiffDeReaisEhEscaladoDeZeroAUmECortado) {
  const cv::Mat_<float> img = (cv::Mat_<float>(1, 6) << -1.F, 0.F, 0.5F, 1.F, 2.F, 100.F / 255.F);
  const cv::Mat lida = decodificada(codificada("tiff", img));
  EXPECT_EQ(maiorDiferenca(lida, (cv::Mat_<unsigned char>(1, 6) << 0, 0, 128, 255, 255, 100)), 0);
}

TEST(DecodificaImagem, TiffDeReaisMuitoClarosEhBranco) {
  const float semFim = std::numeric_limits<float>::infinity();
  const cv::Mat_<float> img = (cv::Mat_<float>(1, 4) << 8.5e6F, 1e10F, 3.4e38F, semFim);
  cv::Mat_<double> dupla;
  img.convertTo(dupla, CV_64F);
  const cv::Mat_<unsigned char> branco(1, 4, 255);
  EXPECT_EQ(maiorDiferenca(decodificada(codificada("tiff", img)), branco), 0);
  EXPECT_EQ(maiorDiferenca(decodificada(codificada("tiff", dupla)), branco), 0);
}

TEST(JpegInteiro, MarcaDeFimDaMiniaturaNaoContaComoFim) {
  const BYTES jpeg = codificada("jpg", cenaCinza(16, 16));
  BYTES comMiniatura = {0xFF, 0xD8, 0xFF, 0xE1, 0, 6, 0xFF, 0xD8, 0xFF, 0xD9};
  anexa(comMiniatura, BYTES(jpeg.begin() + 2, jpeg.end()));
  EXPECT_TRUE(pim::jpegInteiro(comMiniatura));
  EXPECT_FALSE(pim::jpegInteiro(corta(comMiniatura, comMiniatura.size() - 2)));
}

TEST(JpegInteiro, ReiniciosEPreenchimentoSaoSaltados) {
  BYTES jpeg;
  cv::imencode(".jpg", cenaCinza(64, 64), jpeg, {cv::IMWRITE_JPEG_RST_INTERVAL, 2});
  EXPECT_TRUE(pim::jpegInteiro(jpeg));
  EXPECT_FALSE(pim::jpegInteiro(corta(jpeg, jpeg.size() - 2)));
  BYTES preenchido = corta(jpeg, jpeg.size() - 2);
  anexa(preenchido, {0xFF, 0xFF, 0xFF, 0xD9});
  EXPECT_TRUE(pim::jpegInteiro(preenchido));
}

TEST(CodificaImagem, TipoDesconhecidoOuTipoDePixelSemLugarDaFalso) {
  BYTES bytes;
  const cv::Mat img = cenaCinza(4, 4);
  EXPECT_FALSE(pim::codificaImagem("xyz", img, bytes));
  EXPECT_FALSE(pim::codificaImagem("", img, bytes));
  EXPECT_TRUE(pim::codificaImagem("png", img, bytes));
}
