#pragma once

#include <cstdint>
#include <string>
#include <vector>

inline std::string inteiros(const std::vector<std::int32_t>& v) {
  return {reinterpret_cast<const char*>(v.data()), v.size() * sizeof(std::int32_t)};
}

// A level 5 MAT-file of one array "classe" of bytes; `porColunas` holds them column by column.
inline std::string matDeClasses(int rows, int cols, const std::string& porColunas) {
  constexpr int miInt8 = 1;
  constexpr int miUint8 = 2;
  constexpr int miInt32 = 5;
  constexpr int miUint32 = 6;
  constexpr int miMatrix = 14;
  constexpr int classeUint8 = 9;
  const auto tamanho = static_cast<std::int32_t>(porColunas.size());
  std::string dados = porColunas;
  dados.resize((dados.size() + 7) / 8 * 8);
  const std::string corpo = inteiros({miUint32, 8, classeUint8, 0, miInt32, 8, rows, cols}) +
                            inteiros({miInt8, 6}) + std::string("classe\0\0", 8) +
                            inteiros({miUint8, tamanho}) + dados;
  std::string cabeca = "MATLAB 5.0 MAT-file";
  cabeca.resize(124, ' ');
  cabeca += std::string("\x00\x01IM", 4);
  return cabeca + inteiros({miMatrix, static_cast<std::int32_t>(corpo.size())}) + corpo;
}
