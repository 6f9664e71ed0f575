#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/avisos/sinais.h"
#include "corrige/aplica.h"
#include "measure/grao.h"

namespace batch {

// The hidden file that vorplex-lote leaves in each folder of results: from what the results were
// made, and how they looked. All by content, never by date: copies, restored backups and clocks
// make dates lie in both directions, and reading a photograph takes a thousandth of searching it.

inline constexpr const char* arquivoDoEstado = ".vorplex-lote";
inline constexpr const char* arquivoDasMensagens = "mensagens.txt";

// What stands beside the folders of results.
inline constexpr const char* arquivoDaProveniencia = "proveniencia.json";
inline constexpr std::array<const char*, 5> arquivosDoConjunto = {
    "graos.csv", "coco.json", "resumo.csv", "relatorio.html", arquivoDaProveniencia};

// The kernel.cfg of a run that was given none, beside them too.
inline constexpr const char* arquivoDaEscolha = "kernel.cfg";

// The fitted grains in full, from which the measures are made.
inline constexpr const char* arquivoDosApurados = ".vorplex-apurado";
// What was refused, in the same form, for whoever wants to bring a shape back.
inline constexpr const char* arquivoDosCandidatos = ".vorplex-candidatos";

// The files of a photograph called `nome`, in the order in which they are made. Without grains
// there is no rois.zip, and only fitted grains are kept in full.
std::vector<std::string> arquivosDaFoto(const std::string& nome,
                                        measure::METODO metodo = measure::METODO::apurado,
                                        bool comGraos = true);

// Checksums of all that a step depends on, each step on the one before it.
struct ORIGEM {
  std::string procura;  // .ho1: photograph, kernel.cfg, smallest correlation, inversion
  std::string filtro;   // .ho2, .rel, outlines: method and its options too
  std::string medida;   // all others: scale, borders, language too
};

struct ESTADO {
  bool completo = false;  // false: the photograph failed
  ORIGEM origem;
  int rows = 0;  // of the photograph
  int cols = 0;
  std::string foto;                             // checksum of the photograph
  std::size_t graos = 0;                        // measured
  corrige::FEITAS correcoes;                    // made by hand
  SINAIS sinais;                                // of the photograph
  std::map<std::string, std::string> arquivos;  // checksum of each
};

// Marks the folder as one of results, those of a photograph that failed. Does what it can: the disk
// may be full.
void marcaFalha(const std::filesystem::path& pasta);

// Writes the state into the folder; pim::erro when it can't be written whole.
void impEstado(const ESTADO& e, const std::filesystem::path& pasta);

// Nothing when there is no state in the folder, or none that this version understands.
std::optional<ESTADO> leEstado(const std::filesystem::path& pasta);

// Whether the folder was made by vorplex-lote, whatever the version.
bool ehPastaDeResultados(const std::filesystem::path& pasta);

// Whether a file of the folder is still as it was written.
bool intacto(const ESTADO& e, const std::filesystem::path& pasta, const std::string& arquivo);

}  // namespace batch
