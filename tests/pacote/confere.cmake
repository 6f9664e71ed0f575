# confere_estranho(PROGRAM): runs the stranger's program, which alone may write.
function(confere_estranho programa)
  execute_process(COMMAND ${programa} OUTPUT_VARIABLE saida ERROR_VARIABLE erros
                  RESULT_VARIABLE estado)
  set(esperado "2 of [0-9]+ detections kept
c at 80,110 .* wide: 3[0-9][.][0-9]+ px
c at 40,50 .* wide: 2[0-9][.][0-9]+ px
half of the weight lies below 1[.][0-9]+ mm
error: Erro: Palavra desconhecida triangulo
cancelled
")
  if(NOT estado EQUAL 0 OR NOT erros STREQUAL "" OR NOT saida MATCHES "^${esperado}$")
    message(FATAL_ERROR "status ${estado}\n${saida}\n${erros}")
  endif()
endfunction()
