#include "detect/termos.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <queue>

namespace {

constexpr int corridaMinima = 3;  // shorter runs save nothing: each costs two terms
constexpr std::size_t maximoDeDirecoes = 6;
constexpr int custoDoPlano = 12;  // what making a plane costs, in terms of one kernel each
constexpr int maiorPasso = 16;

struct PONTO {
  int r;
  int c;
};

// The ends of a region's rows: +1 at the last pixel of each stretch, -1 just before its first. One
// column is added on the left, so that column -1 has a place.
struct EXTREMOS {
  cv::Mat_<signed char> sinal;
  std::vector<PONTO> pontos;  // where `sinal` is not 0; taken ones are set to 0 and stay listed

  explicit EXTREMOS(const REGIAO& regiao)
      : sinal(regiao.rows, regiao.cols + 1, static_cast<signed char>(0)) {
    for (int r = 0; r < sinal.rows; ++r) {
      const unsigned char* linha = regiao[r];
      for (int c = 0; c < sinal.cols; ++c) {
        const int esquerda = c > 0 ? linha[c - 1] : 0;
        const int aqui = c < regiao.cols ? linha[c] : 0;
        if (esquerda == aqui) continue;
        sinal(r, c) = static_cast<signed char>(esquerda - aqui);
        pontos.push_back({r, c});
      }
    }
  }

  int em(int r, int c) const {
    const bool dentro = r >= 0 && r < sinal.rows && c >= 0 && c < sinal.cols;
    return dentro ? sinal(r, c) : 0;
  }

  // Length of the maximal run along `d` that starts at `p`; 0 when none starts there.
  int corridaDesde(PONTO p, DIRECAO d) const {
    const int s = sinal(p.r, p.c);
    if (s == 0 || em(p.r - d.dl, p.c - d.dc) == s) return 0;
    int n = 1;
    while (em(p.r + n * d.dl, p.c + n * d.dc) == s) ++n;
    return n;
  }

  void toma(PONTO p, DIRECAO d, int n) {
    for (int k = 0; k < n; ++k) sinal(p.r + k * d.dl, p.c + k * d.dc) = 0;
  }

  // Drops the points already taken.
  void arruma() {
    std::erase_if(pontos, [this](PONTO p) { return sinal(p.r, p.c) == 0; });
  }
};

int economia(const EXTREMOS& x, DIRECAO d) {
  int total = 0;
  for (const PONTO p : x.pontos) total += std::max(0, x.corridaDesde(p, d) - 2);
  return total;
}

// Steps worth a try for regions of the given size: those that fit a side several times.
std::vector<DIRECAO> candidatas(int lado) {
  const int maior = std::clamp(lado / 6, 1, maiorPasso);
  std::vector<DIRECAO> lista;
  for (int dl = 1; dl <= maior; ++dl) {
    for (int dc = -maior; dc <= maior; ++dc) {
      if (std::gcd(dl, dc) == 1) lista.push_back({dl, dc});
    }
  }
  return lista;
}

struct CORRIDA {
  int tamanho;
  int direcao;  // index
  PONTO inicio;

  // Longest first; the rest only makes the order definite.
  bool operator<(const CORRIDA& o) const {
    if (tamanho != o.tamanho) return tamanho < o.tamanho;
    if (direcao != o.direcao) return direcao > o.direcao;
    return inicio.r != o.inicio.r ? inicio.r > o.inicio.r : inicio.c > o.inicio.c;
  }
};

using FILA = std::priority_queue<CORRIDA>;

void enfileira(FILA& fila, const EXTREMOS& x, const std::vector<DIRECAO>& direcoes) {
  for (int i = 0; i < static_cast<int>(direcoes.size()); ++i) {
    for (const PONTO p : x.pontos) {
      const int n = x.corridaDesde(p, direcoes[static_cast<std::size_t>(i)]);
      if (n >= corridaMinima) fila.push({n, i, p});
    }
  }
}

// Queues what longer runs have left of `corrida`.
void enfileiraResto(FILA& fila, const EXTREMOS& x, const CORRIDA& corrida, DIRECAO d) {
  int n = 0;
  for (int k = corrida.tamanho - 1; k >= -1; --k) {
    const PONTO p{corrida.inicio.r + k * d.dl, corrida.inicio.c + k * d.dc};
    if (k >= 0 && x.em(p.r, p.c) != 0) {
      ++n;
    } else {
      if (n >= corridaMinima) fila.push({n, corrida.direcao, {p.r + d.dl, p.c + d.dc}});
      n = 0;
    }
  }
}

bool intacta(const EXTREMOS& x, const CORRIDA& corrida, DIRECAO d) {
  for (int k = 0; k < corrida.tamanho; ++k) {
    if (x.em(corrida.inicio.r + k * d.dl, corrida.inicio.c + k * d.dc) == 0) return false;
  }
  return true;
}

}  // namespace

std::optional<REGIOES> regioesDoKernel(const cv::Mat_<float>& K) {
  REGIOES x{REGIAO(K.size()), REGIAO(K.size()), 0, 0};
  for (int r = 0; r < K.rows; ++r) {
    for (int c = 0; c < K.cols; ++c) {
      x.tudo(r, c) = K(r, c) != 0 ? 1 : 0;
      x.nucleo(r, c) = K(r, c) < 0 ? 1 : 0;
      if (K(r, c) > 0) ++x.nAnel;
      if (K(r, c) < 0) ++x.nNucleo;
    }
  }
  if (x.nAnel == 0 || x.nNucleo == 0) return std::nullopt;
  for (const float w : K) {
    const double pixels = w > 0 ? x.nAnel : -x.nNucleo;
    if (w != 0 && !(std::abs(w * pixels - 1) < 1e-6)) return std::nullopt;
  }
  return x;
}

std::vector<DIRECAO> escolheDirecoes(const std::vector<REGIAO>& regioes) {
  std::vector<EXTREMOS> extremos;
  int lado = 0;
  for (const REGIAO& r : regioes) {
    extremos.emplace_back(r);
    lado = std::max({lado, r.rows, r.cols});
  }
  std::vector<DIRECAO> escolhidas;
  while (escolhidas.size() < maximoDeDirecoes) {
    int maior = custoDoPlano;
    DIRECAO melhor{0, 0};
    for (const DIRECAO d : candidatas(lado)) {
      int total = 0;
      for (const EXTREMOS& x : extremos) total += economia(x, d);
      if (total > maior) {
        maior = total;
        melhor = d;
      }
    }
    if (melhor.dl == 0) break;
    escolhidas.push_back(melhor);
    for (EXTREMOS& x : extremos) {
      for (const PONTO p : x.pontos) {
        const int n = x.corridaDesde(p, melhor);
        if (n >= corridaMinima) x.toma(p, melhor, n);
      }
      x.arruma();
    }
  }
  return escolhidas;
}

std::vector<TERMO> termosDaRegiao(const REGIAO& regiao, const std::vector<DIRECAO>& direcoes) {
  EXTREMOS x(regiao);
  const int l0 = regiao.rows / 2;
  const int c0 = regiao.cols / 2 + 1;  // the added column
  std::vector<TERMO> termos;
  FILA fila;
  enfileira(fila, x, direcoes);
  while (!fila.empty()) {
    const CORRIDA corrida = fila.top();
    fila.pop();
    const DIRECAO d = direcoes[static_cast<std::size_t>(corrida.direcao)];
    if (!intacta(x, corrida, d)) {
      enfileiraResto(fila, x, corrida, d);
      continue;
    }
    const PONTO p = corrida.inicio;
    const int sinal = x.em(p.r, p.c);
    const int fim = corrida.tamanho - 1;
    const int plano = corrida.direcao + 1;
    termos.push_back({plano, p.r + fim * d.dl - l0, p.c + fim * d.dc - c0, sinal});
    termos.push_back({plano, p.r - d.dl - l0, p.c - d.dc - c0, -sinal});
    x.toma(p, d, corrida.tamanho);
  }
  x.arruma();
  for (const PONTO p : x.pontos) termos.push_back({0, p.r - l0, p.c - c0, x.sinal(p.r, p.c)});
  return termos;
}
