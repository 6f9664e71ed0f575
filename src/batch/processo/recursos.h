#pragma once

#include <cstdint>

namespace batch {

// How many processors this process may use.
int processadores();

// Bytes of memory that can be taken now without swapping, by the machine's and the control group's
// account; 0 when it can't be told.
std::uint64_t memoriaLivre();

// How many photographs to do at a time: as many as processors, as long as all fit the memory, and
// at least one. A search takes about 40 bytes a pixel and twice its kernels.
int quantasAoMesmoTempo(int processadores, std::uint64_t livre, double maiorPixels,
                        std::uint64_t bytesDosKernels);

}  // namespace batch
