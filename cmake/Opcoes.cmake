# Compiler options shared by all our own targets.
add_library(opcoes INTERFACE)
target_include_directories(opcoes INTERFACE ${CMAKE_SOURCE_DIR}/src)
# Contracted multiply-adds would make results depend on the compiler and the processor.
target_compile_options(opcoes INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                                        -ffp-contract=off)
if(VORPLEX_SANITIZE)
  set(sanitizadores address,undefined)
  if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    string(APPEND sanitizadores ,float-cast-overflow,implicit-integer-truncation,fuzzer-no-link)
  endif()
  # For the sources of the program; instrumented tests would only take longer to build.
  set(instrumentacao -fsanitize=${sanitizadores} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(opcoes INTERFACE -fsanitize=${sanitizadores})
  target_compile_definitions(opcoes INTERFACE VORPLEX_SANITIZE)
endif()
if(VORPLEX_SANITIZE_THREADS)
  # Tests too: what they and the program use must be known to be of one thread at a time.
  target_compile_options(opcoes INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(opcoes INTERFACE -fsanitize=thread)
endif()
if(VORPLEX_COVERAGE)
  target_compile_options(opcoes INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(opcoes INTERFACE --coverage)
endif()

# biblioteca(NAME DEPENDENCIES...): one subsystem, made of all sources of the current folder.
function(biblioteca nome)
  file(GLOB fontes CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_library(${nome} STATIC ${fontes})
  target_link_libraries(${nome} PUBLIC opcoes ${ARGN})
  # Constants of headers as symbols that cmake/pacote can hide.
  target_compile_options(${nome} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
endfunction()

# Whether what is built can be linked by programs that are not built alike.
set(VORPLEX_INSTRUMENTADO OFF)
if(VORPLEX_SANITIZE OR VORPLEX_SANITIZE_THREADS OR VORPLEX_COVERAGE)
  set(VORPLEX_INSTRUMENTADO ON)
endif()

# comandos(SOURCES...): sources of the current folder's subsystem that print. Each makes an object of
# its own, which the library that is installed leaves out.
function(comandos)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  set_property(GLOBAL APPEND PROPERTY VORPLEX_COMANDOS ${ARGN})
endfunction()
