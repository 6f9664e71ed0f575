# Builds the stranger's program with the flags that pkg-config tells.
include(${CMAKE_CURRENT_LIST_DIR}/confere.cmake)
foreach(qual cflags libs)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${PREFIXO}/${LIB}/pkgconfig
                          ${PKGCONF} --${qual} vorplex
                  OUTPUT_VARIABLE ${qual} OUTPUT_STRIP_TRAILING_WHITESPACE
                  COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(${qual} UNIX_COMMAND "${${qual}}")
endforeach()
set(programa ${PASTA}/com-pkgconfig)
file(REMOVE ${programa})
execute_process(COMMAND ${CXX} -std=c++17 ${cflags} ${FONTE}/stranger.cpp ${FONTE}/names.cpp -o
                        ${programa} ${libs}
                COMMAND_ERROR_IS_FATAL ANY)
confere_estranho(${programa})
