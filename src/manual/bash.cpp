#include "manual/completa.h"

namespace manual {
namespace {

using linha::COMANDO;
using linha::OPCAO;
using linha::OPERANDO;
using linha::PROGRAMA;
using linha::TIPO;

// @ stands for the name of the program as a function.
constexpr const char* apoio = R"(
# Files whose suffix is one of $2 (all when it is empty), and folders.
_@_files() {
  local found name suffix
  local -a all
  compopt -o filenames 2>/dev/null
  mapfile -t all < <(compgen -f -- "$1")
  for found in "${all[@]}"; do
    name=${found/#\~/$HOME}
    suffix=${found##*.}
    if [[ -d $name || -z $2 || $found == *.* && "|$2|" == *"|${suffix,,}|"* ]]; then
      COMPREPLY+=("$found")
    fi
  done
}

_@_folders() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -d -- "$1")
}

_@_words() {
  mapfile -t COMPREPLY < <(compgen -W "$2" -- "$1")
}

# The words $2 are Portuguese, $3 English.
_@_either() {
  local first=$3 second=$2
  case ${LC_ALL:-${LC_MESSAGES:-${LANG:-C}}} in
    pt* | C | C.* | POSIX*) first=$2 second=$3 ;;
  esac
  _@_words "$1" "$first"
  [[ ${#COMPREPLY[@]} -gt 0 ]] || _@_words "$1" "$second"
}
)";

constexpr const char* comeco = R"(
_@() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} place=0 i
  local -a operands=()
  COMPREPLY=()
  if [[ $word == = ]]; then
    word=
  elif [[ $before == = ]]; then
    before=${COMP_WORDS[COMP_CWORD-2]}
  fi
  word=${word//\\/}
  word=${word#[\"\']}
)";

std::string comNome(std::string s, const PROGRAMA& p) {
  const std::string nome = identificador(p);
  for (std::size_t i = 0; (i = s.find("_@", i)) != std::string::npos; i += nome.size()) {
    s.replace(i + 1, 1, nome);
  }
  return s;
}

std::string completaTipo(TIPO t) {
  if (t == TIPO::pasta) return "_@_folders \"$word\"";
  return "_@_files \"$word\" " + entreAspas(sufixos(t));
}

std::string completaValor(const OPCAO& o) {
  if (o.palavras.empty()) return o.tipo == TIPO::texto ? ":" : completaTipo(o.tipo);
  std::vector<std::string> pt;
  std::vector<std::string> en;
  for (const linha::FRASE& f : o.palavras) {
    pt.emplace_back(f.pt);
    en.emplace_back(f.en);
  }
  return "_@_either \"$word\" " + entreAspas(junta(pt, " ")) + " " + entreAspas(junta(en, " "));
}

// Of an option that has just been typed.
std::string valores(const std::vector<OPCAO>& opcoes) {
  std::string s = "  case $before in\n";
  for (const OPCAO& o : opcoes) {
    if (!linha::levaValor(o)) continue;
    s += "    " + junta(nomes(o), " | ") + ") " + completaValor(o) + "; return ;;\n";
  }
  return s + "  esac\n";
}

std::string nomesDasOpcoes(const std::vector<OPCAO>& opcoes) {
  std::vector<std::string> pt;
  std::vector<std::string> en;
  for (const OPCAO& o : opcoes) {
    if (linha::temLetra(o)) pt.push_back({'-', static_cast<char>(o.letra)});
    if (linha::temLetra(o)) en.push_back(pt.back());
    pt.push_back(std::string("--") + o.pt);
    en.push_back(std::string("--") + o.en);
  }
  return "  if [[ $word == -* ]]; then\n    _@_either \"$word\" " + entreAspas(junta(pt, " ")) +
         " \\\n      " + entreAspas(junta(en, " ")) + "\n    return\n  fi\n";
}

// Counts the operands before the word.
std::string conta(const std::vector<OPCAO>& opcoes) {
  std::string s = "  for ((i = 1; i < COMP_CWORD; ++i)); do\n    case ${COMP_WORDS[i]} in\n";
  std::vector<std::string> comValor;
  for (const OPCAO& o : opcoes) {
    if (!linha::levaValor(o)) continue;
    for (const std::string& n : nomes(o)) comValor.push_back(n);
  }
  if (!comValor.empty()) {
    s += "      " + junta(comValor, " | ") + ")\n" +
         "        [[ ${COMP_WORDS[i+1]} == = ]] && ((++i))\n        ((++i))\n        ;;\n";
  }
  return s + "      -*) ;;\n      *) operands[place++]=${COMP_WORDS[i]} ;;\n    esac\n  done\n";
}

// What may stand in each place.
std::string lugaresDe(std::span<const OPERANDO> operandos, const std::string& margem) {
  const LUGARES l = lugares(operandos);
  std::string s = margem + "case $place in\n";
  for (std::size_t n = 0; n < l.quantos; ++n) {
    const bool ultimo = n + 1 == l.quantos && l.repete;
    std::string faz;
    for (const OPERANDO& o : noLugar(operandos, n)) {
      if (o.tipo != TIPO::texto) faz += (faz.empty() ? "" : "; ") + completaTipo(o.tipo);
    }
    if (faz.empty()) continue;
    s += margem + "  " + (ultimo ? "*" : std::to_string(n)) + ") " + faz + " ;;\n";
  }
  return s + margem + "esac\n";
}

std::string comandosDe(const PROGRAMA& p) {
  std::string s = "  if [[ $place == 0 ]]; then\n    _@_words \"${word,,}\" '";
  std::vector<std::string> todos;
  for (const COMANDO& c : p.comandos) todos.emplace_back(c.nome);
  s += junta(todos, " ") + "'\n    return\n  fi\n  ((--place))\n  case ${operands[0],,} in\n";
  for (const COMANDO& c : p.comandos) {
    if (c.operandos.empty()) continue;
    s += std::string("    ") + c.nome + ")\n" + lugaresDe(c.operandos, "      ") + "      ;;\n";
  }
  return s + "  esac\n";
}

}  // namespace

std::string bash(const PROGRAMA& p) {
  const std::vector<OPCAO> opcoes = opcoesDe(p);
  const std::string fim = p.comandos.empty() ? lugaresDe(p.operandos, "  ") : comandosDe(p);
  return comNome(std::string("# bash completion of ") + p.nome + "\n" + apoio + comeco +
                     valores(opcoes) + nomesDasOpcoes(opcoes) + conta(opcoes) + fim + "}\n\n" +
                     "complete -F _@ " + p.nome + "\n",
                 p);
}

}  // namespace manual
