#include "linha/nomes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace linha {
namespace {

std::string leTudo(std::FILE* f) {
  std::string s;
  std::array<char, 65536> bloco;
  for (std::size_t n = 0; (n = std::fread(bloco.data(), 1, bloco.size(), f)) > 0;) {
    s.append(bloco.data(), n);
  }
  return s;
}

}  // namespace

std::vector<std::string> separaNomes(const std::string& texto) {
  const bool comNulos = texto.find('\0') != std::string::npos;
  const char fim = comNulos ? '\0' : '\n';
  std::vector<std::string> nomes;
  for (std::size_t de = 0; de < texto.size();) {
    const std::size_t ate = std::min(texto.find(fim, de), texto.size());
    std::string nome = texto.substr(de, ate - de);
    if (!comNulos && nome.ends_with('\r')) nome.pop_back();
    if (!nome.empty()) nomes.push_back(std::move(nome));
    de = ate + 1;
  }
  return nomes;
}

std::vector<std::string> comNomesDe(std::FILE* f, const std::vector<std::string>& palavras) {
  std::vector<std::string> v;
  for (const std::string& p : palavras) {
    if (p != "-") {
      v.push_back(p);
      continue;
    }
    for (std::string& nome : separaNomes(leTudo(f))) v.push_back(std::move(nome));
  }
  return v;
}

}  // namespace linha
