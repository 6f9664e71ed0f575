#pragma once

// Sub-program `contaform`: prints, for every .ho2 file of the current directory by name, the name
// and the first word of the file, which is its number of detections. Arguments are ignored. A file
// that can't be opened ends the run through pim::erro after the others have been printed.
void ContaForm(int argc, char** argv);
