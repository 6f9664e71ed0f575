#include "export/valor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>

using namespace exporta;

namespace {

template <class T>
std::string numero(T x) {
  std::string s;
  poeNumero(s, x);
  return s;
}

std::string csv(const VALOR& v) {
  std::string s;
  poeCsv(s, v);
  return s;
}

std::string json(const VALOR& v) {
  std::string s;
  poeJson(s, v);
  return s;
}

TEST(PoeNumero, OMenorNumeroDeDigitosSemExpoenteEntreOsComuns) {
  EXPECT_EQ(numero(0.1), "0.1");
  EXPECT_EQ(numero(0.1F), "0.1");
  EXPECT_EQ(numero(0.523733F), "0.523733");
  EXPECT_EQ(numero(100000.0), "100000");
  EXPECT_EQ(numero(0.00001), "0.00001");
  EXPECT_EQ(numero(0.0), "0");
  EXPECT_EQ(numero(-0.0), "0");
  EXPECT_EQ(numero(-12.5), "-12.5");
  EXPECT_EQ(numero(1e15), "1e+15");
  EXPECT_EQ(numero(9.9e-6), "9.9e-06");
  EXPECT_EQ(numero(1.0 / 3), "0.3333333333333333");
  EXPECT_EQ(numero(emDigitos(1.0881880000000002, 9)), "1.088188");
  EXPECT_EQ(numero(emDigitos(2000.0000000000005, 7)), "2000");
  EXPECT_EQ(numero(emDigitos(-0.00012345678, 3)), "-0.000123");
  EXPECT_EQ(numero(emDigitos(0, 3)), "0");
  EXPECT_EQ(numero(-7), "-7");
  EXPECT_EQ(numero(std::size_t{18446744073709551615U}), "18446744073709551615");
}

TEST(PoeNumero, LidoDeVoltaEhOMesmoNumero) {
  std::mt19937_64 sorteio(20511);
  for (int caso = 0; caso < 20000; ++caso) {
    const std::uint64_t bits = sorteio();
    double x = 0;
    std::memcpy(&x, &bits, sizeof x);
    if (!std::isfinite(x)) continue;
    ASSERT_EQ(std::strtod(numero(x).c_str(), nullptr), x) << numero(x);
    const float y = static_cast<float>(static_cast<int>(bits % 2000001) - 1000000) * 1e-6F;
    ASSERT_EQ(std::strtof(numero(y).c_str(), nullptr), y) << numero(y);
  }
}

TEST(PoeArredondado, TantosDigitosQuantosPedidos) {
  std::string s;
  poeArredondado(s, 123.456789, 5);
  s += ' ';
  poeArredondado(s, -0.0, 5);
  s += ' ';
  poeArredondado(s, 20, 5);
  EXPECT_EQ(s, "123.46 0 20");
}

TEST(PoeCsv, AspasSoOndePrecisa) {
  EXPECT_EQ(csv(std::string("foto 1.jpg")), "foto 1.jpg");
  EXPECT_EQ(csv(std::string("a,b")), "\"a,b\"");
  EXPECT_EQ(csv(std::string("a\"b")), "\"a\"\"b\"");
  EXPECT_EQ(csv(std::string("a\nb")), "\"a\nb\"");
  EXPECT_EQ(csv(std::string("a\rb")), "\"a\rb\"");
  EXPECT_EQ(csv(std::string("a;b")), "\"a;b\"");
  EXPECT_EQ(csv(std::string("a\tb")), "\"a\tb\"");
  EXPECT_EQ(csv(std::string("")), "");
}

// Names stay those of the files, whatever they begin with.
TEST(PoeCsv, NomesNaoMudam) {
  for (const char* nome : {"-foto", "=1", "+1", "@a", "a-b=c+d@e", "'aspas", "(x)", "%s", " x"}) {
    EXPECT_EQ(csv(std::string(nome)), nome);
  }
}

TEST(PoeCsv, ValoresQueFaltamSaoCelulasVazias) {
  EXPECT_EQ(csv({}), "");
  EXPECT_EQ(csv(valor(std::nullopt)), "");
  EXPECT_EQ(csv(valor(0.5)), "0.5");
  EXPECT_EQ(csv(std::nan("")), "");
  EXPECT_EQ(csv(HUGE_VAL), "");
  EXPECT_EQ(csv(true), "1");
  EXPECT_EQ(csv(false), "0");
}

TEST(PoeJson, TextosNumerosELogicos) {
  EXPECT_EQ(json(std::string("a\"b\\c\n\x01/\u00E7")), "\"a\\\"b\\\\c\\u000a\\u0001/\u00E7\"");
  EXPECT_EQ(json(0.5), "0.5");
  EXPECT_EQ(json(7), "7");
  EXPECT_EQ(json(true), "true");
  EXPECT_EQ(json(false), "false");
  EXPECT_EQ(json({}), "null");
  EXPECT_EQ(json(std::nan("")), "null");
}

TEST(EmUtf8, TextoValidoFicaComoEsta) {
  for (const char* s :
       {"", "abc", "\u00E7\u00E3o", "\u20AC", "\U0001F600", "\uD7FF\uE000", "\U0010FFFF"}) {
    EXPECT_EQ(emUtf8(s), s);
  }
}

TEST(EmUtf8, BytesInvalidosViramOCaractereDeSubstituicao) {
  const std::string r = "\uFFFD";
  EXPECT_EQ(emUtf8("S\xE3o"), "S" + r + "o");    // Latin-1
  EXPECT_EQ(emUtf8("a\xC3"), "a" + r);           // cut short
  EXPECT_EQ(emUtf8("\xE2\x82"), r + r);          // cut short
  EXPECT_EQ(emUtf8("\xC0\xAF"), r + r);          // overlong
  EXPECT_EQ(emUtf8("\xE0\x9F\xBF"), r + r + r);  // overlong
  EXPECT_EQ(emUtf8("\xF0\x8F\xBF\xBF"), r + r + r + r);
  EXPECT_EQ(emUtf8("\xED\xA0\x80"), r + r + r);          // surrogate
  EXPECT_EQ(emUtf8("\xF4\x90\x80\x80"), r + r + r + r);  // beyond U+10FFFF
  EXPECT_EQ(emUtf8("\x80z"), r + "z");
}

}  // namespace
