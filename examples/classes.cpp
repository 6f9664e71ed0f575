#include "examples/classes.h"

#include <string_view>

#include "pim/arquivo.h"

namespace {

constexpr unsigned bytesSemSinal = 50;  // the level 4 code of a full matrix, little end first
constexpr std::string_view variavel("classes\0", 8);

void acrescenta(std::vector<unsigned char>& bytes, std::size_t x) {
  for (unsigned desloc = 0; desloc < 32; desloc += 8) {
    bytes.push_back(static_cast<unsigned char>((x >> desloc) & 0xFFU));
  }
}

}  // namespace

void gravaClasses(const std::vector<unsigned char>& classes, const std::string& nome) {
  std::vector<unsigned char> bytes;
  acrescenta(bytes, bytesSemSinal);
  acrescenta(bytes, 1);  // rows
  acrescenta(bytes, classes.size());
  acrescenta(bytes, 0);  // not complex
  acrescenta(bytes, variavel.size());
  bytes.insert(bytes.end(), variavel.begin(), variavel.end());
  bytes.insert(bytes.end(), classes.begin(), classes.end());
  pim::gravaBytes(nome, bytes);
}
