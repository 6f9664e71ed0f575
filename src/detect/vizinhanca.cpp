#include "detect/vizinhanca.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace {

constexpr double celulasPorRegistro = 16;
constexpr double celulasSempre = 1 << 16;

std::size_t letra(const MAXLOCAL& m) {
  return static_cast<unsigned char>(m.forma);
}

}  // namespace

VIZINHANCA::VIZINHANCA(const std::vector<MAXLOCAL>& lista, int distancia)
    : lado(std::int64_t{distancia} + 1), maxDist(distancia) {
  camadaDaLetra.fill(-1);
  if (lista.empty()) return;
  std::size_t camadas = 0;
  std::int64_t l1 = l0 = lista[0].li;
  std::int64_t c1 = c0 = lista[0].ci;
  for (const MAXLOCAL& m : lista) {
    l0 = std::min<std::int64_t>(l0, m.li);
    l1 = std::max<std::int64_t>(l1, m.li);
    c0 = std::min<std::int64_t>(c0, m.ci);
    c1 = std::max<std::int64_t>(c1, m.ci);
    std::int16_t& nova = camadaDaLetra[letra(m)];
    if (nova < 0) nova = static_cast<std::int16_t>(camadas++);
  }
  linhas = (l1 - l0) / lado + 1;
  colunas = (c1 - c0) / lado + 1;
  const double porCamada = static_cast<double>(linhas) * static_cast<double>(colunas);
  const double aceitas =
      std::max(celulasSempre, celulasPorRegistro * static_cast<double>(lista.size()));
  if (porCamada * static_cast<double>(camadas) <= aceitas) {
    tabelas.assign(camadas, std::vector<std::uint32_t>(static_cast<std::size_t>(linhas * colunas)));
  } else {
    esparsas.resize(camadas);
  }
}

std::size_t VIZINHANCA::camada(const MAXLOCAL& m) const {
  return static_cast<std::size_t>(camadaDaLetra[letra(m)]);
}

std::uint64_t VIZINHANCA::celula(std::int64_t linha, std::int64_t coluna) const {
  return static_cast<std::uint64_t>(linha) * static_cast<std::uint64_t>(colunas) +
         static_cast<std::uint64_t>(coluna);
}

std::uint32_t VIZINHANCA::conteudo(std::size_t qualCamada, std::uint64_t n) const {
  if (!tabelas.empty()) return tabelas[qualCamada][n];
  const auto achada = esparsas[qualCamada].find(n);
  return achada == esparsas[qualCamada].end() ? 0 : achada->second;
}

const VIZINHANCA::PONTO* VIZINHANCA::procura(const MAXLOCAL& m) const {
  const std::size_t minha = camada(m);
  const std::int64_t l = (m.li - l0) / lado;
  const std::int64_t c = (m.ci - c0) / lado;
  for (std::int64_t i = std::max<std::int64_t>(l - 1, 0); i <= std::min(l + 1, linhas - 1); ++i) {
    for (std::int64_t j = std::max<std::int64_t>(c - 1, 0); j <= std::min(c + 1, colunas - 1);
         ++j) {
      const std::uint32_t n = conteudo(minha, celula(i, j));
      if (n == 0) continue;
      const PONTO& p = pontos[n - 1];
      const bool perto = std::abs(std::int64_t{m.li} - p.li) <= maxDist &&
                         std::abs(std::int64_t{m.ci} - p.ci) <= maxDist;
      if (perto) return &p;
    }
  }
  return nullptr;
}

void VIZINHANCA::acrescenta(const MAXLOCAL& m) {
  pontos.push_back({m.li, m.ci});
  const auto indice = static_cast<std::uint32_t>(pontos.size());
  const std::uint64_t n = celula((m.li - l0) / lado, (m.ci - c0) / lado);
  if (!tabelas.empty()) {
    tabelas[camada(m)][n] = indice;
  } else {
    esparsas[camada(m)][n] = indice;
  }
}
