# Builds the stranger's program with CMake.
include(${CMAKE_CURRENT_LIST_DIR}/confere.cmake)
set(pasta ${PASTA}/com-cmake)
file(REMOVE_RECURSE ${pasta})
execute_process(COMMAND ${CMAKE_COMMAND} -G ${GERADOR} -S ${FONTE} -B ${pasta}
                        -DCMAKE_PREFIX_PATH=${PREFIXO}
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${pasta} COMMAND_ERROR_IS_FATAL ANY)
confere_estranho(${pasta}/stranger)

# The program that the documentation shows is this one.
file(READ ${DOCUMENTO} documento)
foreach(fonte CMakeLists.txt stranger.cpp)
  file(READ ${FONTE}/${fonte} texto)
  string(FIND "${documento}" "${texto}" onde)
  if(onde LESS 0)
    message(FATAL_ERROR "${fonte} is not what ${DOCUMENTO} shows")
  endif()
endforeach()
