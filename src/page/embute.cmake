# Writes SAIDA, a C++ source that holds the files of ENTRADAS (separated by |) and finds them by
# name; a file may be given as NAME=PATH. References to further files are taken out: a page has
# none beside it.
string(REPLACE "|" ";" ENTRADAS "${ENTRADAS}")
set(tabela "")
set(vetores "")
set(quantos 0)
foreach(entrada IN LISTS ENTRADAS)
  string(REGEX REPLACE "^[^=]*=" "" caminho "${entrada}")
  string(REGEX REPLACE "=.*$" "" nome "${entrada}")
  file(READ "${caminho}" texto)
  string(REGEX REPLACE "//# sourceMappingURL=[^\n]*" "" texto "${texto}")
  string(REGEX REPLACE "url\\(images/[^)]*\\)" "none" texto "${texto}")
  string(TOLOWER "${texto}" minusculo)
  if(nome MATCHES "[.](js|css)$" AND minusculo MATCHES "</(script|style)")
    message(FATAL_ERROR "${caminho} would end the element it stands in")
  endif()
  file(WRITE "${SAIDA}.tmp" "${texto}")
  file(READ "${SAIDA}.tmp" bytes HEX)
  file(REMOVE "${SAIDA}.tmp")
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
  string(APPEND vetores "constexpr unsigned char r${quantos}[] = {${bytes}};\n")
  string(APPEND tabela "    {\"${nome}\", texto(r${quantos})},\n")
  math(EXPR quantos "${quantos} + 1")
endforeach()
file(WRITE "${SAIDA}" "// NOLINTBEGIN: made from files of other kinds
#include \"page/recursos.h\"

#include <cstddef>
#include <string>

#include \"pim/erro.h\"

namespace {

${vetores}
template <std::size_t N>
std::string_view texto(const unsigned char (&bytes)[N]) {
  return {reinterpret_cast<const char*>(bytes), N};
}

struct RECURSO {
  std::string_view nome;
  std::string_view texto;
};

const RECURSO recursos[] = {
${tabela}};

}  // namespace

std::string_view page::recurso(std::string_view nome) {
  for (const RECURSO& r : recursos) {
    if (r.nome == nome) return r.texto;
  }
  pim::erro(\"Erro: Pagina sem \", std::string(nome));
}
// NOLINTEND
")
