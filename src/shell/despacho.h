#pragma once

// Prints the banner, runs the sub-program that argv[1] names (in any letter case) with the rest of
// the command line, prints the elapsed time and returns 0. Without a name, or with an unknown one,
// pim::erro.
int despacha(int argc, char** argv);

// Prints "Tempo gasto: S.CC segundos." for a time in hundredths of a second. A negative time is
// shown as truncating division gives it, both parts signed.
void mostraTempo(int centesimos);
