#pragma once

#include <string>
#include <vector>

#include "detect/maxlocal.h"
#include "filter/limiares.h"

namespace filter {

// What must hold of a list before `filtInter` works on it. pim::erro with `nome`, the name of the
// list (it may be empty), when a shape that the filter will draw is too large, or all of them are
// too much.
void exigeFiltraveis(const std::vector<MAXLOCAL>& v, const LIMIARES& limiares,
                     const std::string& nome);

}  // namespace filter
