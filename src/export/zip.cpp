#include "export/zip.h"

#include <zip.h>

#include <memory>
#include <utility>

#include "export/parcial.h"
#include "pim/erro.h"

namespace exporta {
namespace {

// The archive is made in memory and written by our own means, which see a full disk.

[[noreturn]] void falha(const std::string& nome, const char* motivo) {
  pim::erro("Erro gravacao arquivo ", nome, std::string(": ") + motivo);
}

constexpr zip_uint16_t primeiroDeJaneiroDe1980 = (1U << 5U) | 1U;

struct LIBERA {
  void operator()(zip_source_t* fonte) const { zip_source_free(fonte); }
  void operator()(zip_t* z) const { zip_discard(z); }
};
using FONTE = std::unique_ptr<zip_source_t, LIBERA>;
using ARQUIVOZIP = std::unique_ptr<zip_t, LIBERA>;

struct MOTIVO {
  zip_error_t erro{};

  MOTIVO() { zip_error_init(&erro); }
  ~MOTIVO() { zip_error_fini(&erro); }
  MOTIVO(const MOTIVO&) = delete;
  MOTIVO& operator=(const MOTIVO&) = delete;

  const char* texto() { return zip_error_strerror(&erro); }
};

void poeEntrada(zip_t* z, const ENTRADA& e, const std::string& nome) {
  FONTE fonte(zip_source_buffer(z, e.bytes.data(), e.bytes.size(), 0));
  if (!fonte) falha(nome, zip_strerror(z));
  const zip_int64_t i = zip_file_add(z, e.nome.c_str(), fonte.get(), ZIP_FL_ENC_UTF_8);
  if (i < 0) falha(nome, zip_strerror(z));
  static_cast<void>(fonte.release());  // the archive's now
  const auto indice = static_cast<zip_uint64_t>(i);
  if (zip_set_file_compression(z, indice, ZIP_CM_STORE, 0) != 0 ||
      zip_file_set_dostime(z, indice, 0, primeiroDeJaneiroDe1980, 0) != 0) {
    falha(nome, zip_strerror(z));
  }
}

// What the closed archive left in its source.
std::string conteudo(zip_source_t* destino, const std::string& nome) {
  zip_stat_t dados;
  if (zip_source_open(destino) != 0 || zip_source_stat(destino, &dados) != 0) {
    falha(nome, zip_error_strerror(zip_source_error(destino)));
  }
  std::string bytes(dados.size, '\0');
  if (zip_source_read(destino, bytes.data(), dados.size) != static_cast<zip_int64_t>(dados.size)) {
    falha(nome, zip_error_strerror(zip_source_error(destino)));
  }
  zip_source_close(destino);
  return bytes;
}

std::string arquivoZip(const std::vector<ENTRADA>& entradas, const std::string& nome) {
  MOTIVO motivo;
  const FONTE destino(zip_source_buffer_create(nullptr, 0, 0, &motivo.erro));
  if (!destino) falha(nome, motivo.texto());
  ARQUIVOZIP z(zip_open_from_source(destino.get(), ZIP_TRUNCATE, &motivo.erro));
  if (!z) falha(nome, motivo.texto());
  zip_source_keep(destino.get());  // the archive lets go of it when it is closed
  for (const ENTRADA& e : entradas) poeEntrada(z.get(), e, nome);
  if (zip_close(z.get()) != 0) falha(nome, zip_strerror(z.get()));
  static_cast<void>(z.release());  // closed
  return conteudo(destino.get(), nome);
}

}  // namespace

void impZip(const std::vector<ENTRADA>& entradas, const std::string& nome) {
  PARCIAL p = abreParcial(nome);
  p.pendente = arquivoZip(entradas, nome);
  conclui(std::move(p));
}

}  // namespace exporta
