#include "batch/pedido/leitura.h"

#include <cerrno>
#include <cstdio>

#include "linha/traducao.h"
#include "pim/arquivo.h"

namespace batch {

std::string leTudo(const std::string& nome, std::string& porque, exporta::IDIOMA idioma) {
  constexpr std::size_t maximo = std::size_t{64} << 20U;
  const pim::ARQUIVO arquivo(std::fopen(nome.c_str(), "rbe"));
  if (!arquivo) {
    porque = linha::erroDoSistema(errno, idioma);
    return "";
  }
  std::string s(maximo + 1, '\0');
  errno = 0;
  s.resize(std::fread(s.data(), 1, s.size(), arquivo.get()));
  if (std::ferror(arquivo.get()) != 0) porque = linha::erroDoSistema(errno, idioma);
  if (s.size() > maximo) porque = linha::erroDoSistema(EFBIG, idioma);
  return s;
}

}  // namespace batch
