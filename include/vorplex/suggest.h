#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "vorplex/image.h"

namespace vorplex {

struct SuggestOptions {
  std::optional<bool> bright;   // bright grains on dark ground, if that is known beforehand
  std::string shapes = "cqre";  // letters that a grain may have
  std::size_t sample = 8;       // pictures that are looked at, at least 1
  bool english = false;         // comments of the text, instead of Portuguese
  int threads = 1;              // 1 to 1024; the result doesn't depend on it
};

// What to search for, and what was seen. Sizes are diameters of equal area in pixels.
struct Suggestion {
  std::string text;               // a kernel.cfg with comments, for kernels_from_text
  bool bright = false;            // search the negative (255 - grey): grains are bright
  double min_correlation = 0.02;  // for the search
  std::string shapes;             // letters that the text searches for
  double min_size = 0;            // of the grains that were seen; the text goes somewhat beyond
  double max_size = 0;
  double share = 0.5;  // of this polarity in all that was seen, 0 to 1
  bool both = false;   // many grains are of the other polarity
  bool found = false;  // any grain; if not, the text is of general use
};

// Chooses kernels, polarity and smallest correlation for pictures of one kind from a few of them.
// Looks at half as many pixels as one picture has, 0.4 to 2 million, in parts of large ones. The
// result depends on the pictures alone, not on their order. Error for options out of range.
Suggestion suggest(const std::vector<Image>& images, const SuggestOptions& options = {});

}  // namespace vorplex
