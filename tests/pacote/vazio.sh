#!/bin/sh
# Run by script/test-package in an empty Debian: installs the packages of /prova/pacotes, uses them,
# and purges them. /prova/demo is what the demonstration left where it was built.
set -eu
cd /prova
export DEBIAN_FRONTEND=noninteractive

falha() {
  echo "FAILED: $*" >&2
  exit 1
}

apt() {
  apt-get -qq -o Dpkg::Use-Pty=0 -o Dpkg::Options::=--force-unsafe-io -y --no-install-recommends "$@" \
    >/prova/apt.log 2>&1 || { tail -n 30 /prova/apt.log; falha "apt-get $*"; }
}

# All files but what apt and dpkg note for themselves.
arquivos() {
  find / -xdev \( -path /proc -o -path /sys -o -path /prova -o -path /tmp -o -path /var/log \
    -o -path /var/cache -o -path /var/lib/apt -o -path '/var/lib/dpkg/*-old' \) -prune -o -print |
    sort
}

# The commands of the demonstration, in the current folder; the files are those made elsewhere.
demonstra() {
  cp ../demo/cena.pgm ../demo/kernel.cfg .
  Vorplex kernel kernel.cfg kernel.png >/dev/null
  Vorplex correla cena.pgm kernel.cfg cena.ho1 0.1 >/dev/null
  Vorplex filtra cena.pgm cena.ho1 cena.ho2 default 0.15 0.1 >/dev/null
  Vorplex filtra cena.pgm cena.ho1 contornos.png default 0.15 0.1 >/dev/null
  Vorplex traca cena.pgm cena.ho2 indices.png c i >/dev/null
  Vorplex relat cena.ho2 cena.rel >/dev/null
  for arquivo in kernel.png cena.ho1 cena.ho2 contornos.png indices.png cena.rel; do
    cmp "$arquivo" "../demo/$arquivo" || falha "the demonstration differs"
  done
}

# The same picture in every format is searched with the same result, but for the lossy one.
formatos() {
  cp ../docs/graos.jpg .
  echo 'passoang 30 escoitava 2 circulo 32 quadrado 32 retangulo 48 20 elipse 48 24' >k.cfg
  echo 0 >nada.ho1
  for tipo in pgm ppm png tif bmp; do
    Vorplex traca graos.jpg nada.ho1 "graos-$tipo.$tipo" >/dev/null
    Vorplex correla "graos-$tipo.$tipo" k.cfg "graos-$tipo.ho1" 0.1 >/dev/null
    cmp "graos-$tipo.ho1" graos-pgm.ho1 || falha "$tipo is read otherwise"
  done
  Vorplex correla graos.jpg k.cfg graos.ho1 0.1 >/dev/null
  [ "$(wc -l <graos.ho1)" -gt 50 ] || falha "too little found in a JPEG file"
  { echo P1 40 40; i=0; while [ $i -lt 40 ]; do echo '1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1' \
    '0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0'; i=$((i + 1)); done; } >meio.pbm
  Vorplex traca meio.pbm nada.ho1 meio.png >/dev/null
  # Classes of the first detections, 3 each: a matrix of version 4, 1 x 128.
  Vorplex filtra graos.jpg graos.ho1 graos.ho2 default 0.3 0.1 >/dev/null
  printf '\0\0\0\0\001\0\0\0\200\0\0\0\0\0\0\0\002\0\0\0c\0' >graos.mat
  i=0
  while [ $i -lt 128 ]; do printf '\0\0\0\0\0\0\010\100'; i=$((i + 1)); done >>graos.mat
  Vorplex extraicla graos.jpg 1.5 >/dev/null
  [ -s 03-0000.png ] || falha "no sample of class 3"
}

lote() {
  mkdir fotos
  cp graos.jpg graos-p?m.p?m graos-png.png graos-tif.tif graos-bmp.bmp fotos
  vorplex-lote --quieto -e 0.05mm ../docs/kernel.cfg fotos
  [ "$(wc -l <resultado/resumo.csv)" -eq 8 ] || falha "not six photographs in resumo.csv"
  grep -qi 'chart.js' resultado/relatorio.html || falha "a page without its scripts"
}

# usa FOLDER-NAME
usa() {
  rm -rf "/prova/$1"
  mkdir "/prova/$1"
  cd "/prova/$1"
  demonstra
  formatos
  lote
  cd /prova
}

echo 'passoang 30 escoitava 5 escala 0.5 a 1 circulo 32 quadrado 32 retangulo 48 20 elipse 48 24' \
  >docs/kernel.cfg
apt update
apt install ./pacotes/vorplex_*.deb
for programa in Vorplex vorplex-apura vorplex-lote vorplex-sugere; do
  for pasta in man man/pt; do
    gzip -t "/usr/share/$pasta/man1/$programa.1.gz" || falha "no manual page of $programa in $pasta"
  done
  [ -s "/usr/share/bash-completion/completions/$programa" ] || falha "no completion of $programa"
done
echo "installed: $(dpkg -l | grep -c ^ii) packages, of vorplex: $(dpkg-query -W -f '${Installed-Size} KiB' vorplex)"
echo 'circulo 20' >k.cfg
Vorplex kernel k.cfg k.png >/dev/null || falha "it does not find its module without /proc"
mount -t proc proc /proc
usa instalado
echo "the demonstration and every format: as built elsewhere"

apt install ./pacotes/*.deb g++ pkgconf
# shellcheck disable=SC2046  # flags are words
g++ -std=c++17 $(pkgconf --cflags vorplex) estranho/stranger.cpp estranho/names.cpp -o stranger \
  $(pkgconf --libs vorplex)
./stranger | grep -q '^half of the weight lies below 1' || falha "the program built with the library"
echo "a program built with the library: runs"

python3 -c '
import numpy, vorplex
assert vorplex.__version__ == "'"$(dpkg-query -W -f '${Version}' vorplex)"'"
image = numpy.full((120, 160), 200, numpy.uint8)
rows, columns = numpy.ogrid[:120, :160]
image[(rows - 40) ** 2 + (columns - 50) ** 2 <= 13 ** 2] = 60
found = vorplex.search(image, vorplex.kernels("escoitava 5 escala 0.5 a 1 circulo 40"), min_corr=0.1)
assert abs(found[0]["row"] - 40) <= 1 and abs(found[0]["column"] - 50) <= 1, found[:3]
'
echo "the module for Python: searches"

nomes=$(for d in pacotes/*.deb; do dpkg-deb -f "$d" Package; done)
# shellcheck disable=SC2086  # names are words
apt purge $nomes
arquivos >antes
# shellcheck disable=SC2086
apt install ./pacotes/*.deb
usa instalado
# shellcheck disable=SC2086
apt purge $nomes
arquivos >depois
diff antes depois || falha "purging leaves something, or takes too much"
! grep -i vorplex depois || falha "purging leaves something"
echo "purged: nothing left"

apt autoremove --purge
# What the documentation says that the archive needs.
precisa=$(sed -n 's/^apt install --no-install-recommends \(lib.*\)/\1/p' docs/instalar.md)
[ -n "$precisa" ] || falha "docs/instalar.md does not name the packages that the archive needs"
# shellcheck disable=SC2086
apt install $precisa
mkdir "/opt/uma pasta"
tar -xzf pacotes/*.tar.gz -C "/opt/uma pasta" --strip-components=1
PATH="/opt/uma pasta/bin:$PATH"
usa arquivo
echo "the archive, in a folder of its own: the same"
