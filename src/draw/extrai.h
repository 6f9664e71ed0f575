#pragma once

// Sub-programs that cut a sample image around the detections of a photograph's .ho2 file: all of
// them, or those with the given indices. argv[0] is the sub-program's name.

// `extraiam imagem.jpg fatorZoom [f0 f1 ...]`: reads imagem.ho2 and writes imagemFFFF.png.
void ExtraiAm(int argc, char** argv);

// `extraicla imagem.jpg fatorZoom [f0 f1 ...]`: reads imagem.ho2 and the classes imagem.mat, and
// writes CC-FFFF.png to the current directory.
void ExtraiCla(int argc, char** argv);
