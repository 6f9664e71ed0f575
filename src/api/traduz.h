#pragma once

// Errors of the subsystems as those that other programs are told of.

namespace api {

// Throws the exception being handled again: std::bad_alloc and what is vorplex::Error already as it
// is, a search that was told to end as vorplex::Cancelled, all others as vorplex::Error.
[[noreturn]] void relanca();

// Carries out `trabalho` and returns what it returns.
template <class TRABALHO>
auto traduz(TRABALHO trabalho) {
  try {
    return trabalho();
  } catch (...) {
    relanca();
  }
}

}  // namespace api
