#pragma once

#include <string>

// The end of a new pseudo-terminal that shows what programs write on it, and the name under which
// they open it. -1 and no name where none can be had, as without /dev/pts.
struct TERMINAL {
  int mestre = -1;
  std::string nome;
};

// The caller closes `mestre`.
TERMINAL abreTerminal();

// Whether one can be had here.
bool haTerminal();
