#pragma once

namespace shell {

// Whether the first argument asks for help or the version instead of naming a sub-program: -h,
// --ajuda, --help, -V, --versao or --version, and no other spelling.
bool pedeAjuda(int argc, char** argv);

// Prints what it asks for; returns the exit status, 2 for other options that are wrong.
int mostraAjuda(int argc, char** argv);

}  // namespace shell
