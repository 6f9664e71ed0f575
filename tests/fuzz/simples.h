#pragma once

#include <string>
#include <string_view>
#include <vector>

// A file's text without the byte order mark that it may begin with.
std::string_view semMarca(std::string_view texto);

// All tokens of a text, by the plainest reading of the rules in pim/token.h.
std::vector<std::string> tokensSimples(std::string_view texto);
