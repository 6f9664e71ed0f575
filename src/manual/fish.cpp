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

// @ stands for the name of the program as a function.
constexpr const char* apoio = R"(
# Whether the environment asks for Portuguese.
function __@_pt
    set -l language C
    for value in "$LANG" "$LC_MESSAGES" "$LC_ALL"
        test -n "$value"; and set language $value
    end
    string match -qr '^(pt.*|C|C\..*|POSIX.*)$' -- $language
end

# Files whose suffix is one of the argument (all when it is empty), and folders.
function __@_files
    set -l word (commandline -ct | string unescape)
    set word (string replace -r '^~' $HOME -- $word)
    for found in $word*
        if test -d $found
            echo $found/
        else if test -z "$argv[1]"; or string match -qir '\.('$argv[1]')$' -- $found
            echo $found
        end
    end
end
)";

std::string comNome(std::string s, const PROGRAMA& p) {
  const std::string nome = identificador(p);
  for (std::size_t i = 0; (i = s.find("__@", i)) != std::string::npos; i += nome.size()) {
    s.replace(i + 2, 1, nome);
  }
  return s;
}

// In single quotes as fish has them.
std::string aspas(const std::string& texto) {
  std::string s = "'";
  for (const char c : texto) {
    if (c == '\'' || c == '\\') s += '\\';
    s += c;
  }
  return s + "'";
}

// The operands before the word, one a line.
std::string operandosAntes(const std::vector<OPCAO>& opcoes) {
  std::vector<std::string> comValor;
  for (const OPCAO& o : opcoes) {
    if (!linha::levaValor(o)) continue;
    for (const std::string& n : nomes(o)) comValor.push_back(n);
  }
  std::string s =
      "\n# The operands before the word.\nfunction __@_operands\n    set -l skip 0\n"
      "    for token in (commandline -opc)[2..-1]\n        if test $skip = 1\n"
      "            set skip 0\n            continue\n        end\n        switch $token\n";
  if (!comValor.empty()) {
    s += "            case " + junta(comValor, " ") + "\n                set skip 1\n";
  }
  return s +
         "            case '-*'\n            case '*'\n                echo $token\n"
         "        end\n    end\nend\n";
}

std::string valor(const OPCAO& o, IDIOMA i) {
  if (!o.palavras.empty()) {
    std::vector<std::string> todas;
    for (const linha::FRASE& f : o.palavras) todas.emplace_back(diz(f, i));
    return " -x -a " + aspas(junta(todas, " "));
  }
  if (o.tipo == TIPO::texto) return " -x";
  if (o.tipo == TIPO::pasta) return " -x -a '(__fish_complete_directories)'";
  return " -x -a " + aspas("(__@_files '" + sufixos(o.tipo) + "')");
}

std::string opcao(const PROGRAMA& p, const OPCAO& o, IDIOMA i) {
  const std::string se = i == IDIOMA::pt ? "__@_pt" : "not __@_pt";
  std::string s = std::string("complete -c ") + p.nome + " -n " + aspas(se);
  if (linha::temLetra(o)) s += std::string(" -s ") + static_cast<char>(o.letra);
  s += std::string(" -l ") + (i == IDIOMA::pt ? o.pt : o.en);
  if (linha::levaValor(o)) s += valor(o, i);
  return s + " -d " + aspas(linha::semAcentos(diz(o.ajuda, i))) + "\n";
}

// Shell text that prints what may stand in each place; $place counts the operands before.
std::string lugaresDe(std::span<const OPERANDO> operandos, const std::string& margem) {
  const LUGARES l = lugares(operandos);
  std::string s = margem + "switch $place\n";
  for (std::size_t n = 0; n < l.quantos; ++n) {
    const bool ultimo = n + 1 == l.quantos && l.repete;
    std::string faz;
    for (const OPERANDO& o : noLugar(operandos, n)) {
      if (o.tipo == TIPO::texto) continue;
      faz += margem + "        __@_files " + aspas(sufixos(o.tipo)) + "\n";
    }
    if (faz.empty()) continue;
    s += margem + "    case " + (ultimo ? "'*'" : std::to_string(n)) + "\n" + faz;
  }
  return s + margem + "end\n";
}

std::string lugaresDosComandos(const PROGRAMA& p) {
  std::string s = "    switch (string lower -- $operands[1])\n";
  for (const COMANDO& c : p.comandos) {
    if (c.operandos.empty()) continue;
    s += std::string("        case ") + c.nome + "\n" + lugaresDe(c.operandos, "            ");
  }
  return s + "    end\n";
}

std::string argumentos(const PROGRAMA& p) {
  const bool comandos = !p.comandos.empty();
  std::string s = "\nfunction __@_arguments\n    set -l operands (__@_operands)\n";
  s += std::string("    set -l place (math (count $operands)") + (comandos ? " - 1" : "") + ")\n";
  s += comandos ? lugaresDosComandos(p) : lugaresDe(p.operandos, "    ");
  return s + "end\n";
}

std::string comandosDe(const PROGRAMA& p, IDIOMA i) {
  std::string s;
  const std::string se = i == IDIOMA::pt ? "__@_pt" : "not __@_pt";
  for (const COMANDO& c : p.comandos) {
    s += std::string("complete -c ") + p.nome + " -n " +
         aspas(se + "; and test (count (__@_operands)) = 0") + " -a " + c.nome + " -d " +
         aspas(linha::semAcentos(diz(c.resumo, i))) + "\n";
  }
  return s;
}

}  // namespace

std::string fish(const PROGRAMA& p) {
  const std::vector<OPCAO> opcoes = opcoesDe(p);
  std::string s = std::string("# fish completion of ") + p.nome + "\n" + apoio +
                  operandosAntes(opcoes) + argumentos(p) + "\n" + "complete -c " + p.nome + " -f\n";
  for (const IDIOMA i : {IDIOMA::pt, IDIOMA::en}) {
    for (const OPCAO& o : opcoes) s += opcao(p, o, i);
    s += comandosDe(p, i);
  }
  const std::string se = p.comandos.empty() ? "" : " -n 'test (count (__@_operands)) -gt 0'";
  return comNome(s + "complete -c " + p.nome + se + " -k -a '(__@_arguments)'\n", p);
}

}  // namespace manual
