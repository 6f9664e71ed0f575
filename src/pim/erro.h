#pragma once

#include <exception>
#include <stdexcept>
#include <string>
#include <utility>

// What goes wrong is thrown, and caught by nobody below `main` unless to clean up. The types are
// whole in this header and visible, so that one thrown in a shared module is caught outside it.

namespace pim {

// An error of the input, of a file or of the system.
struct [[gnu::visibility("default")]] ERRO : std::exception {
  std::string mensagem;  // one line, without its end

  explicit ERRO(std::string texto) : mensagem(std::move(texto)) {}
  const char* what() const noexcept override {
    return mensagem.c_str();
  }
};

// Where an assertion stands: the source name, line and full signature that its text reports.
struct LOCAL {
  const char* arquivo;
  unsigned linha;
  const char* funcao;
};

// A failed assertion. what() is its text: "arquivo:linha: funcao: Assertion `expressao' failed."
struct [[gnu::visibility("default")]] ASSERCAO : std::logic_error {
  const char* expressao;
  LOCAL local;

  ASSERCAO(const char* expressao_, const LOCAL& local_)
      : std::logic_error(std::string(local_.arquivo) + ":" + std::to_string(local_.linha) + ": " +
                         local_.funcao + ": Assertion `" + expressao_ + "' failed."),
        expressao(expressao_),
        local(local_) {}
};

// The length that a file asks for can be that of no list. what() is a line that names the file.
struct [[gnu::visibility("default")]] CONTAGEM_IMPOSSIVEL : std::length_error {
  using std::length_error::length_error;
};

// Throws an ERRO of which `a`, `b` and `c`, one after the other, are the message.
[[noreturn]] void erro(const std::string& a, const std::string& b = "", const std::string& c = "");

// Throws an ASSERCAO. The texts are kept by address: they must last, as literals do.
[[noreturn]] void assercaoFalhou(const char* expressao, const LOCAL& local);

// An assertion that release builds keep. `expressao` is the text shown when `valida` is false.
inline void afirma(bool valida, const char* expressao, const LOCAL& local) {
  if (!valida) assercaoFalhou(expressao, local);
}

}  // namespace pim
