#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <random>

#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "confere.h"
#include "mat_de_classes.h"

namespace {

const std::string usoAm =
    "extraiAm: Extrai amostras dentro das formas localizadas\n"
    "extraiAm imagem.jpg fatorZoom [f0 f1 ...]\n"
    "  Le imagem.jpg + imagem.ho2 e imp imagem????.png\n";
const std::string usoCla =
    "extraiCla: Extrai amostras classificadas dentro das formas localizadas\n"
    "extraiCla imagem.jpg fatorZoom [f0 f1 ...]\n"
    "  Le imagem.jpg+imagem.ho2+imagem.mat e imp CC-FFFF.png\n"
    "  CC: Classificacao\n"
    "  FFFF: Identificao da forma\n";

std::vector<std::string> pngs(const std::string& pasta = ".") {
  std::vector<std::string> nomes;
  for (const auto& f : std::filesystem::directory_iterator(pasta)) {
    if (f.path().extension() == ".png") nomes.push_back(f.path().filename().string());
  }
  std::sort(nomes.begin(), nomes.end());
  return nomes;
}

// A named pipe that keeps what is written to it, up to 64 KiB, in the order of writing.
struct TUBO {
  std::string nome;
  int fd;

  explicit TUBO(const std::string& n)
      : nome(n), fd(mkfifo(n.c_str(), 0600) == 0 ? open(n.c_str(), O_RDWR | O_NONBLOCK) : -1) {}
  ~TUBO() {
    close(fd);
    std::filesystem::remove(nome);
  }
  TUBO(const TUBO&) = delete;
  TUBO& operator=(const TUBO&) = delete;

  std::string conteudo() const {
    std::string s(1U << 16U, '\0');
    s.resize(static_cast<std::size_t>(std::max<ssize_t>(read(fd, s.data(), s.size()), 0)));
    return s;
  }
};

using NOMES = std::vector<std::string>;

// A folder with a photograph "foto.ppm" and "foto.ho2" of three detections.
struct ComandoExtrai : testing::Test {
  PASTA pasta;
  cv::Mat_<pim::VEC3B> foto;

  ComandoExtrai() {
    std::mt19937 sorteio(61);
    foto = fotoSorteada(sorteio, 30, 40);
    grava("foto.ppm", ppm(foto));
    grava("foto.ho2", listaHo({{0.9F, 'q', 10, 12, 4, 4, 0},
                               {0.8F, 'c', 20, 30, 9, 9, 0},
                               {0.7F, 'e', 15, 5, 12, 6, 45}}));
  }

  static std::string mensagens(const std::string& imagem, const std::string& base, int quantos) {
    return cv::format("Lendo %s\nLendo %s.ho2\nNumero de maximos locais originais=%d\n",
                      imagem.c_str(), base.c_str(), quantos);
  }

  // The pixels of the first detection, 5 by 5 in a mask of 7 by 7.
  std::string primeira() const {
    cv::Mat_<pim::VEC3B> amostra(7, 7, pim::VEC3B(0, 0, 0));
    foto(cv::Rect(10, 8, 5, 5)).copyTo(amostra(cv::Rect(1, 1, 5, 5)));
    return ppm(amostra);
  }

  // The pixels of a PNG file, by way of a run that draws nothing on it.
  static std::string pixels(const std::string& nome) {
    grava("nada.ho1", listaHo({}));
    EXPECT_EQ(executa({"traca", nome, "nada.ho1", "pixels.ppm"}).estado, 0);
    return leTudo("pixels.ppm");
  }
};

TEST_F(ComandoExtrai, ArgumentosDeMenosMostramOUsoEErro) {
  const std::string erro = "Erro: Numero de argumentos invalido";
  confereErro(executa({"extraiam"}), usoAm, erro);
  confereErro(executa({"extraiAm", "foto.ppm"}), usoAm, erro);
  confereErro(executa({"extraicla"}), usoCla, erro);
  confereErro(executa({"extraiCla", "foto.ppm"}), usoCla, erro);
}

TEST_F(ComandoExtrai, SemIndicesUmaAmostraPorDeteccao) {
  confereSucesso(executa({"extraiam", "foto.ppm", "1"}), mensagens("foto.ppm", "foto", 3));
  EXPECT_EQ(pngs(), (NOMES{"foto0000.png", "foto0001.png", "foto0002.png"}));
  EXPECT_EQ(pixels("foto0000.png"), primeira());
}

TEST_F(ComandoExtrai, IndicesRepetidosEForaDeOrdem) {
  confereSucesso(executa({"extraiam", "foto.ppm", "1.5", "2", "0", "2"}),
                 mensagens("foto.ppm", "foto", 3));
  EXPECT_EQ(pngs(), (NOMES{"foto0000.png", "foto0002.png"}));
}

TEST_F(ComandoExtrai, IndiceRepetidoEhReescritoNaOrdemDada) {
  grava("foto.ho2", listaHo({{0.9F, 'q', 10, 12, 4, 4, 0},
                             {0.8F, 'c', 20, 30, 9, 9, 0},
                             {0.7F, 'c', 15, 25, 9, 9, 0},
                             {0.6F, 'q', 9, 9, 4, 4, 0},
                             {0.5F, 'e', 15, 5, 12, 6, 45}}));
  grava("foto.mat", matDeClasses(1, 5, "\1\1\1\1\2"));
  EXPECT_EQ(executa({"extraicla", "foto.ppm", "1"}).estado, 0);
  const std::string zero = leTudo("01-0000.png");
  const std::string quatro = leTudo("02-0004.png");
  ASSERT_NE(zero, quatro);
  const auto emOrdem = [&](const std::string& programa, const std::string& nome0,
                           const std::string& nome4) {
    const TUBO tubo("amostras");
    for (const std::string& nome : {nome0, nome4}) {
      std::filesystem::remove(nome);
      std::filesystem::create_symlink("amostras", nome);
    }
    EXPECT_EQ(executa({programa, "foto.ppm", "1", "4", "0", "4"}).estado, 0);
    return tubo.conteudo();
  };
  EXPECT_EQ(emOrdem("extraicla", "01-0000.png", "02-0004.png"), quatro + zero + quatro);
  EXPECT_EQ(emOrdem("extraiam", "foto0000.png", "foto0004.png"), quatro + zero + quatro);
}

TEST_F(ComandoExtrai, ListaSemRegistrosNaoGravaAmostra) {
  grava("foto.ho2", listaHo({}));
  confereSucesso(executa({"extraiam", "foto.ppm", "1"}), mensagens("foto.ppm", "foto", 0));
  grava("foto.mat", matDeClasses(1, 1, "\1"));
  confereSucesso(executa({"extraicla", "foto.ppm", "1"}), "Lendo foto.ppm\n");
  EXPECT_EQ(pngs(), NOMES());
}

TEST_F(ComandoExtrai, ClassesDeUmaLinhaDaoOsNomes) {
  grava("foto.mat", matDeClasses(1, 3, std::string("\2\0\7", 3)));
  confereSucesso(executa({"extraicla", "foto.ppm", "1"}), "Lendo foto.ppm\n");
  EXPECT_EQ(pngs(), (NOMES{"00-0001.png", "02-0000.png", "07-0002.png"}));
  EXPECT_EQ(pixels("02-0000.png"), primeira());
}

TEST_F(ComandoExtrai, ClassesDeUmaColunaEIndices) {
  grava("foto.mat", matDeClasses(3, 1, std::string("\xFF\0\x0C", 3)));
  confereSucesso(executa({"extraicla", "foto.ppm", "1", "2", "0", "2"}), "Lendo foto.ppm\n");
  EXPECT_EQ(pngs(), (NOMES{"12-0002.png", "255-0000.png"}));
}

TEST_F(ComandoExtrai, ClassesEmQuadroContamPorLinhas) {
  grava("foto.mat", matDeClasses(2, 2, std::string("\1\3\2\4", 4)));  // rows 1 2 and 3 4
  confereSucesso(executa({"extraicla", "foto.ppm", "1"}), "Lendo foto.ppm\n");
  EXPECT_EQ(pngs(), (NOMES{"01-0000.png", "02-0001.png", "03-0002.png"}));
}

TEST_F(ComandoExtrai, AsAmostrasClassificadasFicamNaPastaCorrente) {
  std::filesystem::create_directory("p.d");
  for (const char* nome : {"foto.ppm", "foto.ho2"}) {
    grava(std::string("p.d/") + nome, leTudo(nome));
  }
  grava("p.d/foto.mat", matDeClasses(1, 3, "\1\2\3"));
  confereSucesso(executa({"extraicla", "p.d/foto.ppm", "1", "1"}), "Lendo p.d/foto.ppm\n");
  EXPECT_EQ(pngs(), (NOMES{"02-0001.png"}));
  confereSucesso(executa({"extraiam", "p.d/foto.ppm", "1", "1"}),
                 mensagens("p.d/foto.ppm", "p.d/foto", 3));
  EXPECT_EQ(pngs(), (NOMES{"02-0001.png"}));
  EXPECT_EQ(pngs("p.d"), (NOMES{"foto0001.png"}));
}

TEST_F(ComandoExtrai, NomesComEspacosAcentosPontosESemSufixo) {
  std::filesystem::create_directory("pasta v1.2");
  for (const std::string base : {"pasta v1.2/gr\xC3\xA3o de caf\xC3\xA9.v3", "pasta v1.2/foto"}) {
    const std::string imagem = base.ends_with("foto") ? base : base + ".pnm";
    grava(imagem, leTudo("foto.ppm"));
    grava(base + ".ho2", leTudo("foto.ho2"));
    confereSucesso(executa({"extraiam", imagem, "1", "0"}), mensagens(imagem, base, 3));
    EXPECT_EQ(pixels(base + "0000.png"), primeira());
  }
}

TEST_F(ComandoExtrai, IndiceForaDaListaEhErro) {
  confereErro(executa({"extraiam", "foto.ppm", "1", "0", "3"}), mensagens("foto.ppm", "foto", 3),
              "Erro: Indice fora da lista 3");
  EXPECT_EQ(pngs(), (NOMES{"foto0000.png"}));
  confereErro(executa({"extraiam", "foto.ppm", "1", "-1"}), mensagens("foto.ppm", "foto", 3),
              "Erro: Indice fora da lista -1");
}

TEST_F(ComandoExtrai, ImagemDeClassesPequenaDemaisEhErro) {
  grava("foto.mat", matDeClasses(1, 2, "\1\2"));
  confereErro(executa({"extraicla", "foto.ppm", "1"}), "Lendo foto.ppm\n",
              "Erro: Indice fora da imagem de classes 2");
  EXPECT_EQ(pngs(), (NOMES{"01-0000.png", "02-0001.png"}));
}

TEST_F(ComandoExtrai, ZoomOuIndiceQueNaoEhNumeroEhErro) {
  confereErro(executa({"extraiam", "foto.ppm", "dois"}), "", "Erro: Numero invalido dois");
  confereErro(executa({"extraicla", "foto.ppm", ""}), "", "Erro: Numero invalido ");
  confereErro(executa({"extraiam", "foto.ppm", "1", "1x"}), mensagens("foto.ppm", "foto", 3),
              "Erro: Numero invalido 1x");
  confereErro(executa({"extraiam", "foto.ppm", "1", "0.5"}), mensagens("foto.ppm", "foto", 3),
              "Erro: Numero invalido 0.5");
}

TEST_F(ComandoExtrai, ArquivoQueFaltaEhErro) {
  confereErro(executa({"extraiam", "nao.ppm", "1"}), "Lendo nao.ppm\n",
              "Erro abertura arquivo nao.ppm");
  confereErro(executa({"extraicla", "nao.ppm", "1"}), "Lendo nao.ppm\n",
              "Erro abertura arquivo nao.ppm");
  confereErro(executa({"extraicla", "foto.ppm", "1"}), "Lendo foto.ppm\n",
              "Erro abertura arquivo foto.mat");
  grava("foto.mat", matDeClasses(1, 3, "\1\2\3").substr(0, 150));
  const EXECUCAO cortado = executa({"extraicla", "foto.ppm", "1"});
  EXPECT_EQ(cortado.estado, 1);
  EXPECT_TRUE(cortado.erro.starts_with("Erro leitura imagem foto.mat: ")) << cortado.erro;
  std::filesystem::remove("foto.ho2");
  confereErro(executa({"extraiam", "foto.ppm", "1"}), "Lendo foto.ppm\nLendo foto.ho2\n",
              "Erro abertura arquivo foto.ho2");
  confereErro(executa({"extraicla", "foto.ppm", "1"}), "Lendo foto.ppm\n",
              "Erro abertura arquivo foto.ho2");
}

TEST_F(ComandoExtrai, LetraDesconhecidaAbortaEAsAmostrasAnterioresFicam) {
  grava("foto.ho2", listaHo({{0.9F, 'q', 10, 12, 4, 4, 0}, {0.8F, 'x', 20, 30, 9, 9, 0}}));
  const EXECUCAO e = executa({"extraiam", "foto.ppm", "1"}, {}, 0);
  EXPECT_EQ(e.sinal, SIGABRT);
  EXPECT_EQ(e.saida, titulo + mensagens("foto.ppm", "foto", 2));
  confereAfirmacao(e.erro, "vorplex",
                   "cv::Mat_<cv::Vec<unsigned char, 3> > extraiAm(MAXLOCAL, "
                   "cv::Mat_<cv::Vec<unsigned char, 3> >, double)",
                   "g.rows%2==1 && g.cols%2==1");
  EXPECT_EQ(pngs(), (NOMES{"foto0000.png"}));
}

TEST_F(ComandoExtrai, CirculoQueOZoomFazSumirAborta) {
  const EXECUCAO e = executa({"extraiam", "foto.ppm", "0.05", "1"}, {}, 0);
  EXPECT_EQ(e.sinal, SIGABRT);
  EXPECT_NE(e.erro.find("Assertion `g.rows%2==1 && g.cols%2==1' failed."), std::string::npos);
  EXPECT_EQ(pngs(), NOMES());
}

TEST_F(ComandoExtrai, ZoomSemImagemPossivelEhErroQueDizAForma) {
  confereErro(executa({"extraiam", "foto.ppm", "1e8", "0"}), mensagens("foto.ppm", "foto", 3),
              "Erro: Forma grande demais q 4e+08 4e+08 (foto.ho2, registro 0)");
  confereErro(executa({"extraiam", "foto.ppm", "inf", "0"}), mensagens("foto.ppm", "foto", 3),
              "Erro: Forma grande demais q inf inf (foto.ho2, registro 0)");
}

TEST_F(ComandoExtrai, AmostraQueNaoSePodeGravarEhErro) {
  std::filesystem::create_symlink("/dev/full", "foto0001.png");
  confereErro(executa({"extraiam", "foto.ppm", "1", "0", "1"}), mensagens("foto.ppm", "foto", 3),
              "Erro gravacao arquivo foto0001.png");
  std::filesystem::create_directory("foto0002.png");
  confereErro(executa({"extraiam", "foto.ppm", "1", "2"}), mensagens("foto.ppm", "foto", 3),
              "Erro abertura arquivo foto0002.png");
}

}  // namespace
