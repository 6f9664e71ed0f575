#pragma once

#include <string>
#include <string_view>
#include <vector>

// All tokens of a text, by the plainest reading of the rules in pim/token.h.
std::vector<std::string> tokensSimples(std::string_view texto);
