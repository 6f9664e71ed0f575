#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace page {

// Text that people and file systems chose, made harmless for a page. Bytes that are not UTF-8 and
// NUL, which HTML forbids, become U+FFFD.

// `texto` as content of an element or as a quoted attribute.
std::string emHtml(const std::string& texto);

// `json` as content of a <script> element: no "<" is left that could end the element. In JSON it
// stands only within texts, where its code means the same.
std::string emScript(const std::string& json);

// Hands `modelo` to `poe` piece by piece; a mark {{name}} is replaced by whatever `preenche` puts
// there. What is put in is not searched for marks.
void expande(std::string_view modelo, const std::function<void(std::string_view)>& poe,
             const std::function<void(std::string_view nome)>& preenche);

}  // namespace page
