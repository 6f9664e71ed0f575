#include "pim/token.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <vector>

#include "pim/erro.h"
#include "pim/texto.h"

namespace pim {
namespace {

// One-character readers, so that files and memory share one tokeniser.
int leCar(std::FILE* f) {
  return getc_unlocked(f);
}

int leCar(ISTR& s) {
  return s.pos < s.texto.size() ? static_cast<unsigned char>(s.texto[s.pos++]) : EOF;
}

void devolveCar(std::FILE* f, int c) {
  if (c != EOF) std::ungetc(c, f);
}

void devolveCar(ISTR& s, int c) {
  if (c != EOF) --s.pos;
}

void verificaLeitura(std::FILE* f, const std::string& nome) {
  if (std::ferror(f) != 0) erro("Erro leitura arquivo", nome.empty() ? "" : " " + nome);
}

void verificaLeitura(ISTR& /*s*/, const std::string& /*nome*/) {}

constexpr std::size_t maiorPalavra = std::size_t{1} << 20U;  // bytes

void verificaTamanho(std::FILE* f, std::size_t bytes, const std::string& nome) {
  if (bytes > maiorPalavra) erro("Erro: Palavra grande demais", lugar(f, nome));
}

void verificaTamanho(ISTR& /*s*/, std::size_t /*bytes*/, const std::string& /*nome*/) {}

template <class FONTE>
void pulaEspacos(FONTE&& fonte) {
  int c = leCar(fonte);
  while (espaco(c)) c = leCar(fonte);
  devolveCar(fonte, c);
}

// The next run of non-blank characters; empty at the end of the input. The character after it is
// left unread, so that the place of the token can still be told.
template <class FONTE>
std::string palavra(FONTE&& fonte, const std::string& nome) {
  pulaEspacos(fonte);
  std::string texto;
  int c = leCar(fonte);
  for (; c != EOF && !espaco(c); c = leCar(fonte)) {
    texto.push_back(static_cast<char>(c));
    verificaTamanho(fonte, texto.size(), nome);
  }
  devolveCar(fonte, c);
  return texto;
}

// Whether the word of so many bytes that was just read began the file; taken to be so where the
// place can't be told, as in a pipe.
bool abriuOArquivo(std::FILE* f, std::size_t bytes) {
  const long fim = std::ftell(f);
  return fim < 0 || static_cast<std::size_t>(fim) == bytes;
}

bool abriuOArquivo(ISTR& /*s*/, std::size_t /*bytes*/) {
  return false;
}

template <class FONTE>
void pulaLinha(FONTE&& fonte) {
  int c = leCar(fonte);
  while (c != EOF && c != '\n') c = leCar(fonte);
}

// The next token; empty once none remains.
template <class FONTE>
std::string token(FONTE&& fonte, const std::string& nome) {
  constexpr std::string_view marcaUtf8 = "\xEF\xBB\xBF";
  while (true) {
    std::string texto = palavra(fonte, nome);
    const bool fim = texto.empty();
    if (texto.starts_with(marcaUtf8) && abriuOArquivo(fonte, texto.size())) {
      texto.erase(0, marcaUtf8.size());
    }
    if (fim) verificaLeitura(fonte, nome);
    if (texto.starts_with("//")) {
      pulaLinha(fonte);
    } else if (fim || !texto.empty()) {
      return texto;
    }
  }
}

template <class FONTE>
std::string leStrDe(FONTE&& fonte, const std::string& nome) {
  std::string texto = token(fonte, nome);
  return texto.empty() ? "eof" : texto;
}

template <class T>
void leNumDe(std::FILE* f, T& x, const std::string& nome) {
  const std::string texto = token(f, nome);
  if (texto.empty()) erro("Erro: Falta numero no fim do texto", lugar(f, nome));
  if (!paraNumero(texto, x)) erro("Erro: Numero invalido ", comeco(texto), lugar(f, nome));
}

}  // namespace

void ISTR::arg2str(int n, char** v) {
  texto.clear();
  for (int i = 0; i < n; ++i) {
    if (i > 0) texto += ' ';
    texto += v[i];
  }
  pos = 0;
}

std::string leStr(std::FILE* f, const std::string& nome) {
  return leStrDe(f, nome);
}

std::string leStr(ISTR& s) {
  return leStrDe(s, "");
}

void leNum(std::FILE* f, int& x, const std::string& nome) {
  leNumDe(f, x, nome);
}

void leNum(std::FILE* f, float& x, const std::string& nome) {
  leNumDe(f, x, nome);
}

void leNum(std::FILE* f, double& x, const std::string& nome) {
  leNumDe(f, x, nome);
}

void leNum(ISTR& s, double& x) {
  const std::string texto = token(s, "");
  if (texto.empty()) erro("Erro: Falta numero no fim dos parametros");
  if (!paraNumero(texto, x)) erro("Erro: Numero invalido ", texto);
}

void pulaBrancos(std::FILE* f, const std::string& nome) {
  pulaEspacos(f);
  verificaLeitura(f, nome);
}

void copiaPalavra(std::FILE* f, std::FILE* saida, const std::string& nome) {
  std::vector<char> bloco(std::size_t{1} << 16U);
  bool continua = true;
  while (continua) {
    const std::size_t lidos = std::fread(bloco.data(), 1, bloco.size(), f);
    const std::span<const char> trecho(bloco.data(), lidos);
    const auto fim = std::find_if(trecho.begin(), trecho.end(), espaco);
    std::fwrite(trecho.data(), 1, static_cast<std::size_t>(fim - trecho.begin()), saida);
    continua = lidos == bloco.size() && fim == trecho.end();
  }
  verificaLeitura(f, nome);
}

std::string lugar(std::FILE* f, const std::string& nome) {
  const long fim = std::ftell(f);
  if (fim < 0 || std::fseek(f, 0, SEEK_SET) != 0) return nome.empty() ? "" : " (" + nome + ")";
  long linha = 1;
  for (long i = 0; i < fim; ++i) {
    if (leCar(f) == '\n') ++linha;
  }
  return " (" + (nome.empty() ? "" : nome + ", ") + "linha " + std::to_string(linha) + ")";
}

}  // namespace pim
