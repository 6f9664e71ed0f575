#include "entrada.h"

#include <bit>
#include <iterator>
#include <limits>

namespace {

constexpr double infinito = std::numeric_limits<double>::infinity();
constexpr double naoNumero = std::numeric_limits<double>::quiet_NaN();
constexpr double especiais[] = {naoNumero, infinito, -infinito, 1e300,  -1e300,  1e-300, 5e-324,
                                0.5,       -0.0,     90,        180,    360,     -90,    4.5,
                                8191.5,    16383,    16385,     5791.5, 11584.5, 23170.0};

template <class T>
T bruto(ENTRADA& e) {
  T valor = 0;
  for (std::size_t i = 0; i < sizeof(T); ++i) {
    valor = static_cast<T>(valor | static_cast<T>(e.byte()) << (8 * i));
  }
  return valor;
}

}  // namespace

std::uint8_t ENTRADA::byte() {
  if (restam == 0) return 0;
  --restam;
  return *bytes++;
}

int ENTRADA::inteiro(int de, int ate) {
  const int n = ate - de + 1;
  int valor = byte();
  if (n > 256) valor += 256 * byte();
  return de + valor % n;
}

int ENTRADA::qualquerInteiro() {
  constexpr int menor = std::numeric_limits<int>::min();
  constexpr int maior = std::numeric_limits<int>::max();
  const int primeiro = byte();
  if (primeiro < 128) return primeiro - 64;
  if (primeiro < 192) return inteiro(-2000, 2000);
  if (primeiro < 250) return std::bit_cast<int>(bruto<std::uint32_t>(*this));
  return primeiro % 2 == 0 ? menor + byte() : maior - byte();
}

double ENTRADA::real() {
  const int tipo = byte();
  if (tipo < 128) return (byte() - 128) / 4.0;
  if (tipo < 192) return (byte() - 128) * 2.5;
  if (tipo < 224) return especiais[byte() % std::size(especiais)];
  return std::bit_cast<double>(bruto<std::uint64_t>(*this));
}

MAXLOCAL ENTRADA::deteccao() {
  constexpr char letras[] = {'c', 'q', 'r', 'e'};
  MAXLOCAL m;
  m.correl = static_cast<float>(byte()) / 128 - 1;
  const int letra = byte();
  m.forma = letra < 240 ? letras[letra % 4] : static_cast<char>(letra - 120);
  m.li = qualquerInteiro();
  m.ci = qualquerInteiro();
  m.d1 = real();
  m.d2 = real();
  m.ang = real();
  return m;
}

std::string_view comoTexto(const std::uint8_t* bytes, std::size_t n) {
  return {reinterpret_cast<const char*>(bytes), n};
}
