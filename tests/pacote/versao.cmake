# The version is that of CMakeLists.txt wherever it is shown.

# confere(WHERE TEXT BEFORE AFTER): what stands in TEXT between the two is the version.
function(confere onde texto antes depois)
  if(NOT texto MATCHES "${antes}([0-9][0-9.]*)${depois}" OR NOT CMAKE_MATCH_1 STREQUAL VERSAO)
    message(FATAL_ERROR "${onde} does not show version ${VERSAO} but ${CMAKE_MATCH_1}")
  endif()
endfunction()

# mostra(OUTPUT COMMAND...)
function(mostra saida)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE texto COMMAND_ERROR_IS_FATAL ANY)
  set(${saida} "${texto}" PARENT_SCOPE)
endfunction()

mostra(texto ${PREFIXO}/bin/Vorplex contaform)
confere("the banner" "${texto}" "multi-formas v" ">")
foreach(programa vorplex-lote vorplex-apura vorplex-sugere vorplex-mapa)
  mostra(texto ${PREFIXO}/bin/${programa} --version)
  confere(${programa} "${texto}" "^${programa} " "\n$")
endforeach()
mostra(texto ${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${PREFIXO}/${LIB}/pkgconfig ${PKGCONF}
       --modversion vorplex)
confere(vorplex.pc "${texto}" "^" "\n$")
include(${PREFIXO}/${LIB}/cmake/Vorplex/VorplexConfigVersion.cmake)
confere(VorplexConfigVersion.cmake "${PACKAGE_VERSION}" "^" "$")

file(READ ${PROJETO}/CHANGELOG.md texto)
string(REGEX MATCH "\n## [^\n]*" primeira "${texto}")
confere(CHANGELOG.md "${primeira}" "## .?" ".? ")
file(READ ${PROJETO}/CITATION.cff texto)
confere(CITATION.cff "${texto}" "\nversion: \"" "\"")
