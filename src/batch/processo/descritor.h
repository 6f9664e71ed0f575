#pragma once

#include <unistd.h>

#include <utility>

namespace batch {

// A file descriptor that closes itself; -1 is none.
struct DESCRITOR {
  int fd = -1;

  DESCRITOR() = default;
  explicit DESCRITOR(int aberto) : fd(aberto) {}
  DESCRITOR(DESCRITOR&& outro) noexcept : fd(std::exchange(outro.fd, -1)) {}
  DESCRITOR& operator=(DESCRITOR&& outro) noexcept {
    std::swap(fd, outro.fd);
    if (outro.fd >= 0) close(std::exchange(outro.fd, -1));
    return *this;
  }
  DESCRITOR(const DESCRITOR&) = delete;
  DESCRITOR& operator=(const DESCRITOR&) = delete;
  ~DESCRITOR() {
    if (fd >= 0) close(fd);
  }
};

}  // namespace batch
