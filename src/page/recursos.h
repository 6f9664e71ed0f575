#pragma once

#include <string_view>

namespace page {

// The files that the page is made of (template, style, scripts, libraries), which the build puts
// into the program. pim::erro when there is none of that name.
std::string_view recurso(std::string_view nome);

}  // namespace page
