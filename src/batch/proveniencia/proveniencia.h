#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace batch {

// From what the results of a run were made, so that they can be made again to the same bytes.

struct FOTO_DA_PROVENIENCIA {
  std::string nome;     // of its results
  std::string arquivo;  // its file, without the folders before it
  std::string soma;     // checksum of its content
  std::string data;     // when the file was last changed, "2026-11-22T10:55:00Z"; may be empty
};

struct PROVENIENCIA {
  std::string versao;
  std::string instrucoes;                // set of the processor that the search ran on
  std::vector<std::string> argumentos;   // of vorplex-lote
  std::string idioma;                    // "pt" or "en"
  std::string titulo;                    // of the page
  std::string arquivoDoKernel;           // as it was named; empty: it was chosen by the photographs
  std::string kernel;                    // text of kernel.cfg
  std::string escala;                    // "0.05 mm"; "px" without one
  std::optional<std::string> correcoes;  // text of their file
  std::optional<std::string> grupos;     // text of their table
  std::vector<FOTO_DA_PROVENIENCIA> fotos;
  std::map<std::string, std::string> resultados;  // checksum of every file below the output folder
};

// As JSON, a member a line. Without `comResultados` for the page, which is one of them.
std::string emJson(const PROVENIENCIA& p, bool comResultados);

// Reads what emJson wrote. pim::erro "Erro: Proveniencia invalida: REASON" for anything else; at
// most 16 MiB, and no deeper than it is written.
PROVENIENCIA leProveniencia(std::string_view texto);

// When a file was last changed; empty when that can't be known.
std::string dataDoArquivo(const std::string& nome);

// The set of instructions that the search uses on this machine.
std::string instrucoesDaMaquina();

// What differs between a run and its repetition, a line each; nothing when their results are the
// same bytes. What may be the cause (version, photographs) comes first, then the files.
std::vector<std::string> diferencas(const PROVENIENCIA& antes, const PROVENIENCIA& agora);

}  // namespace batch
