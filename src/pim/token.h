#pragma once

#include <cstddef>
#include <cstdio>
#include <string>

namespace pim {

// Tokens are runs of characters between white space. A token that begins with "//" starts a
// comment that runs to the end of its line and is skipped. A UTF-8 byte order mark at the start of
// a file is skipped too.

// A text held in memory, read with the same token rules as a text file.
struct ISTR {
  std::string texto;
  std::size_t pos = 0;  // first character not yet read

  // Joins the `n` arguments at `v` with single spaces into the text and rewinds to its start.
  void arg2str(int n, char** v);
};

// The next token of an open text file or of a stream; "eof" once none remains. pim::erro, with the
// name of the file when `nome` gives it, when the file can't be read or holds a word of more than
// 1 MiB (a device or a sparse file may be one word without end).
std::string leStr(std::FILE* f, const std::string& nome = "");
std::string leStr(ISTR& s);

// Reads the next token and converts it to the type of `x`. A token that is not wholly a number
// that fits the type, and the end of the input, end in pim::erro; its text gives the beginning of
// the token, the line and, when it is not empty, `nome` (the name of the file).
void leNum(std::FILE* f, int& x, const std::string& nome = "");
void leNum(std::FILE* f, float& x, const std::string& nome = "");
void leNum(std::FILE* f, double& x, const std::string& nome = "");
void leNum(ISTR& s, double& x);

// Skips white space. pim::erro when the file can't be read.
void pulaBrancos(std::FILE* f, const std::string& nome = "");

// Copies what comes before the next white space to `saida` as it stands, comments included, however
// long it is; what follows it may be read too. pim::erro when the file can't be read.
void copiaPalavra(std::FILE* f, std::FILE* saida, const std::string& nome = "");

// " (NAME, linha N)" for the place where the reading of `f` stands; without the name when it is
// empty, without the line when the file can't be rewound.
std::string lugar(std::FILE* f, const std::string& nome);

}  // namespace pim
