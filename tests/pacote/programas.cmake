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
foreach(programa vorplex-lote vorplex-apura)
  execute_process(COMMAND ${PREFIXO}/bin/${programa} --versao OUTPUT_VARIABLE versao
                  COMMAND_ERROR_IS_FATAL ANY)
  if(NOT versao MATCHES "^${programa} [0-9.]+")
    message(FATAL_ERROR "${versao}")
  endif()
endforeach()
