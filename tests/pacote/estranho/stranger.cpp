#include <vorplex/vorplex.h>

#include <cstdint>
#include <iostream>
#include <vector>

namespace {

constexpr vorplex::Extent extent = {120, 160};

// A dark disc on the bright ground of a picture.
void draw(std::vector<std::uint8_t>& pixels, int row, int column, int radius) {
  for (int r = row - radius; r <= row + radius; ++r) {
    for (int c = column - radius; c <= column + radius; ++c) {
      const int distance = (r - row) * (r - row) + (c - column) * (c - column);
      if (distance <= radius * radius) pixels[r * extent.columns + c] = 60;
    }
  }
}

void findAndMeasure(const vorplex::Image& image, const vorplex::Kernels& kernels) {
  const auto found = vorplex::search(image, kernels, 0.1);
  vorplex::Thresholds thresholds;
  thresholds.circle = {0.3, 0.1};
  thresholds.square = {0.3, 0.1};
  const auto kept = vorplex::filter(image.extent, found, thresholds);
  std::cout << kept.size() << " of " << found.size() << " detections kept\n";

  const auto grains = vorplex::measure(image.extent, kept);
  for (const vorplex::Grain& g : grains) {
    const vorplex::Detection& d = g.detection;
    std::cout << d.shape << " at " << d.row << ',' << d.column << " (" << d.correlation
              << "), wide: " << g.lesser << " px\n";
  }
  const auto sizes = vorplex::distribution(grains, vorplex::parse_scale("0.05mm"));
  std::cout << "half of the weight lies below " << sizes.d50.value() << " mm\n";
}

}  // namespace

int main() {
  std::vector<std::uint8_t> pixels(extent.rows * extent.columns, 200);
  draw(pixels, 40, 50, 13);
  draw(pixels, 80, 110, 17);
  const vorplex::Image image{pixels.data(), extent};
  const auto kernels =
      vorplex::kernels_from_text("escoitava 5 escala 0.5 a 1 piramide 1 circulo 40 quadrado 40");
  findAndMeasure(image, kernels);

  try {
    vorplex::kernels_from_text("triangulo 20");
  } catch (const vorplex::Error& e) {
    std::cout << "error: " << e.what() << '\n';
  }
  try {
    vorplex::search(image, kernels, 0.1, [](const vorplex::Progress&) { return false; });
  } catch (const vorplex::Cancelled& e) {
    std::cout << e.what() << '\n';
  }
}
