#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "vorplex/detection.h"
#include "vorplex/image.h"
#include "vorplex/kernels.h"

namespace vorplex {

// How far a search has come: so many groups of kernels out of all, and what was found in them, near
// duplicates included. Sorting follows when both are equal.
struct Progress {
  std::size_t groups_done = 0;
  std::size_t groups = 0;
  std::size_t found = 0;
};

// Called every few milliseconds in the thread of the search; false cancels it. What it throws
// reaches the caller of the search as it is.
using ProgressCallback = std::function<bool(const Progress&)>;

// Finds the shapes of a set that are darker than what surrounds them: places where the correlation
// of the picture with a kernel is at its highest and at least `min_correlation`, best first, and
// without those that have a better one of the same letter within 2 pixels. The list is empty when
// there is none. What `Vorplex correla` finds, whatever the processor; only its
// file has fewer decimals.
//
// One thread; memory of about 18 bytes a pixel beside the kernels. Error for an extent out of range
// and for a minimum that is not finite; Cancelled when `progress` says so.
std::vector<Detection> search(const Image& image, const Kernels& kernels,
                              double min_correlation = 0.001,
                              const ProgressCallback& progress = {});
std::vector<Detection> search(const FloatImage& image, const Kernels& kernels,
                              double min_correlation = 0.001,
                              const ProgressCallback& progress = {});

}  // namespace vorplex
