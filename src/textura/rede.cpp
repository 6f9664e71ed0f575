#include "textura/rede.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <map>
#include <sstream>

#include "pim/arquivo.h"
#include "pim/erro.h"
#include "pim/modulos.h"

namespace textura {
namespace {

constexpr std::size_t maximoDePesos = 4000000;
constexpr std::size_t maximoDeCamadas = 200;
constexpr int maximoDePlanos = 512;

[[noreturn]] void ruim(const std::string& nome, const std::string& porque) {
  pim::erro("Erro leitura pesos ", nome + ": ", porque);
}

// A number of 16 bits: sign, 5 bits of exponent, 10 of fraction.
float deMeia(unsigned bits) {
  const int expoente = static_cast<int>((bits >> 10U) & 31U);
  const auto fracao = static_cast<float>(bits & 1023U);
  const float x =
      expoente == 0 ? std::ldexp(fracao, -24) : std::ldexp(fracao + 1024.0F, expoente - 25);
  return (bits & 0x8000U) != 0 ? -x : x;
}

// A line of the file as a layer; false when it is none.
bool leCamada(const std::string& linha, CAMADA& c) {
  std::istringstream partes(linha);
  std::string tipo;
  partes >> tipo >> c.nome;
  if (tipo != "conv") {
    c.tipo = tipo == "dobra" ? CAMADA::TIPO::dobra : CAMADA::TIPO::junta;
    for (std::string e; partes >> e;) c.entradas.push_back(e);
    const std::size_t quantas = c.tipo == CAMADA::TIPO::dobra ? 1 : 2;
    return (tipo == "dobra" || tipo == "junta") && c.entradas.size() == quantas;
  }
  std::string entrada;
  partes >> entrada >> c.entra >> c.sai >> c.lado >> c.passo >> c.relu;
  c.entradas = {entrada};
  const auto entre1E = [](int x, int maior) { return x >= 1 && x <= maior; };
  return !partes.fail() && entre1E(c.entra, maximoDePlanos) && entre1E(c.sai, maximoDePlanos) &&
         entre1E(c.lado, 7) && c.lado % 2 == 1 && entre1E(c.passo, 2);
}

// What a layer gives: so many planes, of the sides of the photograph divided by `divisor`.
struct FEITO {
  int planos = 0;
  int divisor = 1;
};

// Whether the layers fit each other; sets where their weights begin and what the others carry.
bool encaixam(REDE& rede) {
  std::map<std::string, FEITO> feitos = {{"foto", {1, 1}}};
  std::size_t onde = 0;
  for (CAMADA& c : rede.camadas) {
    FEITO f;
    for (const std::string& e : c.entradas) {
      const auto de = feitos.find(e);
      if (de == feitos.end() || (f.planos > 0 && f.divisor != de->second.divisor)) return false;
      f = {f.planos + de->second.planos, de->second.divisor};
    }
    if (c.tipo == CAMADA::TIPO::conv) {
      if (f.planos != c.entra) return false;
      f = {c.sai, f.divisor * c.passo};
      c.onde = onde;
      onde += static_cast<std::size_t>(c.sai) *
              (static_cast<std::size_t>(c.entra) * static_cast<std::size_t>(c.lado * c.lado) + 1);
    }
    if (c.tipo == CAMADA::TIPO::dobra && f.divisor % 2 != 0) return false;
    if (c.tipo == CAMADA::TIPO::dobra) f.divisor /= 2;
    const bool cabe = f.divisor <= passoDaRede && f.planos <= maximoDePlanos;
    if (!cabe || !feitos.emplace(c.nome, f).second) return false;
  }
  if (rede.camadas.empty()) return false;
  const FEITO fim = feitos[rede.camadas.back().nome];
  return onde == rede.pesos.size() && fim.divisor == 2 && fim.planos == 4 * mapas;
}

// The text before the weights, line by line.
struct LINHAS {
  const std::vector<unsigned char>& bytes;
  std::size_t pos = 0;

  bool proxima(std::string& linha) {
    constexpr std::size_t maior = 2000;
    const auto de = bytes.begin() + static_cast<std::ptrdiff_t>(pos);
    const auto fim = std::find(de, bytes.end(), '\n');
    if (fim == bytes.end() || fim - de > static_cast<std::ptrdiff_t>(maior)) return false;
    linha.assign(de, fim);
    pos += linha.size() + 1;
    return true;
  }
};

}  // namespace

REDE leRede(const std::string& nome) {
  const std::vector<unsigned char> bytes = pim::leBytes(nome);
  LINHAS linhas{bytes};
  std::string linha;
  if (!linhas.proxima(linha) || linha != "vorplex-mapa 1") ruim(nome, "nao sao pesos de um mapa");
  REDE rede;
  while (linhas.proxima(linha) && !linha.starts_with("pesos ")) {
    if (linha.starts_with("# ")) {
      rede.cartao.push_back(linha.substr(2));
    } else if (!leCamada(linha, rede.camadas.emplace_back()) ||
               rede.camadas.size() > maximoDeCamadas) {
      ruim(nome, "camada ilegivel");
    }
  }
  const std::size_t sobram = bytes.size() - linhas.pos;
  if (linha != "pesos " + std::to_string(sobram / 2) || sobram % 2 != 0 ||
      sobram > 2 * maximoDePesos) {
    ruim(nome, "arquivo incompleto");
  }
  for (std::size_t i = linhas.pos; i < bytes.size(); i += 2) {
    const unsigned bits = bytes[i] | (static_cast<unsigned>(bytes[i + 1]) << 8U);
    if (((bits >> 10U) & 31U) == 31U) ruim(nome, "peso infinito");
    rede.pesos.push_back(deMeia(bits));
  }
  if (!encaixam(rede)) ruim(nome, "camadas que nao se encaixam");
  return rede;
}

const MODULO& modulo() {
  static const MODULO& tabela = *static_cast<const MODULO*>(
      pim::abreModulo("pimmapa.so", "pimTabelaDoMapa", "Erro: Modulo do mapa: "));
  return tabela;
}

std::string arquivoDosPesos(const std::string& nome) {
  return nome == "fotos" || nome == "cenas" ? pim::arquivoDoPrograma(nome + ".pesos") : nome;
}

}  // namespace textura
