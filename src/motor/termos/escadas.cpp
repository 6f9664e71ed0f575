#include "motor/termos/escadas.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <numeric>
#include <utility>

namespace motor {
namespace {

// Above the cost of any way, which is one term an end at most; adding to it does not overflow.
constexpr int infinito = 1 << 29;

// A transition between two rows of a period, and the step that it needs.
struct PASSAGEM {
  int de;
  int para;
  int passo;
  int custo;
};

// All transitions of a staircase that cost at most one term.
std::vector<PASSAGEM> passagens(const ESCADA& e) {
  const int n = e.altura();
  std::vector<PASSAGEM> lista;
  lista.reserve(e.passos.size());
  for (int k = 0; k < n; ++k)
    lista.push_back({k, (k + 1) % n, e.passos[static_cast<std::size_t>(k)], 0});
  if (!e.desvia) return lista;
  const auto [menor, maior] = std::minmax_element(e.passos.begin(), e.passos.end());
  for (int de = 0; de < n; ++de) {
    for (int para = 0; para < n; ++para) {
      for (int passo = *menor - 1; passo <= *maior + 1; ++passo) {
        if (desvio(e, de, para, passo)) lista.push_back({de, para, passo, 1});
      }
    }
  }
  return lista;
}

// The states that an end can be in: one for each row of each staircase's period.
struct ESTADOS {
  std::vector<std::vector<PASSAGEM>> passagem;  // of each staircase, between its states
  std::vector<std::size_t> primeiro;            // state of each staircase's row 0, and their number
  std::size_t total = 0;

  explicit ESTADOS(const std::vector<ESCADA>& escadas) {
    for (const ESCADA& e : escadas) {
      passagem.push_back(passagens(e));
      for (PASSAGEM& p : passagem.back()) {
        p.de += static_cast<int>(total);
        p.para += static_cast<int>(total);
      }
      primeiro.push_back(total);
      total += e.passos.size();
    }
    primeiro.push_back(total);
  }
};

// The cheapest ways down to one row: to each of its states, and past it with no run open.
struct FRENTE {
  std::vector<int> custo;
  std::vector<int> antes;  // the state of the row above that a way came from, -1 where a run starts
  int livre = 0;
  int ultimo = -1;  // the state that the free way left, -1 after an end alone

  explicit FRENTE(const ESTADOS& x) : custo(x.total, infinito), antes(x.total, -1) {}
};

// From the row of `f` to the next one, whose end stands `passo` columns to the right.
void proxima(const ESTADOS& x, const FRENTE& f, int passo, FRENTE& g) {
  std::fill(g.custo.begin(), g.custo.end(), infinito);
  g.livre = f.livre + 1;
  g.ultimo = -1;
  for (std::size_t j = 0; j + 1 < x.primeiro.size(); ++j) {
    g.custo[x.primeiro[j]] = f.livre + 1;
    g.antes[x.primeiro[j]] = -1;
    for (const PASSAGEM& t : x.passagem[j]) {
      const auto para = static_cast<std::size_t>(t.para);
      const int custo = f.custo[static_cast<std::size_t>(t.de)] + t.custo;
      if (t.passo == passo && custo < infinito && custo <= g.custo[para]) {
        g.custo[para] = custo;
        g.antes[para] = t.de;
      }
    }
    const std::size_t fim = x.primeiro[j + 1] - 1;
    if (g.custo[fim] + 1 < g.livre) {
      g.livre = g.custo[fim] + 1;
      g.ultimo = static_cast<int>(fim);
    }
  }
}

// By how many columns end `i` stands right of the one before; the first has none before it, and no
// state to come from either.
int passoAte(const LADO& lado, std::size_t i) {
  return i > 0 ? lado.coluna[i] - lado.coluna[i - 1] : 0;
}

}  // namespace

int ESCADA::largura() const {
  return std::accumulate(passos.begin(), passos.end(), 0);
}

int ESCADA::recuo(int fase, int m) const {
  int total = 0;
  for (int i = 1; i <= m; ++i) {
    total += passos[static_cast<std::size_t>((fase - i + m * altura()) % altura())];
  }
  return total;
}

bool continua(const ESCADA& e, int de, int para, int passo) {
  return para == (de + 1) % e.altura() && passo == e.passos[static_cast<std::size_t>(de)];
}

std::optional<DESVIO> desvio(const ESCADA& e, int de, int para, int passo) {
  // The new run's place in the row before it, had it been there already.
  const int n = e.altura();
  const int anterior = (para + n - 1) % n;
  const int coluna = passo - e.passos[static_cast<std::size_t>(anterior)];
  std::optional<DESVIO> achado;
  for (int m = 0; m < n; ++m) {
    const int velha = -e.recuo(de, m);
    const int nova = coluna - e.recuo(anterior, m);
    if (velha == nova) continue;
    if (achado || std::abs(velha - nova) > 1) return std::nullopt;
    achado = DESVIO{m, std::max(velha, nova), velha > nova ? 1 : -1};
  }
  return achado;
}

int custoDosLados(const std::vector<LADO>& lados, const std::vector<ESCADA>& escadas) {
  const ESTADOS x(escadas);
  int total = 0;
  for (const LADO& lado : lados) {
    FRENTE f(x);
    FRENTE g(x);
    for (std::size_t i = 0; i < lado.coluna.size(); ++i) {
      proxima(x, f, passoAte(lado, i), g);
      std::swap(f, g);
    }
    total += f.livre;
  }
  return total;
}

std::vector<DEGRAU> divideLado(const LADO& lado, const std::vector<ESCADA>& escadas) {
  const ESTADOS x(escadas);
  std::vector<FRENTE> frentes(lado.coluna.size() + 1, FRENTE(x));
  for (std::size_t i = 0; i < lado.coluna.size(); ++i) {
    proxima(x, frentes[i], passoAte(lado, i), frentes[i + 1]);
  }
  std::vector<DEGRAU> degraus(lado.coluna.size());
  int estado = -1;  // that the way below came from
  for (std::size_t i = degraus.size(); i > 0; --i) {
    if (estado < 0) estado = frentes[i].ultimo;
    if (estado < 0) continue;
    const auto s = static_cast<std::size_t>(estado);
    const auto depois = std::upper_bound(x.primeiro.begin(), x.primeiro.end(), s);
    degraus[i - 1] = {static_cast<int>(depois - x.primeiro.begin()) - 1,
                      static_cast<int>(s - *std::prev(depois))};
    estado = frentes[i].antes[s];
  }
  return degraus;
}

}  // namespace motor
