#include "linha/linha.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>

#include "export/valor.h"

namespace linha {
namespace {

// What getopt has just refused. It tells an unknown letter by `optopt`, a word by its place.
RECUSA recusada(int letra, const std::string& palavra, std::span<const option> longas) {
  if (letra == ':') return {&frases::faltaValor, palavra};
  const bool existe = std::any_of(longas.begin(), longas.end(),
                                  [](const option& o) { return o.val != 0 && o.val == optopt; });
  if (existe) return {&frases::valorDemais, palavra};
  if (optopt == 0) return {&frases::opcaoDesconhecida, palavra};
  return {&frases::opcaoDesconhecida, exporta::emUtf8({'-', static_cast<char>(optopt)})};
}

}  // namespace

void garanteSaidas() {
  int fd = 0;
  while (fd >= 0 && fd <= STDERR_FILENO) fd = open("/dev/null", O_RDWR);
  if (fd > STDERR_FILENO) close(fd);
}

RECUSA leOpcoes(std::vector<std::string>& palavras, const char* curtas,
                std::span<const option> longas, const GUARDA& guarda) {
  std::vector<char*> argv;
  argv.reserve(palavras.size() + 1);
  for (std::string& p : palavras) argv.push_back(p.data());
  argv.push_back(nullptr);
  const int argc = static_cast<int>(palavras.size());
  opterr = 0;
  optind = 0;  // begins anew, so that a process may read several command lines
  RECUSA primeira;
  while (true) {
    const int letra = getopt_long(argc, argv.data(), curtas, longas.data(), nullptr);
    if (letra == -1) break;
    RECUSA recusa;
    if (letra == '?' || letra == ':') {
      recusa = recusada(letra, argv[static_cast<std::size_t>(optind) - 1], longas);
    } else {
      recusa = {guarda(letra, optarg), optarg == nullptr ? "" : optarg};
    }
    if (primeira.frase == nullptr && recusa.frase != nullptr) primeira = recusa;
  }
  palavras = std::vector<std::string>(argv.begin() + optind, argv.end() - 1);
  return primeira;
}

bool leIdioma(const std::string& texto, exporta::IDIOMA& i) {
  if (texto == "pt") i = exporta::IDIOMA::pt;
  if (texto == "en") i = exporta::IDIOMA::en;
  return texto == "pt" || texto == "en";
}

}  // namespace linha
