#pragma once

#include <string>

#include "sugere/escolha.h"

namespace sugere {

enum class LINGUA { pt, en };

// The choice as a kernel.cfg that `leKernels` reads: comments say what was found, and one of them
// (recado.h) what no kernel can. The same choice gives the same bytes.
std::string emKernelCfg(const ESCOLHA& e, LINGUA lingua);

}  // namespace sugere
