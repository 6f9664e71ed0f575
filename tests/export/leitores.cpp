#include "leitores.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

using namespace measure;

namespace {

struct LEITOR {
  const std::string& s;
  std::size_t i = 0;

  [[noreturn]] void falha(const char* motivo) const {
    throw std::runtime_error("JSON: " + std::string(motivo) + " em " + std::to_string(i));
  }
  char olha() const { return i < s.size() ? s[i] : '\0'; }
  void brancos() {
    while (i < s.size() && (s[i] == ' ' || s[i] == '\n' || s[i] == '\t' || s[i] == '\r')) ++i;
  }
  void exige(const std::string& t) {
    if (s.compare(i, t.size(), t) != 0) falha(("falta " + t).c_str());
    i += t.size();
  }

  std::string texto() {
    exige("\"");
    std::string t;
    while (olha() != '"') {
      if (static_cast<unsigned char>(olha()) < 0x20) falha("controle ou fim no texto");
      if (olha() != '\\') {
        t += s[i++];
        continue;
      }
      ++i;
      if (olha() == 'u') {
        t += static_cast<char>(std::stoi(s.substr(i + 1, 4), nullptr, 16));
        i += 5;
      } else if (olha() == '"' || olha() == '\\') {
        t += s[i++];
      } else {
        falha("escape");
      }
    }
    exige("\"");
    return t;
  }

  // Digits by the grammar of JSON: no leading zeros or plus sign, digits on both sides of the
  // point.
  double numero() {
    const std::size_t inicio = i;
    const auto digitos = [this] {
      if (olha() < '0' || olha() > '9') falha("numero");
      while (olha() >= '0' && olha() <= '9') ++i;
    };
    if (olha() == '-') ++i;
    if (olha() == '0') {
      ++i;
    } else {
      digitos();
    }
    if (olha() == '.') {
      ++i;
      digitos();
    }
    if (olha() == 'e' || olha() == 'E') {
      ++i;
      if (olha() == '+' || olha() == '-') ++i;
      digitos();
    }
    return std::strtod(s.substr(inicio, i - inicio).c_str(), nullptr);
  }

  template <class MEMBRO>
  void membros(const char* abre, const char* fecha, MEMBRO membro) {
    exige(abre);
    brancos();
    while (olha() != *fecha) {
      membro();
      brancos();
      if (olha() == *fecha) break;
      exige(",");
      brancos();
      if (olha() == *fecha) falha("virgula sobrando");
    }
    exige(fecha);
  }

  void objeto(JSON& j) {
    j.tipo = JSON::TIPO::objeto;
    membros("{", "}", [&] {
      brancos();
      const std::string nome = texto();
      brancos();
      exige(":");
      if (!j.objeto.emplace(nome, valor()).second) falha("membro repetido");
    });
  }

  JSON valor() {
    brancos();
    JSON j;
    if (olha() == '{') {
      objeto(j);
    } else if (olha() == '[') {
      j.tipo = JSON::TIPO::lista;
      membros("[", "]", [&] { j.lista.push_back(valor()); });
    } else if (olha() == '"') {
      j.tipo = JSON::TIPO::texto;
      j.texto = texto();
    } else if (olha() == 't' || olha() == 'f') {
      j.tipo = JSON::TIPO::logico;
      j.logico = olha() == 't';
      exige(j.logico ? "true" : "false");
    } else if (olha() == 'n') {
      exige("null");
    } else {
      j.tipo = JSON::TIPO::numero;
      j.numero = numero();
    }
    return j;
  }
};

// One field; `i` comes to stand on the comma or line feed after it.
std::string campo(const std::string& t, std::size_t& i) {
  std::string c;
  if (t[i] != '"') {
    while (i < t.size() && t[i] != ',' && t[i] != '\n') {
      EXPECT_NE(t[i], '"') << "aspas soltas na posicao " << i;
      c += t[i++];
    }
    return c;
  }
  for (++i; i < t.size(); ++i) {
    if (t[i] == '"' && t.compare(i, 2, "\"\"") != 0) break;
    if (t[i] == '"') ++i;
    c += t[i];
  }
  ++i;
  EXPECT_TRUE(i < t.size() && (t[i] == ',' || t[i] == '\n')) << "texto depois das aspas";
  return c;
}

}  // namespace

std::vector<std::vector<std::string>> leCsv(const std::string& texto) {
  std::vector<std::vector<std::string>> linhas;
  EXPECT_TRUE(!texto.empty() && texto.back() == '\n') << "a ultima linha nao termina";
  for (std::size_t i = 0; i < texto.size(); ++i) {
    linhas.emplace_back();
    linhas.back().push_back(campo(texto, i));
    while (i < texto.size() && texto[i] == ',') linhas.back().push_back(campo(texto, ++i));
  }
  return linhas;
}

JSON leJson(const std::string& texto) {
  LEITOR l{texto};
  JSON j = l.valor();
  l.brancos();
  if (l.i != texto.size()) l.falha("sobra texto");
  return j;
}

measure::FOTOGRAFIA fotoDeExemplo(const measure::ESCALA& escala) {
  std::vector<MAXLOCAL> v;
  for (const double ang : {0.0, 30.0, 90.0}) {
    for (const char letra : measure::letras) {
      const int k = static_cast<int>(v.size());
      v.push_back({0.25F + 0.01F * static_cast<float>(k), letra, 30 + k, 60 - k, 20.5, 10.25, ang});
    }
  }
  return {"foto", 100, 120, escala, medeTodos(v, 100, 120)};
}
