#pragma once

#include <string>

// Ends the run with `texto` unless `valida`; the fuzzer then keeps the input.
void confere(bool valida, const std::string& texto);
void confere(bool valida, const char* texto);
