#pragma once

#include <string>
#include <vector>

#include "kernels/mascara.h"

// Reads the kernel settings and shapes of `nome` (docs/kernel-cfg.md) and appends one record for
// every shape, angle and scale to `kernels`: shapes in file order, angles inside them, and scales
// from the largest down inside those. The vector is not cleared.
//
// Consecutive records whose images of one kind have the same size share that image, which shows
// the last of them: one working record is drawn over and over, and its buffers move on only when a
// size changes. Detection results depend on it.
//
// pim::erro when the file can't be opened; at an unknown word, a bad number or a setting out of
// range; at a shape too small or too large to draw; when the angle step does not advance; and when
// the set would pass 2^17 kernels, 2^33 pixels of kernels drawn or 2 GiB of distinct images.
void leKernels(const std::string& nome, std::vector<MASCARA>& kernels);
