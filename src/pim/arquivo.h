#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pim {

struct FECHADOR {
  std::string inacabado;  // what goes when it is closed, if an ordinary file; may be empty

  void operator()(std::FILE* f) const;
};

// An open standard C file that closes itself.
using ARQUIVO = std::unique_ptr<std::FILE, FECHADOR>;

// Opens `nome` in `modo` ("rt", "wt", "rb", "wb"). When that fails, or when `nome` is a directory,
// pim::erro with `mensagem` followed by the name. What is written is removed again, as unfinished,
// unless fechaEscrita closes it.
ARQUIVO abre(const std::string& nome, const char* modo,
             const std::string& mensagem = "Erro abertura arquivo ");

// A text in memory, which must last, as a file to read. pim::erro with `nome` when it holds a
// character zero, which no text file has.
ARQUIVO abreTexto(std::string_view texto, const std::string& nome);

// Closes a file that was written; pim::erro naming it when any write, or the close, failed (a full
// disk shows only then). An ordinary file is removed then: cut short, it could be taken for whole.
void fechaEscrita(ARQUIVO arquivo, const std::string& nome);

// All bytes of a regular file or pipe. pim::erro when it can't be opened or read, is neither of
// the two, or holds more than 4 GiB.
std::vector<unsigned char> leBytes(const std::string& nome);

// Writes `bytes` as the whole content of `nome`; pim::erro when it can't be created or written.
void gravaBytes(const std::string& nome, const std::vector<unsigned char>& bytes);

}  // namespace pim
