#include "linha/ajuda.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

namespace linha {
namespace {

using exporta::IDIOMA;

constexpr std::size_t largura = 80;
constexpr std::size_t maiorRotulo = 26;  // texts stand beside labels up to here, below longer ones

constexpr FRASE opcional = {"[opções]", "[options]"};
constexpr FRASE umComando = {"PROGRAMA [ARGUMENTOS]", "PROGRAM [ARGUMENTS]"};
constexpr FRASE estadoFinal = {"Estado final: ", "Exit status: "};

// The words of `texto` in lines that begin at column `margem`; the first one is there already.
std::string dobrado(const std::string& texto, std::size_t margem, std::size_t coluna) {
  std::string s;
  std::istringstream palavras(texto);
  for (std::string p; palavras >> p;) {
    if (coluna > margem && coluna + 1 + p.size() > largura) {
      s += '\n' + std::string(margem, ' ');
      coluna = margem;
    }
    if (coluna > margem) s += ' ';
    coluna += p.size() + (coluna > margem ? 1 : 0);
    s += p;
  }
  return s + '\n';
}

// A label and what it means.
std::string verbete(const std::string& rotulo, const std::string& texto, std::size_t margem) {
  std::string s = "  " + rotulo;
  if (s.size() + 2 > margem) {
    s += '\n' + std::string(margem, ' ');
  } else {
    s.resize(margem, ' ');
  }
  return s + dobrado(texto, margem, margem);
}

// With a capital letter.
std::string frase(const std::string& texto) {
  std::string s = semAcentos(texto);
  if (!s.empty() && s[0] >= 'a' && s[0] <= 'z') s[0] = static_cast<char>(s[0] - 'a' + 'A');
  return s;
}

struct VERBETE {
  std::string rotulo;
  std::string texto;
};

VERBETE verbete(const OPCAO& o, IDIOMA i) {
  return {semAcentos(rotulo(o, i)), semAcentos(diz(o.ajuda, i))};
}

std::size_t margemDe(const PROGRAMA& p, IDIOMA i) {
  std::size_t maior = 0;
  for (const OPCAO& o : opcoesDe(p)) {
    const std::size_t n = verbete(o, i).rotulo.size();
    if (n <= maiorRotulo) maior = std::max(maior, n);
  }
  return maior + 4;
}

}  // namespace

std::string rotulo(const OPCAO& o, IDIOMA i) {
  std::string s = temLetra(o) ? std::string("-") + static_cast<char>(o.letra) + ", " : "    ";
  s += nomeLongo(o, i);
  if (levaValor(o)) s += std::string(" ") + diz(o.valor, i);
  return s;
}

std::string uso(const PROGRAMA& p, IDIOMA i) {
  if (!p.comandos.empty()) return std::string(p.nome) + ' ' + diz(umComando, i);
  std::string s = std::string(p.nome) + ' ' + diz(opcional, i);
  for (const OPERANDO& o : p.operandos) s += std::string(" ") + diz(o.nome, i);
  return s;
}

std::string ajuda(const PROGRAMA& p, IDIOMA i) {
  const std::size_t margem = margemDe(p, i);
  std::string s = semAcentos(uso(p, i)) + "\n  " + dobrado(frase(diz(p.resumo, i)), 2, 2);
  if (!p.comandos.empty() || !p.operandos.empty()) s += '\n';
  for (const COMANDO& c : p.comandos) {
    s += verbete(c.nome, semAcentos(diz(c.resumo, i)), margem);
  }
  for (const OPERANDO& o : p.operandos) {
    s += verbete(semAcentos(diz(o.nome, i)), semAcentos(diz(o.ajuda, i)), margem);
  }
  for (const GRUPO& g : p.grupos) {
    s += '\n' + semAcentos(diz(g.titulo, i)) + ":\n";
    for (const OPCAO& o : g.opcoes) {
      const VERBETE v = verbete(o, i);
      s += verbete(v.rotulo, v.texto, margem);
    }
  }
  const std::string fim = std::string(diz(estadoFinal, i)) + diz(p.estados, i);
  return s + '\n' + dobrado(semAcentos(fim), 0, 0);
}

std::string semAcentos(const std::string& texto) {
  static constexpr std::array<std::pair<const char*, char>, 22> letras = {
      {{"á", 'a'}, {"à", 'a'}, {"â", 'a'}, {"ã", 'a'}, {"é", 'e'}, {"ê", 'e'},
       {"í", 'i'}, {"ó", 'o'}, {"ô", 'o'}, {"õ", 'o'}, {"ú", 'u'}, {"ç", 'c'},
       {"Á", 'A'}, {"Â", 'A'}, {"Ê", 'E'}, {"Ã", 'A'}, {"É", 'E'}, {"Í", 'I'},
       {"Ó", 'O'}, {"Õ", 'O'}, {"Ú", 'U'}, {"Ç", 'C'}}};
  std::string s;
  for (std::size_t i = 0; i < texto.size();) {
    const auto* const achada = std::find_if(letras.begin(), letras.end(), [&](const auto& l) {
      return texto.compare(i, 2, l.first) == 0;
    });
    s += achada == letras.end() ? texto[i] : achada->second;
    i += achada == letras.end() ? 1 : 2;
  }
  return s;
}

}  // namespace linha
