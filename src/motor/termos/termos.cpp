#include "motor/termos/termos.h"

#include <cstddef>

namespace motor {
namespace {

// The number of the plane of a staircase's ends; that of its deviations follows.
int planoDaEscada(const std::vector<ESCADA>& escadas, int escada) {
  int plano = 1;
  for (int j = 0; j < escada; ++j) plano += escadas[static_cast<std::size_t>(j)].desvia ? 2 : 1;
  return plano;
}

struct EXTREMO {
  int linha;
  int coluna;
  DEGRAU degrau;
};

// The terms of one side, given what each of its ends belongs to.
struct REDACAO {
  const LADO& lado;
  const std::vector<ESCADA>& escadas;
  const std::vector<DEGRAU>& degraus;
  std::vector<TERMO>& termos;

  EXTREMO extremo(std::size_t i) const {
    return {lado.linha + static_cast<int>(i), lado.coluna[i], degraus[i]};
  }
  const ESCADA& escada(const EXTREMO& x) const {
    return escadas[static_cast<std::size_t>(x.degrau.escada)];
  }
  void escreve(int plano, int linha, int coluna, int sinal) const {
    termos.push_back({plano, linha, coluna, sinal * lado.sinal});
  }

  // The end of a run, the last row of a period: its whole sum up to there.
  void sai(const EXTREMO& x) const {
    escreve(planoDaEscada(escadas, x.degrau.escada), x.linha, x.coluna, 1);
  }
  // The start of a run, the first row of a period: less what comes before it.
  void entra(const EXTREMO& x) const {
    escreve(planoDaEscada(escadas, x.degrau.escada), x.linha - 1,
            x.coluna - escada(x).passos.back(), -1);
  }
  void desvia(const EXTREMO& x, const DESVIO& d) const {
    escreve(planoDaEscada(escadas, x.degrau.escada) + 1, x.linha - d.dl, x.coluna + d.dc, d.sinal);
  }

  // From end `x` to the end `y` of the row below.
  void passa(const EXTREMO& x, const EXTREMO& y) const {
    const int passo = y.coluna - x.coluna;
    const int de = x.degrau.fase;
    const int para = y.degrau.fase;
    if (x.degrau.escada >= 0 && x.degrau.escada == y.degrau.escada) {
      const ESCADA& e = escada(x);
      if (continua(e, de, para, passo)) return;
      if (const auto d = e.desvia ? desvio(e, de, para, passo) : std::nullopt) {
        desvia(x, *d);
        return;
      }
    }
    if (x.degrau.escada >= 0) sai(x);
    if (y.degrau.escada >= 0) entra(y);
  }

  void todos() const {
    const std::size_t n = degraus.size();
    for (std::size_t i = 0; i < n; ++i) {
      const EXTREMO x = extremo(i);
      if (x.degrau.escada < 0) escreve(0, x.linha, x.coluna, 1);
      if (i == 0 && x.degrau.escada >= 0) entra(x);
      if (i + 1 < n) passa(x, extremo(i + 1));
      if (i + 1 == n && x.degrau.escada >= 0) sai(x);
    }
  }
};

void acrescentaLado(const LADO& lado, const std::vector<ESCADA>& escadas,
                    std::vector<TERMO>& termos) {
  const std::vector<DEGRAU> degraus = divideLado(lado, escadas);
  REDACAO{lado, escadas, degraus, termos}.todos();
}

// The ends of the period whose last end stands at row 0, column 0.
LADO periodo(const ESCADA& e) {
  const int n = e.altura();
  LADO lado{1, 1 - n, {}};
  for (int m = n - 1; m >= 0; --m) lado.coluna.push_back(-e.recuo(n - 1, m));
  return lado;
}

}  // namespace

std::vector<PLANO> planosDasEscadas(const std::vector<ESCADA>& escadas) {
  std::vector<PLANO> planos;
  std::vector<ESCADA> anteriores;
  for (const ESCADA& e : escadas) {
    PLANO p{e.altura(), e.largura(), false, {}};
    acrescentaLado(periodo(e), anteriores, p.soma);
    planos.push_back(p);
    if (e.desvia) planos.push_back({e.altura(), e.largura(), true, {}});
    anteriores.push_back(e);
  }
  return planos;
}

std::vector<TERMO> termosDosLados(const std::vector<LADO>& lados,
                                  const std::vector<ESCADA>& escadas) {
  std::vector<TERMO> termos;
  for (const LADO& lado : lados) acrescentaLado(lado, escadas, termos);
  return termos;
}

}  // namespace motor
