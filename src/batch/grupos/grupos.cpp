#include "batch/grupos/grupos.h"

#include <algorithm>
#include <array>
#include <optional>

#include "batch/grupos/csv.h"
#include "batch/pedido/tabela.h"
#include "linha/programa.h"
#include "pim/erro.h"

namespace fs = std::filesystem;

namespace batch {
namespace {

constexpr std::array<linha::FRASE, 4> titulos = {
    {{"foto", "photograph"}, {"grupo", "group"}, {"escala", "scale"}, {"polaridade", "polarity"}}};
constexpr std::array<linha::FRASE, 2> polaridades = {{{"escuros", "dark"}, {"claros", "bright"}}};

[[noreturn]] void recusa(const LINHA_DE_CSV& l, const std::string& porque) {
  pim::erro("Erro: Grupos, linha ", std::to_string(l.numero) + ": " + porque);
}

void confereTitulos(const LINHA_DE_CSV& l) {
  const std::size_t n = l.campos.size();
  bool certos = n >= 2 && n <= titulos.size();
  for (std::size_t k = 0; certos && k < n; ++k) {
    certos = l.campos[k] == titulos[k].pt || l.campos[k] == titulos[k].en;
  }
  if (!certos) recusa(l, "a primeira deve ser foto,grupo,escala,polaridade");
}

// Whether `dito` is the end of the path: whole names, the suffix of the last one at will.
bool eh(const fs::path& arquivo, const fs::path& dito) {
  fs::path p = arquivo;
  fs::path d = dito.lexically_normal();
  if (p.filename() != d.filename() && p.stem() != d.filename()) return false;
  for (;;) {
    d = d.parent_path();
    p = p.parent_path();
    if (!d.has_filename()) return d.empty() || d == p;
    if (p.filename() != d.filename()) return false;
  }
}

ALVO& acha(std::vector<ALVO>& alvos, const LINHA_DE_CSV& l) {
  const std::string& dito = l.campos[0];
  const auto esta = [&](const ALVO& a) { return eh(a.arquivo, dito); };
  const auto i = std::find_if(alvos.begin(), alvos.end(), esta);
  if (dito.empty() || i == alvos.end()) recusa(l, "nenhuma fotografia e' " + dito);
  if (std::find_if(i + 1, alvos.end(), esta) != alvos.end()) {
    recusa(l, "mais de uma fotografia e' " + dito);
  }
  return *i;
}

void poe(ALVO& a, const LINHA_DE_CSV& l) {
  const auto campo = [&](std::size_t k) { return k < l.campos.size() ? l.campos[k] : ""; };
  a.grupo = campo(1);
  if (a.grupo.empty()) recusa(l, "grupo sem nome");
  if (!campo(2).empty()) {
    measure::ESCALA e;
    const std::string porque = measure::paraEscala(campo(2), e);
    if (!porque.empty()) recusa(l, "escala " + campo(2) + ": " + porque);
    a.escala = e;
  }
  if (!campo(3).empty()) {
    const int qual = linha::lugarDaPalavra(campo(3), polaridades);
    if (qual < 0) recusa(l, "polaridade " + campo(3) + " nao e' escuros nem claros");
    a.claros = qual == 1;
  }
}

measure::ESCALA naUnidade(const measure::ESCALA& e, measure::UNIDADE u) {
  if (e.unidade == u) return e;
  return {e.lado * measure::milimetros(e.unidade) / measure::milimetros(u), u};
}

// One unit for all.
void igualaUnidades(std::vector<ALVO>& alvos, measure::ESCALA& padrao) {
  const auto comEscala = [](const ALVO& a) { return a.escala.has_value(); };
  const auto primeira = std::find_if(alvos.begin(), alvos.end(), comEscala);
  if (primeira == alvos.end()) return;
  if (!calibrada(padrao)) {
    const auto sem = std::find_if_not(alvos.begin(), alvos.end(), comEscala);
    if (sem != alvos.end()) pim::erro("Erro: Grupos: sem escala: ", sem->arquivo.string());
    padrao = *primeira->escala;
  }
  for (ALVO& a : alvos) {
    if (a.escala) a.escala = naUnidade(*a.escala, padrao.unidade);
  }
}

}  // namespace

bool ehPorPastas(const std::string& pedido) {
  return pedido == "pastas" || pedido == "folders";
}

void agrupaPorPastas(std::vector<ALVO>& alvos) {
  for (ALVO& a : alvos) a.grupo = a.arquivo.parent_path().filename().string();
}

void agrupaPorTabela(std::vector<ALVO>& alvos, std::string_view csv, measure::ESCALA& padrao) {
  const std::vector<LINHA_DE_CSV> linhas = leCsv(csv);
  if (linhas.empty()) pim::erro("Erro: Grupos: tabela vazia");
  confereTitulos(linhas[0]);
  for (std::size_t i = 1; i < linhas.size(); ++i) {
    const LINHA_DE_CSV& l = linhas[i];
    if (l.campos.size() > linhas[0].campos.size() || l.campos.size() < 2) {
      recusa(l, "numero de campos");
    }
    ALVO& a = acha(alvos, l);
    if (!a.grupo.empty()) recusa(l, "a fotografia ja tem uma linha: " + l.campos[0]);
    poe(a, l);
  }
  igualaUnidades(alvos, padrao);
}

}  // namespace batch
