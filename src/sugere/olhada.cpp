#include "sugere/olhada.h"

#include <algorithm>
#include <cstddef>

#include "sugere/reparte.h"

namespace sugere {
namespace {

constexpr int menorRelance = 160;  // side of a view, pixels
// So many grains with more than this part of the evidence decide at a glance, or fewer with more.
constexpr std::size_t muitos = 10;
constexpr double parteDeMuitos = 0.75;
constexpr std::size_t poucos = 3;
constexpr double parteDePoucos = 0.95;

std::vector<INDICIO>& daPolaridade(OLHADA& o, bool inverte) {
  return inverte ? o.claros : o.escuros;
}

OLHAR comoOlhar(const MODO_DE_OLHAR& modo, bool inverte) {
  OLHAR o{inverte, modo.minCorr, modo.modo};
  o.modo.fios = 1;
  return o;
}

// In half the detail, which takes a quarter of the time. Small views are not looked at so.
std::vector<INDICIO> deRelance(const VISTA& v, const OLHAR& olhar) {
  if (std::min(v.cinza.rows, v.cinza.cols) < menorRelance) return {};
  VISTA meia = v;
  meia.cinza = reduzida(v.cinza, 2);
  meia.reducao *= 2;
  std::vector<INDICIO> r = indicios(meia, olhar);
  std::erase_if(r, [&](const INDICIO& i) { return !mostra(v, i.diametro); });
  for (INDICIO& i : r) i.figura = ampliada(i.figura, 2);
  return r;
}

// Whether so much speaks for one polarity of a photograph at a glance that the other needs no
// closer look.
bool decidida(const std::vector<OLHADA>& v, std::size_t foto, bool inverte) {
  double destes = 0;
  double todos = 0;
  std::size_t quantos = 0;
  for (const OLHADA& o : v) {
    if (o.vista.foto != foto) continue;
    const std::vector<INDICIO>& estes = inverte ? o.claros : o.escuros;
    destes += evidencia(estes);
    todos += evidencia(o.escuros) + evidencia(o.claros);
    quantos += estes.size();
  }
  if (quantos < poucos) return false;
  return destes > (quantos < muitos ? parteDePoucos : parteDeMuitos) * todos;
}

// Whether the photograph deserves a full look this way.
bool merece(const std::vector<OLHADA>& v, std::size_t foto, bool inverte, const MODO_DE_OLHAR& m) {
  return m.inverte ? *m.inverte == inverte : !decidida(v, foto, !inverte);
}

}  // namespace

void olha(std::vector<OLHADA>& v, const MODO_DE_OLHAR& modo) {
  if (!modo.inverte) {
    reparte(2 * v.size(), modo.fios, [&](std::size_t k) {
      const bool inverte = k % 2 == 1;
      daPolaridade(v[k / 2], inverte) = deRelance(v[k / 2].vista, comoOlhar(modo, inverte));
    });
  }
  std::vector<std::size_t> merecem;  // twice the index of the view, and 1 for bright grains
  for (std::size_t k = 0; k < 2 * v.size(); ++k) {
    if (merece(v, v[k / 2].vista.foto, k % 2 == 1, modo)) merecem.push_back(k);
  }
  reparte(merecem.size(), modo.fios, [&](std::size_t n) {
    OLHADA& o = v[merecem[n] / 2];
    const bool inverte = merecem[n] % 2 == 1;
    daPolaridade(o, inverte) = indicios(o.vista, comoOlhar(modo, inverte));
  });
}

}  // namespace sugere
