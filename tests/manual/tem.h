#pragma once

#include <cstdlib>
#include <string>

// Whether a program is installed here.
inline bool tem(const std::string& programa) {
  return std::system(("command -v " + programa + " >/dev/null 2>&1").c_str()) == 0;
}
