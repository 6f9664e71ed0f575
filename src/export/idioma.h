#pragma once

#include <string>

#include "measure/distribuicao.h"

namespace exporta {

// The words of the exported files, all of them here, in both languages. Portuguese goes without
// accents, as in kernel.cfg and the program's messages.

enum class IDIOMA { pt, en };

struct FRASE {
  const char* pt;
  const char* en;
};

inline const char* diz(const FRASE& f, IDIOMA idioma) {
  return idioma == IDIOMA::en ? f.en : f.pt;
}

namespace frases {

inline constexpr FRASE foto = {"foto", "photograph"};
inline constexpr FRASE total = {"total", "total"};
inline constexpr FRASE falharam = {"falharam", "failed"};

// Columns of a grain.
inline constexpr FRASE indice = {"indice", "index"};
inline constexpr FRASE letra = {"letra", "letter"};
inline constexpr FRASE forma = {"forma", "shape"};
inline constexpr FRASE linha = {"linha", "row"};
inline constexpr FRASE coluna = {"coluna", "column"};
inline constexpr FRASE d1 = {"d1", "d1"};
inline constexpr FRASE d2 = {"d2", "d2"};
inline constexpr FRASE angulo = {"angulo_graus", "angle_deg"};
inline constexpr FRASE correlacao = {"correlacao", "correlation"};
inline constexpr FRASE area = {"area", "area"};
inline constexpr FRASE equivalente = {"diametro_equivalente", "equivalent_diameter"};
inline constexpr FRASE perimetro = {"perimetro", "perimeter"};
inline constexpr FRASE menor = {"diametro_menor", "minor_diameter"};
inline constexpr FRASE maior = {"diametro_maior", "major_diameter"};
inline constexpr FRASE alongamento = {"alongamento", "aspect_ratio"};
inline constexpr FRASE tocaBorda = {"toca_borda", "touches_border"};
inline constexpr FRASE apoio = {"apoio", "support"};
inline constexpr FRASE contraste = {"contraste", "contrast"};
inline constexpr FRASE erroLinha = {"erro_linha", "error_row"};
inline constexpr FRASE erroColuna = {"erro_coluna", "error_column"};
inline constexpr FRASE erroD1 = {"erro_d1", "error_d1"};
inline constexpr FRASE erroD2 = {"erro_d2", "error_d2"};
inline constexpr FRASE erroAngulo = {"erro_angulo_graus", "error_angle_deg"};

// Shapes, one and many.
inline constexpr FRASE grao = {"grao", "grain"};
inline constexpr FRASE circulo = {"circulo", "circle"};
inline constexpr FRASE quadrado = {"quadrado", "square"};
inline constexpr FRASE retangulo = {"retangulo", "rectangle"};
inline constexpr FRASE elipse = {"elipse", "ellipse"};
inline constexpr FRASE circulos = {"circulos", "circles"};
inline constexpr FRASE quadrados = {"quadrados", "squares"};
inline constexpr FRASE retangulos = {"retangulos", "rectangles"};
inline constexpr FRASE elipses = {"elipses", "ellipses"};

// Columns of a summary.
inline constexpr FRASE fotos = {"fotos", "photographs"};
inline constexpr FRASE graos = {"graos", "grains"};
inline constexpr FRASE naBorda = {"na_borda", "touching_border"};
inline constexpr FRASE areaDaFoto = {"area_da_foto", "photograph_area"};
inline constexpr FRASE densidade = {"graos_por", "grains_per"};
inline constexpr FRASE cobertura = {"cobertura", "coverage"};
inline constexpr FRASE grandeza = {"tamanho", "size"};
inline constexpr FRASE peso = {"peso", "weight"};
inline constexpr FRASE media = {"media", "mean"};
inline constexpr FRASE desvio = {"desvio_padrao", "standard_deviation"};
inline constexpr FRASE mediaPhi = {"media_fw", "fw_mean"};
inline constexpr FRASE selecao = {"selecao_fw", "fw_sorting"};
inline constexpr FRASE assimetria = {"assimetria_fw", "fw_skewness"};
inline constexpr FRASE curtose = {"curtose_fw", "fw_kurtosis"};
inline constexpr FRASE uniformidade = {"cu", "cu"};
inline constexpr FRASE curvatura = {"cc", "cc"};
inline constexpr FRASE retida = {"retida", "retained"};
inline constexpr FRASE passante = {"passante", "passing"};
inline constexpr FRASE fundo = {"fundo", "pan"};

inline constexpr FRASE de = {"de", "low"};
inline constexpr FRASE ate = {"ate", "high"};
inline constexpr FRASE reparo = {"reparo", "remark"};
inline constexpr FRASE umaFoto = {
    "intervalos de uma so fotografia: nada sabem de outros lugares",
    "intervals of a single photograph: they know nothing of other places"};

// Which size, and which weight.
inline constexpr FRASE numero = {"numero", "number"};
inline constexpr FRASE volume = {"volume", "volume"};

}  // namespace frases

// The name of a shape: "circulo" or "circle"; the letter itself when it names no shape.
std::string nomeDaForma(char forma, IDIOMA idioma);

// "diametro_equivalente" or "equivalent_diameter", and so on; "numero", "area" or "volume".
const char* nomeDaGrandeza(measure::GRANDEZA g, IDIOMA idioma);
const char* nomeDoPeso(measure::PESO p, IDIOMA idioma);

}  // namespace exporta
