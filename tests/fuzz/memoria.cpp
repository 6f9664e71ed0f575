#include "memoria.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "confere.h"

MEMORIA::MEMORIA(std::string_view conteudo)
    : descritor(memfd_create("fuzz", 0)), nome("/proc/self/fd/" + std::to_string(descritor)) {
  const auto n = static_cast<ssize_t>(conteudo.size());
  confere(descritor >= 0 && write(descritor, conteudo.data(), conteudo.size()) == n,
          "memoria: sem arquivo");
}

MEMORIA::~MEMORIA() {
  close(descritor);
}

std::string MEMORIA::conteudo() const {
  struct stat dados {};
  fstat(descritor, &dados);
  std::string texto(static_cast<std::size_t>(dados.st_size), '\0');
  confere(pread(descritor, texto.data(), texto.size(), 0) == dados.st_size, "memoria: leitura");
  return texto;
}
