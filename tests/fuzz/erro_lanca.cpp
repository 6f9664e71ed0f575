#include "erro_lanca.h"

#include "pim/erro.h"

// Stand in for those of the library pim, whose object file is then not linked.
namespace pim {

void erro(const std::string& a, const std::string& b, const std::string& c) {
  throw ERRO(a + b + c);
}

void assercaoFalhou(const char* expressao, const LOCAL& /*local*/) {
  throw AFIRMACAO(expressao);
}

}  // namespace pim
