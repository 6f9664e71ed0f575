#include "detect/maxlocal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <string>

#include "kernels/formas.h"
#include "pim/arquivo.h"
#include "pim/converte.h"
#include "pim/erro.h"
#include "pim/token.h"

namespace {

constexpr int maximoDeRegistros = 107374182;

// Room taken before the records are seen; a file that claims more has to hold them first.
constexpr int reservaInicial = 1 << 20;

// Appends a number as printf writes it, at least `largura` wide: integers, or reals with `casas`
// decimals. Lists are long, and printf is slow.
void campo(std::string& linha, int x, std::size_t largura) {
  std::array<char, 24> texto;
  const char* fim = std::to_chars(texto.data(), texto.data() + texto.size(), x).ptr;
  const auto n = static_cast<std::size_t>(fim - texto.data());
  linha.append(largura > n ? largura - n : 0, ' ').append(texto.data(), n);
}

void campo(std::string& linha, double x, std::size_t largura, int casas) {
  std::array<char, 400> texto;  // the largest double has 309 digits before the point
  const char* fim =
      std::to_chars(texto.data(), texto.data() + texto.size(), x, std::chars_format::fixed, casas)
          .ptr;
  const auto n = static_cast<std::size_t>(fim - texto.data());
  linha.append(largura > n ? largura - n : 0, ' ').append(texto.data(), n);
}

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

[[noreturn]] void recusaContagem(std::FILE* f, int n, const std::string& nome) {
  throw pim::CONTAGEM_IMPOSSIVEL("Erro: Numero de registros impossivel " + std::to_string(n) +
                                 pim::lugar(f, nome));
}

}  // namespace

void impMaxLocais(const std::vector<MAXLOCAL>& v, const std::string& nome) {
  pim::ARQUIVO arquivo = pim::abre(nome, "wt");
  std::FILE* f = arquivo.get();
  std::fprintf(f, "%u\n", static_cast<unsigned>(v.size()));
  std::fprintf(f, "%8s %1s %4s %4s %8s %8s %3s\n", "//correl", "f", "l", "c", "d1", "d2", "deg");
  std::string linha;
  for (const MAXLOCAL& m : v) {
    linha.clear();
    campo(linha, static_cast<double>(m.correl), 8, 6);
    linha += {' ', m.forma, ' '};
    campo(linha, m.li, 4);
    linha += ' ';
    campo(linha, m.ci, 4);
    linha += ' ';
    campo(linha, m.d1, 8, 5);
    linha += ' ';
    campo(linha, m.d2, 8, 5);
    linha += ' ';
    campo(linha, m.ang, 3, 0);
    linha += '\n';
    std::fwrite(linha.data(), 1, linha.size(), f);
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
