#include <string>
#include <vector>

// A program may have names that the library has inside.

struct MAXLOCAL {
  std::string text;
};

struct GRAO {
  std::vector<MAXLOCAL> list;
};

void ordena(std::vector<MAXLOCAL>& v, int /*l*/, int /*r*/) {
  v.push_back({"mine"});
}

std::vector<MAXLOCAL> mine() {
  GRAO g;
  ordena(g.list, 0, 0);
  g.list.resize(100);
  return g.list;
}
