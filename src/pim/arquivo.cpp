#include "pim/arquivo.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdint>

#include "pim/erro.h"

namespace pim {
namespace {

// Larger inputs are refused before they exhaust the machine (an endless pipe never ends).
constexpr std::size_t maximoDeBytes = std::size_t{4} << 30U;

bool ehComum(std::FILE* f) {
  struct stat dados {};
  return fstat(fileno(f), &dados) == 0 && S_ISREG(dados.st_mode);
}

}  // namespace

void FECHADOR::operator()(std::FILE* f) const {
  const bool some = !inacabado.empty() && ehComum(f);
  std::fclose(f);
  if (some) std::remove(inacabado.c_str());
}

ARQUIVO abre(const std::string& nome, const char* modo, const std::string& mensagem) {
  ARQUIVO arquivo(std::fopen(nome.c_str(), modo));
  struct stat dados {};
  const bool aberto = arquivo && fstat(fileno(arquivo.get()), &dados) == 0;
  if (!aberto || S_ISDIR(dados.st_mode)) erro(mensagem, nome);
  if (modo[0] == 'w') arquivo.get_deleter().inacabado = nome;
  return arquivo;
}

ARQUIVO abreTexto(std::string_view texto, const std::string& nome) {
  if (texto.find('\0') != std::string_view::npos) erro("Erro: Caractere nulo em ", nome);
  // Opened to read, so that the text is not written.
  ARQUIVO arquivo(fmemopen(const_cast<char*>(texto.data()),  // NOLINT(*-const-cast)
                           texto.size(), "r"));
  if (!arquivo) erro("Erro abertura arquivo ", nome);
  return arquivo;
}

void fechaEscrita(ARQUIVO arquivo, const std::string& nome) {
  std::FILE* f = arquivo.release();
  const bool comum = ehComum(f);
  const bool falhou = std::ferror(f) != 0;
  if (std::fclose(f) == 0 && !falhou) return;
  if (comum) std::remove(nome.c_str());
  erro("Erro gravacao arquivo ", nome);
}

std::vector<unsigned char> leBytes(const std::string& nome) {
  const ARQUIVO arquivo = abre(nome, "rb");
  struct stat dados {};
  fstat(fileno(arquivo.get()), &dados);
  if (!S_ISREG(dados.st_mode) && !S_ISFIFO(dados.st_mode)) erro("Erro leitura arquivo ", nome);
  const auto tamanho = static_cast<std::size_t>(std::max<std::int64_t>(dados.st_size, 0));
  if (tamanho > maximoDeBytes) erro("Erro: Arquivo grande demais ", nome);

  std::vector<unsigned char> bytes(tamanho + 1);  // one more, so that the end is seen at once
  std::size_t lidos = 0;
  while (true) {
    lidos += std::fread(bytes.data() + lidos, 1, bytes.size() - lidos, arquivo.get());
    if (lidos < bytes.size()) break;
    if (lidos > maximoDeBytes) erro("Erro: Arquivo grande demais ", nome);
    bytes.resize(lidos + std::max<std::size_t>(lidos, 65536));
  }
  if (std::ferror(arquivo.get()) != 0) erro("Erro leitura arquivo ", nome);
  bytes.resize(lidos);
  return bytes;
}

void gravaBytes(const std::string& nome, const std::vector<unsigned char>& bytes) {
  ARQUIVO arquivo = abre(nome, "wb");
  if (!bytes.empty()) std::fwrite(bytes.data(), 1, bytes.size(), arquivo.get());
  fechaEscrita(std::move(arquivo), nome);
}

}  // namespace pim
