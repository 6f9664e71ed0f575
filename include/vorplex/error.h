#pragma once

#include <stdexcept>

namespace vorplex {

// What every function of the library throws when it can't do what it is asked for: arguments out of
// range, bad text, files that can't be read or written, and failed assertions of its own. what() is
// one line; what the programs say too is in Portuguese, as they say it. When memory runs out,
// std::bad_alloc is thrown instead.
//
// A function that throws has changed nothing, and what it had half written to a file is removed.
class [[gnu::visibility("default")]] Error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A search or refinement ended because its callback returned false.
class [[gnu::visibility("default")]] Cancelled : public Error {
 public:
  using Error::Error;
};

}  // namespace vorplex
