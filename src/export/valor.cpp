#include "export/valor.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <type_traits>

namespace exporta {
namespace {

template <class T, class... FORMATO>
void poe(std::string& s, T x, FORMATO... formato) {
  std::array<char, 64> texto;
  const auto fim = std::to_chars(texto.data(), texto.data() + texto.size(), x, formato...);
  s.append(texto.data(), fim.ptr);
}

template <class T>
void poeReal(std::string& s, T x) {
  const T grandeza = std::abs(x);
  const bool simples = x == 0 || (grandeza >= T(1e-5) && grandeza < T(1e15));
  if (simples) return poe(s, x + T(0), std::chars_format::fixed);  // no negative zero
  poe(s, x, std::chars_format::scientific);
}

// How many bytes the character at `s` takes, 0 when it is not UTF-8: overlong forms, surrogates
// and what lies beyond U+10FFFF are not.
std::size_t tamanhoUtf8(std::string_view s) {
  const auto b = [s](std::size_t i) {
    return i < s.size() ? static_cast<unsigned char>(s[i]) : 0U;
  };
  const auto segue = [&b](std::size_t i) { return (b(i) & 0xC0U) == 0x80U; };
  const unsigned a = b(0);
  if (a < 0x80) return 1;
  if (a >= 0xC2 && a < 0xE0) return segue(1) ? 2 : 0;
  if (a >= 0xE0 && a < 0xF0) {
    const bool ruim = (a == 0xE0 && b(1) < 0xA0) || (a == 0xED && b(1) >= 0xA0);
    return !ruim && segue(1) && segue(2) ? 3 : 0;
  }
  if (a >= 0xF0 && a < 0xF5) {
    const bool ruim = (a == 0xF0 && b(1) < 0x90) || (a == 0xF4 && b(1) >= 0x90);
    return !ruim && segue(1) && segue(2) && segue(3) ? 4 : 0;
  }
  return 0;
}

void poeTextoCsv(std::string& s, const std::string& texto) {
  const std::string limpo = emUtf8(texto);
  if (limpo.find_first_of(",;\t\"\r\n") == std::string::npos) {
    s += limpo;
    return;
  }
  s += '"';
  for (const char c : limpo) s.append(c == '"' ? 2 : 1, c);
  s += '"';
}

void poeTextoJson(std::string& s, const std::string& texto) {
  s += '"';
  for (const char c : emUtf8(texto)) {
    const auto codigo = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      s += '\\';
      s += c;
    } else if (codigo < 0x20) {
      constexpr const char* digitos = "0123456789abcdef";
      s += "\\u00";
      s += digitos[codigo >> 4U];
      s += digitos[codigo & 15U];
    } else {
      s += c;
    }
  }
  s += '"';
}

// Appends `v`, its texts by `poeTexto`; `nada` stands for no value.
template <class POETEXTO>
void poeValor(std::string& s, const VALOR& v, const char* nada, const char* falso,
              const char* verdadeiro, POETEXTO poeTexto) {
  std::visit(
      [&](const auto& x) {
        using DITO = std::decay_t<decltype(x)>;
        if constexpr (std::is_same_v<DITO, std::monostate>) {
          s += nada;
        } else if constexpr (std::is_same_v<DITO, bool>) {
          s += x ? verdadeiro : falso;
        } else if constexpr (std::is_same_v<DITO, std::string>) {
          poeTexto(s, x);
        } else if constexpr (std::is_floating_point_v<DITO>) {
          if (std::isfinite(x)) {
            poeNumero(s, x);
          } else {
            s += nada;
          }
        } else {
          poeNumero(s, x);
        }
      },
      v);
}

}  // namespace

VALOR valor(const std::optional<double>& x) {
  return x ? VALOR(*x) : VALOR();
}

void poeNumero(std::string& s, double x) {
  poeReal(s, x);
}

void poeNumero(std::string& s, float x) {
  poeReal(s, x);
}

void poeNumero(std::string& s, std::size_t x) {
  poe(s, x);
}

void poeNumero(std::string& s, int x) {
  poe(s, x);
}

double emDigitos(double x, int digitos) {
  if (!std::isfinite(x)) return x;
  std::array<char, 64> texto;
  char* const de = texto.data();
  const auto fim =
      std::to_chars(de, de + texto.size(), x, std::chars_format::scientific, digitos - 1);
  std::from_chars(de, fim.ptr, x);
  return x;
}

void poeArredondado(std::string& s, double x, int digitos) {
  poe(s, x + 0.0, std::chars_format::general, digitos);
}

void poeCsv(std::string& s, const VALOR& v) {
  poeValor(s, v, "", "0", "1", poeTextoCsv);
}

void poeJson(std::string& s, const VALOR& v) {
  poeValor(s, v, "null", "false", "true", poeTextoJson);
}

std::string emUtf8(const std::string& s) {
  std::string limpo;
  limpo.reserve(s.size());
  for (std::size_t i = 0; i < s.size();) {
    const std::size_t n = tamanhoUtf8(std::string_view(s).substr(i));
    if (n == 0) {
      limpo += "\uFFFD";
      ++i;
    } else {
      limpo.append(s, i, n);
      i += n;
    }
  }
  return limpo;
}

}  // namespace exporta
