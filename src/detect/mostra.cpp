#include <cstdio>

#include "detect/maxlocal.h"

// Apart from the other operations on lists: it is the one that prints.
void mostraMaxLocal(MAXLOCAL m) {
  std::printf("%f %c %d %d %g %g %g\n", static_cast<double>(m.correl), m.forma, m.li, m.ci, m.d1,
              m.d2, m.ang);
}
