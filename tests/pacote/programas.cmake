# The programs run where they are installed, and find the module of the image formats there.
set(cfg ${PASTA}/k.cfg)
set(png ${PASTA}/k.png)
file(WRITE ${cfg} "circulo 20")
file(REMOVE ${png})
execute_process(COMMAND ${PREFIXO}/bin/Vorplex kernel ${cfg} ${png}
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(READ ${png} inicio LIMIT 4 HEX)
if(NOT inicio STREQUAL 89504e47)
  message(FATAL_ERROR "no PNG: ${inicio}")
endif()

# Of the folders, only those two are searched: not the one the program is run in.
file(MAKE_DIRECTORY ${PASTA}/atual)
file(COPY_FILE ${PREFIXO}/${LIB}/vorplex/pimcodecs.so ${PASTA}/atual/pimcodecs.so)
file(RENAME ${PREFIXO}/${LIB}/vorplex/pimcodecs.so ${PREFIXO}/fora.so)
execute_process(COMMAND ${PREFIXO}/bin/Vorplex kernel ${cfg} ${png}
                WORKING_DIRECTORY ${PASTA}/atual
                OUTPUT_QUIET ERROR_VARIABLE erros RESULT_VARIABLE estado)
file(RENAME ${PREFIXO}/fora.so ${PREFIXO}/${LIB}/vorplex/pimcodecs.so)
if(NOT estado EQUAL 1 OR NOT erros MATCHES "^Erro: Modulo de imagens: ")
  message(FATAL_ERROR "without its module: status ${estado}\n${erros}")
endif()
