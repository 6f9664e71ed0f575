#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vorplex {

struct KernelSet;

// The shapes that a search looks for, each in its sizes and angles. Copies are cheap and share the
// set, which never changes. An empty one finds nothing.
struct Kernels {
  std::shared_ptr<const KernelSet> set;
};

// One of them.
struct Kernel {
  char shape = 'c';  // 'c' circle, 'q' square, 'r' rectangle, 'e' ellipse
  double d1 = 0;     // full sizes, pixels
  double d2 = 0;
  double angle = 0;  // degrees
  int levels = 1;    // 1: searched in the picture as it is; each further one, up to 4, in a picture
                     // of half the size, where it finds shapes of twice the size; 0: not at all
};

// The kernels that a text in the language of kernel.cfg describes, such as
// "passoang 30 escoitava 3 escala 0.5 a 1 piramide 1 circulo 32 retangulo 48 20". A set holds at
// most 262144 kernels. `name` stands for the text in the messages of errors.
Kernels kernels_from_text(std::string_view text, const std::string& name = "kernels");

// The same from a file.
Kernels kernels_from_file(const std::string& path);

// All of a set, in their order.
std::vector<Kernel> list_kernels(const Kernels& kernels);

}  // namespace vorplex
