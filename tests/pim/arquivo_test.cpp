#include "pim/arquivo.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <thread>

#include "apoio/erros.h"
#include "apoio/pasta.h"
#include "fabrica.h"

TEST(Abre, ArquivoInexistenteTerminaComAMensagemEONome) {
  const PASTA pasta;
  EXPECT_EQ(erroDe([&] { pim::abre("nada.txt", "rt"); }), "Erro abertura arquivo nada.txt");
  EXPECT_EQ(erroDe([&] { pim::abre("nada.txt", "rt", "Nao abre: "); }), "Nao abre: nada.txt");
}

TEST(Abre, PastaNaoEhArquivo) {
  const PASTA pasta;
  std::filesystem::create_directory("d.txt");
  EXPECT_EQ(erroDe([&] { pim::abre("d.txt", "rt"); }), "Erro abertura arquivo d.txt");
  EXPECT_EQ(erroDe([&] { pim::abre("d.txt", "wt"); }), "Erro abertura arquivo d.txt");
  EXPECT_EQ(erroDe([&] { pim::leBytes("d.txt"); }), "Erro abertura arquivo d.txt");
}

TEST(FechaEscrita, DiscoCheioEhErro) {
  const auto acao = [] {
    pim::ARQUIVO f = pim::abre("/dev/full", "wt");
    std::fputs("x", f.get());
    pim::fechaEscrita(std::move(f), "/dev/full");
  };
  EXPECT_EQ(erroDe(acao), "Erro gravacao arquivo /dev/full");
}

TEST(FechaEscrita, ErroDeEscritaAnteriorNaoSePerde) {
  const auto acao = [] {
    pim::ARQUIVO f = pim::abre("/dev/full", "wt");
    std::fputs("x", f.get());
    std::fflush(f.get());
    pim::fechaEscrita(std::move(f), "/dev/full");
  };
  EXPECT_EQ(erroDe(acao), "Erro gravacao arquivo /dev/full");
}

TEST(FechaEscrita, OQueNaoCabeNoDiscoNaoFicaPelaMetade) {
  const PASTA pasta;
  grava("a.txt", "o que havia");
  rlimit antes{};
  getrlimit(RLIMIT_FSIZE, &antes);
  const rlimit limite{4096, antes.rlim_max};
  auto* const sinal = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &limite);
  const std::string erro =
      erroDe([] { pim::gravaBytes("a.txt", std::vector<unsigned char>(5000)); });
  setrlimit(RLIMIT_FSIZE, &antes);
  std::signal(SIGXFSZ, sinal);
  EXPECT_EQ(erro, "Erro gravacao arquivo a.txt");
  EXPECT_FALSE(std::filesystem::exists("a.txt"));
}

TEST(Abre, OQueUmErroInterrompeNaoFicaPelaMetade) {
  const PASTA pasta;
  grava("a.txt", "o que havia");
  const auto acao = [](const char* nome) {
    const pim::ARQUIVO f = pim::abre(nome, "wt");
    std::fputs("metade", f.get());
    pim::erro("Erro: x");
  };
  EXPECT_EQ(erroDe([&] { acao("a.txt"); }), "Erro: x");
  EXPECT_FALSE(existe("a.txt"));
  std::filesystem::create_symlink("/dev/null", "nulo");
  EXPECT_EQ(erroDe([&] { acao("nulo"); }), "Erro: x");
  EXPECT_TRUE(existe("nulo"));
}

TEST(Abre, OQueSeLeFica) {
  const PASTA pasta;
  grava("a.txt", "x");
  pim::abre("a.txt", "rt").reset();
  EXPECT_TRUE(existe("a.txt"));
}

TEST(GravaBytes, LeBytesDevolveOsMesmosBytes) {
  const PASTA pasta;
  for (const int n : {0, 1, 2, 65535, 65536, 200001}) {
    BYTES bytes;
    if (n > 0) {
      const cv::Mat ruido = aleatoria(1, n, CV_8UC1, 3);
      bytes.assign(ruido.data, ruido.data + n);
    }
    pim::gravaBytes("a b \xC3\xA7.bin", bytes);
    EXPECT_EQ(std::filesystem::file_size("a b \xC3\xA7.bin"), static_cast<std::uintmax_t>(n));
    EXPECT_EQ(pim::leBytes("a b \xC3\xA7.bin"), bytes);
  }
}

TEST(GravaBytes, PastaInexistenteOuDiscoCheioEhErro) {
  const PASTA pasta;
  EXPECT_EQ(erroDe([&] { pim::gravaBytes("nada/a.bin", {1}); }),
            "Erro abertura arquivo nada/a.bin");
  EXPECT_EQ(erroDe([&] { pim::gravaBytes("/dev/full", {1}); }), "Erro gravacao arquivo /dev/full");
}

TEST(LeBytes, TuboEhLidoAteOFim) {
  const PASTA pasta;
  ASSERT_EQ(mkfifo("tubo", 0600), 0);
  const std::string conteudo(300000, 'x');
  std::thread escritor([&] { grava("tubo", conteudo); });
  const BYTES lidos = pim::leBytes("tubo");
  escritor.join();
  EXPECT_EQ(lidos, deTexto(conteudo));
}

TEST(LeBytes, DispositivoSemFimEhRecusado) {
  EXPECT_EQ(erroDe([&] { pim::leBytes("/dev/zero"); }), "Erro leitura arquivo /dev/zero");
}

TEST(LeBytes, ArquivoEnormeEhRecusadoAntesDeSerLido) {
  const PASTA pasta;
  grava("enorme", "");
  std::filesystem::resize_file("enorme", (std::uintmax_t{4} << 30U) + 1);  // sparse
  EXPECT_EQ(erroDe([&] { pim::leBytes("enorme"); }), "Erro: Arquivo grande demais enorme");
}
