#pragma once

// Sub-program `traca imagem.ppm imagem.ho1 saida.ppm [c|C] [i] [p|P]`: draws every record of a .ho1
// or .ho2 file over the image, without filtering. argv[0] is the sub-program's name.
void Traca(int argc, char** argv);
