#include "apoio/terminal.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

TERMINAL abreTerminal() {
  const int mestre = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (mestre < 0) return {};
  std::array<char, 64> nome{};
  const bool tem = unlockpt(mestre) == 0 && ptsname_r(mestre, nome.data(), nome.size()) == 0 &&
                   access(nome.data(), R_OK | W_OK) == 0;
  if (tem) return {mestre, nome.data()};
  close(mestre);
  return {};
}

bool haTerminal() {
  const TERMINAL t = abreTerminal();
  if (t.mestre < 0) return false;
  close(t.mestre);
  return true;
}
