#!/bin/sh
# Checks what the documents say of the source against the tree, and against each other: paths and links,
# folders and their order, files and functions, names, limits, figures; that the index is complete.
# usage: confere.sh FOLDER-OF-THE-PROJECT
set -u
export LC_ALL=C
cd "$1" || exit 2
tmp=$(mktemp -d) || exit 2
trap 'rm -rf "$tmp"' EXIT
ruim=0

falta() {
  echo "$*"
  ruim=1
}

# The lines of file $1 from the heading $2 to the next heading of any level.
secao() {
  awk -v titulo="$2" '/^##+ / { dentro = $0 == titulo; next } dentro' "$1"
}

# The names in backquotes of column $1 of the table read, a line for each row.
coluna() {
  awk -F'|' -v n="$1" '/^\|.*`/ {
    linha = ""; s = $(n + 1)
    while (match(s, /`[^`]*`/)) {
      linha = linha " " substr(s, RSTART + 1, RLENGTH - 2); s = substr(s, RSTART + RLENGTH)
    }
    print substr(linha, 2)
  }'
}

# Whether file $2 defines operation $1; definitions begin in the first column.
define() {
  grep -qE "^[A-Za-z_].*[ :*&]$1\(" "$2"
}

# The table in the lines read: each file is there, and defines one of the functions of its row at
# least; each function is defined by one of the files.
confereCaminho() {
  cat >"$tmp/tabela"
  [ -s "$tmp/tabela" ] || falta "$1: no way of a detection"
  coluna 2 <"$tmp/tabela" >"$tmp/arquivos"
  coluna 3 <"$tmp/tabela" >"$tmp/funcoes"
  paste -d'|' "$tmp/arquivos" "$tmp/funcoes" >"$tmp/linhas"
  while IFS='|' read -r arquivos funcoes; do
    achadas=""
    for arquivo in $arquivos; do
      [ -f "src/$arquivo" ] || { falta "$1: there is no src/$arquivo"; continue; }
      daqui=""
      for funcao in $funcoes; do
        define "$funcao" "src/$arquivo" && daqui="$daqui $funcao"
      done
      [ -n "$daqui" ] || falta "$1: src/$arquivo defines none of: $funcoes"
      achadas="$achadas $daqui"
    done
    for funcao in $funcoes; do
      case " $achadas " in
        *" $funcao "*) ;;
        *) falta "$1: none of $arquivos defines $funcao" ;;
      esac
    done
  done <"$tmp/linhas"
}

# Each name of the first column of the table read stands in the source.
confereNomes() {
  coluna 1 | tr ' ' '\n' | sort -u >"$tmp/nomes"
  [ -s "$tmp/nomes" ] || falta "$1: no table of names"
  while read -r nome; do
    grep -rqw --include='*.cpp' --include='*.h' -- "$nome" src || falta "$1: nothing is called $nome"
  done <"$tmp/nomes"
}

# Paths in backquotes, with * for any name, and relative links.
confereCaminhos() {
  pasta=$(dirname "$1")
  grep -oE '`(src|tests|docs|script|bench|examples|cmake)/[^` ]*`' "$1" | tr -d '`' | sort -u >"$tmp/citados"
  while read -r citado; do
    # shellcheck disable=SC2086 # a * stands for any name
    ls -d $citado >/dev/null 2>&1 || falta "$1: there is no $citado"
  done <"$tmp/citados"
  grep -oE '\]\([^)]*\)' "$1" | sed 's/^](//; s/)$//; s/#.*//; /^$/d; /:/d' | sort -u >"$tmp/elos"
  while read -r elo; do
    [ -e "$pasta/$elo" ] || falta "$1: a link leads to $elo, which is not there"
  done <"$tmp/elos"
}

numeros() {
  grep -oE '[0-9]{4,}' | sort -u
}

iguais() {
  diff "$1" "$2" >"$tmp/diferenca" || { falta "$3 differ:"; cat "$tmp/diferenca"; }
}

# The digits of all numbers, one a line: marks of decimals and thousands differ between languages.
algarismos() {
  grep -oE '[0-9][0-9.,]*' | tr -d '.,'
}

# comparaPartes READER FILE HEADING FILE HEADING WHAT: what READER makes of both is the same, and not
# nothing.
comparaPartes() {
  secao "$2" "$3" | "$1" >"$tmp/en"
  secao "$4" "$5" | "$1" >"$tmp/pt"
  [ -s "$tmp/en" ] || falta "$2: nothing below $3"
  iguais "$tmp/en" "$tmp/pt" "$6 in $2 and $4"
}

for documento in README.md LEIAME.md SECURITY.md CHANGELOG.md CONTRIBUTING.md docs/*.md docs/*/*.md \
  examples/*/*.md; do
  confereCaminhos "$documento"
done

# The front doors are short, and the index leads to every page.
for documento in README.md LEIAME.md; do
  [ "$(wc -l <"$documento")" -le 160 ] || falta "$documento: more than 160 lines"
done
for pagina in docs/*.md docs/*/*.md; do
  [ "$pagina" = docs/README.md ] || grep -qF "](${pagina#docs/})" docs/README.md ||
    falta "docs/README.md: does not lead to $pagina"
done

codigo=docs/codigo.md
codigoPt=docs/pt/codigo.md
secao $codigo '## The way of a detection' >"$tmp/way"
secao $codigoPt '## O caminho de uma detecção' >"$tmp/caminho"
confereCaminho $codigo <"$tmp/way"
coluna 2 <"$tmp/way" >"$tmp/en"; coluna 3 <"$tmp/way" >>"$tmp/en"
coluna 2 <"$tmp/caminho" >"$tmp/pt"; coluna 3 <"$tmp/caminho" >>"$tmp/pt"
iguais "$tmp/en" "$tmp/pt" "The ways of a detection in $codigo and $codigoPt"

secao $codigo '## Names' >"$tmp/names"
secao $codigoPt '## Os nomes' >"$tmp/osnomes"
confereNomes $codigo <"$tmp/names"
coluna 1 <"$tmp/names" >"$tmp/en"
coluna 1 <"$tmp/osnomes" >"$tmp/pt"
iguais "$tmp/en" "$tmp/pt" "The names in $codigo and $codigoPt"

sed -n 's/^add_subdirectory(\(.*\))$/\1/p' src/CMakeLists.txt >"$tmp/pastas"
for documento in $codigo $codigoPt; do
  grep -E '^\| `src/' "$documento" | coluna 1 | tr ' ' '\n' | sed 's|^src/||; s|/$||' >"$tmp/contadas"
  iguais "$tmp/pastas" "$tmp/contadas" "The folders of src/CMakeLists.txt and of $documento"
done

numeros <docs/limites.md >"$tmp/en"
numeros <docs/pt/limites.md >"$tmp/pt"
secao SECURITY.md '## Limits' | grep '^|' | numeros >"$tmp/seguranca"
[ -s "$tmp/en" ] || falta "docs/limites.md: no limits"
iguais "$tmp/en" "$tmp/pt" "The limits in docs/limites.md and docs/pt/limites.md"
iguais "$tmp/en" "$tmp/seguranca" "The limits in docs/limites.md and SECURITY.md"

# What was measured is told alike in both languages.
tabela() { grep '^|' | algarismos; }
comparaPartes tabela docs/numeros.md '## How fast' docs/pt/numeros.md '## Que velocidade' "How fast"
comparaPartes tabela docs/numeros.md '## How accurate' docs/pt/numeros.md '## Que exatidão' "How accurate"
comparaPartes algarismos README.md '## How fast' LEIAME.md '## Que velocidade' "How fast"
comparaPartes algarismos README.md '## How accurate' LEIAME.md '## Que exatidão' "How accurate"

exit $ruim
