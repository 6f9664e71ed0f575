#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kernels/mascara.h"

// Which images `leKernels` draws into the records. Without them a record takes a few hundred bytes
// whatever its size, and kernels::imagemDoKernel (mascara.h) draws its kernel when it is wanted.
enum class IMAGENS { todas, nenhuma };

// Reads the kernel settings and shapes of `nome` (docs/kernel-cfg.md) and appends one record for
// every shape, angle and scale to `kernels`: shapes in file order, angles inside them, and scales
// from the largest down inside those. The vector is not cleared.
//
// Consecutive records whose images of one kind have the same size share that image, which shows
// the last of them: one working record is drawn over and over, and its buffers move on only when a
// size changes. Detection results depend on it, and what `molde` holds follows it.
//
// pim::erro when the file can't be opened; at an unknown word, a bad number or a setting out of
// range; at a shape too small or too large to draw; when the angle step does not advance; and when
// the set would pass 2^18 kernels, 2^33 pixels of kernels or, with all images, 2 GiB of distinct
// ones: then before the kernels of that shape are drawn. The errors do not depend on `imagens`, but
// for the last.
void leKernels(const std::string& nome, std::vector<MASCARA>& kernels,
               IMAGENS imagens = IMAGENS::todas);

namespace kernels {

// The same from a text in memory; `nome` stands for it in errors. pim::erro also when it holds a
// character zero.
void leKernelsDoTexto(std::string_view texto, const std::string& nome,
                      std::vector<MASCARA>& conjunto, IMAGENS imagens);

}  // namespace kernels
