# Installs the build, and moves it.
file(REMOVE_RECURSE ${PREFIXO} ${PREFIXO}-antes)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${OBRA} --prefix ${PREFIXO}-antes
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${PREFIXO}-antes ${PREFIXO})
