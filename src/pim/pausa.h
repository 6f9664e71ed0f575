#pragma once

#include <functional>

namespace pim {

// What long work calls between pieces of some milliseconds; whatever it throws ends the work and
// reaches the caller. An empty one is never called.
using PAUSA = std::function<void()>;

}  // namespace pim
