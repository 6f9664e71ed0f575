#pragma once

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace pim {

// While it lives, what is written to standard error is kept back: the image libraries report there
// on their own about broken files, which our one line of error already names. Single-threaded.
struct SILENCIO {
  int anterior;
  int guardado;  // a file in memory, or -1

  SILENCIO()
      : anterior(dup(STDERR_FILENO)), guardado(memfd_create("vorplex-silencio", MFD_CLOEXEC)) {
    const int nada = guardado >= 0 ? guardado : open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (anterior >= 0 && nada >= 0) dup2(nada, STDERR_FILENO);
    if (guardado < 0 && nada >= 0) close(nada);
  }
  ~SILENCIO() {
    std::fflush(stderr);
    if (guardado >= 0) close(guardado);
    if (anterior < 0) return;
    dup2(anterior, STDERR_FILENO);
    close(anterior);
  }
  SILENCIO(const SILENCIO&) = delete;
  SILENCIO& operator=(const SILENCIO&) = delete;

  // The first 64 KiB of what was kept back so far.
  std::string dito() const {
    std::fflush(stderr);
    std::string texto(65536, '\0');
    const ssize_t lidos = guardado < 0 ? 0 : pread(guardado, texto.data(), texto.size(), 0);
    texto.resize(static_cast<std::size_t>(std::max<ssize_t>(lidos, 0)));
    return texto;
  }
};

}  // namespace pim
