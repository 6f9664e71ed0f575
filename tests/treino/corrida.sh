#!/usr/bin/env bash
# The whole learning on a few tiny scenes, twice: corrida.sh treina.py PROGRAMAS
set -euo pipefail
treina=$1
programas=$2
pasta=$(mktemp -d)
trap 'rm -rf "$pasta"' EXIT

falha() {
  echo "corrida.sh: $1" >&2
  exit 1
}

mkdir -p "$pasta/fotos/a"
"$programas/cenas" esparsa 3 "$pasta/fotos/a/longe_1.png" "$pasta/fotos/a/longe_1.csv" 120 160
"$programas/cenas" elipses 3 "$pasta/fotos/a/outra_1.png" "$pasta/fotos/a/outra_1.csv" 120 160
printf 'name,kind\noutra_1,elipses\n' >"$pasta/fotos/a/kinds.csv"
# The second time from the scenes and lists of the first.
for vez in 1 2; do
  /usr/bin/python3 "$treina" --tipos retangulos,discos --sementes 1 --tamanho 120x160 \
    "$pasta/fotos" "$programas" "$pasta/meio" "$pasta/pesos$vez.inc" >"$pasta/saida$vez"
done
cat "$pasta/saida1"
cmp "$pasta/pesos1.inc" "$pasta/pesos2.inc"
cmp "$pasta/saida1" "$pasta/saida2"

for tipo in longe elipses 'cena discos' 'cena retangulos'; do
  grep -Eq "^$tipo +1 +[1-9]" "$pasta/saida1" || falha "no line of $tipo"
done
[ "$(grep -Ec '^     \{-?[0-9.e-]+F, -?[0-9.e-]+F, -?[0-9.e-]+F\},  // ' "$pasta/pesos1.inc")" -eq 75 ] ||
  falha "not 75 weights"
[ "$(head -n 1 "$pasta/meio/a-longe_1.cand" | cut -d, -f 1-14)" = \
  iou,grao,forma,l,c,d1,d2,ang,correl,contraste,dentro,fora,bordaVista,bordaVista2 ] ||
  falha "other columns of candidates"

echo 'letter,row,col,d1,d2' >"$pasta/fotos/a/outra_1.csv"
if /usr/bin/python3 "$treina" --tipos nenhum "$pasta/fotos" "$programas" "$pasta/ruim" "$pasta/ruim.inc" 2>"$pasta/erro"; then
  falha "a table without angles was taken"
fi
grep -q 'Falta a coluna ang em' "$pasta/erro" || falha "no message about the column"
[ ! -e "$pasta/ruim.inc" ] || falha "weights were written all the same"
