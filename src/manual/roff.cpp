#include "manual/roff.h"

namespace manual {
namespace {

using exporta::IDIOMA;
using linha::COMANDO;
using linha::GRUPO;
using linha::OPCAO;
using linha::OPERANDO;
using linha::PROGRAMA;

constexpr linha::FRASE opcional = {"opções", "options"};
constexpr linha::FRASE umComando = {"PROGRAMA", "PROGRAM"};
constexpr linha::FRASE argumentos = {"ARGUMENTOS", "ARGUMENTS"};

std::string negrito(const std::string& s) {
  return "\\fB" + roff(s) + "\\fR";
}

std::string italico(const std::string& s) {
  return "\\fI" + roff(s) + "\\fR";
}

void troca(std::string& s, const std::string& de, const std::string& por) {
  for (std::size_t i = 0; (i = s.find(de, i)) != std::string::npos; i += por.size()) {
    s.replace(i, de.size(), por);
  }
}

// "-o, --output, --saida FOLDER", the name of the page's language first.
std::string titulo(const OPCAO& o, IDIOMA i) {
  std::string s;
  if (linha::temLetra(o)) s = negrito({'-', static_cast<char>(o.letra)}) + ", ";
  const IDIOMA outro = i == IDIOMA::pt ? IDIOMA::en : IDIOMA::pt;
  s += negrito(nomeLongo(o, i));
  if (nomeLongo(o, i) != nomeLongo(o, outro)) s += ", " + negrito(nomeLongo(o, outro));
  if (linha::levaValor(o)) s += " " + italico(diz(o.valor, i));
  return s;
}

// "apurado (refined), classico (classic)": values that are words have a name in each language.
std::string palavras(const OPCAO& o, IDIOMA i) {
  std::string s;
  for (const linha::FRASE& f : o.palavras) {
    const std::string nossa = diz(f, i);
    const std::string outra = i == IDIOMA::pt ? f.en : f.pt;
    if (nossa != outra) s += (s.empty() ? "" : ", ") + negrito(nossa) + " = " + negrito(outra);
  }
  return s.empty() ? "" : "\n.br\n" + s + ".";
}

std::string opcoes(const PROGRAMA& p, IDIOMA i) {
  std::string s;
  for (const GRUPO& g : p.grupos) {
    if (p.grupos.size() > 1) s += std::string(".SS ") + roff(diz(g.titulo, i)) + "\n";
    for (const OPCAO& o : g.opcoes) {
      s += ".TP\n" + titulo(o, i) + "\n" + roff(diz(o.ajuda, i)) + "." + palavras(o, i) + "\n";
    }
  }
  return s;
}

std::string operandos(const PROGRAMA& p, IDIOMA i) {
  std::string s;
  for (const OPERANDO& o : p.operandos) {
    s += ".TP\n" + italico(diz(o.nome, i)) + "\n" + roff(diz(o.ajuda, i)) + ".\n";
  }
  return s;
}

std::string doComando(const PROGRAMA& p, const COMANDO& c, IDIOMA i) {
  std::string s = negrito(std::string(p.nome) + ' ' + c.nome);
  for (const OPERANDO& o : c.operandos) s += " " + italico(diz(o.nome, i));
  return s + "\n";
}

std::string comandos(const PROGRAMA& p, IDIOMA i) {
  std::string s;
  for (const COMANDO& c : p.comandos) {
    s += ".TP\n" + doComando(p, c, i) + roff(diz(c.resumo, i)) + ".\n";
  }
  return s;
}

std::string sinopse(const PROGRAMA& p, IDIOMA i) {
  const std::string nome = negrito(p.nome);
  if (p.comandos.empty()) {
    std::string s = nome + " [" + italico(diz(opcional, i)) + "]";
    for (const OPERANDO& o : p.operandos) s += " " + italico(diz(o.nome, i));
    return s;
  }
  return nome + " " + italico(diz(umComando, i)) + " [" + italico(diz(argumentos, i)) + "]\n.br\n" +
         nome + " " + negrito(i == IDIOMA::pt ? "--ajuda" : "--help") + " | " +
         negrito(i == IDIOMA::pt ? "--versao" : "--version");
}

// A part of lines of its own brings its last line end along.
std::string semFim(std::string s) {
  if (s.ends_with('\n')) s.pop_back();
  return s;
}

}  // namespace

std::string roff(const std::string& texto) {
  std::string s;
  for (const char c : texto) {
    const bool comeco = s.empty() || s.back() == '\n';
    if (comeco && (c == '.' || c == '\'')) s += "\\&";
    if (c == '\\') {
      s += "\\e";
    } else if (c == '-') {
      s += "\\-";
    } else {
      s += c;
    }
  }
  return s;
}

std::string pagina(const std::string& modelo, const PROGRAMA& p, IDIOMA i,
                   const std::string& versao) {
  std::string s = modelo;
  troca(s, "@SUMMARY@", roff(diz(p.resumo, i)));
  troca(s, "@SYNOPSIS@", sinopse(p, i));
  troca(s, "@COMMANDS@", semFim(comandos(p, i)));
  troca(s, "@OPERANDS@", semFim(operandos(p, i)));
  troca(s, "@OPTIONS@", semFim(opcoes(p, i)));
  troca(s, "@STATUS@", roff(p.estados.pt == nullptr ? "" : diz(p.estados, i)));
  troca(s, "@VERSION@", versao);
  return s;
}

}  // namespace manual
