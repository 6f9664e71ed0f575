#include "page/html.h"

#include "export/valor.h"

namespace page {

std::string emHtml(const std::string& texto) {
  std::string s;
  for (const char c : exporta::emUtf8(texto)) {
    switch (c) {
      case '&':
        s += "&amp;";
        break;
      case '<':
        s += "&lt;";
        break;
      case '>':
        s += "&gt;";
        break;
      case '"':
        s += "&quot;";
        break;
      case '\'':
        s += "&#39;";
        break;
      case '\0':
        s += "\uFFFD";
        break;
      default:
        s += c;
    }
  }
  return s;
}

std::string emScript(const std::string& json) {
  std::string s;
  s.reserve(json.size());
  for (const char c : json) {
    if (c == '<') {
      s += "\\u003c";
    } else {
      s += c;
    }
  }
  return s;
}

void expande(std::string_view modelo, const std::function<void(std::string_view)>& poe,
             const std::function<void(std::string_view nome)>& preenche) {
  for (;;) {
    const std::size_t de = modelo.find("{{");
    const std::size_t ate = de == std::string_view::npos ? de : modelo.find("}}", de);
    if (ate == std::string_view::npos) break;
    poe(modelo.substr(0, de));
    preenche(modelo.substr(de + 2, ate - de - 2));
    modelo.remove_prefix(ate + 2);
  }
  poe(modelo);
}

}  // namespace page
