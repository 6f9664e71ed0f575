#pragma once

namespace pim {

// Hundredths of a second since a fixed origin, from a clock that never jumps. The count wraps at
// 2^32: take differences with `diferencaCentseg`.
int centseg();

// `fim` - `inicio` of two `centseg` readings as a signed number, correct across the wrap.
int diferencaCentseg(int inicio, int fim);

}  // namespace pim
