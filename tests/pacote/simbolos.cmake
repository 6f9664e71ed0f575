# The installed library has no way to print or to end the process, and no names but its own.
cmake_policy(SET CMP0057 NEW)

# nomes(FILE OPTION LIST): the symbols of an object or archive, the versions after @ left out.
function(nomes arquivo opcao lista)
  execute_process(COMMAND ${NM} --extern-only ${opcao} --format=posix ${arquivo}
                  OUTPUT_VARIABLE texto COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "[^\n]+ [A-Za-z] ?[^\n]*" linhas "${texto}")
  list(TRANSFORM linhas REPLACE "[ @].*$" "")
  list(SORT linhas)
  set(${lista} ${linhas} PARENT_SCOPE)
endfunction()

# Ends of the process; the standard streams, without which fprintf and fwrite reach files alone;
# what prints without naming a stream. std::terminate is named by the destructor of std::thread,
# for a thread that nobody waited for; the library's are std::jthread, which waits.
set(fins exit _exit _Exit quick_exit at_quick_exit abort raise kill __assert_fail
         __assert_perror_fail __assert _ZSt21__glibcxx_assert_failPKciS0_S0_)
set(correntes stdout stderr _ZSt4cout _ZSt4cerr _ZSt4clog _ZSt5wcout _ZSt5wcerr)
set(impressoras printf __printf_chk vprintf __vprintf_chk puts putchar putchar_unlocked perror
                psignal write writev pwrite dprintf __dprintf_chk vdprintf syslog warn warnx err
                errx)
set(proibidos ${fins} ${correntes} ${impressoras})

# proibidos_de(FILE LIST): those of them that it names.
function(proibidos_de arquivo lista)
  nomes(${arquivo} --undefined-only usados)
  set(achados)
  foreach(nome ${usados})
    if(nome IN_LIST proibidos)
      list(APPEND achados ${nome})
    endif()
  endforeach()
  set(${lista} "${achados}" PARENT_SCOPE)
endfunction()

set(arquivo ${PREFIXO}/${LIB}/libvorplex.a)
proibidos_de(${arquivo} achados)
if(achados)
  message(FATAL_ERROR "${arquivo} uses ${achados}")
endif()

# They are found where they are: in the sub-programs and at the end of a process.
proibidos_de(${OBRA}/src/detect/libdetect.a doDetector)
proibidos_de(${OBRA}/src/fim/libfim.a doFim)
foreach(nome puts stdout)
  if(NOT nome IN_LIST doDetector)
    message(FATAL_ERROR "not found in libdetect.a: ${nome}")
  endif()
endforeach()
foreach(nome stderr __assert_fail)
  if(NOT nome IN_LIST doFim)
    message(FATAL_ERROR "not found in libfim.a: ${nome}")
  endif()
endforeach()

nomes(${arquivo} --defined-only oferecidos)
list(LENGTH oferecidos quantos)
set(alheios ${oferecidos})
list(FILTER alheios EXCLUDE REGEX "^_Z(T[ISV])?N7vorplex|:$")
if(alheios OR quantos LESS 10)
  message(FATAL_ERROR "${arquivo} offers ${quantos} names, of others: ${alheios}")
endif()

# The headers need nothing beside the standard library.
file(GLOB cabecalhos ${PREFIXO}/include/vorplex/*.h)
foreach(cabecalho ${cabecalhos})
  file(STRINGS ${cabecalho} inclusoes REGEX "^ *# *include")
  list(FILTER inclusoes EXCLUDE REGEX "<[a-z_]+>|\"vorplex/[a-z]+[.]h\"")
  if(inclusoes)
    message(FATAL_ERROR "${cabecalho}: ${inclusoes}")
  endif()
endforeach()
