#pragma once

#include <vector>

#include "bench/partes.h"

// Fits of detections to the edges of a scene, against their plain form: points read one by one, 64
// samples, always all of the steps, every detection fitted finely. Then whole runs of
// vorplex-apura on 3 and 12 MP, on one core.
std::vector<LINHA> medeAjustes();
