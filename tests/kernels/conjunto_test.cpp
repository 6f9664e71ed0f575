// Random kernel files against the slow expansion, images and their sharing included.

#include <gtest/gtest.h>

#include <cmath>
#include <opencv2/core.hpp>
#include <random>
#include <string>
#include <vector>

#include "apoio/figuras.h"
#include "kernels/lekernels.h"
#include "le.h"
#include "referencia/formas.h"

namespace {

using SORTEIO = std::mt19937;

double escolhe(SORTEIO& g, const std::vector<double>& opcoes) {
  return opcoes[g() % opcoes.size()];
}

std::string numero(double x) {
  return cv::format(" %.17g ", x);
}

// A random file and the records that it should give.
struct CASO {
  std::string texto;
  std::vector<MASCARA> esperados;
};

void sorteiaAjustes(SORTEIO& g, referencia::AJUSTE& a, std::string& texto) {
  a.passoAng = escolhe(g, {15, 22.5, 45, 30.1, 100, 200});
  a.escOitava = 1 + static_cast<int>(g() % 7);
  a.escMin = escolhe(g, {0.5, 0.55, 0.7, 0.9});
  a.escMax = escolhe(g, {0.9, 1.0, 1.3, 1.5, 2.0});
  a.escPir = escolhe(g, {2, 4, 3.7, 8, 16});
  texto += cv::format("escoitava %d", a.escOitava) + " PassoAng" + numero(a.passoAng);
  texto += g() % 2 == 0 ? "escala" : "escmin";
  texto += numero(a.escMin) + (g() % 2 == 0 ? "a" : "escmax") + numero(a.escMax);
  texto += (g() % 2 == 0 ? "piramide" : "escpir") + numero(a.escPir) + "\n";
}

CASO sorteia(SORTEIO& g) {
  std::uniform_real_distribution<double> tamanho(10, 26);
  std::uniform_real_distribution<double> diametro(2, 14);
  CASO caso;
  referencia::AJUSTE a;
  const std::vector<std::string> nomes = {"circulo", "quadrado", "retangulo", "elipse"};
  for (int i = 0; i < 4; ++i) {
    if (g() % 2 == 0) sorteiaAjustes(g, a, caso.texto);
    const std::size_t qual = g() % 4;
    const double d1 = qual == 0 ? diametro(g) : tamanho(g);
    const double d2 = qual < 2 ? d1 : tamanho(g);
    caso.texto += nomes[qual] + numero(d1) + (qual < 2 ? "" : numero(d2)) + "\n";
    for (const MASCARA& m : referencia::expansao(a, "cqre"[qual], d1, d2))
      caso.esperados.push_back(m);
  }
  return caso;
}

void confereCampos(const std::vector<MASCARA>& obtidos, const std::vector<MASCARA>& esperados) {
  ASSERT_EQ(obtidos.size(), esperados.size());
  for (std::size_t i = 0; i < obtidos.size(); ++i) {
    SCOPED_TRACE(i);
    ASSERT_EQ(obtidos[i].forma, esperados[i].forma);
    ASSERT_DOUBLE_EQ(obtidos[i].d1, esperados[i].d1);
    ASSERT_DOUBLE_EQ(obtidos[i].d2, esperados[i].d2);
    ASSERT_DOUBLE_EQ(obtidos[i].ang, esperados[i].ang);
    ASSERT_DOUBLE_EQ(obtidos[i].esc, esperados[i].esc);
    ASSERT_DOUBLE_EQ(obtidos[i].escPir, esperados[i].escPir);
    ASSERT_EQ(obtidos[i].sPir, esperados[i].sPir);
    ASSERT_EQ(obtidos[i].inic, esperados[i].inic);
  }
}

bool usaTabela(const MASCARA& m) {
  return m.forma == 'c' && std::nearbyint(m.d1) <= 4;
}

// Every image of one kind against the image of the last record of its run of equal sizes, and the
// buffers: one for each run. `nova` tells the records that always take a fresh buffer. Returns
// how many records share a buffer with the one before.
template <class T, class IMAGEM, class DESENHA, class NOVA>
int confereImagens(const std::vector<MASCARA>& v, IMAGEM imagem, DESENHA desenhaIngenua,
                   NOVA nova) {
  std::vector<cv::Mat_<T>> proprias;
  for (const MASCARA& m : v) proprias.push_back(desenhaIngenua(m));
  int compartilhados = 0;
  for (std::size_t i = v.size(); i-- > 0;) {
    const bool ultimo =
        i + 1 == v.size() || proprias[i + 1].size() != proprias[i].size() || nova(v[i + 1]);
    if (!ultimo) proprias[i] = proprias[i + 1];
    EXPECT_TRUE(iguais(imagem(v[i]), proprias[i])) << i;
    if (i + 1 == v.size()) continue;
    EXPECT_EQ(imagem(v[i]).data == imagem(v[i + 1]).data, !ultimo) << i;
    compartilhados += ultimo ? 0 : 1;
  }
  return compartilhados;
}

int confereTudo(const std::vector<MASCARA>& v) {
  const auto nunca = [](const MASCARA&) { return false; };
  const auto mascara = [](const MASCARA& m) {
    return referencia::mascara(m.forma, m.d1, m.d2, m.ang);
  };
  const int kernels = confereImagens<float>(
      v, [](const MASCARA& m) { return m.kernel; },
      [](const MASCARA& m) { return referencia::kernel(m.forma, m.d1, m.d2, m.ang); }, usaTabela);
  const int contornos = confereImagens<unsigned char>(
      v, [](const MASCARA& m) { return m.contorno; },
      [&](const MASCARA& m) { return referencia::contorno(mascara(m)); }, nunca);
  const int mascaras = confereImagens<unsigned char>(
      v, [](const MASCARA& m) { return m.mascara; }, mascara, nunca);
  return std::min({kernels, contornos, mascaras});
}

// The records of a file read without images: none are there, and what is drawn from them is what
// the records of `v` show.
void confereSemImagens(const std::string& texto, const std::vector<MASCARA>& v) {
  const std::vector<MASCARA> sem = le(texto, IMAGENS::nenhuma);
  ASSERT_NO_FATAL_FAILURE(confereCampos(sem, v));
  for (std::size_t i = 0; i < v.size(); ++i) {
    SCOPED_TRACE(i);
    ASSERT_TRUE(sem[i].kernel.empty() && sem[i].contorno.empty() && sem[i].mascara.empty());
    ASSERT_TRUE(iguais(kernels::imagemDoKernel(sem[i]), v[i].kernel));
    ASSERT_EQ(kernels::ladoDaImagem(sem[i].molde), v[i].kernel.rows);
    ASSERT_EQ(kernels::imagemDoKernel(v[i]).data, v[i].kernel.data);
  }
}

}  // namespace

TEST(Conjunto, ArquivosSorteadosDaoOsRegistrosDaVersaoIngenua) {
  constexpr unsigned semente = 21000;
  SCOPED_TRACE(semente);
  SORTEIO g(semente);
  int compartilhados = 0;
  for (int i = 0; i < 40; ++i) {
    const CASO caso = sorteia(g);
    SCOPED_TRACE(caso.texto);
    const std::vector<MASCARA> v = le(caso.texto);
    ASSERT_NO_FATAL_FAILURE(confereCampos(v, caso.esperados));
    compartilhados += confereTudo(v);
    ASSERT_NO_FATAL_FAILURE(confereSemImagens(caso.texto, v));
    if (HasFailure()) return;
  }
  EXPECT_GT(compartilhados, 100);  // else the files would say nothing about sharing
}

TEST(Conjunto, ContornosConsecutivosDoMesmoLadoDividemAMemoria) {
  // All three outlines have side 23.
  const std::vector<MASCARA> v = le("escala 1 a 1 circulo 20 circulo 19.5 circulo 19.1 eof");
  ASSERT_EQ(v.size(), 3U);
  ASSERT_EQ(v[0].contorno.rows, 23);
  EXPECT_EQ(v[0].contorno.data, v[1].contorno.data);
  EXPECT_EQ(v[1].contorno.data, v[2].contorno.data);
}

TEST(Conjunto, AngulosDeUmaFormaDividemAsImagensEMostramOUltimo) {
  const std::vector<MASCARA> v = le("escala 1 a 1 passoang 45 retangulo 20 10 eof");
  ASSERT_EQ(v.size(), 4U);
  for (const MASCARA& m : v) {
    EXPECT_TRUE(iguais(m.mascara, referencia::mascara('r', 20, 10, 135)));
    EXPECT_TRUE(iguais(m.kernel, referencia::kernel('r', 20, 10, 135)));
  }
  EXPECT_EQ(v[0].ang, 0);  // the numbers of a record are its own
  EXPECT_EQ(v[3].ang, 135);
}

TEST(Conjunto, TabelaTomaKernelNovoMasMascaraAntiga) {
  const std::vector<MASCARA> v = le("escala 1 a 1 circulo 2 circulo 2 circulo 3 eof");
  ASSERT_EQ(v.size(), 3U);
  EXPECT_NE(v[0].kernel.data, v[1].kernel.data);
  EXPECT_EQ(v[0].mascara.data, v[1].mascara.data);
  EXPECT_EQ(v[1].mascara.data, v[2].mascara.data);
  EXPECT_TRUE(iguais(v[0].mascara, referencia::mascara('c', 3, 3, 0)));
}

TEST(Conjunto, CasoGeralApagaATabelaDoMesmoTamanho) {
  const std::vector<MASCARA> v = le("escala 1 a 1 circulo 4 circulo 4.51 eof");
  ASSERT_EQ(v.size(), 2U);
  EXPECT_EQ(v[0].kernel.data, v[1].kernel.data);
  EXPECT_TRUE(iguais(v[0].kernel, referencia::kernel('c', 4.51, 4.51, 0)));
}

TEST(Conjunto, DiscosPequenosSemImagensMostramOMesmo) {
  for (const char* texto :
       {"escala 1 a 1 circulo 4 circulo 4.51", "escala 1 a 1 circulo 4.51 circulo 4",
        "escoitava 30 circulo 9 circulo 4.6 circulo 8", "circulo 2 circulo 1.2",
        "escoitava 9 circulo 7 elipse 9 6 circulo 3 quadrado 9"}) {
    SCOPED_TRACE(texto);
    confereSemImagens(texto, le(texto));
  }
}
