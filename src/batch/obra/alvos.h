#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "measure/escala.h"

namespace batch {

// A photograph to be done.
struct ALVO {
  std::filesystem::path arquivo;               // absolute
  std::string nome;                            // of its folder of results, and of the files in it
  std::string grupo = {};                      // empty: none
  std::optional<measure::ESCALA> escala = {};  // its own, else that of the run
  std::optional<bool> claros = {};             // bright grains on dark ground, else as the run says
};

// Whether the name ends as those of pictures do: pgm, ppm, pnm, png, jpg, jpeg, tif, tiff, bmp, in
// any letter case.
bool temSufixoDeFoto(const std::filesystem::path& nome);

// The photographs that the inputs name, in order. A file is taken whatever its suffix, even if it
// can't be read, which is told when its turn comes. A folder gives its pictures, known by their
// suffixes, by name, then, when `recursivo`, those of its folders, each folder once; names that
// begin with a point are left out, and so are the folder `saida` and the folders of results that it
// or another run has made. A photograph named twice is taken once. A folder that can't be listed is
// taken for a photograph, so that it is told too.
std::vector<ALVO> achaAlvos(const std::vector<std::string>& entradas, bool recursivo,
                            const std::string& saida);

// The names for the photographs with these absolute paths: that of the file without its suffix
// where it is the only one; "foto-png" and "foto-jpg" where only suffixes differ; otherwise the
// names of as many folders before it as it takes ("norte-foto", "sul-foto"), and a number where
// that does not help either. Control characters and a point at the beginning become "_", so that
// every name is one visible word of a path; at most 200 bytes are kept.
std::vector<std::string> nomesDeResultados(const std::vector<std::filesystem::path>& arquivos);

}  // namespace batch
