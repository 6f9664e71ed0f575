#pragma once

#include <string>
#include <vector>

// Writes one class for each detection as the MAT-file (level 4) of one row that `extraicla` reads.
// pim::erro when the file can't be written whole.
void gravaClasses(const std::vector<unsigned char>& classes, const std::string& nome);
