#pragma once

#include <stdexcept>
#include <string>

// What pim::erro and a failed assertion throw in the fuzz targets, where they may not end the
// process: most bytes are bad files.
struct ERRO : std::runtime_error {
  using std::runtime_error::runtime_error;
};
struct AFIRMACAO : std::logic_error {  // the text of the assertion
  using std::logic_error::logic_error;
};

// Carries out `acao`; the text of pim::erro when it ended there, else an empty one. A failed
// assertion passes through and so ends the run.
template <class ACAO>
std::string erroDe(ACAO acao) {
  try {
    acao();
    return "";
  } catch (const ERRO& e) {
    return e.what();
  }
}
