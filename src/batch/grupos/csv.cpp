#include "batch/grupos/csv.h"

#include <algorithm>
#include <utility>

#include "pim/erro.h"

namespace batch {
namespace {

[[noreturn]] void recusa(std::size_t linha, const char* porque) {
  pim::erro("Erro: CSV, linha ", std::to_string(linha) + ": " + porque);
}

// What is read, and the line that it stands in.
struct LEITOR_DE_CSV {
  std::string_view resta;
  std::size_t linha = 1;

  bool acabou() const { return resta.empty(); }

  // Takes the end of a line that stands here, if one does.
  bool fimDaLinha() {
    const std::size_t n = resta.starts_with("\r\n") ? 2 : resta.starts_with('\n') ? 1 : 0;
    resta.remove_prefix(n);
    linha += n > 0 ? 1 : 0;
    return n > 0;
  }

  bool toma(char c) {
    const bool aqui = resta.starts_with(c);
    if (aqui) resta.remove_prefix(1);
    return aqui;
  }

  std::string entreAspas() {
    const std::size_t inicio = linha;
    std::string s;
    for (;;) {
      if (acabou()) recusa(inicio, "aspas que nao fecham");
      const char c = resta.front();
      resta.remove_prefix(1);
      if (c == '"' && !toma('"')) return s;
      if (c == '\n') ++linha;
      s += c;
    }
  }

  std::string campo() {
    if (toma('"')) return entreAspas();
    const std::size_t n = std::min(resta.find_first_of(",\n"), resta.size());
    std::string s(resta.substr(0, n));
    if (s.find('"') != std::string::npos) recusa(linha, "aspas dentro de um campo");
    const bool comRetorno = n < resta.size() && resta[n] == '\n' && s.ends_with('\r');
    if (comRetorno) s.pop_back();
    resta.remove_prefix(s.size());
    return s;
  }
};

}  // namespace

std::vector<LINHA_DE_CSV> leCsv(std::string_view texto) {
  LEITOR_DE_CSV l{texto};
  if (l.resta.starts_with("\xEF\xBB\xBF")) l.resta.remove_prefix(3);
  if (texto.find('\0') != std::string_view::npos) recusa(1, "byte zero");
  std::vector<LINHA_DE_CSV> linhas;
  while (!l.acabou()) {
    if (l.fimDaLinha()) continue;
    LINHA_DE_CSV linha{l.linha, {}};
    do {
      linha.campos.push_back(l.campo());
    } while (l.toma(','));
    if (!l.acabou() && !l.fimDaLinha()) recusa(linha.numero, "texto depois das aspas");
    linhas.push_back(std::move(linha));
  }
  return linhas;
}

}  // namespace batch
