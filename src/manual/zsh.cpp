#include "linha/ajuda.h"
#include "manual/completa.h"

namespace manual {
namespace {

using exporta::IDIOMA;
using linha::COMANDO;
using linha::OPCAO;
using linha::OPERANDO;
using linha::PROGRAMA;
using linha::TIPO;

constexpr const char* emPortugues =
    "if [[ ${LC_ALL:-${LC_MESSAGES:-${LANG:-C}}} == (pt*|C|C.*|POSIX*) ]]; then\n";

// A text within a specification of _arguments, where some letters have a meaning.
std::string dentro(const std::string& texto) {
  std::string s;
  for (const char c : texto) {
    if (c == ':' || c == '[' || c == ']' || c == '\\') s += '\\';
    s += c;
  }
  return s;
}

std::string acao(TIPO t) {
  if (t == TIPO::pasta) return "_files -/";
  const std::string s = sufixos(t);
  return s.empty() ? "_files" : "_files -g \"(#i)*.(" + s + ")(-.)\"";
}

std::string valor(const OPCAO& o, IDIOMA i) {
  std::string s = ":" + dentro(diz(o.valor, i)) + ":";
  if (o.palavras.empty()) return s + (o.tipo == TIPO::texto ? " " : acao(o.tipo));
  std::vector<std::string> todas;
  for (const linha::FRASE& f : o.palavras) todas.emplace_back(diz(f, i));
  return s + "(" + junta(todas, " ") + ")";
}

// One specification for each name, so that the other language's are taken and not shown first.
std::string especificacoes(const std::vector<OPCAO>& opcoes, IDIOMA i) {
  std::string s;
  for (const OPCAO& o : opcoes) {
    const bool leva = linha::levaValor(o);
    const std::string fora = "(" + junta(nomes(o), " ") + ")";
    const std::string texto =
        "[" + dentro(linha::semAcentos(diz(o.ajuda, i))) + "]" + (leva ? valor(o, i) : "");
    if (linha::temLetra(o)) {
      const std::string curta = {'-', static_cast<char>(o.letra)};
      s += "    " + entreAspas(fora + curta + (leva ? "+" : "") + texto) + "\n";
    }
    s += "    " + entreAspas(fora + nomeLongo(o, i) + (leva ? "=" : "") + texto) + "\n";
    const IDIOMA outro = i == IDIOMA::pt ? IDIOMA::en : IDIOMA::pt;
    if (nomeLongo(o, i) == nomeLongo(o, outro)) continue;
    s += "    " +
         entreAspas("!" + fora + nomeLongo(o, outro) + (leva ? "=" : "") +
                    (leva ? valor(o, i) : "")) +
         "\n";
  }
  return s;
}

std::string acaoDoLugar(std::span<const OPERANDO> operandos, std::size_t n) {
  std::string todos;
  bool algum = false;
  for (const OPERANDO& o : noLugar(operandos, n)) {
    algum = algum || o.tipo != TIPO::texto;
    const std::string s = sufixos(o.tipo);
    if (!s.empty()) todos += (todos.empty() ? "" : "|") + s;
  }
  if (!algum) return " ";
  return todos.empty() ? "_files" : "_files -g \"(#i)*.(" + todos + ")(-.)\"";
}

std::string lugaresDe(std::span<const OPERANDO> operandos, const std::string& margem) {
  const LUGARES l = lugares(operandos);
  std::string s;
  for (std::size_t n = 0; n < l.quantos; ++n) {
    const bool ultimo = n + 1 == l.quantos && l.repete;
    s += " \\\n" + margem +
         entreAspas((ultimo ? "*" : std::to_string(n + 1)) + ":" + dentro(operandos[n].nome.en) +
                    ":" + acaoDoLugar(operandos, n));
  }
  return s;
}

std::string comandosDe(const PROGRAMA& p, IDIOMA i) {
  std::string s = "  commands=(\n";
  for (const COMANDO& c : p.comandos) {
    s +=
        "    " + entreAspas(std::string(c.nome) + ":" + linha::semAcentos(diz(c.resumo, i))) + "\n";
  }
  return s + "  )\n";
}

std::string listas(const PROGRAMA& p, IDIOMA i) {
  return "  options=(\n" + especificacoes(opcoesDe(p), i) + "  )\n" +
         (p.comandos.empty() ? "" : comandosDe(p, i));
}

std::string argumentosDosComandos(const PROGRAMA& p) {
  std::string s =
      "_arguments -s -S $options '1:program:->name' '*::argument:->rest'\n"
      "case $state in\n"
      "  name) _describe program commands -M 'm:{a-zA-Z}={A-Za-z}' ;;\n"
      "  rest)\n"
      "    case ${(L)words[1]} in\n";
  for (const COMANDO& c : p.comandos) {
    if (c.operandos.empty()) continue;
    s += std::string("      ") + c.nome + ")\n        _arguments" +
         lugaresDe(c.operandos, "          ") + "\n        ;;\n";
  }
  return s + "      *) _message 'no more arguments' ;;\n    esac\n    ;;\nesac\n";
}

}  // namespace

std::string zsh(const PROGRAMA& p) {
  std::string s = std::string("#compdef ") + p.nome +
                  "\n\nlocal curcontext=$curcontext state line\nlocal -a options commands\n"
                  "typeset -A opt_args\n\n" +
                  emPortugues + listas(p, IDIOMA::pt) + "else\n" + listas(p, IDIOMA::en) + "fi\n\n";
  if (!p.comandos.empty()) return s + argumentosDosComandos(p);
  return s + "_arguments -s -S $options" + lugaresDe(p.operandos, "  ") + "\n";
}

}  // namespace manual
