#include "pim/erro.h"

namespace pim {

void erro(const std::string& a, const std::string& b, const std::string& c) {
  throw ERRO(a + b + c);
}

void assercaoFalhou(const char* expressao, const LOCAL& local) {
  throw ASSERCAO(expressao, local);
}

}  // namespace pim
