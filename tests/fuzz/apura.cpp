// What is made of any list on any small picture: finite numbers within sane limits, and the same on
// one thread and on two.

#include "refine/apura.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "confere.h"
#include "entrada.h"

namespace {

constexpr int maiorDeteccao = 60;

// A ground and dark shapes on it, then single pixels of any grey.
cv::Mat_<unsigned char> foto(ENTRADA& e) {
  const int rows = e.inteiro(1, 48);
  const int cols = e.inteiro(1, 48);
  cv::Mat_<unsigned char> img(rows, cols, e.byte());
  for (int n = e.inteiro(0, 4); n > 0; --n) {
    const int l = e.inteiro(-4, 52);
    const int c = e.inteiro(-4, 52);
    const int meio = e.inteiro(1, 20);
    const bool disco = e.inteiro(0, 1) == 1;
    const unsigned char tom = e.byte();
    for (int y = std::max(l - meio, 0); y < std::min(l + meio + 1, rows); ++y) {
      for (int x = std::max(c - meio, 0); x < std::min(c + meio + 1, cols); ++x) {
        const int longe = (y - l) * (y - l) + (x - c) * (x - c);
        if (!disco || longe <= meio * meio) img(y, x) = tom;
      }
    }
  }
  for (int n = e.inteiro(0, 40); n > 0; --n) {
    const int l = e.inteiro(0, rows - 1);
    const int c = e.inteiro(0, cols - 1);
    img(l, c) = e.byte();
  }
  return img;
}

// Mostly one that fits such a picture, else anything.
MAXLOCAL deteccao(ENTRADA& e) {
  if (e.inteiro(0, 7) == 0) return e.deteccao();
  MAXLOCAL m;
  m.correl = static_cast<float>(e.byte()) / 256;
  m.forma = "cqre"[e.inteiro(0, 3)];
  m.li = e.inteiro(-2, 50);
  m.ci = e.inteiro(-2, 50);
  m.d1 = e.inteiro(0, 200) / 4.0;
  m.d2 = e.inteiro(0, 200) / 4.0;
  m.ang = e.inteiro(-36, 36) * 5;
  return m;
}

refine::MODO_DE_APURAR modo(ENTRADA& e) {
  constexpr const char* familias[] = {"cqre", "c", "q", "r", "e", "cr", "qe", "ec"};
  refine::MODO_DE_APURAR m;
  m.familias = familias[e.inteiro(0, 7)];
  if (e.inteiro(0, 3) == 0) {
    m.menor = e.byte() / 8.0;
    m.maior = m.menor + e.byte() / 4.0;
  }
  m.sobreposicao = e.byte() / 255.0;
  m.sensibilidade = e.byte() / 255.0;
  m.semLetras = e.inteiro(0, 1) == 1;
  return m;
}

void confereGrao(const refine::APURADO& g, const cv::Size& foto, const refine::MODO_DE_APURAR& m) {
  const refine::FIGURA& f = g.figura;
  const double lado = std::max(foto.width, foto.height);
  confere(std::isfinite(f.l) && std::isfinite(f.c) && std::isfinite(f.ang), "lugar");
  confere(f.d1 > 0 && f.d2 > 0 && f.d1 < 10 * lado + 10 && f.d2 < 10 * lado + 10, "tamanho");
  confere(f.l > -10 * lado && f.l < 11 * lado && f.c > -10 * lado && f.c < 11 * lado, "longe");
  confere(f.ang >= 0 && f.ang < 180, "angulo");
  confere(std::strchr("cqre", f.forma) != nullptr, "letra");
  confere(m.semLetras || m.familias.find(f.forma) != std::string::npos, "familia");
  const bool umTamanho = f.forma == 'c' || f.forma == 'q';
  confere(umTamanho ? f.d1 == f.d2 : f.d1 >= f.d2, "d2");
  confere(g.apoio >= 0 && g.apoio <= 1, "apoio");
  confere(g.contraste >= -1 && g.contraste <= 1, "contraste");
  for (const double s : g.erro) confere(s >= 0 && std::isfinite(s), "erro padrao");
}

bool igual(const refine::APURADO& a, const refine::APURADO& b) {
  const refine::FIGURA& f = a.figura;
  const refine::FIGURA& g = b.figura;
  return f.forma == g.forma && f.l == g.l && f.c == g.c && f.d1 == g.d1 && f.d2 == g.d2 &&
         f.ang == g.ang && a.correl == b.correl && a.apoio == b.apoio &&
         a.contraste == b.contraste && a.erro == b.erro;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  ENTRADA e{bytes, n};
  refine::MODO_DE_APURAR m = modo(e);
  const cv::Mat_<unsigned char> img = foto(e);
  std::vector<MAXLOCAL> lista;
  while (e.restam > 0 && lista.size() < maiorDeteccao) lista.push_back(deteccao(e));
  // More than one thread takes at a time.
  const std::size_t poucas = lista.size();
  for (std::size_t k = 0; poucas > 0 && k < 70; ++k) lista.push_back(lista[k % poucas]);
  const refine::APURACAO um = refine::apura(img, lista, m);
  confere(um.recusados <= lista.size(), "recusados");
  confere(um.graos.size() + um.recusados <= lista.size(), "graos demais");
  for (std::size_t k = 0; k < um.graos.size(); ++k) {
    confereGrao(um.graos[k], img.size(), m);
    confere(k == 0 || um.graos[k].apoio <= um.graos[k - 1].apoio, "ordem");
  }
  m.fios = 2;
  const refine::APURACAO dois = refine::apura(img, lista, m);
  confere(um.recusados == dois.recusados && um.graos.size() == dois.graos.size(), "fios");
  for (std::size_t k = 0; k < um.graos.size(); ++k)
    confere(igual(um.graos[k], dois.graos[k]), "fio");
  return 0;
}
