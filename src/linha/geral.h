#pragma once

#include <array>
#include <string>

#include "linha/linha.h"
#include "linha/programa.h"

// The options that every program has.

namespace linha {

enum GERAL { idioma = 1024, quieto };

inline constexpr std::array<FRASE, 2> idiomas = {{{"pt", "pt"}, {"en", "en"}}};

inline constexpr std::array<OPCAO, 4> opcoesGerais = {{
    {idioma,
     "idioma",
     "language",
     {"língua das mensagens e dos resultados (default: a do ambiente)",
      "language of messages and results (default: that of the environment)"},
     {"pt|en", "pt|en"},
     idiomas},
    {quieto, "quieto", "quiet", {"diz apenas erros e avisos", "tells errors and warnings only"}},
    {'h', "ajuda", "help", {"mostra este texto", "shows this text"}},
    {'V', "versao", "version", {"mostra a versão", "shows the version"}},
}};

inline constexpr GRUPO geral = {{"Geral", "General"}, opcoesGerais};

// Whether `letra` is one of them.
bool ehGeral(int letra);

// Stores one of them in a record that has `idioma`, `quieto`, `ajuda` and `versao`; returns why its
// value was refused, or null.
template <class OPCOES>
const FRASE* guardaGeral(int letra, const std::string& valor, OPCOES& o) {
  if (letra == idioma) return lePalavra(valor, idiomas, o.idioma) ? nullptr : &frases::idiomaRuim;
  o.quieto |= letra == quieto;
  o.ajuda |= letra == 'h';
  o.versao |= letra == 'V';
  return nullptr;
}

// The language that the environment asks for by the first of LC_ALL, LC_MESSAGES and LANG that is
// set and not empty: Portuguese for pt*, C and POSIX and when none is set, English for all others.
exporta::IDIOMA idiomaDoAmbiente();

}  // namespace linha
