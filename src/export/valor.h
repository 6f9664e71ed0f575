#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <variant>

namespace exporta {

// One value of a table, and how it is written. std::monostate is no value.
using VALOR = std::variant<std::monostate, bool, int, std::size_t, float, double, std::string>;

// A value that may be missing.
VALOR valor(const std::optional<double>& x);

// Appends a number: point as decimal mark whatever the locale, and the fewest digits that read back
// as the same number of the same type (a correlation is a float and gets a float's digits). Plain
// decimals from 1e-5 to 1e15, an exponent outside of that. `x` is finite.
void poeNumero(std::string& s, double x);
void poeNumero(std::string& s, float x);
void poeNumero(std::string& s, std::size_t x);
void poeNumero(std::string& s, int x);

// The nearest number of so many significant digits, so that a table has what is meant and not what
// its binary form leaves behind it.
double emDigitos(double x, int digitos);

// Appends a number with at most `digitos` significant digits, for coordinates, which have `casas`.
inline constexpr int casas = 10;
void poeArredondado(std::string& s, double x, int digitos);

// Appends a field of a CSV file by RFC 4180: quoted when it holds a comma, a semicolon (which
// separates where the comma is the decimal mark), a tab, a quote or a line break, quotes doubled.
// Bytes that are not UTF-8, which file names may hold, become U+FFFD. A truth value is 1 or 0; no
// value, or a number that is not finite, is an empty field.
void poeCsv(std::string& s, const VALOR& v);

// Appends a JSON value. No value, or a number that is not finite, is null.
void poeJson(std::string& s, const VALOR& v);

// A copy of `s` in which every byte that is not part of valid UTF-8 is U+FFFD.
std::string emUtf8(const std::string& s);

}  // namespace exporta
