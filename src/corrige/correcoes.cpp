#include "corrige/correcoes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <utility>

#include "pim/erro.h"

namespace corrige {
namespace {

using JSON = nlohmann::json;

constexpr const char* formato = "vorplex correcoes 1";
constexpr std::array<std::pair<const char*, GESTO>, 3> gestos = {
    {{"rejeita", GESTO::rejeita}, {"recupera", GESTO::recupera}, {"desenha", GESTO::desenha}}};
constexpr double menorTamanho = 1e-5;  // pixels, as what can be measured
constexpr double maiorTamanho = 1e6;

[[noreturn]] void recusa(const std::string& porque) {
  pim::erro("Erro: Correcoes invalidas: ", porque);
}

// Refuses what lies deeper than a correction does, before it takes memory.
bool raso(int profundidade, JSON::parse_event_t evento, JSON& /*valor*/) {
  constexpr int maxima = 4;
  const bool abre =
      evento == JSON::parse_event_t::object_start || evento == JSON::parse_event_t::array_start;
  if (abre && profundidade > maxima) recusa("aninhadas demais");
  return true;
}

// An object with these members and no others.
const JSON& objeto(const JSON& j, std::initializer_list<const char*> membros, const char* quem) {
  if (!j.is_object()) recusa(std::string(quem) + " nao e' um objeto");
  for (const auto& [nome, valor] : j.items()) {
    const bool conhecido = std::any_of(membros.begin(), membros.end(),
                                       [&nome = nome](const char* m) { return nome == m; });
    if (!conhecido) recusa(std::string(quem) + " com membro desconhecido");
  }
  for (const char* m : membros) {
    if (!j.contains(m)) recusa(std::string(quem) + " sem " + m);
  }
  return j;
}

const JSON& lista(const JSON& j, const char* quem) {
  if (!j.is_array()) recusa(std::string(quem) + " nao e' uma lista");
  return j;
}

std::string texto(const JSON& j, const char* quem) {
  if (!j.is_string()) recusa(std::string(quem) + " nao e' um texto");
  return j.get<std::string>();
}

double numero(const JSON& j, const char* quem, double de, double ate) {
  if (!j.is_number()) recusa(std::string(quem) + " nao e' um numero");
  const auto x = j.get<double>();
  if (!(x >= de && x <= ate)) recusa(std::string(quem) + " fora dos limites");
  return x;
}

CORRECAO leCorrecao(const JSON& j) {
  objeto(j, {"gesto", "forma", "linha", "coluna", "d1", "d2", "angulo"}, "correcao");
  CORRECAO c;
  const std::string qual = texto(j["gesto"], "gesto");
  const auto* g = std::find_if(gestos.begin(), gestos.end(),
                               [&](const auto& par) { return par.first == qual; });
  if (g == gestos.end()) recusa("gesto desconhecido");
  c.gesto = g->second;
  const std::string forma = texto(j["forma"], "forma");
  if (forma.size() != 1 || std::string_view("cqre").find(forma[0]) == std::string_view::npos) {
    recusa("forma desconhecida");
  }
  refine::FIGURA& f = c.figura;
  f.forma = forma[0];
  f.l = numero(j["linha"], "linha", -maiorTamanho, maiorTamanho);
  f.c = numero(j["coluna"], "coluna", -maiorTamanho, maiorTamanho);
  f.d1 = numero(j["d1"], "d1", menorTamanho, maiorTamanho);
  f.d2 = numero(j["d2"], "d2", menorTamanho, maiorTamanho);
  f.ang = numero(j["angulo"], "angulo", -1e6, 1e6);
  if (f.forma == 'c' || f.forma == 'q') f.d2 = f.d1;
  if (f.forma == 'c') f.ang = 0;
  return c;
}

CORRECOES leFoto(const JSON& j, std::size_t& quantas) {
  objeto(j, {"soma", "nome", "correcoes"}, "foto");
  CORRECOES c{texto(j["soma"], "soma"), texto(j["nome"], "nome"), {}};
  const bool hex =
      c.soma.size() == 16 && c.soma.find_first_not_of("0123456789abcdef") == std::string::npos;
  if (!hex) recusa("soma nao tem 16 digitos hexadecimais");
  for (const JSON& uma : lista(j["correcoes"], "correcoes")) {
    if (++quantas > maisCorrecoes) recusa("sao mais de 20000");
    c.lista.push_back(leCorrecao(uma));
  }
  return c;
}

JSON emJson(const CORRECAO& c) {
  const refine::FIGURA& f = c.figura;
  return {{"gesto", gestos[static_cast<std::size_t>(c.gesto)].first},
          {"forma", std::string(1, f.forma)},
          {"linha", f.l},
          {"coluna", f.c},
          {"d1", f.d1},
          {"d2", f.d2},
          {"angulo", f.ang}};
}

}  // namespace

std::vector<CORRECOES> leCorrecoes(std::string_view texto_) {
  if (texto_.size() > maiorTexto) recusa("mais de 16 MiB");
  JSON j;
  try {
    j = JSON::parse(texto_.begin(), texto_.end(), raso);
  } catch (const JSON::exception& e) {
    recusa(e.what());
  }
  objeto(j, {"formato", "fotos"}, "arquivo");
  if (texto(j["formato"], "formato") != formato) recusa(std::string("formato nao e' ") + formato);
  std::vector<CORRECOES> v;
  std::set<std::string> somas;
  std::size_t quantas = 0;
  for (const JSON& foto : lista(j["fotos"], "fotos")) {
    v.push_back(leFoto(foto, quantas));
    if (!somas.insert(v.back().soma).second) recusa("fotografia repetida " + v.back().soma);
  }
  return v;
}

std::string emTexto(const CORRECAO& c) {
  return emJson(c).dump();
}

std::string emTexto(const std::vector<CORRECOES>& v) {
  std::string s = "{\"formato\": " + JSON(formato).dump() + ", \"fotos\": [";
  const char* entreFotos = "\n";
  for (const CORRECOES& c : v) {
    s += entreFotos + ("{\"soma\": " + JSON(c.soma).dump()) +
         ", \"nome\": " + JSON(c.nome).dump(-1, ' ', false, JSON::error_handler_t::replace) +
         ", \"correcoes\": [";
    const char* entreElas = "\n  ";
    for (const CORRECAO& uma : c.lista) {
      s += entreElas + emTexto(uma);
      entreElas = ",\n  ";
    }
    s += "]}";
    entreFotos = ",\n";
  }
  return s + "]}\n";
}

const CORRECOES* acha(const std::vector<CORRECOES>& v, const std::string& soma) {
  const auto i =
      std::find_if(v.begin(), v.end(), [&](const CORRECOES& c) { return c.soma == soma; });
  return i == v.end() ? nullptr : &*i;
}

}  // namespace corrige
