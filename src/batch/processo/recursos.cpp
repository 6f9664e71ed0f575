#include "batch/processo/recursos.h"

#include <sched.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <limits>
#include <string>

namespace batch {
namespace {

// The number in the file; `padrao` when there is none, as for a limit "max".
std::uint64_t numeroEm(const char* nome, std::uint64_t padrao) {
  std::ifstream f(nome);
  std::uint64_t x = 0;
  return (f >> x) ? x : padrao;
}

std::uint64_t livreNaMaquina() {
  std::ifstream f("/proc/meminfo");
  for (std::string linha; std::getline(f, linha);) {
    constexpr const char* chave = "MemAvailable:";
    if (linha.starts_with(chave)) return std::stoull(linha.substr(13)) * 1024;
  }
  return 0;
}

}  // namespace

int processadores() {
  cpu_set_t conjunto;
  CPU_ZERO(&conjunto);
  if (sched_getaffinity(0, sizeof conjunto, &conjunto) != 0) return 1;
  return std::max(CPU_COUNT(&conjunto), 1);
}

std::uint64_t memoriaLivre() {
  constexpr std::uint64_t semLimite = std::numeric_limits<std::uint64_t>::max();
  const std::uint64_t limite = numeroEm("/sys/fs/cgroup/memory.max", semLimite);
  const std::uint64_t usada = numeroEm("/sys/fs/cgroup/memory.current", 0);
  const std::uint64_t noGrupo = limite == semLimite ? semLimite : limite - std::min(usada, limite);
  return std::min(livreNaMaquina(), noGrupo);
}

int quantasAoMesmoTempo(int processadores, std::uint64_t livre, double maiorPixels,
                        std::uint64_t bytesDosKernels) {
  constexpr double fixo = 64.0 * 1024 * 1024;  // the program and its libraries
  const double uma = fixo + 40 * maiorPixels + 2 * static_cast<double>(bytesDosKernels);
  if (livre == 0) return std::max(processadores, 1);
  const double cabem = std::floor(static_cast<double>(livre) / uma);
  return static_cast<int>(std::clamp(cabem, 1.0, static_cast<double>(std::max(processadores, 1))));
}

}  // namespace batch
