#!/usr/bin/env bash
# Follows a tutorial word by word in an empty folder: runs the blocks of sh, and of console every line
# after "$ ", whose output must be the lines below it. A line "..." there stands for any lines, and
# "..." within a line for anything.
# usage: segue.sh TUTORIAL FOLDER-OF-THE-PROGRAMS LANG
set -u
tutorial=$1
PATH=$2:$PATH
unset LC_ALL LC_MESSAGES
export LANG=$3
pasta=$(mktemp -d) || exit 2
trap 'rm -rf "$pasta"' EXIT
cd "$pasta" || exit 2
comandos=0

falha() {
  echo "$tutorial: $*"
  exit 1
}

# Sets `padrao` to the expected text $1 as a pattern of bash.
fazPadrao() {
  local l
  padrao=""
  while IFS= read -r l; do
    if [ "$l" = ... ]; then
      padrao+='*'
      continue
    fi
    l=${l//\\/\\\\}
    l=${l//'*'/'\*'}
    l=${l//'?'/'\?'}
    l=${l//'['/'\['}
    padrao+=${l//.../*}$'\n'
  done < <(printf %s "$1")
}

# Runs command $1; its output must be $2, unless that is "-".
executa() {
  local saida estado padrao
  comandos=$((comandos + 1))
  saida=$(bash -c "$1" 2>&1 </dev/null)
  estado=$?
  [ "$estado" -eq 0 ] || falha "status $estado of: $1"$'\n'"$saida"
  [ "$2" = - ] && return
  [ -z "$saida" ] || saida+=$'\n'
  fazPadrao "$2"
  # shellcheck disable=SC2053 # a pattern
  [[ $saida == $padrao ]] || falha "other output of: $1"$'\n'"${saida}-- instead of:"$'\n'"$2"
}

bloco=""
texto=""
comando=""
while IFS= read -r linha || [ -n "$linha" ]; do
  case $bloco,$linha in
    ,'```sh' | ,'```console') bloco=${linha#'```'} texto="" comando="" ;;
    sh,'```')
      executa "$texto" -
      bloco=""
      ;;
    console,'```')
      executa "$comando" "$texto"
      bloco=""
      ;;
    console,'$ '*)
      [ -z "$comando" ] || executa "$comando" "$texto"
      comando=${linha#'$ '} texto=""
      ;;
    sh,* | console,*) texto+=$linha$'\n' ;;
  esac
done <"$tutorial"
[ -z "$bloco" ] || falha "a block without an end"
[ "$comandos" -ge 5 ] || falha "only $comandos commands"
