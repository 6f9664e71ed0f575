#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

namespace pim {

// What a decoder made of a file: an image of 1 or 3 channels (blue, green, red) of 8 bits, or the
// reason why there is none.
struct RESULTADO {
  cv::Mat imagem;
  std::string erro;  // empty when all went well
};

// The image formats that other people's libraries read and write. Those libraries take a tenth of
// a second to load, so they live in a module of their own, which is opened at the first use.
struct CODECS {
  // Whether the file begins as some image format does; reads only its first bytes.
  bool (*reconhece)(const std::string& nome);

  // Decodes a whole image file held in memory.
  RESULTADO (*decodifica)(const std::vector<unsigned char>& bytes);

  // Encodes an image (8 bits of 1 or 3 channels; for "tiff" one float channel too) in the format
  // of the lower-case suffix `tipo`; false when the format does not exist or can't hold the image.
  bool (*codifica)(const std::string& tipo, const cv::Mat& img, std::vector<unsigned char>& bytes);

  // Reads the first two-dimensional numeric array of a MAT-file as bytes.
  RESULTADO (*leMat)(const std::string& nome);
};

// The table of the module "pimcodecs.so", which stands beside the executable or in the library
// folder it was installed with. pim::erro when it can't be opened.
const CODECS& codecs();

}  // namespace pim
