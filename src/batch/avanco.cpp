#include "batch/avanco.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <opencv2/core.hpp>

#include "batch/pedido/frases.h"

namespace batch {

double agora() {
  const auto desdeOInicio = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double>(desdeOInicio).count();
}

std::string duracao(double segundos) {
  const long long s = std::llround(segundos);
  if (s < 100) return std::to_string(s) + " s";
  const long long minutos = (s + 30) / 60;
  if (minutos < 100) return std::to_string(minutos) + " min";
  return cv::format("%lld h %02lld min", minutos / 60, minutos % 60);
}

std::string barra(const AVANCO& a, double decorridos) {
  const bool porPixels = a.pixelsTotal > 0;
  const double feito =
      porPixels     ? (a.pixelsVistos + a.pixelsEmCurso) / a.pixelsTotal
      : a.total > 0 ? (static_cast<double>(a.acabadas) + a.emCurso) / static_cast<double>(a.total)
                    : 1;
  constexpr int largura = 20;
  std::string s = "[";
  for (int i = 0; i < largura; ++i) s += i < feito * largura ? '#' : ' ';
  const double ritmo = decorridos > 0 ? a.pixelsFeitos / 1e6 / decorridos : 0;
  const double resta = feito > 0 ? decorridos * (1 - feito) / feito : -1;
  return s + "] " +
         cv::format(diz(falas::barra, a.idioma), std::to_string(a.acabadas).c_str(),
                    std::to_string(a.total).c_str(), std::to_string(a.falharam).c_str(), ritmo,
                    resta >= 0 ? duracao(resta).c_str() : "?");
}

void dizLinha(const AVANCO& a, const std::string& linha) {
  if (a.quieto) return;
  apaga(a);
  std::fprintf(a.saida, "%s\n", linha.c_str());
  std::fflush(a.saida);
}

void mostra(const AVANCO& a) {
  if (a.quieto || !a.terminal) return;
  std::fprintf(a.saida, "\r\x1b[K%s", barra(a, agora() - a.inicio).c_str());
  std::fflush(a.saida);
}

void apaga(const AVANCO& a) {
  if (!a.quieto && a.terminal) std::fputs("\r\x1b[K", a.saida);
}

}  // namespace batch
