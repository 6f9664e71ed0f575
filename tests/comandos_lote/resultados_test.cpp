#include <algorithm>

#include "apoio/executa.h"
#include "cenario.h"
#include "pim/imagem.h"

namespace fs = std::filesystem;

namespace {

using TEXTOS = std::vector<std::string>;

void confereAMao(const std::string& vista, const std::string& original, const std::string& nome) {
  const std::string mao = "mao-" + nome;
  ASSERT_EQ(executa({"correla", vista, "kernel.cfg", mao + ".ho1", "0.1"}).estado, 0);
  ASSERT_EQ(executa({"filtra", vista, mao + ".ho1", mao + ".ho2", "default", "0.2", "0.1"}).estado,
            0);
  ASSERT_EQ(executa({"relat", mao + ".ho2", mao + ".rel"}).estado, 0);
  ASSERT_EQ(executa({"traca", original, mao + ".ho2", mao + ".png", "C", "i"}).estado, 0);
  for (const char* sufixo : {".ho1", ".ho2", ".rel", ".png"}) {
    const std::string feito = leTudo("resultado/" + nome + "/" + nome + sufixo);
    EXPECT_FALSE(feito.empty());
    EXPECT_TRUE(feito == leTudo(mao + sufixo)) << nome << sufixo;
  }
}

TEST_F(Lote, OsArquivosSaoOsMesmosFeitosAMao) {
  const CORRIDA c = rodaLote(comando());
  EXPECT_EQ(c.estado, 0) << c.erro;
  EXPECT_EQ(semAvisos(c.erro), "");
  for (const char* nome : {"f0", "f1"}) {
    const std::string foto = std::string("fotos/") + nome + ".pgm";
    confereAMao(foto, foto, nome);
  }
  EXPECT_EQ(dentroDe("resultado"), (TEXTOS{"coco.json", "f0", "f1", "graos.csv",
                                           "proveniencia.json", "relatorio.html", "resumo.csv"}));
  EXPECT_EQ(dentroDe("resultado/f1"),
            (TEXTOS{".vorplex-lote", "f1.ho1", "f1.ho2", "f1.png", "f1.rel", "graos.csv",
                    "graos.geojson", "graos.qml", "rois.zip"}));
}

TEST_F(Lote, InverteProcuraNoNegativoETracaNaFoto) {
  fs::create_directory("claros");
  const cv::Mat_<unsigned char> clara(255 - imagem(0));
  grava("claros/c.pgm", pgm(clara));
  std::vector<std::string> args = comando({"claros"});
  args.emplace_back("-i");
  ASSERT_EQ(rodaLote(args).estado, 0);
  confereAMao("fotos/f0.pgm", "claros/c.pgm", "c");
  EXPECT_EQ(dentroDe("resultado/c").size(), 9U);
}

TEST_F(Lote, AsTabelasJuntamTodasAsFotos) {
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  const std::string todos = leTudo("resultado/graos.csv");
  std::size_t soma = 0;
  for (int i = 0; i < 2; ++i) {
    const std::string nome = "f" + std::to_string(i);
    const std::string um = leTudo("resultado/" + nome + "/graos.csv");
    soma += linhas(um) - 1;
    const std::string primeira = um.substr(um.find('\n') + 1);
    EXPECT_NE(todos.find('\n' + nome + ',' + primeira.substr(0, primeira.find('\n'))),
              std::string::npos);
  }
  EXPECT_EQ(soma, 6U);
  EXPECT_EQ(linhas(todos), 7U);
  const std::string resumo = leTudo("resultado/resumo.csv");
  EXPECT_EQ(linhas(resumo), 4U);  // names, two photographs, total
  EXPECT_NE(resumo.find("\ntotal,2,6,"), std::string::npos);
  const std::string pagina = leTudo("resultado/relatorio.html");
  for (const char* nome : {"f0", "f1"}) EXPECT_NE(pagina.find(nome), std::string::npos);
}

TEST_F(Lote, DizUmaLinhaPorFotoEQueNaoHaEscala) {
  const CORRIDA c = rodaLote(comando({"-j", "1", "fotos"}));
  EXPECT_NE(c.saida.find("Fotografias: 2, ao mesmo tempo: 1\n[1/2] f0: 3 graos, 0.01 MP em "),
            std::string::npos)
      << c.saida;
  EXPECT_NE(c.saida.find("\n[2/2] f1: 3 graos"), std::string::npos);
  EXPECT_NE(c.saida.find("\nFotografias: 2 (feitas 2, ja prontas 0, falhas 0); graos: 6\n"
                         "Sem escala: todas as medidas em pixels (px)\n"
                         "Resultados em resultado\n"),
            std::string::npos)
      << c.saida;
}

TEST_F(Lote, ComEscalaEEmInglesAsColunasDizemAUnidade) {
  const CORRIDA c = rodaLote(comando({"-e", "0.5mm", "--idioma", "en", "-p", "2,4", "fotos"}));
  EXPECT_EQ(c.estado, 0);
  EXPECT_EQ(c.saida.find("No scale"), std::string::npos);
  EXPECT_NE(c.saida.find("Photographs: 2 (done 2, "), std::string::npos);
  const std::string graos = leTudo("resultado/f0/graos.csv");
  EXPECT_NE(graos.find("equivalent_diameter_mm"), std::string::npos);
  EXPECT_NE(leTudo("resultado/resumo.csv").find("passing_4_mm"), std::string::npos);
}

TEST_F(Lote, GrandezaEPesoMudamOResumo) {
  ASSERT_EQ(rodaLote(comando()).estado, 0);
  const std::string antes = leTudo("resultado/resumo.csv");
  ASSERT_EQ(rodaLote(comando({"-g", "menor", "-w", "volume", "fotos"})).estado, 0);
  const std::string depois = leTudo("resultado/resumo.csv");
  EXPECT_NE(antes, depois);
  EXPECT_NE(depois.find(",diametro_menor,volume,"), std::string::npos);
}

TEST_F(Lote, AvisosEstaoNoErroPadraoNoResumoENaPagina) {
  const CORRIDA c = rodaLote(comando());
  EXPECT_EQ(c.estado, 0);
  EXPECT_EQ(c.erro, "Aviso: 6 graos: D10 e D90 pedem pelo menos 100\n");
  EXPECT_NE(leTudo("resultado/resumo.csv").find("6 graos: D10"), std::string::npos);
  EXPECT_NE(leTudo("resultado/relatorio.html").find("<li>6 graos: D10"), std::string::npos);
}

TEST_F(Lote, APolaridadeErradaEhDita) {
  for (int i = 0; i < 2; ++i) {
    cv::Mat_<unsigned char> negativo;
    cv::bitwise_not(imagem(i), negativo);
    grava("fotos/f" + std::to_string(i) + ".pgm", pgm(negativo));
  }
  const CORRIDA c = rodaLote({"--idioma", "en", "kernel.cfg", "fotos"});
  EXPECT_NE(c.erro.find("Warning: polarity: in 2 photograph(s) the opposite"), std::string::npos)
      << c.erro;
  const CORRIDA certa = rodaLote({"--idioma", "en", "-i", "kernel.cfg", "fotos"});
  EXPECT_EQ(certa.erro.find("polarity"), std::string::npos) << certa.erro;
}

TEST_F(Lote, LimiarForaDe0A1EhErro) {
  const CORRIDA c =
      rodaLote({"--metodo", "classico", "-f", "default 1.2 0.1", "kernel.cfg", "fotos"});
  EXPECT_EQ(c.estado, 2);
  EXPECT_NE(c.erro.find("Limiar fora de 0 a 1: 1.2"), std::string::npos) << c.erro;
}

TEST_F(Lote, SemBordaOsCortadosSaemDasTabelasMasNaoDaLista) {
  const cv::Mat_<unsigned char> toda = imagem(0);
  grava("cortada.pgm", pgm(toda.rowRange(24, 90).clone()));  // through the large disc
  // So much of a shape may lie outside, which counts as occupied.
  const std::vector<std::string> base = {"--metodo",        "classico",   "-c",         "0.1", "-f",
                                         "default 0.2 0.4", "kernel.cfg", "cortada.pgm"};
  ASSERT_EQ(rodaLote(base).estado, 0);
  const std::string com = leTudo("resultado/cortada/graos.csv");
  const std::string lista = leTudo("resultado/cortada/cortada.ho2");
  const auto naBorda = [](const std::string& csv) {
    std::size_t n = 0;
    for (std::size_t i = csv.find(",1\n"); i != std::string::npos; i = csv.find(",1\n", i + 1)) ++n;
    return n;
  };
  ASSERT_GT(naBorda(com), 0U) << com;
  std::vector<std::string> sem = base;
  sem.emplace_back("--sem-borda");
  ASSERT_EQ(rodaLote(sem).estado, 0);
  const std::string csv = leTudo("resultado/cortada/graos.csv");
  EXPECT_EQ(naBorda(csv), 0U);
  EXPECT_EQ(linhas(csv), linhas(com) - naBorda(com));
  EXPECT_EQ(leTudo("resultado/cortada/cortada.ho2"), lista);
  // Every row that stays is a row of before, its index included.
  for (std::size_t i = csv.find('\n') + 1; i < csv.size(); i = csv.find('\n', i) + 1) {
    EXPECT_NE(com.find(csv.substr(i, csv.find('\n', i) - i)), std::string::npos);
  }
}

TEST_F(Lote, FotoSemDeteccoesSaoZeroGraosENaoFalha) {
  grava("lisa.pgm", pgm(cv::Mat_<unsigned char>(80, 80, static_cast<unsigned char>(128))));
  const CORRIDA c = rodaLote(comando({"lisa.pgm", "fotos/f0.pgm"}));
  EXPECT_EQ(c.estado, 0) << c.erro;
  EXPECT_EQ(semAvisos(c.erro), "");
  EXPECT_NE(c.saida.find("lisa: 0 graos"), std::string::npos) << c.saida;
  EXPECT_EQ(leTudo("resultado/lisa/lisa.ho1"), listaHo({}));
  EXPECT_EQ(leTudo("resultado/lisa/lisa.ho2"), listaHo({}));
  EXPECT_EQ(linhas(leTudo("resultado/lisa/graos.csv")), 1U);
  EXPECT_EQ(dentroDe("resultado/lisa"),
            (TEXTOS{".vorplex-lote", "graos.csv", "graos.geojson", "graos.qml", "lisa.ho1",
                    "lisa.ho2", "lisa.png", "lisa.rel"}));
  EXPECT_NE(leTudo("resultado/resumo.csv").find("\nlisa,1,0,"), std::string::npos);
}

TEST_F(Lote, NomesEstranhosDaoOsMesmosResultados) {
  const TEXTOS estranhos = {"com espaco.pgm",  "aspas'\"`$(x).pgm",
                            "-tracos.pgm",     "a\xC3\xA7\xC3\xA3o.pgm",
                            "linha\nnova.pgm", "--.pgm",
                            "%s%d.pgm",        "\xFF\xFE.pgm"};
  fs::create_directory("-pasta");
  for (const std::string& nome : estranhos) foto("-pasta/" + nome, 0);
  const CORRIDA c = rodaLote(comando({"--", "-pasta", "fotos/f0.pgm"}));
  ASSERT_EQ(c.estado, 0) << c.erro;
  EXPECT_EQ(linhas(c.saida), 9U + 5U) << c.saida;
  for (const char* base : {"com espaco", "aspas'\"`$(x)", "-tracos", "a\xC3\xA7\xC3\xA3o",
                           "linha_nova", "--", "%s%d", "\xFF\xFE"}) {
    const std::string nome = base;
    EXPECT_EQ(leTudo("resultado/" + nome + "/" + nome + ".ho2"), leTudo("resultado/f0/f0.ho2"))
        << nome;
  }
}

TEST_F(Lote, OMesmoNomeEmDuasPastasTemDuasPastas) {
  fs::create_directories("norte");
  fs::create_directories("sul");
  foto("norte/a.pgm", 0);
  grava("sul/a.pgm", pgm(cv::Mat_<unsigned char>(80, 80, static_cast<unsigned char>(128))));
  ASSERT_EQ(rodaLote(comando({"norte", "sul"})).estado, 0);
  EXPECT_EQ(linhas(leTudo("resultado/norte-a/norte-a.ho2")), 5U);
  EXPECT_EQ(linhas(leTudo("resultado/sul-a/sul-a.ho2")), 2U);
}

TEST_F(Lote, RecursivoNaoProcuraNosPropriosResultados) {
  fs::create_directories("fotos/sub");
  foto("fotos/sub/g.pgm", 1);
  for (int vez = 0; vez < 2; ++vez) {
    const CORRIDA c = rodaLote(comando({"-r", "-o", "fotos", "fotos"}));
    EXPECT_EQ(c.estado, 0) << c.erro;
    EXPECT_NE(c.saida.find("Fotografias: 3,"), std::string::npos) << c.saida;
  }
}

TEST_F(Lote, QuietoSoDizErrosEAvisos) {
  const CORRIDA bem = rodaLote(comando({"--quieto", "fotos"}));
  EXPECT_EQ(bem.estado, 0);
  EXPECT_EQ(bem.saida + semAvisos(bem.erro), "");
  const CORRIDA mal = rodaLote(comando({"--quieto", "fotos", "nenhuma.pgm"}));
  EXPECT_EQ(mal.estado, 1);
  EXPECT_EQ(mal.saida, "");
  EXPECT_NE(mal.erro.find("nenhuma.pgm"), std::string::npos);
}

TEST_F(Lote, NoTerminalHaUmaBarraNoLugarDasLinhas) {
  if (!haTerminal()) GTEST_SKIP() << "no pseudo-terminal can be had here";
  MODO modo;
  modo.terminal = true;
  const CORRIDA c = rodaLote(comando({"-j", "1", "fotos", "nenhuma.pgm"}), modo);
  EXPECT_EQ(c.estado, 1);
  EXPECT_NE(c.saida.find("\r\x1b[K[##########          ] 1/3, falhas: 0, "), std::string::npos)
      << c.saida;
  EXPECT_NE(c.saida.find("] 3/3, falhas: 1, "), std::string::npos);
  EXPECT_EQ(c.saida.find("[1/3]"), std::string::npos);
  EXPECT_NE(c.saida.find("[3/3] nenhuma: FALHOU: "), std::string::npos);  // failures are lines
}

}  // namespace
