#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace pim {

// While it lives, what is written to standard error is dropped: the image libraries report there on
// their own about broken files, which our one line of error already names. Single-threaded.
struct SILENCIO {
  int anterior;

  SILENCIO() : anterior(dup(STDERR_FILENO)) {
    const int nada = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (anterior >= 0 && nada >= 0) dup2(nada, STDERR_FILENO);
    if (nada >= 0) close(nada);
  }
  ~SILENCIO() {
    std::fflush(stderr);
    if (anterior < 0) return;
    dup2(anterior, STDERR_FILENO);
    close(anterior);
  }
  SILENCIO(const SILENCIO&) = delete;
  SILENCIO& operator=(const SILENCIO&) = delete;
};

}  // namespace pim
