#include "examples/cenas/tipos/tipos.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>

#include "apoio/pasta.h"
#include "examples/cenas/cena.h"

namespace {

const cv::Size pequeno(320, 240);

std::vector<cenas::TIPO> todos() {
  std::vector<cenas::TIPO> v(cenas::treino().begin(), cenas::treino().end());
  v.insert(v.end(), cenas::reservados().begin(), cenas::reservados().end());
  return v;
}

bool iguais(const cv::Mat_<unsigned char>& a, const cv::Mat_<unsigned char>& b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin());
}

// Mean grey of the pixels well inside, and of those just outside, of a grain.
double escuridao(const cv::Mat_<unsigned char>& foto, const GRAO& g) {
  const FIGURA dentro(crescido(g, -2));
  const FIGURA perto(crescido(g, 2));
  const FIGURA longe(crescido(g, 5));
  double somas[2] = {0, 0};
  int quantos[2] = {0, 0};
  const cv::Rect r = longe.caixa() & cv::Rect({0, 0}, foto.size());
  for (int l = r.y; l < r.y + r.height; ++l) {
    for (int c = r.x; c < r.x + r.width; ++c) {
      if (!longe.dentro(l, c)) continue;
      const bool fora = !perto.dentro(l, c);
      if (!fora && !dentro.dentro(l, c)) continue;
      somas[fora] += foto(l, c);
      ++quantos[fora];
    }
  }
  return somas[1] / quantos[1] - somas[0] / quantos[0];
}

}  // namespace

TEST(Tipos, TemNomesDiferentesEUmTercoReservado) {
  std::set<std::string_view> nomes;
  for (const cenas::TIPO& t : todos()) {
    nomes.insert(t.nome);
    EXPECT_FALSE(t.descricao.empty()) << t.nome;
    ASSERT_NE(cenas::tipo(t.nome), nullptr);
    EXPECT_EQ(cenas::tipo(t.nome)->nome, t.nome);
  }
  EXPECT_EQ(nomes.size(), todos().size());
  EXPECT_GE(nomes.size(), 24U);
  EXPECT_GE(3 * cenas::reservados().size(), nomes.size());
  for (const cenas::TIPO& t : cenas::treino()) EXPECT_FALSE(t.reservado) << t.nome;
  for (const cenas::TIPO& t : cenas::reservados()) EXPECT_TRUE(t.reservado) << t.nome;
  EXPECT_EQ(cenas::tipo("nenhum"), nullptr);
}

TEST(Tipos, CadaUmRendeGraosDentroDosLimites) {
  for (const cenas::TIPO& t : todos()) {
    const cv::Size inteiro(t.colunas, t.linhas);
    const cv::Size tamanho = t.populacao.quantos.ate > 25 ? pequeno : inteiro;
    const double parte = static_cast<double>(tamanho.area()) / inteiro.area();
    const cenas::CENA cena = cenas::renderiza(t, 5, tamanho);
    ASSERT_EQ(cena.foto.size(), tamanho) << t.nome;
    const auto n = static_cast<double>(cena.graos.size());
    EXPECT_GE(n, 0.35 * parte * t.populacao.quantos.de) << t.nome;
    EXPECT_LE(n, parte * t.populacao.quantos.ate + 1) << t.nome;
    for (const cenas::OBJETO& o : cena.graos) {
      const GRAO& g = o.verdade;
      EXPECT_GT(std::min(g.d1, g.d2), 2) << t.nome;
      EXPECT_LE(diametro(g), 1.2 * t.populacao.tamanho.ate) << t.nome;
      EXPECT_TRUE(g.forma != 'c' || g.d1 == g.d2) << t.nome;
      const bool centrado = cv::Rect({0, 0}, tamanho)
                                .contains({static_cast<int>(g.coluna), static_cast<int>(g.linha)});
      EXPECT_TRUE(centrado || o.cortado) << t.nome;
    }
  }
}

TEST(Tipos, MesmaSementeDaOsMesmosBytes) {
  for (const cenas::TIPO& t : todos()) {
    const cv::Size tamanho(160, 120);
    const cenas::CENA cena = cenas::renderiza(t, 7, tamanho);
    EXPECT_TRUE(iguais(cena.foto, cenas::renderiza(t, 7, tamanho).foto)) << t.nome;
    EXPECT_FALSE(iguais(cena.foto, cenas::renderiza(t, 8, tamanho).foto)) << t.nome;
  }
}

TEST(Tipos, GraosSoltosSaoMaisEscurosQueOChao) {
  for (const char* nome : {"esparsa", "sombras", "luz", "pauta", "trama", "comprimida"}) {
    const cenas::CENA cena = cenas::renderiza(*cenas::tipo(nome), 3, pequeno);
    for (const cenas::OBJETO& o : cena.graos) {
      if (o.cortado) continue;
      EXPECT_GT(escuridao(cena.foto, o.verdade), 15) << nome;
    }
  }
}

TEST(Verdade, GiraAoContrarioEMarcaOsCortados) {
  const PASTA pasta;
  cenas::OBJETO inteiro({'r', 20, 30.5, 12, 6, 30}, {{24, 17}, {36, 17}, {36, 23}, {24, 23}});
  cenas::OBJETO cortado({'c', 1, 2, 9, 9, 0}, {{0, 0}, {4, 0}, {4, 4}});
  cortado.cortado = true;
  cenas::gravaVerdade({inteiro, cortado}, "v.csv");
  EXPECT_EQ(leTudo("v.csv"),
            "letter,row,col,d1,d2,ang,edge\n"
            "r,20.000,30.500,12.000,6.000,150.000,0\n"
            "c,1.000,2.000,9.000,9.000,0.000,1\n");
}
