#include "detect/maxlocal.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "kernels/formas.h"
#include "pim/arquivo.h"
#include "pim/converte.h"
#include "pim/erro.h"
#include "pim/token.h"

namespace {

constexpr int maximoDeRegistros = 107374182;

// Room taken before the records are seen; a file that claims more has to hold them first.
constexpr int reservaInicial = 1 << 20;

MAXLOCAL leRegistro(std::FILE* f, const std::string& nome) {
  MAXLOCAL m;
  pim::leNum(f, m.correl, nome);
  const std::string forma = pim::leStr(f, nome);
  if (forma.empty()) pim::erro("Erro leitura forma");
  m.forma = forma[0];
  pim::leNum(f, m.li, nome);
  pim::leNum(f, m.ci, nome);
  pim::leNum(f, m.d1, nome);
  pim::leNum(f, m.d2, nome);
  pim::leNum(f, m.ang, nome);
  return m;
}

// The exception ends the process with a line that names no file, so one that does goes before it.
[[noreturn]] void recusaContagem(std::FILE* f, int n, const std::string& nome) {
  std::fflush(stdout);
  std::fprintf(stderr, "Erro: Numero de registros impossivel %d%s\n", n,
               pim::lugar(f, nome).c_str());
  throw std::length_error("vector::reserve");
}

}  // namespace

void impMaxLocais(const std::vector<MAXLOCAL>& v, const std::string& nome) {
  pim::ARQUIVO arquivo = pim::abre(nome, "wt");
  std::FILE* f = arquivo.get();
  std::fprintf(f, "%u\n", static_cast<unsigned>(v.size()));
  std::fprintf(f, "%8s %1s %4s %4s %8s %8s %3s\n", "//correl", "f", "l", "c", "d1", "d2", "deg");
  for (const MAXLOCAL& m : v) {
    std::fprintf(f, "%8.6f %c %4d %4d %8.5f %8.5f %3.0f\n", static_cast<double>(m.correl), m.forma,
                 m.li, m.ci, m.d1, m.d2, m.ang);
  }
  pim::fechaEscrita(std::move(arquivo), nome);
}

void leMaxLocais(std::vector<MAXLOCAL>& v, const std::string& nome) {
  const pim::ARQUIVO arquivo = pim::abre(nome, "rt");
  int n = 0;
  pim::leNum(arquivo.get(), n, nome);
  if (n < 0 || n > maximoDeRegistros) recusaContagem(arquivo.get(), n, nome);
  v.reserve(v.size() + static_cast<std::size_t>(std::min(n, reservaInicial)));
  for (int i = 0; i < n; ++i) v.push_back(leRegistro(arquivo.get(), nome));
}

void mostraMaxLocal(MAXLOCAL m) {
  std::printf("%f %c %d %d %g %g %g\n", static_cast<double>(m.correl), m.forma, m.li, m.ci, m.d1,
              m.d2, m.ang);
}

void mascaraMaxLocal(MAXLOCAL m, cv::Mat_<unsigned char>& out) {
  switch (m.forma) {
    case 'c':
      return mascaraCirculo(out, m.d1);
    case 'q':
      return mascaraQuadrado(out, m.d1, m.ang);
    case 'r':
      return mascaraRetangulo(out, m.d1, m.d2, m.ang);
    case 'e':
      return mascaraElipse(out, m.d1, m.d2, m.ang);
    default:
      return;
  }
}

int exigeDesenhavel(const MAXLOCAL& m, const std::string& nome, std::size_t k) {
  const double lado = ladoDaMascara(m.forma, m.d1, m.d2);
  if (lado <= maiorLado) return std::max(pim::trunca(lado), 0);
  return exigeLado(lado, m.forma, m.d1, m.d2, maiorLado, lugarDoRegistro(nome, k));
}

std::string lugarDoRegistro(const std::string& nome, std::size_t k) {
  return nome.empty() ? "" : " (" + nome + ", registro " + std::to_string(k) + ")";
}
